#pragma once

#include <QString>

#include <utility>
#include <vector>

class GlobalConfig;

/// The settings of this machine, rows of the table sys_config. A failure is shown to the user. Main thread.
namespace Settings {

enum class Kind {
    Text,
    Number,
    Flag, ///< "1", or an empty text
};

/// What is known of one setting.
struct Key
{
    const char* name;
    Kind kind;
    const char* byDefault;               ///< what an empty text or a missing row stands for
    int least;                           ///< a smaller number counts as a missing row
    int GlobalConfig::*number = nullptr; ///< where start-up puts it; null: it is read where it is needed
    void (GlobalConfig::*setText)(const QString&) = nullptr; ///< the same for a text
};

/// All of them, in the order in which start-up reads them.
const std::vector<Key>& keys();

/// The text as it is stored, empty when there is none.
QString read(const QString& name);
/// False when it could not be stored; the old text may be gone then.
bool write(const QString& name, const QString& value);

/// Settings with their texts, in an order.
using Values = std::vector<std::pair<QString, QString>>;

/// Stores all of them, or when one can't be stored none; false then, with that one's name. Whatever ends the
/// program in between, the file holds the old texts or the new ones.
bool writeAll(const Values& values, QString& failed);

/// The key's line of the table, null without one.
const Key* find(const QString& name);

/// The text as it is stored, or what stands for none.
QString text(const QString& name);
bool isOn(const QString& name);

/// Takes what is stored into the shared state; what isn't, or can't be used, changes nothing there.
void fill(GlobalConfig& config);

} // namespace Settings
