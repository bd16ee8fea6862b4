#pragma once

#include "print/PrintRecords.h"
#include "vm/module1/CardListModel.h"

#include <QMap>

// What the two pages share that open a room.

/// The hand cards that a room is to be opened with.
class OpeningCards : public QObject
{
    Q_OBJECT

public:
    /// Without openMulti the user is asked about each card that stands in another room.
    OpeningCards(bool openMulti, QObject* parent);

    CardListModel* model() const { return m_cards; }
    /// The room number of each card that stands in another room, by card number.
    const QMap<QString, QString>& elsewhere() const { return m_elsewhere; }

    /// Puts a card on the list, if it may be; else it has been said why not, or the user has declined.
    void take(const QString& cardNo, const QString& rfid);
    /// Takes a card off the list; an index out of range changes nothing.
    void remove(int index);
    /// The first card's number, empty without one.
    QString mainCard() const;

private:
    CardListModel* m_cards;
    QMap<QString, QString> m_elsewhere;
    const bool m_openMulti;
};

/// Prints the slip of a room that has just been opened; operator and time are added here.
void printOpening(open_room_print_struct slip);
