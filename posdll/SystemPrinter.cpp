#include "Printer.h"

#include <QDebug>
#include <QProcess>

// Off Windows the print system's own commands take the job: they are there wherever the print system is, and a
// process that hangs can be given up.
#ifdef Q_OS_UNIX

namespace {

/// Runs to the end or is killed when the time is up; true when the command succeeded. A command that says no
/// means the fault.
bool run(const QString& command, const QStringList& arguments, const QByteArray& input, int limitMs,
         PosFault fault)
{
    QProcess process;
    process.start(command, arguments);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(limitMs)) {
        noteFault(process.error() == QProcess::FailedToStart ? PosNoPrinter : PosTimedOut);
        process.kill();
        process.waitForFinished(1000);
        return false;
    }
    if (process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
        return true;
    noteFault(fault);
    return false;
}

class SystemPrinter : public Printer
{
public:
    SystemPrinter(const QString& name, const PrinterLimits& limits) : m_name(name), m_limits(limits) {}

    bool open() const
    {
        // A name that looks like an option, or none, would ask for something else.
        const bool isThere =
            !m_name.isEmpty() && !m_name.startsWith(QLatin1Char('-')) &&
            run(QStringLiteral("lpstat"), {QStringLiteral("-p"), m_name}, {}, m_limits.connectMs, PosNoPrinter);
        if (m_name.isEmpty() || m_name.startsWith(QLatin1Char('-')))
            noteFault(PosNoPrinter);
        if (!isThere)
            qWarning().noquote() << "receipt printer" << m_name << "isn't known to the system";
        return isThere;
    }

    bool send(const QByteArray& slip) override
    {
        const QStringList arguments = {QStringLiteral("-s"),  QStringLiteral("-d"),  m_name,
                                       QStringLiteral("-o"),  QStringLiteral("raw"), QStringLiteral("-t"),
                                       QStringLiteral("slip")};
        if (run(QStringLiteral("lp"), arguments, slip, m_limits.jobMs, PosRefused))
            return true;
        qWarning().noquote() << "receipt printer" << m_name << "didn't take the slip";
        return false;
    }

private:
    const QString m_name;
    const PrinterLimits m_limits;
};

} // namespace

#else

#include <windows.h>
#include <winspool.h>

namespace {

/// The spooler takes the bytes at once and waits for the printer on its own.
class SystemPrinter : public Printer
{
public:
    SystemPrinter(const QString& name, const PrinterLimits&) : m_name(name.toStdWString()) {}
    ~SystemPrinter() override
    {
        if (m_printer)
            ClosePrinter(m_printer);
    }

    bool open()
    {
        if (!m_name.empty() && OpenPrinterW(&m_name[0], &m_printer, nullptr))
            return true;
        noteFault(PosNoPrinter);
        qWarning() << "receipt printer" << m_name.c_str() << "isn't known to the system";
        return false;
    }

    bool send(const QByteArray& slip) override
    {
        wchar_t title[] = L"slip";
        wchar_t type[] = L"RAW";
        DOC_INFO_1W document = {title, nullptr, type};
        if (!StartDocPrinterW(m_printer, 1, reinterpret_cast<BYTE*>(&document))) {
            noteFault(PosRefused);
            return false;
        }
        DWORD written = 0;
        const bool isWritten =
            WritePrinter(m_printer, const_cast<char*>(slip.constData()), DWORD(slip.size()), &written) &&
            written == DWORD(slip.size());
        const bool isTaken = EndDocPrinter(m_printer) && isWritten;
        if (!isTaken)
            noteFault(PosRefused);
        return isTaken;
    }

private:
    std::wstring m_name;
    HANDLE m_printer = nullptr;
};

} // namespace

#endif

std::unique_ptr<Printer> openSystemPrinter(const QString& name, const PrinterLimits& limits)
{
    auto printer = std::make_unique<SystemPrinter>(name, limits);
    if (!printer->open())
        return nullptr;
    return printer;
}
