#include "common/RightsTables.h"

#include "common/RightsData.h"

#include <QHash>

namespace Rights {
namespace {

QHash<QString, QString> idsByModuleWord()
{
    QHash<QString, QString> ids;
    for (const ModuleWord& module : moduleWords)
        ids.insert(QLatin1String(module.word), QLatin1String(module.id));
    return ids;
}

QMap<QString, QString> codesById()
{
    QMap<QString, QString> codes;
    for (const RightCode& right : rightCodes)
        codes.insert(QLatin1String(right.id), QLatin1String(right.code));
    return codes;
}

QHash<QString, QVector<Rule>> rulesByPath()
{
    QHash<QString, QVector<Rule>> byPath;
    for (const Rule& rule : rules)
        byPath[QLatin1String(rule.path)].append(rule);
    return byPath;
}

} // namespace

QString idOfModuleWord(const QString& word)
{
    static const QHash<QString, QString> ids = idsByModuleWord();
    return ids.value(word);
}

QString codeOfId(const QString& id) { return codeTable().value(id); }

const QMap<QString, QString>& codeTable()
{
    static const QMap<QString, QString> codes = codesById();
    return codes;
}

QVector<Rule> rulesOf(const QString& path)
{
    static const QHash<QString, QVector<Rule>> byPath = rulesByPath();
    return byPath.value(path);
}

} // namespace Rights
