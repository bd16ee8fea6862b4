#pragma once

#include "dto/room/RoomDetailRecords.h"
#include "dto/room/RoomOpeningRecords.h"
#include "vm/shared/CardListModel.h"

#include <QJsonObject>

// What several room pages list and fetch.

/// A charging plan of a rest room. Money in yuan.
struct plan_struct
{
    QString id;
    QString name;
    int min_time = 0;   ///< hours
    double min_fee = 0; ///< expected fee
    bool isChecked = false;
};

class PlanListModel : public ChoiceModel<plan_struct>
{
    Q_OBJECT

public:
    explicit PlanListModel(QObject* parent = nullptr);

    /// None of them checked.
    void upate(const Array<RoomPlanDto*>& plans);
};

/// What a room's plans are asked for with.
QJsonObject planRequest(const QString& roomId);

/// The cards of a room's detail, each number once in the order of first appearance: the list has a card as
/// often as it has consumption lines.
QList<card_struct> cardsOf(const RoomDetailDto& room);
