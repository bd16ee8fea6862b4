// From the start of the process to the first frame of the start page, and the memory held then, against a
// window with one rectangle. Each is a process of its own.

#include "Measure.h"

#include "entry/ProcessEntry.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QQuickView>
#include <QTemporaryDir>
#include <QTimer>

#include <unistd.h>

namespace {

constexpr int rounds = 15;
qint64 startedUs = 0;

qint64 nowUs()
{
    return std::chrono::duration_cast<std::chrono::microseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

double residentMegabytes()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    if (!statm.open(QIODevice::ReadOnly))
        return 0;
    return statm.readAll().split(' ').value(1).toDouble() * static_cast<double>(::sysconf(_SC_PAGESIZE)) /
           1048576;
}

void report()
{
    std::fprintf(stderr, "frame %lld %f\n", static_cast<long long>(nowUs() - startedUs), residentMegabytes());
    std::fflush(stderr);
    std::_Exit(0);
}

/// Waits for a window and its first frame, from inside whatever program runs.
void watchForAFrame()
{
    if (startedUs == 0)
        return;
    auto* timer = new QTimer(QCoreApplication::instance());
    QObject::connect(timer, &QTimer::timeout, timer, [timer] {
        for (QWindow* window : QGuiApplication::allWindows()) {
            auto* quick = qobject_cast<QQuickWindow*>(window);
            if (quick && quick->isVisible()) {
                QObject::connect(quick, &QQuickWindow::frameSwapped, quick, &report, Qt::DirectConnection);
                timer->stop();
            }
        }
    });
    timer->start(0);
}
Q_COREAPP_STARTUP_FUNCTION(watchForAFrame)

int runMinimal(int& argc, char** argv)
{
    QGuiApplication application(argc, argv);
    QTemporaryDir folder;
    QFile page(folder.filePath(QStringLiteral("page.qml")));
    if (!page.open(QIODevice::WriteOnly))
        return 1;
    page.write("import QtQuick 2.15\nRectangle { width: 400; height: 300; color: \"teal\" }\n");
    page.close();
    QQuickView view(QUrl::fromLocalFile(page.fileName()));
    view.show();
    return QGuiApplication::exec();
}

bool measure(const char* what, std::vector<double>& milliseconds, std::vector<double>& megabytes)
{
    QTemporaryDir folder;
    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* name : {"TMPDIR", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"})
        environment.insert(QLatin1String(name), folder.path());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
    child.setProcessEnvironment(environment);
    child.setWorkingDirectory(folder.path());
    child.start(QCoreApplication::applicationFilePath(), {QString::fromLatin1(what), QString::number(nowUs())});
    child.waitForFinished(20000);
    for (const QByteArray& line : child.readAllStandardError().split('\n')) {
        const QList<QByteArray> words = line.split(' ');
        if (words.value(0) != "frame")
            continue;
        milliseconds.push_back(words.value(1).toDouble() / 1000);
        megabytes.push_back(words.value(2).toDouble());
        return true;
    }
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 3) {
        startedUs = QByteArray(argv[2]).toLongLong();
        return QByteArray(argv[1]) == "terminal" ? runTerminal(argc, argv) : runMinimal(argc, argv);
    }
    QCoreApplication application(argc, argv);
    std::vector<double> baseMs, baseMb, ms, mb;
    for (int i = 0; i < rounds; ++i) {
        if (!measure("minimal", baseMs, baseMb) || !measure("terminal", ms, mb)) {
            std::fprintf(stderr, "no first frame\n");
            return 1;
        }
    }
    Measure::printRatio("first frame: start page / window with one rectangle", "ms", Measure::median(baseMs),
                        Measure::median(ms), 0);
    Measure::printRatio("resident memory then", "MB", Measure::median(baseMb), Measure::median(mb), 0);
    return 0;
}
