#pragma once

#include "print/PrintRecords.h"
#include "vm/module1/RoomSettings.h"

#include <QMap>

/// What both pages do that open an empty room with hand cards.
class OpeningVm : public RoomPageVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(CardListModel*, pCardListModel, m_cards)

public:
    /// In a house without hand cards it puts the room's own card on the list.
    Q_INVOKABLE virtual void init(const QString& roomId, const QString& roomNo);
    /// Puts a card on the list, if it may be; else it has been said why not, or the user has declined. Where
    /// cards of other rooms can't be opened together, the user is asked about each that stands in one.
    Q_INVOKABLE void getCardInfo(const QString& cardNo, const QString& rfid);
    /// Takes a card off the list; which one, the index tells.
    Q_INVOKABLE void deleteCard(int index, const QString& cardNo = {});
    /// True when the room is open.
    Q_INVOKABLE virtual bool save() = 0;

protected:
    explicit OpeningVm(QObject* parent) : RoomPageVm(parent), m_cards(new CardListModel(this)) {}

    /// The room number of each card that stands in another room, by card number.
    const QMap<QString, QString>& elsewhere() const { return m_elsewhere; }
    /// A slip with what both kinds have; operator and time come on when it is printed.
    open_room_print_struct slip(const QString& planName, double hours) const;
    /// Opens the room by this endpoint; when it is open the slip is printed.
    template <typename Endpoint>
    static bool open(Endpoint endpoint, const QJsonObject& data, const open_room_print_struct& slip)
    {
        return opened(*call(endpoint, data), slip);
    }

private:
    static bool opened(const ApiRes& reply, open_room_print_struct slip);

    CardListModel* m_cards;
    QMap<QString, QString> m_elsewhere;
    QString m_roomNo;
};

/// Opens an empty room as a massage room, for a number of hours.
class OpenMassVm : public OpeningVm
{
    Q_OBJECT
    PROPERTY(int, hours, setHours, RoomSettings::ofStore().defaultTime)

public:
    explicit OpenMassVm(QObject* parent = nullptr) : OpeningVm(parent) {}

    bool save() override;

private:
    bool isJoiningConfirmed() const;
};

/// Opens an empty room as a rest room, under a charging plan that tells its hours.
class OpenRestVm : public OpeningVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(PlanListModel*, pPlanListModel, m_plans) // none checked at first

public:
    explicit OpenRestVm(QObject* parent = nullptr) : OpeningVm(parent), m_plans(new PlanListModel(this)) {}

    /// Fetches the plans too.
    void init(const QString& roomId, const QString& roomNo) override;
    Q_INVOKABLE void checkPlan(int index) { m_plans->onChecked(index); }
    bool save() override;

private:
    PlanListModel* m_plans;
};
