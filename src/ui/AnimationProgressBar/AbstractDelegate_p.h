// SPDX-License-Identifier: MIT
#pragma once

#include "ui/AnimationProgressBar/AbstractDelegate.h"
#include "ui/AnimationProgressBar/AnimationProgressBar.h"

#include <QtCore/QPointer>

namespace Vantor {

struct CAbstractDelegateDataPtr
{
    int type_ = 0;
    QPointer<CAnimationProgressBar> ptr_bar_; // written by the bar that has it in its stack
};

} // namespace Vantor
