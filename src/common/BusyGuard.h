#pragma once

#include <QPointer>

/// Lets one action of a view-model run at a time. A guard that got hold says true and keeps `isEnabled` false
/// until the scope ends; while another one holds it, a new one says false. The view-model may be gone before
/// the guard.
template <typename ViewModel>
class BusyGuard
{
public:
    explicit BusyGuard(ViewModel* viewModel) : m_viewModel(viewModel->isEnabled() ? viewModel : nullptr)
    {
        if (m_viewModel)
            m_viewModel->setIsEnabled(false);
    }
    BusyGuard(const BusyGuard&) = delete;
    BusyGuard& operator=(const BusyGuard&) = delete;
    ~BusyGuard()
    {
        if (m_viewModel)
            m_viewModel->setIsEnabled(true);
    }

    explicit operator bool() const { return !m_viewModel.isNull(); }

private:
    QPointer<ViewModel> m_viewModel;
};
