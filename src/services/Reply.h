#pragma once

#include "common/MyMessage.h"
#include "dto/ApiRes.h"

#include <QJsonObject>

#include <memory>

/// Ends a QObject at the next turn of the event loop.
struct DeleteLater
{
    void operator()(QObject* object) const { object->deleteLater(); }
};

/// Holds a service's reply until the scope ends.
template <typename T>
using Reply = std::unique_ptr<T, DeleteLater>;

/// Takes a service's reply into a holder.
template <typename T>
Reply<T> held(T* reply)
{
    return Reply<T>(reply);
}

/// Asks an endpoint: call(&Bba01Service::getRoomConsList, {{"roomId", id}}). Returns when the reply is there.
template <typename Service, typename T>
Reply<T> call(T* (Service::*endpoint)(const QJsonObject&), const QJsonObject& data = {})
{
    return held((Service::getInstance()->*endpoint)(data));
}

/// The same for one that takes nothing.
template <typename Service, typename T>
Reply<T> call(T* (Service::*endpoint)())
{
    return held((Service::getInstance()->*endpoint)());
}

/// Whether there was an answer at all. A change that wasn't answered may have been made.
inline bool isAnswered(const ApiRes& reply)
{
    return reply.code() != QLatin1String("CONNECT_ERR") && reply.code() != QLatin1String("-2");
}

/// Whether the back end did what it was asked.
inline bool isOk(const ApiRes& reply) { return reply.code() == QLatin1String("200"); }

/// What becomes of a refusal's text: the user sees it, and where the log has it from the exchange alone, not
/// once more.
enum class Refusal { Logged, Shown };

/// Whether the back end did what it was asked; a failure's text is shown to the user.
inline bool isOkOrShown(const ApiRes& reply, Refusal refusal = Refusal::Logged)
{
    if (isOk(reply))
        return true;
    if (refusal == Refusal::Logged)
        MyMessage::getInstance()->showError(reply.msg());
    else
        MyMessage::getInstance()->ShowError(reply.msg());
    return false;
}

/// The same, and a success is told.
inline bool isDoneOrShown(const ApiRes& reply)
{
    if (!isOkOrShown(reply))
        return false;
    MyMessage::getInstance()->showOk(QStringLiteral("操作成功"));
    return true;
}
