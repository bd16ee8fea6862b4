#pragma once

#include "app/MainClass.h"
#include "common/GlobalConfig.h"

class BaseObject;

/// Makes a view-model the one that a reader's cards go to, for as long as this member of it lives or until
/// end(). Main thread.
class ReaderListener
{
public:
    explicit ReaderListener(BaseObject* owner) : m_owner(owner) {}
    ReaderListener(const ReaderListener&) = delete;
    ReaderListener& operator=(const ReaderListener&) = delete;
    ~ReaderListener() { end(); }

    /// The readings come as readingExec().
    void listenToStaff() { begin(&MainClass::startReadStaff, &MainClass::stopReadStaff); }
    /// The readings come as readingHandExec().
    void listenToHand() { begin(&MainClass::startReadHand, &MainClass::stopReadHand); }
    /// To the hand card reader where this machine has one, else to the staff reader.
    void listenToCards()
    {
        if (GlobalConfig::getInstance()->hand_card_device == 1)
            listenToHand();
        else
            listenToStaff();
    }
    void end()
    {
        if (m_stop)
            (MainClass::getInstance()->*m_stop)(m_owner);
        m_stop = nullptr;
    }

private:
    using Switch = void (MainClass::*)(BaseObject*);

    void begin(Switch start, Switch stop)
    {
        end();
        m_stop = stop;
        (MainClass::getInstance()->*start)(m_owner);
    }

    BaseObject* const m_owner;
    Switch m_stop = nullptr; ///< null while it doesn't listen
};
