#pragma once

#include <QLoggingCategory>

/// Of whatever a broker can cause to be logged, and thus without end: what comes again is only counted.
Q_DECLARE_LOGGING_CATEGORY(brokerLog)
