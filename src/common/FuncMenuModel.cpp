#include "common/FuncMenuModel.h"

#include "common/Modules.h"

namespace {

using Tile = Func_Menu_struct;

} // namespace

FuncMenuModel::FuncMenuModel(const QList<ModAuthDto*>& rights, QObject* parent)
    : RowModel(
          {field("name", &Tile::authName),
           field("funcVal", &Tile::funcVal),
           {"icon", [](const Tile& tile) { return QString(QChar(Modules::find(tile.funcVal).glyph)); }, {}},
           {"fromColor",
            [](const Tile& tile) { return QLatin1String(Modules::find(tile.funcVal).fromColor); },
            {}},
           {"toColor", [](const Tile& tile) { return QLatin1String(Modules::find(tile.funcVal).toColor); }, {}},
           {"iconColor", [](const Tile&) { return QStringLiteral("white"); }, {}}},
          parent, 1)
{
    QVector<Func_Menu_struct> tiles;
    for (const ModAuthDto* right : rights)
        tiles.append({right->funcVal(), right->authName()});
    replace(tiles);
}
