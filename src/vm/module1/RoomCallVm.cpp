#include "vm/module1/RoomCallVm.h"

#include "services/Caa04Service.h"

RoomCallModel::RoomCallModel(QObject* parent)
    : RowModel({field("callId", &call_struct::id), field("callName", &call_struct::name),
                field("num", &call_struct::num)},
               parent)
{
}

void RoomCallModel::add(int index)
{
    changeAt(index, [](call_struct& service) { ++service.num; });
}

void RoomCallModel::sub(int index)
{
    changeAt(index, [](call_struct& service) { service.num = qMax(0, service.num - 1); });
}

void RoomCallModel::setNum(int index, int num)
{
    changeAt(index, [num](call_struct& service) { service.num = num; });
}

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
    return act([this] {
        const bool isAnyWanted =
            m_services->find([](const call_struct& service) { return service.num > 0; }) >= 0;
        return require(isAnyWanted, "请输入需要呼叫的数量") && callAll();
    });
}

bool RoomCallVm::callAll()
{
    const QVector<call_struct> services = m_services->getAll();
    const QPointer<RoomCallModel> model(m_services); // goes with the page, which may close during a call
    const QString roomId = m_roomId;
    bool isAllCalled = true;
    for (int i = 0; i < services.size(); ++i) {
        const call_struct& service = services.at(i);
        if (service.num <= 0)
            continue;
        if (!changeSilently(&Caa04Service::callStaff,
                            {{"roomId", roomId}, {"contId", service.id}, {"num", service.num}}))
            isAllCalled = false;
        else if (model)
            model->setNum(i, 0);
    }
    if (isAllCalled)
        MyMessage::getInstance()->showOk(QStringLiteral("操作成功"));
    return isAllCalled;
}
