#pragma once

#include "vm/module1/BoardModels.h"
#include "vm/module1/RoomListModel.h"
#include "vm/shared/ActionVm.h"
#include "vm/shared/EventMarks.h"
#include "vm/shared/ReaderListener.h"

/// The room board. What it shows is what the back end said last: an event from the broker marks it as out of
/// date, and a tick fetches it again, at most once in 500 ms and not while the user's action runs.
class Module1Vm : public ActionVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(RoomListModel*, pRoomModel, m_rooms)               // the plain grid
    CONSTANT_PROPERTY(RoomSortListModel*, pRoomSortModel, m_roomsByType) // group mode
    PROPERTY(bool, isGroupMode, setIsGroupMode, false)
    PROPERTY(int, itemColumns, setItemColumns, 8) // tiles per row
    CONSTANT_PROPERTY(RoomStatusModel*, pRoomStatusModel, m_strip)
    CONSTANT_PROPERTY(RoomFloorModel*, pRoomFloorModel, m_floors)
    CONSTANT_PROPERTY(RoomTypeModel*, pRoomTypeModel, m_types)
    CONSTANT_PROPERTY(RoomOverTimeModel*, pRoomOverTimeModel, m_overruns)
    PROPERTY(bool, usedRoomMod, setUsedRoomMod, false) // the house works without guests' hand cards
    PROPERTY(bool, isCleaning, setIsCleaning, false)   // cleaning goes in two steps
    PROPERTY(bool, isOnScreen, setIsOnScreen, true)    // the user sees the board; else its side lists can wait

public:
    explicit Module1Vm(QObject* parent = nullptr);

    /// How many tiles stand in a row of a board that is so wide, in pixels: those of the setting, else as many
    /// of the usual ones as leave each tile wide enough to be read.
    Q_INVOKABLE int columnsIn(int boardWidth) const;
    /// Shows the rooms in this state alone, all with an empty code.
    Q_INVOKABLE void onSelectStatus(const QString& code);
    Q_INVOKABLE void onChgMode();
    /// Adds the floor or type to those shown, or takes it off; none stands for all.
    Q_INVOKABLE void onChgFloor(const QString& id);
    Q_INVOKABLE void onChgType(const QString& id);
    /// What a tap on the room with this id means by its state: one of the four signals below, a refusal that is
    /// shown, or nothing.
    Q_INVOKABLE void tapRoom(const QString& roomId);
    /// Makes a room empty again: one that was cleaned, or one that was specially occupied.
    Q_INVOKABLE void cleanRoom(const QString& id, bool dirtyFlg);
    /// Tells where a hand card is.
    Q_INVOKABLE void queryCard(const QString& cardNo, const QString& rfid);
    /// Looks for the room among those loaded; a hit goes out as selectRoomSignal and is a tap on the room.
    Q_INVOKABLE void queryRoom(const QString& roomNo);
    /// Cleaning begins (1) or is done (2), by the operator.
    Q_INVOKABLE void setCleanFlg(const QString& id, int status);

public Q_SLOTS:
    void timeEvent() { m_marks.tick(); }
    void mqttEvent(const QString& topic, const QString& msg);

Q_SIGNALS:
    void selectRoomSignal(const QString& id, const QString& roomNo, int status, int openType, bool dirtyFlg,
                          bool roomLock, int cleanFlg);
    /// The room is empty: what to do with it is to be asked.
    void openRoomAsked(const QString& roomId);
    /// The room is in use: its detail is to be shown.
    void roomDetailAsked(const QString& roomId);
    /// With a yes to the question cleanRoom(roomId, dirtyFlg) is due.
    void cleanAsked(const QString& question, const QString& roomId, bool dirtyFlg);
    /// With a yes to the question setCleanFlg(roomId, cleanFlg) is due.
    void cleanFlgAsked(const QString& question, const QString& roomId, int cleanFlg);

private:
    void initRoomStatus();
    void fetchMarked();
    void tap(const RoomTile& room);
    void askToClean(const RoomTile& room);
    /// The first of the loaded rooms that fits; false without one.
    template <typename Fits>
    bool findRoom(Fits fits, RoomTile* found) const;

    QJsonObject listRequest() const;
    // Each may return when the page has gone.
    void updateRoomList();
    void getRoomFloors();
    void getRoomTypes();
    void getOverTime();

    RoomListModel* m_rooms;
    RoomSortListModel* m_roomsByType;
    RoomStatusModel* m_strip;
    RoomFloorModel* m_floors;
    RoomTypeModel* m_types;
    RoomOverTimeModel* m_overruns;
    QString m_statusCode; ///< the strip's chosen state, empty for all
    bool m_areColumnsSet = false;
    int m_listFetches = 0;
    EventMarks m_marks;
    ReaderListener m_staffReader{this}; ///< a staff card has no effect while the board is open
};
