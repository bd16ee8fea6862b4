#pragma once

#include "common/RowModel.h"

#include <QList>

/// An operation that a room dialog offers.
struct menu_struct
{
    QString code;
    QString name;
    QString backColor = QStringLiteral("#EBEBEB");
    QString foreColor = QStringLiteral("#6A6969");
    bool isChecked = false;
};

/// The operations of a room dialog; which of them is current, the dialog knows.
class MenuModel : public RowModel<menu_struct>
{
    Q_OBJECT

public:
    explicit MenuModel(QObject* parent = nullptr);

    void update(const QList<menu_struct>& entries) { replace(QVector<menu_struct>::fromList(entries)); }
};
