#pragma once

#include <QtQml>

/// Makes a view-model known to the pages under its own name, in version 1.0 of a module of the same name.
template <typename ViewModel>
void registerViewModel(const char* name)
{
    qmlRegisterType<ViewModel>(name, 1, 0, name);
}
