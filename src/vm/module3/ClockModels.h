#pragma once

#include "common/RowModel.h"
#include "dto/staff/StaffRecords.h"

// What the clock pages choose from: items, clock kinds, and the lines of a running service.

/// An item that a technician can serve. Money in yuan.
struct server_struct
{
    QString itemId;
    QString itemName;
    double price = 0;
    int times = 0;    ///< minutes
    int addTimes = 0; ///< minutes that were added
    QString unit;
    bool isChecked = false;
    bool isSelected = false;
};

class ServerItemModel : public RowModel<server_struct>
{
    Q_OBJECT

public:
    explicit ServerItemModel(QObject* parent = nullptr);

    void upate(const QList<server_struct>& items) { refresh(QVector<server_struct>::fromList(items)); }
    /// The items as a technician's list has them; the one with this id, if any, is checked.
    void take(const QList<ServerItemDto*>& items, const QString& checkedId = {});
};

struct server_type_struct
{
    int typeId = 0; ///< ClockKind
    QString typeName;
    bool isChecked = false;
    bool isSelected = false;
};

class ServerTypeModel : public RowModel<server_type_struct>
{
    Q_OBJECT

public:
    /// The three kinds that a terminal offers by itself, none of them checked.
    explicit ServerTypeModel(QObject* parent = nullptr);

    /// The kinds whose codes stand in the text, separated by commas, in its order; what is no code is skipped.
    void upate(const QString& codes);
    /// Checks the kind with this code alone; false, and nothing happens, without one.
    bool checkKind(int code);
    /// Code of the checked kind, 0 without one.
    int checkedKind() const { return row(checkedIndex()).typeId; }
};

/// A line of a running service. Money in yuan.
struct on_server_struct
{
    QString orderId; ///< of the line
    QString itemId;
    QString itemName;
    QString typeName; ///< label of the clock kind
    double price = 0;
    QString unit;
    int times = 0; ///< minutes
    int type = 0;  ///< ClockKind
    int order_status = 0;
    int status = 0;
    bool isChecked = false;
    bool isSelected = false;
};

class OnServerItemModel : public RowModel<on_server_struct>
{
    Q_OBJECT

public:
    explicit OnServerItemModel(QObject* parent = nullptr);

    void take(const QList<OnServerItemDto*>& lines);
};

/// Columns of an item grid: the terminal's setting where that is large enough, else eight.
int serverItemColumns();

/// The list of an answer in the form of the clock pages, owned by the caller.
QList<ServerItemDto*> serverItemsOf(const GetStaffItemList& reply);
