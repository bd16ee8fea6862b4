#include "common/Clock.h"

#include <atomic>

namespace {

std::atomic<Clock::Source> clockSource{&QDateTime::currentMSecsSinceEpoch};

} // namespace

qint64 Clock::nowMs() { return clockSource.load()(); }

QDateTime Clock::now() { return QDateTime::fromMSecsSinceEpoch(nowMs()); }

void Clock::setSource(Source source) { clockSource = source ? source : &QDateTime::currentMSecsSinceEpoch; }
