#pragma once

#include "common/Property.h"
#include "vm/module1/ChoiceModels.h"

#include <QJsonObject>

/// What both pages do that move a room in use to an empty one. The room ids are the back end's.
class ChgRoomVm : public QObject
{
    Q_OBJECT
    PROPERTY(bool, isEnabled, setIsEnabled, true)               // false while it saves
    PROPERTY(bool, isNeedClean, setIsNeedClean, false)          // the room that is left goes to cleaning
    PROPERTY(QString, roomId, setRoomId, {})                    // the room that is left
    CONSTANT_PROPERTY(TempDataModel*, pEmptyRoomModel, m_rooms) // the checked one is gone to

public:
    Q_INVOKABLE void init(const QString& roomId);
    /// Fetches the empty rooms whose number fits, all for an empty text, and chooses the first. A refusal
    /// leaves the list as it is.
    Q_INVOKABLE void getRoomInfo(const QString& roomNo);
    Q_INVOKABLE virtual void selectRoom(int index);

protected:
    explicit ChgRoomVm(QObject* parent);

    /// Lists these rooms and chooses the first.
    virtual void takeRooms(const QList<temp_struct>& rooms);
    /// False, with a message, when there is none to go to.
    bool isRoomChosen() const;
    /// Moves the room, which is in this status; further fields go along. A refusal has been shown.
    bool changeRoom(int status, const QJsonObject& further) const;

private:
    TempDataModel* m_rooms;
};
