#pragma once

#include "vm/module4/AssessModels.h"
#include "vm/shared/ReadingVm.h"

class Module4Vm;

/// A guest grades what he got. Each touch is stored at once and may be changed by another one.
class ServiceEvalVm : public ReadingVm
{
    Q_OBJECT
    CONSTANT_PROPERTY(AssessInfoModel*, pAssessModel, m_grades) // for all orders at once
    CONSTANT_PROPERTY(AssessOrderModel*, pAssessOrderModel, m_orders)

public:
    /// A staff card has no effect while it listens.
    explicit ServiceEvalVm(QObject* parent = nullptr);

    /// Takes over what the call queue's last look-up found.
    Q_INVOKABLE void init(Module4Vm* queue);
    /// Gives all orders the same grade.
    Q_INVOKABLE bool assessAll(const QString& assessId);
    /// Gives an order the grade at this index of its grades.
    Q_INVOKABLE void assess(int index, const QString& assessId, const QString& orderId,
                            AssessInfoModel* grades);

private:
    bool send(const QStringList& orderIds, const QString& assessId);

    AssessInfoModel* m_grades;
    AssessOrderModel* m_orders;
    QString m_staffId;
    QString m_handId;
};
