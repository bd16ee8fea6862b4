#include "common/BaseObject.h"
#include "devices/ReaderStacks.h"

#include <QtTest>

#include <functional>
#include <memory>

namespace {

/// Notes what it is told, with its own name in front.
class Listener : public BaseObject
{
public:
    Listener(const QString& name, QStringList* heard) : m_name(name), m_heard(heard) {}

    void readingExec(QString text) override { hear(QStringLiteral("staff"), text); }
    void readingHandExec(QString text) override { hear(QStringLiteral("hand"), text); }

    std::function<void()> onReading;

private:
    void hear(const QString& reader, const QString& text)
    {
        m_heard->append(QStringLiteral("%1 %2 %3").arg(m_name, reader, text));
        if (onReading)
            onReading();
    }

    const QString m_name;
    QStringList* m_heard;
};

} // namespace

class tst_reader_stacks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rules_data();
    void rules();
    void readersAreIndependent();
    void listenerWithoutInterest();
    void listenersChangedWhileReading();
};

/// A step is a letter and a listener's name: + registers, - takes off, x destroys without a word, ! reads.
void tst_reader_stacks::rules_data()
{
    struct Row
    {
        const char* row;
        QString steps;
        QString heard; // the listeners' names, in order
    };
    const Row rows[] = {
        {"nobody", "!", ""},
        {"one", "+a ! !", "aa"},
        {"last registered", "+a +b ! +c !", "bc"},
        {"older one again", "+a +b ! -b !", "ba"},
        {"out of the middle", "+a +b +c -b ! -c !", "ca"},
        {"from the bottom", "+a +b -a ! -b !", "b"},
        {"twice stands once, on top", "+a +b +a ! -a ! -a -b !", "ab"},
        {"taking off a stranger", "+a -b ! -a -a !", "a"},
        {"destroyed on top", "+a +b xb !", "a"},
        {"destroyed in the middle", "+a +b +c xb -c !", "a"},
        {"destroyed alone", "+a xa ! +b !", "b"},
    };
    QTest::addColumn<QString>("steps");
    QTest::addColumn<QString>("heard");
    for (const Row& row : rows)
        QTest::newRow(row.row) << row.steps << row.heard;
}

void tst_reader_stacks::rules()
{
    QFETCH(QString, steps);
    QFETCH(QString, heard);
    for (const ReaderStacks::Reader reader : {ReaderStacks::Staff, ReaderStacks::Hand}) {
        ReaderStacks stacks;
        QStringList log;
        QHash<QString, std::shared_ptr<Listener>> listeners;
        for (const QString& name : {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")})
            listeners.insert(name, std::make_shared<Listener>(name, &log));
        for (const QString& step : steps.split(QLatin1Char(' '))) {
            const QString name = step.mid(1);
            if (step.startsWith(QLatin1Char('+')))
                stacks.push(reader, listeners.value(name).get());
            else if (step.startsWith(QLatin1Char('-')))
                stacks.remove(reader, listeners.value(name).get());
            else if (step.startsWith(QLatin1Char('x')))
                listeners.remove(name);
            else
                stacks.deliver(reader, QStringLiteral("A1B2"));
        }
        QStringList expected;
        for (const QChar name : heard)
            expected.append(
                QStringLiteral("%1 %2 A1B2").arg(name).arg(reader == ReaderStacks::Staff ? "staff" : "hand"));
        QCOMPARE(log, expected);
    }
}

void tst_reader_stacks::readersAreIndependent()
{
    ReaderStacks stacks;
    QStringList heard;
    Listener page(QStringLiteral("page"), &heard);
    Listener dialog(QStringLiteral("dialog"), &heard);
    stacks.push(ReaderStacks::Hand, &page);
    stacks.push(ReaderStacks::Staff, &page);
    stacks.push(ReaderStacks::Staff, &dialog);
    stacks.deliver(ReaderStacks::Hand, QStringLiteral("1"));
    stacks.deliver(ReaderStacks::Staff, QStringLiteral("2"));
    stacks.remove(ReaderStacks::Hand, &dialog);
    stacks.deliver(ReaderStacks::Hand, QStringLiteral("3"));
    QCOMPARE(heard, (QStringList{"page hand 1", "dialog staff 2", "page hand 3"}));
}

void tst_reader_stacks::listenerWithoutInterest()
{
    ReaderStacks stacks;
    QStringList heard;
    Listener below(QStringLiteral("below"), &heard);
    BaseObject holder;
    stacks.push(ReaderStacks::Staff, &below);
    stacks.push(ReaderStacks::Staff, &holder);
    stacks.deliver(ReaderStacks::Staff, QStringLiteral("1"));
    QVERIFY(heard.isEmpty());
    stacks.remove(ReaderStacks::Staff, &holder);
    stacks.deliver(ReaderStacks::Staff, QStringLiteral("2"));
    QCOMPARE(heard, QStringList{"below staff 2"});
}

void tst_reader_stacks::listenersChangedWhileReading()
{
    ReaderStacks stacks;
    QStringList heard;
    Listener page(QStringLiteral("page"), &heard);
    auto dialog = std::make_unique<Listener>(QStringLiteral("dialog"), &heard);
    stacks.push(ReaderStacks::Staff, &page);
    stacks.push(ReaderStacks::Staff, dialog.get());
    // A dialog that a card closes takes itself off and goes, and its page may read on at once.
    dialog->onReading = [&] {
        stacks.remove(ReaderStacks::Staff, dialog.get());
        stacks.deliver(ReaderStacks::Staff, QStringLiteral("nested"));
        dialog.release()->deleteLater();
    };
    stacks.deliver(ReaderStacks::Staff, QStringLiteral("1"));
    stacks.deliver(ReaderStacks::Staff, QStringLiteral("2"));
    QCOMPARE(heard, (QStringList{"dialog staff 1", "page staff nested", "page staff 2"}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QTEST_GUILESS_MAIN(tst_reader_stacks)
#include "tst_reader_stacks.moc"
