#include "Printer.h"
#include "SlipPicture.h"
#include "SlipReader.h"

#include <QDebug>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

QByteArray textOf(const QVector<PaperLine>& lines)
{
    QString text;
    for (const PaperLine& line : lines)
        text += (line.isCut ? QStringLiteral("[cut]") : line.text) + QLatin1Char('\n');
    return text.toUtf8();
}

/// "slip-0001", "slip-0002", … behind the last one that is there.
QString nextName(const QDir& folder)
{
    const QStringList known = folder.entryList({QStringLiteral("slip-*.bin")}, QDir::Files, QDir::Name);
    const int last = known.isEmpty() ? 0 : known.last().section(QLatin1Char('-'), 1).section('.', 0, 0).toInt();
    return folder.filePath(QStringLiteral("slip-%1").arg(last + 1, 4, 10, QLatin1Char('0')));
}

bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush())
        return true;
    noteFault(PosRefused);
    qWarning().noquote() << "receipt preview" << path << "can't be written:" << file.errorString();
    return false;
}

class PreviewPrinter : public Printer
{
public:
    explicit PreviewPrinter(const QString& folder) : m_folder(folder) {}

    bool open()
    {
        if (m_folder.mkpath(QStringLiteral(".")) && QFileInfo(m_folder.path()).isWritable())
            return true;
        noteFault(PosRefused);
        qWarning().noquote() << "receipt preview folder" << m_folder.path() << "can't be written to";
        return false;
    }

    bool send(const QByteArray& slip) override
    {
        const QVector<PaperLine> lines = readSlip(slip);
        const QString name = nextName(m_folder);
        if (!writeFile(name + QStringLiteral(".bin"), slip) ||
            !writeFile(name + QStringLiteral(".txt"), textOf(lines)))
            return false;
        const QImage picture = slipPicture(lines);
        if (!picture.isNull() && picture.save(name + QStringLiteral(".png")))
            return true;
        qWarning().noquote() << "receipt preview" << name << "has no picture";
        return false;
    }

private:
    const QDir m_folder;
};

} // namespace

std::unique_ptr<Printer> openPreviewPrinter(const QString& folder)
{
    auto printer = std::make_unique<PreviewPrinter>(folder);
    if (!printer->open())
        return nullptr;
    return printer;
}
