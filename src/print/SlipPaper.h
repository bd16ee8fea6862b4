#pragma once

#include <QString>
#include <QStringList>

class PosPrintDLL;

/// One opened printer's paper: takes the lines of a slip and hands each to the library at once.
class SlipPaper
{
public:
    /// The library must outlive the paper. Indented lines start after three blanks, for the wider model.
    SlipPaper(const PosPrintDLL& library, bool isIndent) : m_library(library), m_isIndent(isIndent) {}

    void begin();
    /// Begins a slip and sets the printer's line mode.
    void beginInLineMode();
    /// Cuts and ends the slip.
    void end();

    /// One line of exactly 42 columns, cut or padded, and a feed. height is 1 or 2.
    void textOut(const QString& text, unsigned width, unsigned height);
    void feed(int lines = 1);
    void cutPaper();

    void line(const QString& text) { textOut(text, 1, 1); }
    /// A line of double height.
    void tall(const QString& text) { textOut(text, 1, 2); }
    void tall(const QStringList& texts);
    /// In the middle, double height, with a feed after it.
    void title(const QString& text);
    void rule();
    void doubleRule();
    /// Who and when, and what closes a slip.
    void foot(const QString& code, const QString& time);

    /// Characters so far that came out as "?" because the printers' encoding lacks them.
    int lackingCharacters() const { return m_lacking; }

private:
    const PosPrintDLL& m_library;
    const bool m_isIndent;
    int m_lacking = 0;
};
