#pragma once

#include <QByteArray>

/// The printer commands that the slips need, as bytes.
namespace EscPos {

constexpr char escape = 0x1b;
constexpr char fileSeparator = 0x1c;
constexpr char groupSeparator = 0x1d;

/// Puts the printer into its start state: normal height, Chinese characters of two bytes.
inline QByteArray initialise()
{
    return QByteArray().append(escape).append('@').append(fileSeparator).append('&');
}

/// Height of the lines that follow, 1 or 2.
inline QByteArray height(unsigned factor)
{
    return QByteArray().append(groupSeparator).append('!').append(char(factor - 1));
}

inline QByteArray feedLine() { return QByteArray(1, '\n'); }

/// Cuts fully, after feeding that many motion units.
inline QByteArray cut(unsigned distance)
{
    return QByteArray().append(groupSeparator).append('V').append('A').append(char(distance));
}

} // namespace EscPos
