#include "common/FuncMenuModel.h"

#include "Glyphs.h"

#include <algorithm>

namespace {

struct TileLook
{
    const char* funcVal;
    char16_t glyph;
    const char* fromColor;
    const char* toColor;
};

constexpr TileLook otherTile = {"", Glyph::moduleOther, "#8FA3B8", "#64788F"};

constexpr TileLook tileLooks[] = {
    {"ROOMINFO_CTRL", Glyph::moduleRooms, "#4FA3F7", "#2F6FE4"},
    {"STAFF_QTZ_CTRL", Glyph::moduleClock, "#38C6B4", "#17958F"},
    {"HELP_BASH_WAIT", Glyph::moduleHelper, "#F7A54F", "#E4762F"},
    {"CONSUME_CTRL", Glyph::moduleConsume, "#F7768E", "#DE4668"},
    {"NO_ITEM_SERVER", Glyph::moduleTimer, "#9C7BF2", "#7150D6"},
    {"SELF_ORDER", Glyph::moduleSelf, "#5CC96B", "#2F9E4B"},
    {"ZZC_CTRL", Glyph::moduleBuffet, "#E9B93A", "#C98F13"},
    {"TRANSFER_CTRL", Glyph::moduleTransfer, "#4FB8D9", "#2689B5"},
};

const TileLook& lookOf(const QString& funcVal)
{
    const auto found = std::find_if(std::begin(tileLooks), std::end(tileLooks), [&](const TileLook& look) {
        return funcVal == QLatin1String(look.funcVal);
    });
    return found == std::end(tileLooks) ? otherTile : *found;
}

using Tile = Func_Menu_struct;

} // namespace

FuncMenuModel::FuncMenuModel(const QList<ModAuthDto*>& rights, QObject* parent)
    : RowModel(
          {field("name", &Tile::authName),
           field("funcVal", &Tile::funcVal),
           {"icon", [](const Tile& tile) { return QString(QChar(lookOf(tile.funcVal).glyph)); }, {}},
           {"fromColor", [](const Tile& tile) { return QLatin1String(lookOf(tile.funcVal).fromColor); }, {}},
           {"toColor", [](const Tile& tile) { return QLatin1String(lookOf(tile.funcVal).toColor); }, {}},
           {"iconColor", [](const Tile&) { return QStringLiteral("white"); }, {}}},
          parent, 1)
{
    QVector<Func_Menu_struct> tiles;
    for (const ModAuthDto* right : rights)
        tiles.append({right->funcVal(), right->authName()});
    replace(tiles);
}
