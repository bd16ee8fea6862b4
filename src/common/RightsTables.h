#pragma once

#include <QMap>
#include <QString>
#include <QVector>

/// The fixed relations between the three forms of a right: its id, 18 digits that the back end knows; its code,
/// a module word or four digits that the pages ask for; and the rules by which calls name the rights that they
/// need.
///
/// The tables never change; look-ups may come from any thread.
namespace Rights {

/// Names one right that a call of a path needs.
struct Rule
{
    const char* path;             ///< with its leading service segment
    const char* acode;            ///< id of the right
    const char* code = nullptr;   ///< field that decides, null: the rule applies to every call of the path
    const char* value = nullptr;  ///< text that the field must have
    const char* code1 = nullptr;  ///< second field that must agree as well, null without one
    const char* value1 = nullptr; ///< its text
};

/// Id of the right that entering a module needs; empty for a word that is no module's. Three modules' rights
/// have no code: the pages never ask for them.
QString idOfModuleWord(const QString& word);

/// Code of a right; empty for an id that the code table lacks, such as those that only a rule names.
QString codeOfId(const QString& id);

/// All codes by their ids, in the order of the ids. Each code and each id stands once.
const QMap<QString, QString>& codeTable();

/// The rules of exactly this path in their order; several may apply to one call, and two may name the same
/// right.
QVector<Rule> rulesOf(const QString& path);

} // namespace Rights
