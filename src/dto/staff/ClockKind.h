#pragma once

#include <QString>

/// How a technician came to a service; the values are those of the wire.
enum class ClockKind {
    Requested = 1, ///< the guest asked for him
    Chosen = 2,    ///< the guest picked him on the spot
    Called = 3,
    PickedUp = 4,
    Rotation = 5, ///< his turn
    Added = 6,    ///< more time on a running service
};

/// The kind's name on pages, two characters wide apart; empty for a code that is no kind.
inline QString clockKindLabel(int code)
{
    switch (static_cast<ClockKind>(code)) {
    case ClockKind::Requested:
        return QStringLiteral("点  钟");
    case ClockKind::Chosen:
        return QStringLiteral("选  钟");
    case ClockKind::Called:
        return QStringLiteral("CALL钟");
    case ClockKind::PickedUp:
        return QStringLiteral("捡  钟");
    case ClockKind::Rotation:
        return QStringLiteral("轮  钟");
    case ClockKind::Added:
        return QStringLiteral("加  钟");
    }
    return {};
}
