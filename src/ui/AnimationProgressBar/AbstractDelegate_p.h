// SPDX-License-Identifier: MIT
#pragma once

#include "ui/AnimationProgressBar/AbstractDelegate.h"

#include <functional>
#include <utility>

namespace Vantor {

struct CAbstractDelegateDataPtr
{
    int type_ = 0;
    CAnimationProgressBar *ptr_bar_ = nullptr; // the bar that has the layer in its stack
    std::function<void()> leave_;              // takes the layer off that bar

    void SetBar(CAnimationProgressBar *bar, std::function<void()> leave)
    {
        ptr_bar_ = bar;
        leave_ = std::move(leave);
    }
};

} // namespace Vantor
