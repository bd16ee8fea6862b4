#include "RoomFloor.h"

#include "dto/card/CardRecords.h"
#include "services/Baa01Service.h"
#include "services/Bba01Service.h"

#include <QJsonArray>
#include <QJsonObject>

namespace {

QString firstPlan(const QString& roomId)
{
    const auto plans = held(Bba01Service::getInstance()->getRoomPlanNew({{"roomId", roomId}, {"planType", 1}}));
    return plans->data().isEmpty() ? QString() : plans->data().at(0)->id();
}

} // namespace

QString RoomFloor::roomNoWhere(const std::function<bool(const RoomDto&)>& fits)
{
    const auto rooms = held(Bba01Service::getInstance()->getRoomList({}));
    for (const RoomDto* room : rooms->data()) {
        if (fits(*room))
            return room->code();
    }
    return {};
}

Reply<GetRoomDetailNew> RoomFloor::detail(const QString& roomNo)
{
    return held(Bba01Service::getInstance()->getRoomDetailNew({{"roomNo", roomNo}}));
}

QString RoomFloor::roomId(const QString& roomNo)
{
    const auto room = detail(roomNo);
    return room->data() ? room->data()->id() : QString();
}

QStringList RoomFloor::cardsInside(const QString& roomNo)
{
    QStringList numbers;
    const auto room = detail(roomNo);
    if (!room->data())
        return numbers;
    for (const RoomCardsDto* card : room->data()->cardlist())
        numbers.append(card->cardno());
    numbers.removeDuplicates();
    return numbers;
}

QStringList RoomFloor::freeCards(int count)
{
    constexpr int firstNumber = 8001;
    constexpr int lastNumber = 8100;
    QStringList numbers;
    for (int number = firstNumber; number <= lastNumber && numbers.size() < count; ++number) {
        const auto card =
            held(Baa01Service::getInstance()->getHardCardDetail({{"cardno", QString::number(number)}}));
        if (card->data() && card->data()->status() <= 1 && card->data()->roomNo().isEmpty())
            numbers.append(card->data()->cardno());
    }
    return numbers;
}

QString RoomFloor::cardId(const QString& cardNo)
{
    const auto card = held(Baa01Service::getInstance()->getHardCardDetail({{"cardno", cardNo}}));
    return card->data() ? card->data()->id() : QString();
}

QString RoomFloor::openRoom(int status, int cards)
{
    QJsonArray ids;
    for (const QString& number : freeCards(cards))
        ids.append(cardId(number));
    const QString roomNo = roomNoWhere([](const RoomDto& room) {
        return room.status() == 1 && !room.roomLock() && !firstPlan(room.id()).isEmpty();
    });
    QJsonObject data{{"id", roomId(roomNo)}, {"cardids", ids}};
    const bool isMassage = status == 2;
    if (isMassage) {
        data.insert("hours", 2);
    } else {
        data.insert("newPlanFlg", 1);
        data.insert("type", 1);
        data.insert("planid", firstPlan(roomId(roomNo)));
    }
    Bba01Service* rooms = Bba01Service::getInstance();
    const auto opened = held(isMassage ? rooms->openMassRoom(data) : rooms->openRestRoom(data));
    if (!isOk(*opened))
        qWarning("%s", qPrintable(opened->msg()));
    return isOk(*opened) ? roomNo : QString();
}
