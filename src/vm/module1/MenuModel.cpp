#include "vm/module1/MenuModel.h"

MenuModel::MenuModel(QObject* parent)
    : RowModel({field("code", &menu_struct::code), field("name", &menu_struct::name),
                field("backColor", &menu_struct::backColor), field("foreColor", &menu_struct::foreColor),
                field("isChecked", &menu_struct::isChecked)},
               parent)
{
}
