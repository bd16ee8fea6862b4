#pragma once

#include <QByteArray>
#include <QString>

/// The local 8-bit encoding of the printers: GBK, whatever the system's own encoding is. Any thread.
///
/// One byte is one column of a receipt: Latin takes one, a Chinese character two. A character that the encoding
/// lacks becomes one "?".
namespace LocalText {

/// Adds the number of characters that became "?" to lacking, where one is given.
QByteArray encode(const QString& text, int* lacking = nullptr);
QString decode(const QByteArray& bytes);
int columns(const QString& text);

} // namespace LocalText
