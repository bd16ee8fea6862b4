// The till's catalogue from the reply's bytes to the rendered frame, a tap with a full cart, and scrolling.

#include "Measure.h"

#include "entry/Pages.h"
#include "serialization/QJsonSerializer.h"
#include "vm/module2/Module2Vm.h"

#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

namespace {

constexpr int rounds = 40;
constexpr int firstRounds = 4; ///< fill caches, and don't count
constexpr int cartLines = 200;
constexpr double frameMs = 1000.0 / 60;

const char page[] = R"(
import QtQuick 2.15
import "../Components"
Rectangle {
    id: page
    property bool isOther: false
    color: isOther ? "#D9EFFE" : "#D9EFFF"
    NewLines { width: 450; height: parent.height; vm: till }
    CatalogueView { objectName: "catalogue"; x: 460; width: parent.width - x; height: parent.height; vm: till }
}
)";

/// A category's items as the back end sends them; another phase is another category of the same length.
QByteArray itemReply(int items, int phase)
{
    QJsonArray list;
    for (int i = 0; i < items; ++i)
        list.append(QJsonObject{{"id", QString("4058000000%1%2").arg(phase).arg(i)},
                                {"name", QString(phase ? "贵宾茉莉花茶%1" : "矿泉水%1").arg(i)},
                                {"price", 10.5 + i + phase},
                                {"unit", phase ? "壶" : "瓶"},
                                {"sell_flg", 1},
                                {"server_type", 1},
                                {"tagId", 0},
                                {"worker_type", ""},
                                {"is_desk_no", 0},
                                {"is_pack_ticket", 0},
                                {"times", 0}});
    return QJsonDocument(QJsonObject{{"code", "200"}, {"data", QJsonObject{{"itemList", list}}}}).toJson();
}

/// The till's page in a window of the usual screen's size.
class Till
{
public:
    Till() : m_component(m_view.engine())
    {
        loadFonts(*m_view.engine(), QCoreApplication::applicationDirPath());
        m_till.setAreaId("A");
        m_till.setAreaName("休息厅");
        m_view.rootContext()->setContextProperty("till", &m_till);
        m_component.setData(page, QUrl("qrc:/qml/Module2/Bench.qml"));
        m_view.setResizeMode(QQuickView::SizeRootObjectToView);
        m_view.setContent({}, &m_component, m_component.create(m_view.rootContext()));
        m_view.resize(1920, 1080);
        m_view.show();
        QGuiApplication::processEvents();
        m_grid = m_view.rootObject()->findChild<QQuickItem*>("itemGrid");
    }

    Module2Vm& vm() { return m_till; }

    /// Polishes, paints and hands over the frame before it returns.
    void frame()
    {
        QEvent update(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(&m_view, &update);
    }
    /// A frame in which the whole page is painted, and nothing else happens.
    void bareFrame()
    {
        m_isOther = !m_isOther;
        m_view.rootObject()->setProperty("isOther", m_isOther);
        frame();
    }
    void show(const QByteArray& reply, bool isReset)
    {
        GetItemList record;
        QJsonSerializer().deserializeObject(QJsonDocument::fromJson(reply).object(), &record,
                                            &GetItemList::staticMetaObject);
        if (isReset) {
            ItemModel rows;
            rows.update(record.data()->itemList());
            m_till.itemList()->replace(rows.rows());
        } else {
            m_till.itemList()->update(record.data()->itemList());
        }
        frame();
    }
    void scrollTo(double y)
    {
        m_grid->setProperty("contentY", y);
        frame();
    }
    /// Ends what was left to be deleted later, and takes in pictures.
    static void settle()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QGuiApplication::processEvents();
    }

private:
    Module2Vm m_till;
    QQuickView m_view;
    QQmlComponent m_component;
    QQuickItem* m_grid = nullptr;
    bool m_isOther = false;
};

template <typename Base, typename Other>
std::pair<double, double> sideBySide(Base base, Other other)
{
    std::vector<double> bases, others;
    for (int i = 0; i < rounds; ++i) {
        double baseMs = 0, otherMs = 0;
        const bool isBaseFirst = i / 2 % 2 == 0; // who comes second meets other caches
        if (isBaseFirst)
            baseMs = Measure::cpuMicroseconds([&] { base(i); }) / 1000;
        otherMs = Measure::cpuMicroseconds([&] { other(i); }) / 1000;
        if (!isBaseFirst)
            baseMs = Measure::cpuMicroseconds([&] { base(i); }) / 1000;
        Till::settle();
        if (i < firstRounds)
            continue;
        bases.push_back(baseMs);
        others.push_back(otherMs);
    }
    return {Measure::median(bases), Measure::median(others)};
}

void measureCatalogue()
{
    Till few, many, byReset;
    const QByteArray fewItems[] = {itemReply(300, 0), itemReply(300, 1)};
    const QByteArray manyItems[] = {itemReply(3000, 0), itemReply(3000, 1)};
    const auto kept = [](Till& till, const QByteArray* replies) {
        return [&till, replies](int i) { till.show(replies[i % 2], false); };
    };
    const auto reset = [&byReset](const QByteArray* replies) {
        return [&byReset, replies](int i) { byReset.show(replies[i % 2], true); };
    };
    const auto line = [](const char* what, std::pair<double, double> medians, double goal) {
        Measure::printRatio(what, "ms", medians.first, medians.second, goal);
    };
    line("catalogue of 300 items: in place / reset", sideBySide(reset(fewItems), kept(few, fewItems)), 0.5);
    line("catalogue of 3,000 items: in place / reset", sideBySide(reset(manyItems), kept(many, manyItems)),
         0.5);
    line("catalogue of 3,000 items / of 300: bytes to frame",
         sideBySide(kept(few, fewItems), kept(many, manyItems)), 10);
    line("catalogue of 3,000 items / of 300: a bare frame",
         sideBySide([&](int) { few.bareFrame(); }, [&](int) { many.bareFrame(); }), 1.2);
}

void measureTap()
{
    Till till;
    till.show(itemReply(300, 0), false);
    for (int line = 0; line < cartLines; ++line)
        till.vm().addNewItem(line, {{"itemName", QString("矿泉水%1").arg(line)}, {"num", 1}, {"price", 10.5}});
    const auto [bare, tap] = sideBySide([&](int) { till.bareFrame(); },
                                        [&](int i) {
                                            till.vm().tapItem(i * 7 % cartLines);
                                            till.frame();
                                        });
    Measure::printRatio("a merging tap with 200 lines in the cart / a bare frame", "ms", bare, tap, 1.5);
}

void measureScrolling()
{
    Till till;
    till.show(itemReply(3000, 0), false);
    std::vector<double> frames;
    for (int i = 0; i < 300; ++i) {
        frames.push_back(Measure::cpuMicroseconds([&] { till.scrollTo(i * 40); }) / 1000);
        Till::settle();
    }
    Measure::printRatio("scrolling 3,000 tiles: a frame / that of 60 a second", "ms", frameMs,
                        Measure::median(frames), 1);
    std::sort(frames.begin(), frames.end());
    Measure::printRatio("likewise, the 95th of 100 frames", "ms", frameMs, frames[frames.size() * 95 / 100], 0);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    QGuiApplication application(argc, argv);
    registerSingletons();
    registerTypes();
    measureCatalogue();
    measureTap();
    measureScrolling();
    return 0;
}
