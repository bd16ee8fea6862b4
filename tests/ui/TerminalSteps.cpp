// The steps of a road: what they are written as, and what each waits for.

#include "Terminal.h"

#include "inspect/ScreenItems.h"

#include <QJSValue>
#include <QProcess>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtTest>

Terminal& Terminal::add(const QString& what, const std::function<bool()>& tryIt)
{
    m_steps.push_back({what, tryIt});
    return *this;
}

Terminal& Terminal::walk(const QString& road)
{
    for (const QString& word : road.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        walkWord(word);
    return *this;
}

Terminal& Terminal::walkWord(const QString& word)
{
    const QString rest = word.mid(1);
    const QString name = rest.section(QLatin1Char('.'), 0, 0);
    const QString value = rest.section(QLatin1Char('='), 1);
    const QByteArray property = rest.mid(name.size() + 1).section(QLatin1Char('='), 0, 0).toLatin1();
    switch (word.at(0).unicode()) {
    case '#':
        for (const QChar key : rest)
            tap("key_" + QString(key).toLower());
        return *this;
    case '@':
        return add(word, [this, rest] { return writeCard(rest); });
    case '+':
        return add(word, [this, rest] { return item(rest) != nullptr; });
    case '-':
        return add(word, [this, rest] { return item(rest) == nullptr; });
    case '=':
        return add(word, [this, rest] { return hear(rest); });
    case '?':
        return add(word, [=] { return this->property(name, property.constData()).toString() == value; });
    case '~':
        return add(word, [since = QElapsedTimer(), ms = rest.toInt()]() mutable {
            if (!since.isValid())
                since.start(); // what opens meanwhile has an event loop of its own
            return since.hasExpired(ms);
        });
    case '!':
        return add(word, [=] {
            QQuickItem* found = item(name);
            return found && found->isEnabled() && found->setProperty(property.constData(), value);
        });
    default:
        return tap(word);
    }
}

Terminal& Terminal::tap(const QString& name)
{
    return add("tap " + name, [this, name] { return tapNow(name); });
}

Terminal& Terminal::drag(const QString& name, const QPoint& by)
{
    return add("drag " + name, [=] {
        QQuickItem* target = readyItem(name);
        if (!target)
            return false;
        constexpr int moves = 8;
        QWindow* window = target->window();
        const QPoint start = m_targetPlace.center().toPoint();
        QTest::mousePress(window, Qt::LeftButton, {}, start);
        for (int move = 1; move <= moves; ++move) {
            QTest::mouseMove(window, start + by * move / moves);
            QTest::qWait(5);
        }
        QTest::mouseRelease(window, Qt::LeftButton, {}, start + by);
        return true;
    });
}

bool Terminal::hear(const QString& message)
{
    if (m_messages.isEmpty() || m_messages.first() != message)
        return false;
    m_messages.removeFirst();
    return true;
}

Terminal& Terminal::tapTogether(const QStringList& names)
{
    walk("+" + names.last());
    return add("tap together " + names.join(' '), [this, names] {
        QQuickItem* first = item(names.first());
        if (!first || !first->isEnabled() || !takesInput() || !isSettled(first))
            return false;
        m_target = nullptr;
        // Straight to the windows, so that no timer comes in between.
        for (const QString& name : names) {
            const QQuickItem* target = item(name);
            const QPointF place = target->mapToScene(QPointF(target->width() / 2, target->height() / 2));
            for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
                QMouseEvent event(type, place, Qt::LeftButton,
                                  type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                                  Qt::NoModifier);
                QCoreApplication::sendEvent(target->window(), &event);
            }
        }
        return true;
    });
}

Terminal& Terminal::login(const QString& tile, const QString& number, const QString& password)
{
    return walk(QStringLiteral("%1 +loginDlg #%2 confirmButton #%3 confirmButton").arg(tile, number, password));
}

Terminal& Terminal::until(const QString& what, const std::function<bool()>& condition)
{
    return add(what, condition);
}

Terminal& Terminal::act(const std::function<void()>& action)
{
    return add("act", [action] {
        action();
        return true;
    });
}

Terminal& Terminal::open(const QString& dialog, const QVariantMap& properties)
{
    return call("open", dialog, properties);
}

Terminal& Terminal::ask(const QString& function, const QVariant& argument)
{
    return call("ask", function, argument);
}

Terminal& Terminal::call(const char* method, const QString& name, const QVariant& argument)
{
    return add(method + (" " + name), [=] {
        m_result.clear();
        m_hasReturned = false;
        QTimer::singleShot(0, qApp, [=] {
            QVariant result;
            QMetaObject::invokeMethod(m_page.get(), method, Q_RETURN_ARG(QVariant, result),
                                      Q_ARG(QVariant, name), Q_ARG(QVariant, argument));
            m_result =
                result.userType() == qMetaTypeId<QJSValue>() ? result.value<QJSValue>().toVariant() : result;
            m_hasReturned = true;
        });
        return true;
    });
}

Terminal& Terminal::picture(const QString& name)
{
    const QString folder = qEnvironmentVariable("KV_PICTURES");
    if (folder.isEmpty())
        return *this;
    add("settle", [settled = 0]() mutable { return ++settled > 40; });
    return add("picture " + name, [folder, name] {
        return QProcess::execute(QStringLiteral("import"),
                                 {"-window", "root", "-strip", "PNG24:" + folder + "/" + name + ".png"}) == 0;
    });
}

Terminal& Terminal::returned()
{
    return add("the dialog returned", [this] { return m_hasReturned; });
}
