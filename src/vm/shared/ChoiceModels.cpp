#include "vm/shared/ChoiceModels.h"

QString uncheckedBackColor() { return QStringLiteral("transparent"); }
QString uncheckedForeColor() { return QStringLiteral("#555555"); }
QString checkedBackColor() { return QStringLiteral("#398FFF"); }
QString checkedForeColor() { return QStringLiteral("white"); }
