#pragma once

#include "common/BaseObject.h"
#include "common/Property.h"
#include "services/Reply.h"

#include <QPointer>

/// Base of the view-models. The user's actions of one view-model run one at a time: each goes through act(),
/// which drops a second one. Whatever asks the back end may find its page gone when the answer is there, and
/// touches the view-model no more then.
class ActionVm : public BaseObject
{
    Q_OBJECT
    PROPERTY(bool, isEnabled, setIsEnabled, true) // false while an action runs; pages bind their buttons to it
    PROPERTY(bool, isLoadFailed, setIsLoadFailed, false) // the last fetch brought nothing

protected:
    using BaseObject::BaseObject;

    /// Runs the action and returns what it says; false at once while another one runs. The action checks,
    /// asks the back end and tells the outcome; when its call has returned, the view-model may be gone.
    template <typename Action>
    bool act(Action action)
    {
        if (!isEnabled())
            return false;
        const Busy busy(this);
        return action();
    }

    /// Whether it may go on; if not, the user is told why.
    static bool require(bool condition, const char* refusal);

    /// Asks the endpoint and hands a good reply to take(const T&); a refusal is shown. False then, and when
    /// the page has gone in the meantime.
    template <typename Endpoint, typename Take>
    bool fetch(Endpoint endpoint, const QJsonObject& data, Take take, Refusal refusal = Refusal::Logged)
    {
        const QPointer<ActionVm> self(this);
        return taken(self, call(endpoint, data), take, refusal);
    }

    /// The same for an endpoint that takes nothing.
    template <typename Endpoint, typename Take>
    bool fetch(Endpoint endpoint, Take take, Refusal refusal = Refusal::Logged)
    {
        const QPointer<ActionVm> self(this);
        return taken(self, call(endpoint), take, refusal);
    }

    /// Whether the back end was there for the last fetch, be it with a refusal.
    bool wasAnswered() const { return m_wasAnswered; }

    /// Makes a change; the user is told that it was made, or why not.
    template <typename Endpoint>
    static bool change(Endpoint endpoint, const QJsonObject& data)
    {
        return isDoneOrShown(*call(endpoint, data));
    }

    /// The same, where a success shows by what the page does.
    template <typename Endpoint>
    static bool changeSilently(Endpoint endpoint, const QJsonObject& data)
    {
        return isOkOrShown(*call(endpoint, data));
    }

private:
    /// Keeps isEnabled false; the view-model may be gone before its end.
    class Busy
    {
    public:
        explicit Busy(ActionVm* vm) : m_vm(vm) { vm->setIsEnabled(false); }
        Busy(const Busy&) = delete;
        Busy& operator=(const Busy&) = delete;
        ~Busy()
        {
            if (m_vm)
                m_vm->setIsEnabled(true);
        }

    private:
        const QPointer<ActionVm> m_vm;
    };

    template <typename T, typename Take>
    static bool taken(const QPointer<ActionVm>& page, const Reply<T>& reply, Take take, Refusal refusal)
    {
        if (!page)
            return false;
        page->m_wasAnswered = isAnswered(*reply);
        page->setIsLoadFailed(!isOk(*reply));
        if (!isOkOrShown(*reply, refusal))
            return false;
        take(*reply);
        return true;
    }

    bool m_wasAnswered = true;
};
