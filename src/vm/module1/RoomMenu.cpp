#include "vm/module1/RoomMenu.h"

#include "common/GlobalConfig.h"

MenuModel::MenuModel(QObject* parent)
    : RowModel({field("code", &menu_struct::code), field("name", &menu_struct::name),
                field("backColor", &menu_struct::backColor), field("foreColor", &menu_struct::foreColor),
                field("isChecked", &menu_struct::isChecked)},
               parent)
{
}

void MenuModel::update(const QVector<RoomOperation>& operations, int status, unsigned met)
{
    const GlobalConfig* config = GlobalConfig::getInstance();
    QVector<menu_struct> menu;
    for (const RoomOperation& operation : operations) {
        const bool isForState = operation.states.isEmpty() || operation.states.contains(status);
        const bool isAllowed = *operation.right == '\0' || config->isHaveAuth(operation.right);
        if (!isForState || !isAllowed || (operation.needs & ~met) != 0)
            continue;
        menu_struct entry;
        entry.code = operation.code;
        entry.name = operation.name;
        menu.append(entry);
    }
    replace(menu);
}
