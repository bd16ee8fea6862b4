#pragma once

#include "common/MyMessage.h"
#include "dto/ApiRes.h"

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

/// Whether the back end did what it was asked.
inline bool isOk(const ApiRes& reply) { return reply.code() == QLatin1String("200"); }

/// The same; a failure's text is shown to the user.
inline bool isOkOrShown(const ApiRes& reply)
{
    if (isOk(reply))
        return true;
    MyMessage::getInstance()->showError(reply.msg());
    return false;
}
