#include "vm/module1/OpenOccupyVm.h"

#include "common/BusyGuard.h"
#include "services/Bba01Service.h"
#include "services/Reply.h"

#include <QPointer>

OpenOccupyVm::OpenOccupyVm(QObject* parent) : QObject(parent), m_kinds(new OccupyListModel(this)) {}

void OpenOccupyVm::init(const QString& roomId)
{
    m_roomId = roomId;
    const QPointer<OpenOccupyVm> self(this);
    const auto reply = held(Bba01Service::getInstance()->getOccTypeList());
    if (isOkOrShown(*reply) && self)
        m_kinds->upate(reply->data());
}

void OpenOccupyVm::checkOccupy(int index) { m_kinds->onChecked(index); }

bool OpenOccupyVm::save()
{
    const BusyGuard<OpenOccupyVm> guard(this);
    if (!guard)
        return false;
    const int checked = m_kinds->checkedIndex();
    if (checked < 0) {
        MyMessage::getInstance()->ShowError(QStringLiteral("特殊占用原由不能为空"));
        return false;
    }
    QJsonObject data{{QStringLiteral("id"), m_roomId},
                     {QStringLiteral("occType"), m_kinds->getAll().at(checked).id},
                     {QStringLiteral("isOccupy"), 1}};
    if (!remark().isEmpty())
        data.insert(QStringLiteral("remark"), remark());
    const auto reply = held(Bba01Service::getInstance()->chgOccupyRoom(data));
    return isOkOrShown(*reply);
}
