#pragma once

#include "support/HouseProcess.h"

#include <QQmlApplicationEngine>
#include <QRectF>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

class QQuickItem;
class QQuickWindow;

/// The whole terminal in the test's process, its real pages and view-models, with the demo house behind it;
/// driven like a person would, by taps. One for a test program, since the shared state lives as long as the
/// process.
class Terminal
{
public:
    /// Starts the house and the pages and waits for the main page; isUp() tells whether it came.
    Terminal();
    ~Terminal();

    bool isUp() const;
    HouseProcess& house() { return m_house; }

    // A road through the pages is a list of steps. A dialog holds the caller's stack, so that the steps are
    // worked off by a timer, in whatever event loop runs; each waits until it can be done, for ten seconds at
    // most.

    /// Taps the visible item with this object name once the terminal takes input.
    Terminal& tap(const QString& name);
    /// Taps all of them before any of the taps has had an effect, as a bouncing finger or two hands do. The
    /// same name may stand there twice.
    Terminal& tapTogether(const QStringList& names);
    /// Taps the keys of the dialog on top one after the other.
    Terminal& keys(const QString& text);
    /// Taps a module's tile and logs in by number and password.
    Terminal& login(const QString& tile, const QString& number, const QString& password);
    /// Waits until an item with this name is visible, or none is.
    Terminal& see(const QString& name);
    Terminal& seeNot(const QString& name);
    /// Waits until the condition holds.
    Terminal& until(const QString& what, const std::function<bool()>& condition);
    /// Presents a staff card to the reader.
    Terminal& presentCard(const QByteArray& number);
    /// Opens a dialog as a page would; result() has what it returned once it has closed.
    Terminal& open(const QString& dialog, const QVariantMap& properties = {});
    /// Waits until the dialog that open() opened has returned.
    Terminal& returned();
    QVariantMap result() const { return m_result; }
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
    /// The texts of the messages shown since the last call, each as "type|text".
    QStringList takeMessages();

private:
    struct Step
    {
        QString what;
        std::function<bool()> tryIt;
    };

    Terminal& add(const QString& what, const std::function<bool()>& tryIt);
    void tick();
    bool tapNow(const QString& name);
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
    QVariantMap m_result;
    bool m_hasReturned = false;
    QStringList m_messages;
};
