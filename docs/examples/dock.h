// SPDX-License-Identifier: MIT
// What the examples of docs/dock.md take from the host.
#pragma once

#include <Vantor/CDockWidget>
#include <Vantor/CDockWidgetPosRule>

#include <QtWidgets/QWidget>

struct CCameraSettings : QWidget
{
};

struct CCameraPage : QWidget
{
    void OnConfirm();
    QWidget *main_window = nullptr;
};

struct CGuide : CCameraPage
{
    template <int> void Example();
};
