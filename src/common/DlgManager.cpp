#include "common/DlgManager.h"

#include <utility>

Authoriser DlgManager::showAuthDlg(const QString& call)
{
    setAskedCall(call);
    m_authoriser = {};
    Q_EMIT authSignal();
    // Nobody who vouched for another call may vouch for this one.
    return std::exchange(m_authoriser, {});
}

bool DlgManager::showCloudDlg()
{
    m_isLineChosen = false;
    Q_EMIT cloudSignal();
    return m_isLineChosen;
}

void DlgManager::authResult(const QString& id, const QString& no, const QString& name)
{
    m_authoriser = {id, no, name};
}
