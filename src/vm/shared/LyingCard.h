#pragma once

#include <QElapsedTimer>
#include <QHash>
#include <QString>

/// Tells a card that is put on a reader from one that still lies there, which readers deliver twice a second.
/// A card counts anew once it wasn't seen for two seconds; other cards are no matter to it. Main thread.
class LyingCard
{
public:
    /// Whether the card wasn't there before; it is from here on.
    bool isNew(const QString& serial)
    {
        for (auto card = m_seen.begin(); card != m_seen.end();)
            card = card->hasExpired(awayMs) ? m_seen.erase(card) : ++card;
        const bool wasAway = !m_seen.contains(serial);
        see(serial);
        return wasAway;
    }
    /// The card may have lain there until now, unread while the program was busy.
    void see(const QString& serial) { m_seen[serial].start(); }

private:
    static constexpr int awayMs = 2000;

    QHash<QString, QElapsedTimer> m_seen; ///< by serial, since it was read last
};
