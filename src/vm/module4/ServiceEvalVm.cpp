#include "vm/module4/ServiceEvalVm.h"

#include "services/Bca01Service.h"
#include "vm/module4/Module4Vm.h"

#include <QJsonArray>

ServiceEvalVm::ServiceEvalVm(QObject* parent)
    : ReadingVm(parent), m_grades(new AssessInfoModel(this)), m_orders(new AssessOrderModel(this))
{
    m_reader.listenToStaff();
}

void ServiceEvalVm::init(Module4Vm* queue)
{
    if (!queue)
        return;
    m_handId = queue->assessHandId();
    m_staffId = queue->assessStaffId();
    m_grades->update(queue->assessInfoList());
    m_orders->update(queue->assessOrderList());
}

bool ServiceEvalVm::send(const QStringList& orderIds, const QString& assessId)
{
    QJsonArray grades;
    for (const QString& orderId : orderIds)
        grades.append(QJsonObject{{"hardOrderId", orderId}, {"assessInfoId", assessId}});
    return changeSilently(&Bca01Service::assessHardCardOrders,
                          {{"hardCardId", m_handId}, {"staffId", m_staffId}, {"hardOrderAssess", grades}});
}

bool ServiceEvalVm::assessAll(const QString& assessId)
{
    return act([&] {
        QStringList orderIds;
        for (const AssessOrderVm* order : m_orders->rows())
            orderIds.append(order->orderId());
        if (!send(orderIds, assessId))
            return false;
        MyMessage::getInstance()->showOk(QStringLiteral("评价成功"));
        return true;
    });
}

void ServiceEvalVm::assess(int index, const QString& assessId, const QString& orderId, AssessInfoModel* grades)
{
    const QPointer<AssessInfoModel> marked(grades);
    act([&] {
        if (!send({orderId}, assessId))
            return false;
        if (marked)
            marked->onChecked(index);
        MyMessage::getInstance()->showOk(QStringLiteral("评价成功"));
        return true;
    });
}
