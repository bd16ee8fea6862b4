#include "inspect/LookRunner.h"

#include "common/MyMessage.h"
#include "inspect/Legibility.h"
#include "inspect/ScreenItems.h"
#include "net/NetServer.h"

#include <QDebug>
#include <QDir>
#include <QGuiApplication>
#include <QPainter>
#include <QQmlEngine>
#include <QQuickWindow>

#include <cstdio>

namespace {

constexpr int tickMs = 50;
/// The starting page rests for half a second before its work.
constexpr int missingTicks = 3000 / tickMs;
/// A call that isn't answered takes up to 155 s: five tries of 30 s and the pauses between.
constexpr int limitTicks = 170000 / tickMs;

/// No call is under way, not even one that lets the user's input through.
bool isQuiet() { return takesInput() && NetWorkUtls::NetServer::underWay() == 0; }

} // namespace

LookRunner::LookRunner(QQmlEngine& engine, const QString& pictureFolder, QObject* parent)
    : QObject(parent), m_pictureFolder(pictureFolder)
{
    connect(&engine, &QQmlEngine::warnings, this, [this](const QList<QQmlError>& warnings) {
        for (const QQmlError& warning : warnings)
            m_complaints.append(warning.toString());
    });
    connect(MyMessage::getInstance(), &MyMessage::showMessageSignal, this,
            [this](const QString& text, const QString& type) {
                if (type == QLatin1String("error"))
                    hear(text.isEmpty() ? QStringLiteral("an error without a text") : text);
            });
    connect(&m_timer, &QTimer::timeout, this, &LookRunner::tick);
}

void LookRunner::start()
{
    if (!m_pictureFolder.isEmpty() && !QDir().mkpath(m_pictureFolder)) {
        report(QStringLiteral("FAILED  the folder of the pictures can't be made: ") + m_pictureFolder);
        ++m_failed;
    }
    m_timer.start(tickMs);
}

void LookRunner::report(const QString& line)
{
    std::fputs(qPrintable(line + QLatin1Char('\n')), stdout);
    std::fflush(stdout);
    qDebug().noquote() << "selftest:" << line;
}

/// What the user is told.
void LookRunner::hear(const QString& error)
{
    const QString barring = m_hasBegun ? m_looks.front().barring : QString();
    if (!barring.isEmpty() && error.contains(barring))
        m_isBarred = true;
    (m_countsMessages && !m_isBarred ? m_complaints : m_remarks).append(error);
}

/// A dialog holds the stack of whoever opens it, so that everything is done from here, in whatever event loop
/// runs.
void LookRunner::tick()
{
    if (m_isTicking)
        return;
    m_isTicking = true;
    // What opens inside the wait of a call keeps that call from ending.
    if (m_hasBegun)
        watch();
    else if (isQuiet())
        begin();
    m_isTicking = false;
}

void LookRunner::begin()
{
    if (m_looks.empty()) {
        m_timer.stop();
        report(QStringLiteral("%1 looked at, %2 failed").arg(m_looked).arg(m_failed));
        Q_EMIT finished(m_failed);
        return;
    }
    m_hasBegun = true;
    m_isBarred = false;
    m_ticks = m_stillTicks = m_missingTicks = 0;
    QTimer::singleShot(0, this, m_looks.front().open);
}

void LookRunner::watch()
{
    closeUninvited();
    QObject* seen = m_looks.front().find();
    if (auto* page = qobject_cast<QQuickItem*>(seen)) // a page may ask its user something at once
        finish(dialogsOver(page));
    const bool quiet = isQuiet();
    m_stillTicks = quiet && seen ? m_stillTicks + 1 : 0;
    m_missingTicks = quiet && !seen ? m_missingTicks + 1 : 0;
    if (m_isBarred && quiet && !seen) {
        end(nullptr);
    } else if (m_stillTicks * tickMs > m_looks.front().stillMs) {
        end(seen);
    } else if (m_missingTicks > missingTicks) {
        // With nobody logged in a module may close by itself.
        (m_countsMessages ? m_complaints : m_remarks).append(QStringLiteral("it didn't open"));
        end(seen);
    } else if (++m_ticks > limitTicks) {
        m_complaints.append(QStringLiteral("it didn't come to rest"));
        end(seen);
    }
}

void LookRunner::end(QObject* seen)
{
    const Look look = m_looks.front();
    m_looks.pop_front();
    m_hasBegun = false;
    ++m_looked;
    if (seen && look.isPictured && !m_pictureFolder.isEmpty() && !isPictureSaved(look.name))
        m_complaints.append(QStringLiteral("its picture can't be saved"));
    if (seen && look.isPictured && m_isStrict)
        readThrough(seen);
    m_failed += m_complaints.isEmpty() ? 0 : 1;
    QStringList said = m_complaints + m_remarks;
    said.removeDuplicates();
    const QString mark = m_complaints.isEmpty() ? QStringLiteral("ok      ") : QStringLiteral("FAILED  ");
    report(mark + look.name +
           (said.isEmpty() ? QString() : QStringLiteral(": ") + said.join(QLatin1String("; "))));
    m_complaints.clear();
    m_remarks.clear();
    if (seen && look.close)
        look.close(seen);
}

void LookRunner::finish(const QObjectList& dialogs)
{
    for (QObject* dialog : dialogs)
        QMetaObject::invokeMethod(dialog, "finish", Q_ARG(QVariant, false));
}

/// A dialog that a call opens waits for a user, who isn't there.
void LookRunner::closeUninvited()
{
    for (const char* name : {"authDlg", "cloudDlg"}) {
        QObject* dialog = findDialog(QLatin1String(name));
        if (!dialog || m_looks.front().name == QLatin1String(name))
            continue;
        m_complaints.append(QStringLiteral("it asked for a user, by %1").arg(QLatin1String(name)));
        finish({dialog});
    }
}

void LookRunner::readThrough(QObject* seen)
{
    auto* page = qobject_cast<QQuickItem*>(seen);
    if (auto* window = qobject_cast<QQuickWindow*>(seen))
        page = window->contentItem();
    else if (!page) // a popup, with all its parts
        page = seen->property("contentItem").value<QQuickItem*>()->parentItem();
    // What stands behind a dialog is shaded.
    if (page && page->window() && dialogsOver(page).isEmpty())
        m_complaints += Legibility::faults(Legibility::wholeItems(page), page->window()->grabWindow());
}

/// The root window with whatever windows stand above it.
bool LookRunner::isPictureSaved(const QString& name) const
{
    QImage picture;
    QPoint corner;
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
        auto* shown = qobject_cast<QQuickWindow*>(window);
        if (!shown || !shown->isVisible())
            continue;
        if (picture.isNull()) {
            picture = shown->grabWindow();
            corner = shown->position();
        } else {
            QPainter(&picture).drawImage(shown->position() - corner, shown->grabWindow());
        }
    }
    const QString fileName = QString(name).replace(QLatin1Char('/'), QLatin1Char('-')) + QLatin1String(".png");
    return picture.save(QDir(m_pictureFolder).filePath(fileName));
}
