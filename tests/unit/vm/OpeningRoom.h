#pragma once

// What the tests of opening a room share.

#include "RoomFixture.h"

#include "common/GlobalConfig.h"

inline const QString detailPath = QStringLiteral("/bba01/getRoomDetailNew");
inline const QString cardPath = QStringLiteral("/baa01/getHardCardDetail");
inline const QString plansPath = QStringLiteral("/bba01/getPlanListNew");
inline const QString kindsPath = QStringLiteral("/bba01/getOccTypeList");
inline const QString massPath = QStringLiteral("/bba01/openMassRoom");
inline const QString restPath = QStringLiteral("/bba01/openRestRoom");
inline const QString occupyPath = QStringLiteral("/bba01/chgOccupyRoom");
inline const QString cleanPath = QStringLiteral("/bba01/chgCleanRoom");

inline QJsonObject cardFields(const QString& number, int status = 0, const QString& roomNo = {})
{
    return {{"id", "id-" + number}, {"cardno", number}, {"status", status}, {"roomNo", roomNo}};
}

inline QJsonObject plan(const QString& id, const QString& name, int hours, double fee)
{
    return {{"id", id}, {"name", name}, {"min_time", hours}, {"min_fee", fee}};
}

inline SysConfigDto& store() { return *GlobalConfig::getInstance()->sysConfig(); }

/// A store in which every way of opening is allowed.
inline void prepareStore(RoomFixture& room)
{
    room.reset();
    GlobalConfig::getInstance()->setRights({"0101", "0102", "0113", "0114"});
    store().set_openMulti(true);
    store().set_isNeedCard(true);
    store().set_usedRoomMod(0);
    store().set_defaultTime(2);
}

/// Has the page take a card that the house tells so of.
template <typename Page>
void enter(RoomFixture& room, Page& page, const QJsonObject& card)
{
    room.answer(cardPath, card, 1);
    page.getCardInfo(card.value("cardno").toString(), {});
}
