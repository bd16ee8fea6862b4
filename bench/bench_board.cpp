// A refresh of the room board, from the reply's bytes to the rendered frame, against the same refresh with a
// model reset; and the memory after many refreshes.

#include "Measure.h"
#include "SampleRooms.h"

#include "entry/Pages.h"
#include "serialization/QJsonSerializer.h"
#include "vm/module1/RoomListModel.h"

#include <QFile>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>

#include <unistd.h>

namespace {

constexpr int rounds = 60;
constexpr int columns = 10;
constexpr int memoryRooms = 60;
constexpr int firstRefreshes = 100;
constexpr int allRefreshes = 10000;

/// The same room before (0) and after (1) guests came: most of what its tile shows differs.
QJsonObject roomIn(int number, int phase)
{
    QJsonObject room = sampleRoom(number);
    const bool isInUse = (number + phase) % 2 == 0;
    room.insert("status", isInUse ? 2 : 1);
    room.insert("statusStr", isInUse ? QStringLiteral("按摩房") : QStringLiteral("空闲房"));
    room.insert("surplus", number % 120 - 30 * phase);
    room.insert("cardnos", QString::number(1000 + number + phase));
    return room;
}

/// The reply in this phase; of a hundred rooms only so many follow it.
QByteArray boardReply(int rooms, int phase, int changedOf100)
{
    QJsonArray list;
    for (int i = 0; i < rooms; ++i)
        list.append(roomIn(i, i * 37 % 100 < changedOf100 ? phase : 0));
    return QJsonDocument(QJsonObject{{"code", "200"}, {"msg", "ok"}, {"data", list}})
        .toJson(QJsonDocument::Compact);
}

/// The grid of the board in a window of the usual screen's size.
class Board
{
public:
    explicit Board(bool isReset) : m_isReset(isReset)
    {
        loadFonts(*m_view.engine(), QCoreApplication::applicationDirPath());
        m_view.setResizeMode(QQuickView::SizeRootObjectToView);
        m_view.setSource(QUrl("qrc:/qml/Module1/RoomGrid.qml"));
        m_view.rootObject()->setProperty("columns", columns);
        m_view.rootObject()->setProperty("model", QVariant::fromValue(&m_model));
        m_view.resize(1920, 1080);
        m_view.show();
        QGuiApplication::processEvents();
    }

    void refresh(const QByteArray& reply)
    {
        GetRoomListDto record;
        QJsonSerializer().deserializeObject(QJsonDocument::fromJson(reply).object(), &record,
                                            &GetRoomListDto::staticMetaObject);
        if (m_isReset)
            reset(record);
        else
            m_model.update(record.data());
        // Polishes, paints and hands over the frame before it returns.
        QEvent update(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(&m_view, &update);
    }

private:
    void reset(const GetRoomListDto& record)
    {
        QVector<RoomTile> tiles;
        for (const RoomDto* room : record.data())
            tiles.append(tileOf(*room, false));
        m_model.replace(tiles);
    }

    const bool m_isReset;
    RoomListModel m_model;
    QQuickView m_view;
};

double residentKilobytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    return statm.readAll().split(' ').value(1).toDouble() * static_cast<double>(::sysconf(_SC_PAGESIZE)) / 1024;
}

/// Ends what was left to be deleted later, which without a running event loop nobody does.
void settle()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QGuiApplication::processEvents();
}

void measureRefresh(int rooms, int changedOf100, double goal)
{
    Board inPlace(false);
    Board byReset(true);
    const QByteArray replies[] = {boardReply(rooms, 0, changedOf100), boardReply(rooms, 1, changedOf100)};
    std::vector<double> base, measured;
    for (int i = 0; i < rounds; ++i) {
        const QByteArray& reply = replies[i % 2];
        const double resetUs = Measure::microseconds([&] { byReset.refresh(reply); });
        const double inPlaceUs = Measure::microseconds([&] { inPlace.refresh(reply); });
        settle();
        if (i < 4)
            continue; // first frames fill caches
        base.push_back(resetUs / 1000);
        measured.push_back(inPlaceUs / 1000);
    }
    const QByteArray what = QStringLiteral("board of %1 rooms, %2 of 100 changed: in place / reset")
                                .arg(rooms)
                                .arg(changedOf100)
                                .toUtf8();
    Measure::printRatio(what.constData(), "ms", Measure::median(base), Measure::median(measured), goal);
}

void measureMemory()
{
    Board board(false);
    const QByteArray replies[] = {boardReply(memoryRooms, 0, 5), boardReply(memoryRooms, 1, 5)};
    double early = 0;
    for (int i = 1; i <= allRefreshes; ++i) {
        board.refresh(replies[i % 2]);
        settle();
        if (i == firstRefreshes)
            early = residentKilobytes();
    }
    Measure::printRatio("memory after 10,000 refreshes / after 100", "kB", early, residentKilobytes(), 1.05);
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    QGuiApplication application(argc, argv);
    for (const int rooms : {60, 300, 2000}) {
        measureRefresh(rooms, 5, 0.4);
        measureRefresh(rooms, 100, 1.0);
    }
    measureMemory();
    return 0;
}
