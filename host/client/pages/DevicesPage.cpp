// SPDX-License-Identifier: MIT
#include "pages/DevicesPage.h"

#include "pages/PtzView.h"

#include <Vantor/CScreenStateManager>
#include <Vantor/CUSBJoystickControlManager>
#include <Vantor/CZellUSBKeyboardControlManager>

#include <QtCore/QEvent>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QToolButton>

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
constexpr int kPorts = 4;
constexpr int kStatusLines = 3;
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
    : CPage(parent), status_(new QLabel(this)), view_(new CPtzView(this)),
      port_(new QComboBox(this)), port_title_(new QLabel(this)), keyboard_title_(new QLabel(this)),
      commands_title_(new QLabel(this)), commands_(new QListWidget(this)),
      displays_title_(new QLabel(this)), displays_(new QListWidget(this)),
      keyboard_(new CScreenKeyboard(driver_, this))
{
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
    layout->setSpacing(kMarginPx);
    layout->addWidget(view_, 1);
    layout->addWidget(BuildSide());
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
    Devices::DeleteInstance(); // before its driver goes
    KeyBoard_SetDriver(nullptr);
}

void CDevicesPage::StartDevices()
{
    KeyBoard_SetDriver(&driver_);
    Devices *const devices = Devices::CreateInstance(this);
    devices->SetStopsAlwaysSent(true); // a camera that does not stop is no good
    connect(devices, &Devices::SignalJoystickKeyboardControl, this, &CDevicesPage::OnControl);
    connect(Vantor::CUSBJoystickControlManager::Instance(),
            &Vantor::CUSBJoystickControlManager::SignalSwitchToUsbJostickMode, this,
            &CDevicesPage::UpdateStatus, Qt::QueuedConnection); // the state follows the signal
    connect(Vantor::CZellUSBKeyboardControlManager::Instance(),
            &Vantor::CZellUSBKeyboardControlManager::SignalSwitchToUsbKeyboardMode, this,
            &CDevicesPage::UpdateStatus, Qt::QueuedConnection);
    connect(port_, qOverload<int>(&QComboBox::activated), this, &CDevicesPage::OnPortChosen);
    // No port is chosen yet: false then only says so.
    devices->InitKeyBoard(ResourceManager::SystemConfig::kNoPort, &KeyFunction, &ButtonFunction,
                          this);
    UpdateStatus();
}

QWidget *CDevicesPage::BuildSide()
{
    auto *const side = new QWidget(this);
    side->setFixedWidth(kSideWidthPx);
    for (QLabel *const title : {port_title_, keyboard_title_, commands_title_, displays_title_}) {
        QFont font = title->font();
        font.setBold(true);
        title->setFont(font);
    }
    port_title_->setBuddy(port_);
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
         std::initializer_list<QWidget *>{status_, port_title_, port_, keyboard_title_, keyboard_,
                                          commands_title_, commands_, displays_title_, displays_})
        layout->addWidget(widget);
    return side;
}

void CDevicesPage::OnControl(Type operation, bool is_stop, int speed, int index,
                             bool is_window_control, bool /*is_from_pc*/)
{
    // With no wall of windows here, both modes move the camera; the list tells them apart.
    view_->Control(operation, is_stop, speed);
    const QString what = is_stop     ? tr("stop of %1").arg(operation)
                         : index > 0 ? tr("%1, index %2").arg(operation).arg(index)
                                     : tr("%1 at speed %2").arg(operation).arg(speed);
    const QString where = is_window_control ? tr("windows") : tr("camera");
    commands_->insertItem(0, tr("%1 – %2").arg(what, where));
    delete commands_->takeItem(kCommandsKept);
    is_window_control_ = is_window_control;
    UpdateStatus();
}

void CDevicesPage::OnPortChosen(int index)
{
    Devices *const devices = Devices::Instance();
    devices->ClosePCSerial();
    const auto com = ResourceManager::SystemConfig::COMJoystick(index);
    if (index == ResourceManager::SystemConfig::kNoPort || devices->OpenPCSerial(com))
        return;
    port_->setCurrentIndex(ResourceManager::SystemConfig::kNoPort);
    Q_EMIT SignalMessage(tr("The serial keyboard at COM%1 cannot be opened.").arg(index));
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
                                  : tr("No joystick is connected; the keys below stand for a "
                                       "control keyboard.")};
    if (keyboard && keyboard->ConnetZellUSBJoystickType() != KeyboradData::kDisconnected)
        news << tr("A USB keyboard is connected.");
    // Each device has a mode of its own, which only its commands tell.
    if (commands_->count() > 0)
        news << (is_window_control_ ? tr("The last command was for the windows.")
                                    : tr("The last command was for the camera."));
    status_->setText(news.join(QLatin1Char(' ')));
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
    port_title_->setText(tr("&Serial keyboard"));
    keyboard_title_->setText(tr("Keyboard on the screen"));
    commands_title_->setText(tr("Commands"));
    displays_title_->setText(tr("Displays"));
    const int port = qMax(port_->currentIndex(), 0);
    port_->clear();
    port_->addItem(tr("None"));
    for (int i = 1; i <= kPorts; ++i)
        port_->addItem(QStringLiteral("COM%1").arg(i));
    port_->setCurrentIndex(port);
    commands_->setAccessibleName(commands_title_->text());
    displays_->setAccessibleName(displays_title_->text());
    UpdateStatus();
    ShowDisplays(Nim::Base::MonitorDriveUtil::PresentScreens());
}

} // namespace Client
