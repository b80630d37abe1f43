// SPDX-License-Identifier: MIT
// What the examples of docs/known-behaviour.md take from the host.
#pragma once

#include <Vantor/CStyleManager>

#include <QtWidgets/QStyle>

struct CGuide
{
    template <int> void Example();
};
