#include "vm/module1/RoomLookups.h"

#include "app/MainClass.h"
#include "services/Baa01Service.h"
#include "services/Bba01Service.h"
#include "vm/module1/ChoiceModels.h"

#include <QJsonObject>
#include <QPointer>

Reply<GetHardCardDetail> lookUpCard(const QString& cardNo, const QString& rfid)
{
    QJsonObject data;
    if (!cardNo.isEmpty())
        data.insert(QStringLiteral("cardno"), cardNo);
    if (!rfid.isEmpty())
        data.insert(QStringLiteral("cardUid"), rfid);
    auto reply = held(Baa01Service::getInstance()->getHardCardDetail(data));
    if (!isOkOrShown(*reply))
        return nullptr;
    if (!reply->data()) {
        MyMessage::getInstance()->showError(QStringLiteral("操作失败"));
        return nullptr;
    }
    return reply;
}

bool isUsableOrSaid(const CardDetailDto& card)
{
    constexpr int lastUsableStatus = 1;
    if (card.status() <= lastUsableStatus)
        return true;
    MyMessage::getInstance()->ShowError(QStringLiteral("[%1]手牌不处于可用状态").arg(card.cardno()));
    return false;
}

bool isTakenFromOtherRoom(const CardDetailDto& card)
{
    const QString question = QStringLiteral("当前手牌[%1] 已在【%2】房间, 是否继续当前操作]???");
    return MainClass::getInstance()->showMsgConfirm(QStringLiteral("提示"),
                                                    question.arg(card.cardno(), card.roomNo())) == 1;
}

Reply<GetHardCardDetail> lookUpCardToTake(const QString& cardNo, const QString& rfid)
{
    auto reply = lookUpCard(cardNo, rfid);
    if (!reply || !isUsableOrSaid(*reply->data()))
        return nullptr;
    if (!reply->data()->roomNo().isEmpty() && !isTakenFromOtherRoom(*reply->data()))
        return nullptr;
    return reply;
}

void sayCardIsThere() { MyMessage::getInstance()->ShowError(QStringLiteral("当前手牌已存在,不能重复添加")); }

bool fetchPlans(const QString& roomId, PlanListModel* model)
{
    const QPointer<PlanListModel> filled(model);
    const auto reply = held(Bba01Service::getInstance()->getRoomPlanNew(
        {{QStringLiteral("roomId"), roomId}, {QStringLiteral("planType"), 1}}));
    if (!isOkOrShown(*reply) || !filled)
        return false;
    filled->upate(reply->data());
    return true;
}

bool isDoneOrShown(const ApiRes& reply)
{
    if (!isOkOrShown(reply))
        return false;
    MyMessage::getInstance()->showOk(QStringLiteral("操作成功"));
    return true;
}
