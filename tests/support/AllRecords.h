#pragma once

#include "dto/ApiRes.h"
#include "dto/call/AssessRecords.h"
#include "dto/call/CallRecords.h"
#include "dto/card/CardOrderRecords.h"
#include "dto/card/CardRecords.h"
#include "dto/card/MealRecords.h"
#include "dto/card/SelfRecords.h"
#include "dto/room/RoomDetailRecords.h"
#include "dto/room/RoomFilterRecords.h"
#include "dto/room/RoomGroupRecords.h"
#include "dto/room/RoomOpeningRecords.h"
#include "dto/room/RoomRecords.h"
#include "dto/sales/ItemRecords.h"
#include "dto/sales/OrderRecords.h"
#include "dto/sales/SumRecords.h"
#include "dto/sales/TasteRecords.h"
#include "dto/sales/TicketRecords.h"
#include "dto/staff/CallLogRecords.h"
#include "dto/staff/GuestOrderRecords.h"
#include "dto/staff/ServiceRecords.h"
#include "dto/staff/StaffRecords.h"
#include "dto/staff/VoucherRecords.h"
#include "dto/system/LineRecords.h"
#include "dto/system/LoginRecords.h"
#include "dto/system/MqttRecords.h"
#include "dto/system/TerminalRecords.h"

#include <QMetaObject>

#include <vector>

/// A class that the serialiser fills.
struct RecordClass
{
    const char* name;
    const QMetaObject* meta;
};

template <typename... Records>
std::vector<RecordClass> recordClasses()
{
    return {{Records::staticMetaObject.className(), &Records::staticMetaObject}...};
}

/// Every record and every wrapper of a reply, in the order of the folders.
inline const std::vector<RecordClass>& allRecords()
{
    static const std::vector<RecordClass> all = recordClasses<
        ApiRes, AssessInfoDto, AssessOrderDto, AssessListDto, GetHardCardAssessOrders, QueneCallDto,
        QueneCallListDto, GetHardCardCallList, ComplateCallStaffDto, ComplateCallCardDto, ComplateCallDto,
        CompleteWaitCall, CallInfoDataDto, GetMqttCallInfoDataByKey, HandCardInfoDto, RoomCardDto, RoomInfoDto,
        GetCardOrderDto, GetCardOrderInfo, CardDetailDto, GetHardCardDetail, HandCardDto, HandCardListDto,
        GetHandCardList, MealTimeInfoDto, GetMealTimesInfo, MealCardDto, GetMealCards, MealTimesStatisticsDto,
        GetMealTimesStatistics, AddCardMealTimesDto, AddCardMealTimes, CardSelfOrderDto, GetCardSelfOrder,
        SelfSumInfoDto, SelfCardSumDto, TrmSelfOrderSumDto, GetTrmSelfOrderSum, TrmSelfOrderDetailDto,
        GetTrmSelfOrderDetail, RoomCardsDto, RoomDetailDto, GetRoomDetailNew, RoomOrderDto, GetRoomConsList,
        RoomFilterDto, RoomFloorDto, RoomFloorListDto, GetRoomFloorSum, RoomTypeDto, RoomTypeListDto,
        GetRoomTypeSum, CanMergeRoomDto, GetCanMergeRoomList, RoomAddCardErrDto, RoomAddCardDto, RoomAddCard,
        LeaveRoomDto, LeaveRoomNew, RoomPlanDto, GetPlanListNew, RoomOccupyDto, GetOccTypeList, EmptyRoomDto,
        GetEmptyRoomList, RoomDto, GetRoomListDto, RoomSortDto, GetRoomSortDto, RoomOverTimeDto, GetOverTimeDto,
        ItemTypeDto, ItemTypeListDto, GetTypeList, ItemDto, ItemListDto, GetItemList, OldOrderItemDto,
        BatchUpdateDto, BatchUpdateOrder, ReprintDto, GetRePrintOrderList, SellSumItemDto, SellParentDto,
        SellSumDto, GetSumList, TodaySumDto, TodaySumListDto, GetTodaySum, TasteSelDto, TasteTagDto, TagListDto,
        GetTagList, TpInfoDto, GetPkgTktsList, TpDetailDto, TpItemInfoDto, HelpCallBashDto,
        HelpCallBashApiLogDto, GetHelpCallBashApiLogPageList, CardInfoDto, OrderInfoDto, HandCardOrderInfoDto,
        GetOrderListNew, JsCanDoItemDto, JsCanDoItemListDto, GetStaffItemList, ServerItemDto, OnServerItemDto,
        StaffDetailDto, StaffDetailInfoDto, GetStaffInfo, StaffWorkInfoDto, GetStaffWorkInfo, StaffInfoDto,
        StaffListDto, GetStaffList, EndServerItemDto, EndServerDto, EndServer, SubLineDto, ReqLineDto,
        SysApiReqDto, GetSysApiReqUrls, UserDto, WorkAreaDto, LoginDto, LoginMod, AuthInfoDto,
        GetAuthInfoByCode, MqttTopicsDto, SysMqttInfoDto, GetSysMqttInfo, TerminalDto, SysConfigDto,
        PlanConfigDto, CardConfigDto, ModAuthDto, SysInitDto, GetSysInitByAuthCode>();
    return all;
}
