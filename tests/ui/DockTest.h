// SPDX-License-Identifier: MIT
#pragma once

#include "support/Test.h"

#include <Vantor/CBaseDockFrame>
#include <Vantor/CDockManager>
#include <Vantor/CDockWidget>

inline Vantor::CDockManager &Manager()
{
    return Ravel::CUiSingleton<Vantor::CDockManager>::Instance();
}

inline Vantor::CDockWidget *Dock()
{
    return Manager().GetDockWidget();
}
