#pragma once

#include "common/RowModel.h"

/// An operation that a room dialog offers.
struct menu_struct
{
    QString code;
    QString name;
    QString backColor = QStringLiteral("#EBEBEB");
    QString foreColor = QStringLiteral("#6A6969");
    bool isChecked = false;
};

/// What an operation needs of the room beyond its status.
enum RoomMenuNeed : unsigned {
    NoNeed = 0,
    NeedsCards = 1,    ///< not in a house without hand cards
    NeedsGroup = 2,    ///< the room is in a group
    NeedsServices = 4, ///< there are services to call
};

/// A line of the table of operations.
struct RoomOperation
{
    const char* code;
    const char* name;
    const char* right;   ///< empty: everyone may
    QVector<int> states; ///< those that it is for; empty: any
    unsigned needs = NoNeed;
};

/// The operations of a room dialog; which of them is current, the dialog knows.
class MenuModel : public RowModel<menu_struct>
{
    Q_OBJECT

public:
    explicit MenuModel(QObject* parent = nullptr);

    /// Lists what the room's state and the operator's rights allow, in the table's order.
    void update(const QVector<RoomOperation>& operations, int status, unsigned met = NoNeed);
};
