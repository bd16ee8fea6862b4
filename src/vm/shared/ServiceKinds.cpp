#include "vm/shared/ServiceKinds.h"

#include "dto/staff/ClockKind.h"

namespace {

QVariantMap choice(const char* label, int value)
{
    return {{QStringLiteral("label"), QString::fromUtf8(label)}, {QStringLiteral("value"), value}};
}

QVariantMap choice(const char* label, ClockKind kind) { return choice(label, static_cast<int>(kind)); }

} // namespace

QVariantList shiftChoices() { return {choice("正常班", 0), choice("加班", 1)}; }

QVariantList clockKindChoices()
{
    return {choice("轮钟", ClockKind::Rotation), choice("点钟", ClockKind::Requested),
            choice("加钟", ClockKind::Added),    choice("call钟", ClockKind::Called),
            choice("捡钟", ClockKind::PickedUp), choice("选钟", ClockKind::Chosen)};
}
