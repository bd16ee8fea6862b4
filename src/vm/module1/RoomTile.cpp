#include "vm/module1/RoomTile.h"

#include "dto/room/RoomStatus.h"
#include "vm/shared/Texts.h"

#include <limits>

namespace {

constexpr int guestRoomType = 2;
constexpr qint64 minutesPerHour = 60;
constexpr qint64 overrunShownMinutes = 2879; ///< a longer one only counts as a day

QString colorOfTile(const RoomDto& room)
{
    switch (room.status()) {
    case RoomEmpty:
        return QStringLiteral("#08A0D3");
    case RoomMassage:
    case RoomRest:
        return room.isSettle() ? QStringLiteral("#B2B10A") : QStringLiteral("#DB70D7");
    case RoomCleaning:
        return QStringLiteral("#409914");
    case RoomOccupied:
        return room.dirtyFlg() ? QStringLiteral("#409914") : QStringLiteral("#CD3333");
    case RoomGuest:
        return room.dirtyFlg() && room.openType() == guestRoomType ? QStringLiteral("#AC9273")
                                                                   : QStringLiteral("#DB70D7");
    case 7:
        return QStringLiteral("#DB70D7");
    case 8:
        return QStringLiteral("#E51C23");
    default:
        return QStringLiteral("#000000");
    }
}

struct StateWords
{
    QString mark;
    QString name;
};

StateWords wordsOf(const RoomDto& room)
{
    const StateWords guestRoom{QStringLiteral("客"), QStringLiteral("客房")};
    const StateWords cleaning{QStringLiteral("扫"), QStringLiteral("清扫房")};
    const StateWords settled{QStringLiteral("结"), QStringLiteral("已结账")};
    const bool isGuestRoom = room.openType() == guestRoomType;
    switch (room.status()) {
    case RoomEmpty:
        if (room.roomLock())
            return {QStringLiteral("约"), QStringLiteral("预约")};
        return {QStringLiteral("空"), QStringLiteral("空闲房")};
    case RoomMassage:
        return room.isSettle() ? settled : StateWords{QStringLiteral("按"), QStringLiteral("按摩房")};
    case RoomRest:
        if (room.isSettle())
            return settled;
        return isGuestRoom ? guestRoom : StateWords{QStringLiteral("休"), QStringLiteral("休息房")};
    case RoomCleaning:
        return cleaning;
    case RoomOccupied:
        if (room.dirtyFlg())
            return cleaning;
        return {QStringLiteral("占"), QStringLiteral("特殊占用房")};
    case RoomGuest:
        if (room.dirtyFlg() && isGuestRoom)
            return {QStringLiteral("脏"), QStringLiteral("待清扫客房")};
        return guestRoom;
    case 7:
    case 8:
        return {QStringLiteral("用"), QStringLiteral("在用房")};
    default:
        return {QStringLiteral("?"), QStringLiteral("未知状态")};
    }
}

/// Whether guests are inside, so that cards, technicians and times mean something.
bool isInUse(int status)
{
    return status == RoomMassage || status == RoomRest || status == 7 || status == 8 || status == 9;
}

QString cleanerOf(const RoomDto& room)
{
    return shownText(room.cleanerName() + QLatin1Char('-') + room.cleanerNo());
}

QString stateText(const RoomDto& room)
{
    const bool hasCleaner = !room.cleanerNo().isEmpty();
    QString text;
    switch (room.status()) {
    case RoomEmpty:
        text = room.roomLock() ? QStringLiteral("预约") : room.statusStr();
        break;
    case RoomCleaning:
        text = room.cleanFlg() == 1   ? QStringLiteral("开始清扫")
               : room.cleanFlg() == 2 ? QStringLiteral("清扫完成")
                                      : room.statusStr();
        if (hasCleaner)
            text = cleanerOf(room);
        break;
    case RoomOccupied:
        if (room.dirtyFlg())
            return QStringLiteral("清扫");
        text = room.cooName();
        break;
    default:
        break;
    }
    return room.dirtyFlg() && hasCleaner ? cleanerOf(room) : text;
}

/// What the back end says may be any number.
qint64 usedMinutes(const RoomDto& room)
{
    constexpr qint64 most = std::numeric_limits<qint64>::max() / 2;
    return room.hours() * minutesPerHour - qBound(-most, room.surplus(), most);
}

QString leftText(qint64 surplusMinutes)
{
    if (surplusMinutes >= 0)
        return hoursAndMinutes(surplusMinutes);
    if (surplusMinutes < -overrunShownMinutes)
        return QStringLiteral("超:1d");
    return QStringLiteral("超:>") + hoursAndMinutes(-surplusMinutes);
}

QString labelled(const QString& label, const QString& text)
{
    return text.isEmpty() ? QString() : label + shownText(text);
}

} // namespace

RoomTile tileOf(const RoomDto& room, bool isShowAmount)
{
    RoomTile tile;
    const int status = room.status();
    tile.roomId = room.id();
    tile.roomNo = shownText(room.code());
    if (room.name() != room.code())
        tile.roomName = shownText(room.name());
    tile.roomFloor = shownText(room.floorname());
    tile.roomNum = QString::number(room.num()) + QLatin1Char('/') + QString::number(room.innum());
    tile.backColor = colorOfTile(room);
    const StateWords words = wordsOf(room);
    tile.stateMark = words.mark;
    tile.stateName = words.name;
    tile.statusVal = shownText(stateText(room));
    tile.remark = shownText(room.remark());
    tile.roomLock = room.roomLock();
    tile.openType = room.openType();
    tile.dirtyFlg = room.dirtyFlg();
    tile.status = status;
    tile.cleanFlg = room.cleanFlg();
    if (isShowAmount && (status == RoomMassage || status == RoomRest) && room.needPayAmount() > 0)
        tile.payAmount = labelled(QStringLiteral("¥"), shortMoney(room.needPayAmount()));
    if ((status == RoomCleaning || room.dirtyFlg()) && !room.cleanerNo().isEmpty())
        tile.roomCleaner = shownText(room.cleanerNo() + QLatin1Char('-') + room.cleanerName());
    if (status == RoomMassage)
        tile.lastSvrTime = shownText(room.lastSvrTime());
    if (isInUse(status)) {
        tile.cardList = labelled(QStringLiteral("客:"), room.cardnos());
        tile.staffList = labelled(QStringLiteral("技:"), room.staffnos());
        tile.finishStaff = labelled(QStringLiteral("停:"), room.completedStaffnos());
        tile.groupRoom = labelled(QStringLiteral("团:"), room.groupRoom());
        tile.usedTime = hoursAndMinutes(usedMinutes(room));
        tile.leftTime = leftText(room.surplus());
        tile.surplus = room.surplus();
    }
    return tile;
}

QString spokenName(const RoomTile& tile)
{
    QStringList parts{tile.roomNo, tile.stateName};
    if (!tile.statusVal.isEmpty() && tile.statusVal != tile.stateName)
        parts.append(tile.statusVal);
    if (!tile.leftTime.isEmpty()) {
        const QString what = tile.surplus < 0 ? QStringLiteral("超时") : QStringLiteral("剩余");
        parts.append(tile.surplus < -overrunShownMinutes ? QStringLiteral("超时一天以上")
                                                         : QStringLiteral("%1%2小时%3分")
                                                               .arg(what)
                                                               .arg(qAbs(tile.surplus) / minutesPerHour)
                                                               .arg(qAbs(tile.surplus) % minutesPerHour));
    }
    return parts.join(QStringLiteral(","));
}

QString linesOf(const RoomTile& tile)
{
    const QStringList lines{tile.cardList,  tile.staffList,   tile.payAmount,  tile.remark.simplified(),
                            tile.groupRoom, tile.finishStaff, tile.lastSvrTime};
    const QString joined = lines.join(QChar(0x1f));
    return joined.size() < lines.size() ? QString() : joined;
}
