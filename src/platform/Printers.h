#pragma once

#include <QString>
#include <QVector>

/// A printer that our own receipt library drives without the system.
struct OwnPrinter
{
    QString name;   ///< as the user chooses it and the print setting keeps it
    QString target; ///< "tcp://ADDRESS[:PORT]", the path of a device file, or "preview:FOLDER"
};

/// What KV_PANEL_PRINTERS lists as "name=target" with semicolons between, then the preview printer.
///
/// The preview printer writes its slips into KV_PANEL_PREVIEW_DIR, by default the folder "slips" in the working
/// directory. On Windows, where the vendor's library doesn't know it, it is there only when the variable is
/// set. Entries without a name or a target are left out, and a name counts once.
QVector<OwnPrinter> ownPrinters();
