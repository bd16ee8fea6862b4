#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// What stands at one place of the paper, read back from the bytes that a printer gets.
struct PaperLine
{
    QString text;
    int height = 1; ///< factor, 1 or 2
    bool isCut = false;
};

/// The lines of a slip and its cuts. Commands that our slips don't use are skipped up to their next known one,
/// for this is a preview, not a printer.
QVector<PaperLine> readSlip(const QByteArray& bytes);
