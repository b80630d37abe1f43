// SPDX-License-Identifier: MIT
// What the examples of docs/styling.md take from the host.
#pragma once

#include <Vantor/CStyleManager>

struct CGuide
{
    template <int> void Example();
};
