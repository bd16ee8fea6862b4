#include "vm/module1/RoomConsumeVm.h"

#include "services/Bba01Service.h"
#include "services/Reply.h"

#include <QJsonObject>
#include <QPointer>

RoomConsumeVm::RoomConsumeVm(QObject* parent) : QObject(parent), m_lines(new RoomConsumeModel(this)) {}

void RoomConsumeVm::init(const QString& roomId)
{
    const QPointer<RoomConsumeVm> self(this);
    const auto reply = held(Bba01Service::getInstance()->getRoomConsList({{QStringLiteral("roomId"), roomId}}));
    if (isOkOrShown(*reply) && self)
        m_lines->update(reply->data());
}
