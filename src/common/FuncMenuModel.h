#pragma once

#include "common/RowModel.h"
#include "dto/system/TerminalRecords.h"

/// A tile of the main page.
struct Func_Menu_struct
{
    QString funcVal; ///< module code
    QString authName;
};

/// The tiles of the main page, in the order of the rights. Glyph and colours follow from the module code.
class FuncMenuModel : public RowModel<Func_Menu_struct>
{
    Q_OBJECT

public:
    explicit FuncMenuModel(const QList<ModAuthDto*>& rights, QObject* parent = nullptr);

    QVector<Func_Menu_struct> getAll() const { return rows(); }
};
