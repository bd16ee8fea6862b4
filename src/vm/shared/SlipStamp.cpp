#include "vm/shared/SlipStamp.h"

#include "common/Clock.h"
#include "common/GlobalConfig.h"

SlipStamp SlipStamp::now()
{
    const UserDto& user = *GlobalConfig::getInstance()->userInfo();
    return {user.code(), user.name(), Clock::now().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"))};
}

QDateTime businessDayStart(const QDateTime& moment)
{
    const SysConfigDto* config = GlobalConfig::getInstance()->sysConfig();
    const QTime configured =
        config ? QTime::fromString(config->startTime(), QStringLiteral("HH:mm:ss")) : QTime();
    const QDateTime today(moment.date(), configured.isValid() ? configured : QTime(0, 0));
    return moment < today ? today.addDays(-1) : today;
}
