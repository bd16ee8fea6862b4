#pragma once

#include <QString>

/// The folder "log" beside the program.
QString logFolder();

/// Removes the files of the folder that were last written more than seven days ago. Folders in it stay.
void removeOldLogs(const QString& folder);
