#include "vm/module2/Module2Vm.h"

#include "app/MainClass.h"
#include "common/GlobalConfig.h"
#include "services/Bba01Service.h"
#include "services/Bca01Service.h"
#include "vm/module2/SaleSlip.h"
#include "vm/shared/GuestLookup.h"

namespace {

constexpr int saleOperation = 2;
enum SaveMode : int { OnCard = 0, OnRoom = 1 };

} // namespace

Module2Vm::Module2Vm(QObject* parent)
    : CatalogueVm(parent), m_newLines(new NewItemModel(this)), m_oldLines(new OldItemModel(this))
{
    const GlobalConfig* config = GlobalConfig::getInstance();
    setCloseFlg(config->terminalInfo() && config->terminalInfo()->closeFlg());
    setUsedRoomMod(config->sysConfig() && config->sysConfig()->usedRoomMod() == 1);
    selectSingleArea();
}

Module2Vm::~Module2Vm()
{
    delete cardDto();
    delete roomDto();
    MainClass::getInstance()->onDestruct(QStringLiteral("module2"));
}

void Module2Vm::init(const QString& cardNo)
{
    if (!cardNo.isEmpty())
        getOrderInfo({}, cardNo, {});
}

bool Module2Vm::getOrderInfo(const QString& rfid, const QString& cardNo, const QString& roomNo)
{
    return act([&] {
        bool isTaken = false;
        fetch(&Bca01Service::getCardOrderInfo, guestRequest(rfid, cardNo, roomNo),
              [&](const GetCardOrderInfo& reply) {
                  const bool isCard = !rfid.isEmpty() || !cardNo.isEmpty();
                  isTaken = reply.data() && takeGuest(*reply.data(), isCard, !roomNo.isEmpty());
              });
        return isTaken;
    });
}

bool Module2Vm::refreshGuest()
{
    const QString card = cardNo();
    const QString room = roomNo();
    if (!hasGuest() || !(isCustMode() ? getOrderInfo({}, {}, room) : getOrderInfo({}, card, {})))
        return false;
    setIsSaveUnsure(false); // what the guest has is there to be looked at
    return true;
}

/// A guest that is refused leaves none: nothing can be booked on one that isn't seen any more.
bool Module2Vm::takeGuest(const GetCardOrderDto& guest, bool isCard, bool isRoom)
{
    setCardNo({});
    setRoomNo({});
    HandCardInfoDto* card = isCard ? usableCardOrSaid(guest) : nullptr;
    RoomInfoDto* room = !isCard && isRoom ? usableRoomOrSaid(guest) : nullptr;
    holdGuest(card, room);
    if (card || room)
        m_oldLines->update(guest.orderList());
    else
        m_oldLines->replace({});
    setOldAmount(card || room ? guest.amount() : 0);
    updateAmounts();
    return card || room;
}

void Module2Vm::holdGuest(HandCardInfoDto* card, RoomInfoDto* room)
{
    setCardDto(card ? new HandCardInfoDto(card) : nullptr);
    setRoomDto(room ? new RoomInfoDto(room) : nullptr);
    setCardId(card ? card->id() : QString());
    setCardType(card ? card->type() : QString());
    setCardNo(card ? card->cardno() : QString());
    setRoomNo(room ? room->code() : QString());
    setIsCustMode(room != nullptr);
    setHasGuest(card || room);
}

QStringList Module2Vm::getRoomCards(const QString& roomNo)
{
    QStringList cards;
    fetch(&Bba01Service::getRoomDetailNew, {{"roomNo", roomNo}}, [&](const GetRoomDetailNew& reply) {
        if (!reply.data())
            return;
        for (const RoomCardsDto* card : reply.data()->cardlist())
            cards.append(card->cardno());
    });
    return cards;
}

void Module2Vm::addRoom(const QString& roomNo)
{
    const SysConfigDto* config = GlobalConfig::getInstance()->sysConfig();
    if (config && config->isCustRoom() == 1) {
        getOrderInfo({}, {}, roomNo);
        return;
    }
    const QPointer<Module2Vm> self(this);
    const QStringList cards = getRoomCards(roomNo);
    if (self && require(!cards.isEmpty(), "当前房间无手牌"))
        getOrderInfo({}, cards.first(), {});
}

bool Module2Vm::save(const QString& deskNo)
{
    if (!hasGuest() || m_newLines->rowCount() == 0)
        return false;
    return act([&] { return trySave(deskNo); });
}

bool Module2Vm::trySave(const QString& deskNo)
{
    // What is printed is what was sent: the page may be gone when the answer comes.
    const QPointer<Module2Vm> self(this);
    const QVector<new_item_struct> lines = m_newLines->rows();
    const QString remark = allRemark();
    const std::unique_ptr<HandCardInfoDto> card(cardDto() ? new HandCardInfoDto(cardDto()) : nullptr);
    QJsonObject data{{"items", requestOf(lines, deskNo)},
                     {"opType", saleOperation},
                     {"mode", card ? OnCard : OnRoom},
                     {"roomId", card ? card->room_id() : roomDto()->id()}};
    if (!remark.isEmpty())
        data.insert("remark", remark);
    if (card)
        data.insert("hardCardId", card->id());
    const auto reply = call(card ? &Bca01Service::batchUpdateOrder : &Bca01Service::batchUpdateRoomOrder, data);
    if (self)
        setIsSaveUnsure(!isAnswered(*reply));
    if (!isDoneOrShown(*reply))
        return false;
    if (!reply->data())
        return true;
    printSale(*reply, lines, card.get(), remark);
    if (self)
        cleanData();
    return true;
}

void Module2Vm::reprint(const QString& orderId)
{
    const auto reply = call(&Bca01Service::getRePrintOrderList, {{"orderId", orderId}});
    printSaleAgain(reply->data());
}

void Module2Vm::cleanData()
{
    holdGuest(nullptr, nullptr);
    clearCatalogue();
    m_newLines->replace({});
    m_oldLines->replace({});
    setOldAmount(0);
    updateAmounts();
    setAllRemark({});
    setIsSaveUnsure(false);
    const QPointer<Module2Vm> self(this);
    selectSingleArea();
    if (self)
        setIsEnabled(true);
}
