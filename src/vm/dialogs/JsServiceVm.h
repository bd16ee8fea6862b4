#pragma once

#include "vm/shared/ActionVm.h"
#include "vm/shared/ServiceKinds.h"

/// What a technician's line of an order needs to be known.
class JsServiceVm : public ActionVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(QVariantList, shifts, shiftChoices())
    CONSTANT_PROPERTY(QVariantList, kinds, clockKindChoices())

public:
    explicit JsServiceVm(QObject* parent = nullptr) : ActionVm(parent) {}

    /// Whether the line is complete; if not, the user is told what is missing. A choice not made is negative.
    Q_INVOKABLE bool isComplete(int overFlg, int serviceType, const QString& staffNo,
                                const QString& pushNo) const;
};
