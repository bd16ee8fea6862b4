#include "vm/module1/RoomCallVm.h"

#include "common/BusyGuard.h"
#include "services/Caa04Service.h"
#include "services/Reply.h"

#include <QJsonObject>

#include <algorithm>

RoomCallVm::RoomCallVm(QObject* parent) : QObject(parent), m_services(new RoomCallModel(this)) {}

void RoomCallVm::init(RoomDetailDto* room)
{
    if (!room)
        return;
    m_roomId = room->id();
    QList<call_struct> services;
    for (const RoomCardsDto* service : room->calllist())
        services.append({service->contId(), service->contName(), 0});
    m_services->upate(services);
}

bool RoomCallVm::save()
{
    const QVector<call_struct> services = m_services->getAll();
    if (std::none_of(services.begin(), services.end(),
                     [](const call_struct& service) { return service.num > 0; })) {
        MyMessage::getInstance()->ShowError(QStringLiteral("请输入需要呼叫的数量"));
        return false;
    }
    const BusyGuard<RoomCallVm> guard(this);
    if (!guard)
        return false;
    const QPointer<RoomCallModel> model(m_services); // goes with the page, which may close during a call
    const QString roomId = m_roomId;
    bool isAllCalled = true;
    for (int i = 0; i < services.size(); ++i) {
        const call_struct& service = services.at(i);
        if (service.num <= 0)
            continue;
        const auto reply = held(Caa04Service::getInstance()->callStaff({{QStringLiteral("roomId"), roomId},
                                                                        {QStringLiteral("contId"), service.id},
                                                                        {QStringLiteral("num"), service.num}}));
        if (!isOkOrShown(*reply))
            isAllCalled = false;
        else if (model)
            model->setNum(i, 0);
    }
    if (isAllCalled)
        MyMessage::getInstance()->showOk(QStringLiteral("操作成功"));
    return isAllCalled;
}
