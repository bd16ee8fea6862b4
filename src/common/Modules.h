#pragma once

#include "common/Singleton.h"

#include <QObject>
#include <QVariantMap>

#include <vector>

/// What is known of one module, or of one of the sums that are entered like modules.
struct Module
{
    enum Entry {
        Tile,          ///< with the terminal's right of the same code, under the right's name
        FreeTile,      ///< behind the others, without a right
        RightedButton, ///< below the tiles, with the terminal's right
        Button         ///< below the tiles, always
    };

    const char* code;
    const char* loginWord; ///< module word of the login
    Entry entry;
    const char* page;   ///< folder and file of its page; empty: a dialog
    const char* dialog; ///< opened in place of a page
    const char*
        arguments;    ///< properties of the page, each with its field of the login's result where that differs
    const char* name; ///< where no right brings one
    const char* image = ""; ///< of a button
    char16_t glyph = 0;     ///< of a tile
    const char* fromColor = "";
    const char* toColor = "";
};

/// The modules, for start-up, the main page and what looks at every page. Main thread.
class Modules : public QObject, public Singleton<Modules>
{
    Q_OBJECT
    Q_PROPERTY(QVariantList buttons READ buttons CONSTANT) // below the tiles: code, name, image and needsRight

public:
    static const std::vector<Module>& all();
    /// One with an empty code, and with the look of unknown ones, when there is none.
    static const Module& find(const QString& code);

    /// Where the page of this name lies; empty without a name.
    static QString urlOf(const QString& page);

    QVariantList buttons() const;
    /// What the user knows it by, once the start-up has told.
    Q_INVOKABLE QString nameOf(const QString& code) const;
    /// loginWord, page, dialog, and url, which is empty for a dialog.
    Q_INVOKABLE QVariantMap of(const QString& code) const;
    /// What the module's page gets from the result of the login dialog.
    Q_INVOKABLE QVariantMap arguments(const QString& code, const QVariantMap& login) const;

private:
    friend class Singleton<Modules>;
    Modules() = default;
};
