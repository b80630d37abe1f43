// SPDX-License-Identifier: MIT
#pragma once

#include "pages/Page.h"
#include "pages/ScreenKeyboard.h"

#include <Nim/Base/MonitorDriveUtil.h>
#include <Vantor/CJoystickKeyboardControlManager>

QT_BEGIN_NAMESPACE
class QComboBox;
class QLabel;
class QListWidget;
QT_END_NAMESPACE

namespace Client {

class CPtzView;

/// \brief Control keyboards and joysticks at work on a camera's picture, and the displays.
class CDevicesPage : public CPage
{
    Q_OBJECT

public:
    explicit CDevicesPage(QWidget *parent = nullptr);
    ~CDevicesPage() override;

    void PrepareForPicture() override;

    void ShowDisplays(const std::vector<Nim::Base::MonitorDriveUtil::DeviceInfoStru> &displays);

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void OnControl(KeyboradData::KeyOperation::Type operation, bool is_stop, int speed, int index,
                   bool is_window_control, bool is_from_pc);
    void OnPortChosen(int index);

private:
    QWidget *BuildSide();
    void StartDevices();
    void UpdateStatus();
    void Retranslate();

    CScreenKeyboardDriver driver_;
    QLabel *const status_;
    CPtzView *const view_;
    QComboBox *const port_;
    QLabel *const port_title_;
    QLabel *const keyboard_title_;
    QLabel *const commands_title_;
    QListWidget *const commands_;
    QLabel *const displays_title_;
    QListWidget *const displays_;
    CScreenKeyboard *const keyboard_;
    bool is_window_control_ = true;
};

} // namespace Client
