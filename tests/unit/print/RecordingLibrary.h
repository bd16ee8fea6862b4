#pragma once

#include "print/PosPrintDLL.h"

#include <QStringList>

/// A printer library that writes down what it is told, one line for each line of the paper or call:
///
///     open "前台" 0x14
///     start
///     mode 0
///     2|tall text                |
///     feed x7
///     cut 0 10
///     end
///     close
///
/// A text line stands for the text and the feed behind it. Only one at a time.
class RecordingLibrary : public PosPrintDLL
{
public:
    RecordingLibrary();

    QStringList calls() const;
    /// From now on there is no printer.
    void refuse();
};
