#pragma once

#include "print/PosPrint.h"

/// A printed slip and what steers its printing; named as its golden text is.
struct SampleSlip
{
    const char* name;
    int kind;
    QVariant record;
    PrintSettings settings;
    int configuredCopies; // of the slips whose number the shared state tells
};

namespace Samples {

/// The way that a terminal is set up.
PrintSettings terminal(bool isIndent = true, int orderPrintNum = 1);

/// One slip of each of the nine kinds from an ordinary evening of the house.
QVector<SampleSlip> evening();
/// The other ways that a slip can come out: what is missing, what is too long, copies.
QVector<SampleSlip> oddities();

/// Prints the sample to that printer of the library's, with the clock where all samples have it.
void print(const SampleSlip& slip, const PosPrintDLL& library, const QString& printer);

} // namespace Samples
