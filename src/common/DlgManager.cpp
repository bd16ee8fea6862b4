#include "common/DlgManager.h"

Authoriser DlgManager::showAuthDlg()
{
    m_authoriser = {};
    Q_EMIT authSignal();
    return m_authoriser;
}

void DlgManager::showCloudDlg() { Q_EMIT cloudSignal(); }

void DlgManager::authResult(const QString& id, const QString& no, const QString& name)
{
    m_authoriser = {id, no, name};
}
