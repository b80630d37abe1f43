// SPDX-License-Identifier: MIT
#pragma once

#include "pages/Page.h"
#include "pages/ScreenKeyboard.h"

#include <Nim/Base/MonitorDriveUtil.h>
#include <Vantor/CJoystickKeyboardControlManager>

QT_BEGIN_NAMESPACE
class QLabel;
class QListWidget;
QT_END_NAMESPACE

namespace Client {

class CPelcoSender;
class CPortForm;
class CPtzView;

/// \brief Control keyboards and joysticks at work on a camera's picture and, where one is
/// connected, on a Pelco-D camera; and the displays.
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
    void OnConnectKeyboard();

private:
    QWidget *BuildPorts();
    QWidget *BuildSide();
    void StartDevices();
    void UpdateStatus();
    void Retranslate();

    void OnPortNews(const KeyBoardPortNews &news);

    CScreenKeyboardDriver driver_;
    CPelcoSender *const sender_;
    QLabel *const status_;
    CPtzView *const view_;
    CPortForm *const keyboard_port_;
    CPortForm *const camera_port_;
    QLabel *const keyboard_title_;
    QLabel *const commands_title_;
    QListWidget *const commands_;
    QLabel *const displays_title_;
    QListWidget *const displays_;
    CScreenKeyboard *const keyboard_;
};

} // namespace Client
