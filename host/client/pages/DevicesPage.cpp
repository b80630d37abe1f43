// SPDX-License-Identifier: MIT
#include "pages/DevicesPage.h"

#include "pages/CommandText.h"
#include "pages/PelcoSender.h"
#include "pages/PortForm.h"
#include "pages/PortText.h"
#include "pages/PtzView.h"

#include <Vantor/CScreenStateManager>
#include <Vantor/CUSBJoystickControlManager>
#include <Vantor/CZellUSBKeyboardControlManager>

#include <QtCore/QEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>

namespace Client {
namespace {

using Devices = Vantor::CJoystickKeyboardControlManager;
using Displays = std::vector<Nim::Base::MonitorDriveUtil::DeviceInfoStru>;
using KeyboradData::KeyOperation::Type;

constexpr int kMarginPx = 16;
constexpr int kSideWidthPx = 320;
constexpr int kCommandsKept = 200;
constexpr int kKeyboardHeightPx = 180;
constexpr int kDisplaysHeightPx = 84;
constexpr int kStatusLines = 4;
constexpr int kModeKey = 10; // as a USB keyboard numbers it; the joystick's first button is 7
constexpr int kModeButton = 7;

// Both devices' mode keys; other keys have no meaning here.
Type KeyFunction(KeyboradData::USBKeyboardOperation::KeyType key)
{
    return key == kModeKey ? KeyboradData::KeyOperation::kToggleMode
                           : KeyboradData::KeyOperation::kNone;
}

Type ButtonFunction(KeyboradData::JoystickOperation::KeyType button)
{
    return button == kModeButton ? KeyboradData::KeyOperation::kToggleMode
                                 : KeyboradData::KeyOperation::kNone;
}

void OnDisplays(Displays devices, void *page)
{
    auto *const self = static_cast<CDevicesPage *>(page);
    QMetaObject::invokeMethod(
        self, [self, devices = std::move(devices)] { self->ShowDisplays(devices); });
}

} // namespace

CDevicesPage::CDevicesPage(QWidget *parent)
    : CPage(parent), sender_(new CPelcoSender(this)), status_(new QLabel(this)),
      view_(new CPtzView(this)), keyboard_port_(new CPortForm(CPortForm::Kind::kKeyboard, this)),
      camera_port_(new CPortForm(CPortForm::Kind::kCamera, this)),
      keyboard_title_(new QLabel(this)), commands_title_(new QLabel(this)),
      commands_(new QListWidget(this)), displays_title_(new QLabel(this)),
      displays_(new QListWidget(this)), keyboard_(new CScreenKeyboard(driver_, this))
{
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
    layout->setSpacing(kMarginPx);
    auto *const left = new QVBoxLayout;
    left->addWidget(view_, 1);
    left->addWidget(BuildPorts());
    layout->addLayout(left, 1);
    layout->addWidget(BuildSide());
    keyboard_port_->setObjectName(QStringLiteral("KeyboardPort"));
    camera_port_->setObjectName(QStringLiteral("CameraPort"));
    commands_->setObjectName(QStringLiteral("DeviceCommands"));
    displays_->setObjectName(QStringLiteral("Displays"));
    Retranslate();
    StartDevices();

    Nim::Base::CSingleton<Vantor::CScreenStateManager>::Instance().SetCallBack(
        true, reinterpret_cast<void *>(&OnDisplays), this);
    ShowDisplays(Nim::Base::MonitorDriveUtil::PresentScreens());
}

CDevicesPage::~CDevicesPage()
{
    Nim::Base::CSingleton<Vantor::CScreenStateManager>::Instance().SetCallBack(
        false, reinterpret_cast<void *>(&OnDisplays), nullptr);
    delete keyboard_;          // which uses the driver
    Devices::DeleteInstance(); // before its driver goes; a move that runs is stopped
    sender_->Disconnect();
    KeyBoard_SetPortListener({});
    KeyBoard_SetSerialPorts({});
    KeyBoard_SetDriver(nullptr);
}

void CDevicesPage::StartDevices()
{
    KeyBoard_SetDriver(&driver_);
    Devices *const devices = Devices::CreateInstance(this);
    devices->SetStopsAlwaysSent(true); // a camera that does not stop is no good
    devices->SetCameraFirst(true);
    connect(devices, &Devices::SignalJoystickKeyboardControl, this, &CDevicesPage::OnControl);
    connect(Vantor::CUSBJoystickControlManager::Instance(),
            &Vantor::CUSBJoystickControlManager::SignalSwitchToUsbJostickMode, this,
            &CDevicesPage::UpdateStatus, Qt::QueuedConnection); // the state follows the signal
    connect(Vantor::CZellUSBKeyboardControlManager::Instance(),
            &Vantor::CZellUSBKeyboardControlManager::SignalSwitchToUsbKeyboardMode, this,
            &CDevicesPage::UpdateStatus, Qt::QueuedConnection);
    connect(devices, &Devices::SignalControlModeSwitched, this, &CDevicesPage::UpdateStatus);
    connect(keyboard_port_, &CPortForm::SignalConnect, this, &CDevicesPage::OnConnectKeyboard);
    connect(keyboard_port_, &CPortForm::SignalDisconnect, devices, &Devices::ClosePCSerial);
    connect(camera_port_, &CPortForm::SignalConnect, sender_, [this] {
        sender_->Connect(camera_port_->Target(), camera_port_->BaudRate(),
                         camera_port_->CameraAddress());
    });
    connect(camera_port_, &CPortForm::SignalDisconnect, sender_, &CPelcoSender::Disconnect);
    connect(sender_, &CPelcoSender::SignalState, camera_port_, &CPortForm::SetState);
    // The listener is called on a device thread, which ends before this page does.
    KeyBoard_SetPortListener([this](const KeyBoardPortNews &news) {
        QMetaObject::invokeMethod(
            this, [this, news] { OnPortNews(news); }, Qt::QueuedConnection);
    });
    // No port is chosen yet: false then only says so.
    devices->InitKeyBoard(ResourceManager::SystemConfig::kNoPort, &KeyFunction, &ButtonFunction,
                          this);
    UpdateStatus();
}

QWidget *CDevicesPage::BuildPorts()
{
    auto *const ports = new QWidget(this);
    auto *const layout = new QHBoxLayout(ports);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kMarginPx);
    layout->addWidget(keyboard_port_, 1);
    layout->addWidget(camera_port_, 1);
    return ports;
}

QWidget *CDevicesPage::BuildSide()
{
    auto *const side = new QWidget(this);
    side->setFixedWidth(kSideWidthPx);
    for (QLabel *const title : {keyboard_title_, commands_title_, displays_title_}) {
        QFont font = title->font();
        font.setBold(true);
        title->setFont(font);
    }
    status_->setWordWrap(true);
    // The keys below must not move away under a finger.
    status_->setMinimumHeight(kStatusLines * status_->fontMetrics().lineSpacing());
    status_->setAlignment(Qt::AlignTop | Qt::AlignLeading);
    keyboard_->setFixedHeight(kKeyboardHeightPx);
    for (QListWidget *const list : {commands_, displays_}) {
        list->setUniformItemSizes(true);
        list->setTextElideMode(Qt::ElideRight);
        list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }
    displays_->setMaximumHeight(kDisplaysHeightPx);
    auto *const layout = new QVBoxLayout(side);
    layout->setContentsMargins(0, 0, 0, 0);
    for (QWidget *const widget :
         std::initializer_list<QWidget *>{status_, keyboard_title_, keyboard_, commands_title_,
                                          commands_, displays_title_, displays_})
        layout->addWidget(widget);
    return side;
}

void CDevicesPage::OnControl(Type operation, bool is_stop, int speed, int index,
                             bool is_window_control, bool /*is_from_pc*/)
{
    // Without a wall of windows, both modes move the camera; only the list shows a difference.
    view_->Control(operation, is_stop, speed);
    sender_->Send(operation, is_stop, speed, index);
    const QString where = is_window_control ? tr("windows") : tr("camera");
    commands_->insertItem(0, tr("%1 (%2) – %3")
                                 .arg(CommandText(operation, is_stop, speed, index))
                                 .arg(operation)
                                 .arg(where));
    delete commands_->takeItem(kCommandsKept);
}

void CDevicesPage::OnConnectKeyboard()
{
    Devices *const devices = Devices::Instance();
    devices->ClosePCSerial();
    const QString path = keyboard_port_->Target();
    KeyBoard_SetSerialPorts({path});
    driver_.SetBaudRate(keyboard_port_->BaudRate());
    devices->OpenPCSerial(ResourceManager::SystemConfig::kCom1); // OnPortNews() says how that ended
}

void CDevicesPage::OnPortNews(const KeyBoardPortNews &news)
{
    switch (news.kind) {
    case KeyBoardPortNews::kOpened:
        keyboard_port_->SetState(
            true, tr("Listening at %1, %2 baud.").arg(news.path).arg(keyboard_port_->BaudRate()));
        break;
    case KeyBoardPortNews::kRefused:
        keyboard_port_->SetState(false, RefusalText(news.path, news.reason));
        break;
    case KeyBoardPortNews::kLost:
        keyboard_port_->SetState(true,
                                 tr("%1 is lost; it is tried again every second.").arg(news.path));
        break;
    case KeyBoardPortNews::kClosed:
        keyboard_port_->SetState(false, {}); // kOpened of a lost port may have come after the click
        break;
    }
}

void CDevicesPage::ShowDisplays(const Displays &displays)
{
    displays_->clear();
    for (const auto &display : displays) {
        const QString name = display.name.isEmpty() ? tr("Display") : display.name;
        const QString text = tr("%1: %2 × %3 at %4, %5")
                                 .arg(name)
                                 .arg(display.geometry.width())
                                 .arg(display.geometry.height())
                                 .arg(display.geometry.x())
                                 .arg(display.geometry.y());
        displays_->addItem(display.is_primary ? tr("%1 (primary)").arg(text) : text);
    }
}

void CDevicesPage::UpdateStatus()
{
    const auto *const joystick = Vantor::CUSBJoystickControlManager::Instance();
    const auto *const keyboard = Vantor::CZellUSBKeyboardControlManager::Instance();
    const bool has_joystick =
        joystick && joystick->ConnetZellUSBJoystickType() == KeyboradData::kUsbJoystick;
    QStringList news{has_joystick ? tr("A joystick is connected.")
                                  : tr("No joystick is connected; the keys below take its place.")};
    if (keyboard && keyboard->ConnetZellUSBJoystickType() != KeyboradData::kDisconnected)
        news << tr("A USB keyboard is connected.");
    // Each device has a mode of its own.
    if (has_joystick)
        news << (joystick->IsWindowControl()
                     ? tr("The joystick chooses windows; its button 1 switches to the camera.")
                     : tr("The joystick steers the camera; its button 1 switches to the windows."));
    if (keyboard)
        news << (keyboard->IsWindowControl()
                     ? tr("The keyboard chooses windows; ⇄ switches to the camera.")
                     : tr("The keyboard steers the camera; ⇄ switches to the windows."));
    status_->setText(news.join(QLatin1Char('\n')));
}

void CDevicesPage::PrepareForPicture()
{
    commands_->clear(); // they may speak another language
    for (const quint32 code : {5204U, 5201U, 5206U}) {
        driver_.Send(code, 20);
        driver_.Send(5209);
    }
}

void CDevicesPage::changeEvent(QEvent *event)
{
    CPage::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

void CDevicesPage::Retranslate()
{
    keyboard_title_->setText(tr("Keyboard on the screen"));
    commands_title_->setText(tr("Commands"));
    displays_title_->setText(tr("Displays"));
    commands_->setAccessibleName(commands_title_->text());
    displays_->setAccessibleName(displays_title_->text());
    view_->setAccessibleName(tr("Camera picture"));
    UpdateStatus();
    ShowDisplays(Nim::Base::MonitorDriveUtil::PresentScreens());
}

} // namespace Client
