#include "vm/module1/OpenMassVm.h"

#include "app/MainClass.h"
#include "common/BusyGuard.h"
#include "services/Bba01Service.h"
#include "services/Reply.h"

OpenMassVm::OpenMassVm(QObject* parent) : QObject(parent), m_cards(new OpeningCards(openMulti(), this)) {}

void OpenMassVm::init(const QString& roomId, const QString& roomNo)
{
    setRoomId(roomId);
    m_roomNo = roomNo;
    if (usedRoomMod())
        getCardInfo(roomNo, {}); // the room's number is the number of its card too
}

void OpenMassVm::getCardInfo(const QString& cardNo, const QString& rfid) { m_cards->take(cardNo, rfid); }

void OpenMassVm::deleteCard(int index) { m_cards->remove(index); }

/// Asks once about all cards that stand in other rooms.
bool OpenMassVm::isJoiningConfirmed() const
{
    QString question;
    for (auto it = m_cards->elsewhere().begin(); it != m_cards->elsewhere().end(); ++it)
        question += QStringLiteral("手牌%1在%2房间中\n").arg(it.key(), it.value());
    question += QStringLiteral("是否确认联房？？？");
    return MainClass::getInstance()->showMsgConfirm(QStringLiteral("提示"), question) == 1;
}

bool OpenMassVm::save()
{
    const BusyGuard<OpenMassVm> guard(this);
    if (!guard)
        return false;
    MyMessage* message = MyMessage::getInstance();
    if (RoomSettings::ofStore().isNeedCard && pCardListModel()->rowCount() == 0) {
        message->ShowError(QStringLiteral("请先添加手牌"));
        return false;
    }
    // The page may be gone after the question or the call.
    QJsonObject data{{QStringLiteral("id"), roomId()},
                     {QStringLiteral("cardids"), pCardListModel()->ids()},
                     {QStringLiteral("hours"), hours()}};
    open_room_print_struct slip;
    slip.roomNo = m_roomNo;
    slip.planName = QStringLiteral("按摩房");
    slip.mainCard = m_cards->mainCard();
    slip.hours = hours();
    if (openMulti() && !m_cards->elsewhere().isEmpty()) {
        if (!isJoiningConfirmed())
            return false;
        data.insert(QStringLiteral("isConn"), 1);
    }
    const auto reply = held(Bba01Service::getInstance()->openMassRoom(data));
    if (!isOkOrShown(*reply))
        return false;
    printOpening(slip);
    message->showOk(QStringLiteral("操作成功"));
    return true;
}
