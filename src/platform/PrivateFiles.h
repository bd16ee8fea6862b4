#pragma once

class QString;

/// Files and folders that this process makes from here on are its user's alone. A caller's own umask stays when
/// it already shuts everybody else out: a kiosk shares its files with a group. Nothing to do on Windows.
void keepFilesPrivate();

/// Takes from what is there already the permissions that a new one wouldn't get.
void makePrivate(const QString& path);
