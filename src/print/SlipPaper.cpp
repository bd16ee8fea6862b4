#include "print/SlipPaper.h"

#include "platform/LocalText.h"
#include "print/PosPrintDLL.h"
#include "print/SlipText.h"

using namespace SlipText;

void SlipPaper::begin() { m_library.POS_StartDoc(); }

void SlipPaper::beginInLineMode()
{
    begin();
    m_library.POS_SetMode(0);
}

void SlipPaper::end()
{
    cutPaper();
    m_library.POS_EndDoc();
}

void SlipPaper::textOut(const QString& text, unsigned width, unsigned height)
{
    const QString indent = m_isIndent ? QStringLiteral("   ") : QString();
    const QByteArray bytes = LocalText::encode(indent + padRight(text, columns), &m_lacking);
    m_library.POS_S_TextOut(bytes.constData(), 0, width, height, 0, 0);
    m_library.POS_FeedLine();
}

void SlipPaper::feed(int lines)
{
    for (int i = 0; i < lines; ++i)
        m_library.POS_FeedLine();
}

void SlipPaper::cutPaper()
{
    feed(7);
    m_library.POS_CutPaper(0, 10);
}

void SlipPaper::tall(const QStringList& texts)
{
    for (const QString& text : texts)
        tall(text);
}

void SlipPaper::title(const QString& text)
{
    tall(padBoth(text, columns));
    feed();
}

void SlipPaper::rule() { line(QString(columns, QLatin1Char('-'))); }

void SlipPaper::doubleRule() { line(QString(columns, QLatin1Char('='))); }

void SlipPaper::foot(const QString& code, const QString& time)
{
    line(padRight(QStringLiteral("工号:") + code, 14) + QStringLiteral("操作时间:") + time);
    doubleRule();
}
