#pragma once

#include <QString>

class QQmlApplicationEngine;
class QQmlEngine;

/// Makes the singletons known to the pages; the first use of MainClass reads the settings.
void registerSingletons();

/// Makes the types known that pages make themselves.
void registerTypes();

/// Loads the fonts from res/fonts of the folder and tells the pages their names; a missing one ends the
/// application as soon as its event loop runs.
void loadFonts(QQmlEngine& engine, const QString& directory);

/// Loads the fonts from res/fonts of the folder, then the root page. A missing font or page ends the
/// application as soon as its event loop runs.
void loadPages(QQmlApplicationEngine& engine, const QString& directory);
