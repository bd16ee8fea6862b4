#pragma once

#include "common/BaseObject.h"
#include "common/Property.h"
#include "vm/module1/BoardModels.h"
#include "vm/module1/RoomListModel.h"

#include <QJsonObject>
#include <QMap>
#include <QMutex>
#include <QTimer>

/// The room board. What it shows is what the back end said last: an event from the broker marks it as out of
/// date, and a tick fetches it again, at most once in 500 ms and not while the user's action runs.
class Module1Vm : public BaseObject
{
    Q_OBJECT
    CONSTANT_PROPERTY(RoomListModel*, pRoomModel, m_rooms)               // the plain grid
    CONSTANT_PROPERTY(RoomSortListModel*, pRoomSortModel, m_roomsByType) // group mode
    PROPERTY(bool, isGroupMode, setIsGroupMode, false)
    PROPERTY(int, itemColumns, setItemColumns, 8) // tiles per row
    CONSTANT_PROPERTY(RoomStatusModel*, pRoomStatusModel, m_strip)
    PROPERTY(bool, isEnabled, setIsEnabled, true) // false while an action runs
    CONSTANT_PROPERTY(RoomFloorModel*, pRoomFloorModel, m_floors)
    CONSTANT_PROPERTY(RoomTypeModel*, pRoomTypeModel, m_types)
    CONSTANT_PROPERTY(RoomOverTimeModel*, pRoomOverTimeModel, m_overruns)
    PROPERTY(bool, usedRoomMod, setUsedRoomMod, false) // the house works without guests' hand cards
    PROPERTY(bool, isCleaning, setIsCleaning, false)   // cleaning goes in two steps

public:
    explicit Module1Vm(QObject* parent = nullptr);
    ~Module1Vm() override;

    /// Shows the rooms in this state alone, all with an empty code.
    Q_INVOKABLE void onSelectStatus(const QString& code);
    Q_INVOKABLE void onChgMode();
    /// Adds the floor or type to those shown, or takes it off; none stands for all.
    Q_INVOKABLE void onChgFloor(const QString& id);
    Q_INVOKABLE void onChgType(const QString& id);
    /// Makes a room empty again: one that was cleaned, or one that was specially occupied.
    Q_INVOKABLE void cleanRoom(const QString& id, bool dirtyFlg);
    /// Tells where a hand card is.
    Q_INVOKABLE void queryCard(const QString& cardNo, const QString& rfid);
    /// Decides what a tap on the room does: one of the signals below, or a refusal that is shown.
    Q_INVOKABLE void tapRoom(const QString& roomId);
    /// Looks for the room among those loaded; a hit counts as a tap, and goes out as selectRoomSignal too.
    Q_INVOKABLE void queryRoom(const QString& roomNo);
    /// Cleaning begins (1) or is done (2), by the operator.
    Q_INVOKABLE void setCleanFlg(const QString& id, int status);

public Q_SLOTS:
    void timeEvent();
    void mqttEvent(const QString& topic, const QString& msg);

Q_SIGNALS:
    void selectRoomSignal(const QString& id, const QString& roomNo, int status, int openType, bool dirtyFlg,
                          bool roomLock, int cleanFlg);
    void openRoomAsked(const QString& roomId);
    void roomDetailAsked(const QString& roomId);
    /// cleanRoom() once the question is answered with yes.
    void cleanAsked(const QString& question, const QString& roomId, bool dirtyFlg);
    /// setCleanFlg() once the question is answered with yes.
    void cleanFlgAsked(const QString& question, const QString& roomId, int cleanFlg);

private:
    void decide(const RoomTile& room);
    void stepCleaning(const RoomTile& room);
    void initRoomStatus();
    void setMqttTopic(bool isOn);
    void mark(const char* what);
    bool takeMark(const char* what);

    QJsonObject listRequest() const;
    // Each may return when the page has gone.
    void updateRoomList();
    void getRoomFloors();
    void getRoomTypes();
    void getOverTime();
    template <typename Call, typename Take>
    void fetch(Call call, Take take);
    template <typename Call>
    void change(Call call);

    RoomListModel* m_rooms;
    RoomSortListModel* m_roomsByType;
    RoomStatusModel* m_strip;
    RoomFloorModel* m_floors;
    RoomTypeModel* m_types;
    RoomOverTimeModel* m_overruns;
    QString m_statusCode; ///< the strip's chosen state, empty for all
    int m_listFetches = 0;
    QTimer* m_timer;
    QMutex m_marksMutex;
    QMap<QString, bool> m_marks;
};
