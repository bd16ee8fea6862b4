#pragma once

#include <QString>

/// Text helpers of the slips. Widths are columns: bytes of the printers' encoding.
namespace SlipText {

constexpr int columns = 42; ///< of a receipt line

int getLength(const QString& text);
/// A text of at most start + length columns comes back whole, a blank one empty. Of a longer one as many of its
/// first characters as fit into length columns, padded with blanks to exactly that.
QString subStringByByte(const QString& text, int start, int length);
/// Cut or filled to exactly width columns; fill is one column wide.
QString padRight(const QString& text, int width, QChar fill = QLatin1Char(' '));
QString padLeft(const QString& text, int width, QChar fill = QLatin1Char(' '));
QString padBoth(const QString& text, int width, QChar fill = QLatin1Char(' '));
/// How many UTF-16 units of the text fit into the columns.
int fittingLength(const QString& text, int columns);
QString withoutLineBreaks(QString text);
/// "yyyy-MM-dd HH:mm:ss".
QString printCurTime();

/// Money, with two decimals.
QString amount(double value);
/// A quantity in a column.
QString quantity(double value);
/// A quantity in the place of the template's "%1".
QString quantityIn(const QString& text, double value);

} // namespace SlipText
