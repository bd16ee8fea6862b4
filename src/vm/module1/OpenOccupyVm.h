#pragma once

#include "dto/room/RoomOpeningRecords.h"
#include "vm/shared/ActionVm.h"
#include "vm/shared/ChoiceModels.h"

/// A kind of special occupation.
struct occupy_struct
{
    QString id;
    QString type_name;
    bool isChecked = false;
};

class OccupyListModel : public ChoiceModel<occupy_struct>
{
    Q_OBJECT

public:
    explicit OccupyListModel(QObject* parent = nullptr)
        : ChoiceModel({field("occupyId", &occupy_struct::id), field("occupyName", &occupy_struct::type_name)},
                      parent)
    {
    }

    void upate(const Array<RoomOccupyDto*>& kinds);
};

/// Marks an empty room as specially occupied, with the reason.
class OpenOccupyVm : public ActionVm
{
    Q_OBJECT
    PROPERTY(QString, remark, setRemark, {})                       // may stay empty
    CONSTANT_PROPERTY(OccupyListModel*, pOccupyListModel, m_kinds) // none checked at first

public:
    explicit OpenOccupyVm(QObject* parent = nullptr) : ActionVm(parent), m_kinds(new OccupyListModel(this)) {}

    Q_INVOKABLE void init(const QString& roomId);
    Q_INVOKABLE void checkOccupy(int index) { m_kinds->onChecked(index); }
    /// True when the room is occupied.
    Q_INVOKABLE bool save();

private:
    OccupyListModel* m_kinds;
    QString m_roomId;
};
