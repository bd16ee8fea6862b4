#pragma once

#include "dto/system/MqttRecords.h"

/// This terminal, as the back end knows it.
class TerminalDto : public QObject
{
    Q_OBJECT
    RECORD(TerminalDto)
    RECORD_FIELD(QString, compId)                // company
    RECORD_FIELD(QString, storeId)               // store
    RECORD_FIELD(QString, id)                    // terminal, sent as deviceId
    RECORD_FIELD(QString, name)                  // printed on slips
    RECORD_FIELD(QString, secretKey)             // the terminal's key
    RECORD_FIELD(QString, storeName)             // shown in the header and printed
    RECORD_FIELD(QString, areaIds)               // work areas that it serves, comma-separated ids
    RECORD_FIELD(bool, closeFlg)                 // consumption entry leaves its page after a save
    RECORD_FIELD(bool, isShowAmount)             // the room board shows amounts
    RECORD_FIELD(QString, hardCardTypes)         // hand card kinds that it announces, comma-separated
    RECORD_FIELD(bool, isMultiCall)              // the call page offers calling several at once
    RECORD_FIELD(int, orderPrintNum)             // copies of the order slip
    RECORD_FIELD(bool, isChargebackPrint)        // an order slip is printed only with a charge-back line
    RECORD_FIELD(QString, selfItemName)          // name of the self-entry item
    RECORD_FIELD(QString, noVerifyStaffIdentity) // action codes done without identity, comma-separated
};

/// Settings of the store.
class SysConfigDto : public QObject
{
    Q_OBJECT
    RECORD(SysConfigDto)
    RECORD_FIELD(QString, compId)     // company
    RECORD_FIELD(QString, storeId)    // store
    RECORD_FIELD(int, isCustRoom)     // 1: a room number may be typed for a guest in consumption entry
    RECORD_FIELD(int, usedRoomMod)    // 1: the store works by room, not by hand card
    RECORD_FIELD(int, defaultTime)    // default duration at room opening, hours
    RECORD_FIELD(int, isBreakBill)    // not read by the terminal
    RECORD_FIELD(bool, openMulti)     // several cards may be opened together
    RECORD_FIELD(bool, isNeedCard)    // opening a massage room needs a hand card
    RECORD_FIELD(QString, startTime)  // start of the business day
    RECORD_FIELD(bool, isCleaning)    // rooms are cleaned in two steps
    RECORD_FIELD(bool, custCanAssign) // a service may start without a hand card
};

/// Settings of the service plan.
class PlanConfigDto : public QObject
{
    Q_OBJECT
    RECORD(PlanConfigDto)
    RECORD_FIELD(int, isPush)          // 1: the store works with a pusher
    RECORD_FIELD(QString, noAlarmType) // clock kinds that a technician may take freely, comma-separated codes
};

/// Settings of hand cards.
class CardConfigDto : public QObject
{
    Q_OBJECT
    RECORD(CardConfigDto)
    RECORD_FIELD(int, lock_type)            // model of the hand card reader
    RECORD_FIELD(bool, is_open_pack_ticket) // not read by the terminal
};

/// One module right of the terminal.
class ModAuthDto : public QObject
{
    Q_OBJECT
    RECORD(ModAuthDto)
    RECORD_FIELD(QString, funcVal)                          // module code
    RECORD_FIELD(QString, authName)                         // the tile's title
    RECORD_FIELD(QString, pid)                              // parent right, "0" for a module
    RECORD_FIELD(QString, id)                               // own id
    RECORD_FIELD_AS(bool, authflg, getAuthflg, set_authflg) // the terminal holds the right
};
RECORD_LIST(ModAuthDto)

/// All that the terminal learns about itself at start-up.
class SysInitDto : public QObject
{
    Q_OBJECT
    RECORD(SysInitDto)
    RECORD_FIELD(TerminalDto*, terminalInfo)  // this terminal
    RECORD_FIELD(Array<ModAuthDto*>, modAuth) // source of the function menu
    RECORD_FIELD(SysConfigDto*, sysconfig)    // settings of the store
    RECORD_FIELD(QString, kvupload)           // base URL of uploaded images
    RECORD_FIELD(PlanConfigDto*, planconfig)  // settings of the service plan
    RECORD_FIELD(CardConfigDto*, cardconfig)  // settings of hand cards
    RECORD_FIELD(SysMqttInfoDto*, mqttInfo)   // how the broker is reached
};

class GetSysInitByAuthCode : public ApiRes
{
    Q_OBJECT
    RECORD_ON(GetSysInitByAuthCode, ApiRes)
    RECORD_FIELD(SysInitDto*, data)
};
