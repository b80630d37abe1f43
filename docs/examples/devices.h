// SPDX-License-Identifier: MIT
// What the examples of docs/devices.md take from the host.
#pragma once

#include <KeyBoard/KeyBoard.h>
#include <ResourceManager/SystemConfig.h>
#include <Vantor/CJoystickKeyboardControlManager>

#include <QtWidgets/QMainWindow>

struct CCameraView : QObject
{
    void OnControl(KeyboradData::KeyOperation::Type operation, bool is_stop, int speed, int index,
                   bool is_preset, bool is_window);
};

struct CGuide
{
    template <int> void Example();
    KeyBoardDriver &driver = KeyBoard_DefaultDriver();
    QMainWindow *main_window = nullptr;
    QObject *receiver = nullptr;
    CCameraView *camera_view = nullptr;
};
