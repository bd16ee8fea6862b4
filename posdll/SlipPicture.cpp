#include "SlipPicture.h"

#include "platform/LocalText.h"

#include <QCoreApplication>
#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>

namespace {

// In dots, of which such a printer has 203 to the inch.
constexpr int columnWidth = 12;
constexpr int glyphHeight = 24;
constexpr int gap = 6; ///< below each line
constexpr int paperColumns = 48;
constexpr int margin = 32;
constexpr int cutHeight = 20;
const QColor paperColor(0xfc, 0xfb, 0xf6);
const QColor inkColor(0x22, 0x22, 0x26);
const QColor cutColor(0xb0, 0xac, 0xa0);

/// The program's own text font, or what the system has.
QFont paperFont()
{
    static const QStringList families = [] {
        const QString file = QCoreApplication::applicationDirPath() + QStringLiteral("/res/fonts/Pinfang.ttf");
        return QFontDatabase::applicationFontFamilies(QFontDatabase::addApplicationFont(file));
    }();
    QFont font;
    if (!families.isEmpty())
        font.setFamily(families.first());
    font.setPixelSize(glyphHeight - 2);
    return font;
}

int heightOf(const PaperLine& line) { return line.isCut ? cutHeight : glyphHeight * line.height + gap; }

/// Each character into its own columns, as a printer does; one too wide for them is narrowed.
void drawLine(QPainter& painter, const PaperLine& line)
{
    const QFontMetricsF metrics(painter.font());
    painter.save();
    painter.scale(1, line.height);
    int column = 0;
    for (const uint codePoint : line.text.toUcs4()) {
        const QString character = QString::fromUcs4(&codePoint, 1);
        const int width = LocalText::columns(character) * columnWidth;
        const qreal natural = metrics.horizontalAdvance(character);
        const qreal narrowing = qMin(1.0, natural > 0 ? width / natural : 1.0);
        painter.save();
        painter.translate(column * columnWidth + (width - natural * narrowing) / 2, 0);
        painter.scale(narrowing, 1);
        painter.drawText(QPointF(0, (glyphHeight + metrics.ascent() - metrics.descent()) / 2), character);
        painter.restore();
        column += width / columnWidth;
    }
    painter.restore();
}

void drawCut(QPainter& painter)
{
    painter.save();
    painter.setPen(QPen(cutColor, 2, Qt::DashLine));
    painter.drawLine(-margin, cutHeight / 2, paperColumns * columnWidth + margin, cutHeight / 2);
    painter.restore();
}

} // namespace

QImage slipPicture(const QVector<PaperLine>& lines)
{
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        return QImage();

    int height = 2 * margin;
    for (const PaperLine& line : lines)
        height += heightOf(line);
    QImage image(paperColumns * columnWidth + 2 * margin, height, QImage::Format_RGB32);
    image.fill(paperColor);

    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.setFont(paperFont());
    painter.setPen(inkColor);
    painter.translate(margin, margin);
    for (const PaperLine& line : lines) {
        if (line.isCut)
            drawCut(painter);
        else
            drawLine(painter, line);
        painter.translate(0, heightOf(line));
    }
    painter.end();
    return image;
}
