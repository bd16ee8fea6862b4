#pragma once

#include "common/RowModel.h"
#include "dto/room/RoomOpeningRecords.h"

#include <QList>

// Lists of which the user takes one entry, or several. An index out of range changes nothing.

/// Colours of an entry that isn't the checked one, and of the one that is.
QString uncheckedBackColor();
QString uncheckedForeColor();
QString checkedBackColor();
QString checkedForeColor();

/// A charging plan of a rest room. Money in yuan.
struct plan_struct
{
    QString id;
    QString name;
    int min_time = 0;   ///< hours
    double min_fee = 0; ///< expected fee
    bool isChecked = false;
};

class PlanListModel : public CheckOneModel<plan_struct>
{
    Q_OBJECT

public:
    explicit PlanListModel(QObject* parent = nullptr);

    QVector<plan_struct> getAll() const { return rows(); }
    void upate(const Array<RoomPlanDto*>& plans);
    void clear() { replace({}); }
    Q_INVOKABLE void onChecked(int index) { checkOnly(index); }
};

/// A kind of special occupation.
struct occupy_struct
{
    QString id;
    QString type_name;
    bool isChecked = false;
};

class OccupyListModel : public CheckOneModel<occupy_struct>
{
    Q_OBJECT

public:
    explicit OccupyListModel(QObject* parent = nullptr);

    QVector<occupy_struct> getAll() const { return rows(); }
    void upate(const Array<RoomOccupyDto*>& kinds);
    Q_INVOKABLE void onChecked(int index) { checkOnly(index); }
};

/// An entry of a list that needs no more than an id and a text, such as a room to move to.
struct temp_struct
{
    QString tempId;
    QString tempName;
    bool isChecked = false;
    bool isSelected = false;
};

class TempDataModel : public CheckOneModel<temp_struct>
{
    Q_OBJECT

public:
    explicit TempDataModel(QObject* parent = nullptr);

    QVector<temp_struct> getAll() const { return rows(); }
    /// Entries of another question; the view shows them from the first one on.
    void upate(const QList<temp_struct>& entries) { replace(QVector<temp_struct>::fromList(entries)); }
    /// Marks this entry alone.
    Q_INVOKABLE void onChecked(int index) { checkOnly(index); }
    /// Toggles this entry.
    Q_INVOKABLE void onSelected(int index);
    /// The entry's id, empty when there is no such entry.
    QString getIndexId(int index) const { return rows().value(index).tempId; }
    /// The checked entry's id, empty without one.
    QString checkedId() const { return getIndexId(checkedIndex()); }
};
