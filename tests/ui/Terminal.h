#pragma once

#include "support/HouseProcess.h"

#include <QQmlApplicationEngine>
#include <QRectF>
#include <QTemporaryDir>
#include <QTimer>
#include <QVariant>

#include <functional>
#include <memory>
#include <vector>

class QQuickItem;

/// A reply of the back end that carries this.
inline QJsonObject ok(const QJsonValue& data) { return {{"code", "200"}, {"msg", ""}, {"data", data}}; }

/// Makes test rows of a table that is written as a text: a row each line, or more lines where the further ones
/// are indented; fields are parted by " ; ", and QFETCH(QStringList, row) has them.
void addRows(const char* table);

/// The fields that are not as expected, with what they are; of an answer more fields don't count.
QString unlike(const QJsonObject& answer, const QString& expectedJson);

/// Fails the test with the step at which a road broke off.
#define WALKED(road) QCOMPARE((road).run(), QString())

/// The whole terminal in the test's process, its real pages and view-models, with the demo house behind it;
/// driven like a person would, by taps. One for a test program, since the shared state lives as long as the
/// process.
class Terminal
{
public:
    /// Starts the house and the pages and waits for the main page; isUp() tells whether it came. A house that
    /// is spoilt before the pages begin is not waited for.
    explicit Terminal(const std::function<void(HouseProcess&)>& spoil = {});
    ~Terminal();

    bool isUp() const;
    HouseProcess& house() { return m_house; }

    // A road through the pages is a list of steps. A dialog holds the caller's stack, so that the steps are
    // worked off by a timer, in whatever event loop runs; each waits until it can be done, for ten seconds at
    // most.

    /// The steps of a road in short, one word each: `name` taps the visible item with this object name once the
    /// terminal takes input, `#12` taps keys, `@123` presents a staff card, `+name` waits until an item is
    /// visible and `-name` until none is, `?name.property=value` waits for a value and `!name.property=value`
    /// sets one, `~ms` lets time pass, `=type|text` waits for the next message, which must be this one.
    Terminal& walk(const QString& road);
    /// A tap alone.
    Terminal& tap(const QString& name);
    /// Taps all of them before any of the taps has had an effect, as a bouncing finger or two hands do. The
    /// same name may stand there twice.
    Terminal& tapTogether(const QStringList& names);
    /// Slides over the item with the finger down, by so many pixels.
    Terminal& drag(const QString& name, const QPoint& by);
    /// Taps a module's tile and logs in by number and password.
    Terminal& login(const QString& tile, const QString& number, const QString& password);
    /// Waits until the condition holds.
    Terminal& until(const QString& what, const std::function<bool()>& condition);
    /// Opens a dialog as a page would, or asks by a function of Ask.js; result() has what came of it.
    Terminal& open(const QString& dialog, const QVariantMap& properties = {});
    Terminal& ask(const QString& function, const QVariant& argument = {});
    /// Waits until what was opened or asked has returned.
    Terminal& returned();
    QVariant result() const { return m_result; }
    /// Saves what the screen shows, when the environment asks for pictures (scripts/pictures.sh); else does
    /// nothing.
    Terminal& picture(const QString& name);
    /// Does something in between.
    Terminal& act(const std::function<void()>& action);
    /// Works off all steps; the empty text, or which step failed. A failure closes every dialog.
    QString run();

    /// The visible item with this name, in the window on top that has one; null without.
    QQuickItem* item(const QString& name) const;
    QVariant property(const QString& name, const char* property) const;
    QString text(const QString& name) const { return property(name, "text").toString(); }
    /// The texts of the messages shown since the last call, each as "type|text", and what the pages complain of
    /// as "page|text".
    QStringList takeMessages();

private:
    struct Step
    {
        QString what;
        std::function<bool()> tryIt;
    };

    Terminal& add(const QString& what, const std::function<bool()>& tryIt);
    Terminal& walkWord(const QString& word);
    Terminal& call(const char* method, const QString& name, const QVariant& argument);
    bool writeCard(const QString& number);
    bool hear(const QString& message);
    void tick();
    bool tapNow(const QString& name);
    QQuickItem* readyItem(const QString& name);
    bool isSettled(QQuickItem* target);
    void closeEverything();
    void connectReader();

    HouseProcess m_house;
    int m_readerLine = -1; ///< the reader's end of its serial line
    QTemporaryDir m_folder;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    QTimer m_timer;
    std::vector<Step> m_steps;
    size_t m_next = 0;
    int m_waitedTicks = 0;
    QQuickItem* m_target = nullptr; ///< what is to be tapped, only compared
    QRectF m_targetPlace;           ///< where it was at the last tick
    int m_settledTicks = 0;
    QString m_failure;
    std::unique_ptr<QObject> m_page; ///< stands for a page that opens dialogs
    QVariant m_result;
    bool m_hasReturned = false;
    QStringList m_messages;
};
