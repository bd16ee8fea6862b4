#include "vm/shared/CardLookup.h"

#include "app/MainClass.h"
#include "services/Baa01Service.h"

#include <QPointer>

Reply<GetHardCardDetail> lookUpCard(const QString& cardNo, const QString& rfid)
{
    QJsonObject data;
    if (!cardNo.isEmpty())
        data.insert("cardno", cardNo);
    if (!rfid.isEmpty())
        data.insert("cardUid", rfid);
    auto reply = call(&Baa01Service::getHardCardDetail, data);
    if (!isOkOrShown(*reply))
        return nullptr;
    if (!reply->data()) {
        MyMessage::getInstance()->showError(QStringLiteral("操作失败"));
        return nullptr;
    }
    return reply;
}

Reply<GetHardCardDetail> cardInUseOrSaid(const QJsonObject& asked)
{
    constexpr int inUse = 1;
    auto reply = call(&Baa01Service::getHardCardDetail, asked);
    if (!isOkOrShown(*reply))
        return nullptr;
    const char* refusal = !reply->data()                     ? "手牌不存在"
                          : reply->data()->status() != inUse ? "手牌不处于可用状态"
                                                             : nullptr;
    if (!refusal)
        return reply;
    MyMessage::getInstance()->showError(QString::fromUtf8(refusal));
    return nullptr;
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

void sayCardIsThere() { MyMessage::getInstance()->ShowError(QStringLiteral("当前手牌已存在,不能重复添加")); }

void takeCard(const QString& cardNo, const QString& rfid, CardListModel* list,
              const std::function<bool(const CardDetailDto&)>& isThere)
{
    const QPointer<CardListModel> filled(list);
    const auto reply = lookUpCard(cardNo, rfid);
    if (!reply)
        return;
    const CardDetailDto& card = *reply->data();
    if (!isUsableOrSaid(card) || (!card.roomNo().isEmpty() && !isTakenFromOtherRoom(card)) || !filled)
        return;
    if (isThere(card))
        sayCardIsThere();
    else
        filled->addOne(card);
}
