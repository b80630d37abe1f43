// SPDX-License-Identifier: MIT
#include "controller/JoystickKeyBoardControl/JoystickKeyboardControlManager/JoystickKeyboardControlManager.h"

#include "common/ForwardEvents.h"
#include "common/Guard.h"
#include "controller/JoystickKeyBoardControl/ControlHost.h"
#include "controller/JoystickKeyBoardControl/JoystickKeyboardControlManager/JoystickKeyboardEvent.h"
#include "controller/JoystickKeyBoardControl/USBJoystickControlManager/USBJoystickControlManager.h"
#include "controller/JoystickKeyBoardControl/ZellSerialKeyboardControlManager/ZellSerialKeyboardControlManager.h"
#include "controller/JoystickKeyBoardControl/ZellUSBKeyboardControlManager/ZellUSBKeyboardControlManager.h"

#include <KeyBoard/KeyBoard.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <atomic>
#include <mutex>

template class Ravel::CObjectSingleton<Vantor::CJoystickKeyboardControlManager>;

namespace Vantor {

struct CJoystickKeyboardControlManagerDataPtr final : CControlHost
{
    explicit CJoystickKeyboardControlManagerDataPtr(CJoystickKeyboardControlManager *coordinator)
        : ptr_coordinator_(coordinator)
    {}

    [[nodiscard]] bool AlwaysSendsStops() const override { return b_stops_always_sent_; }
    [[nodiscard]] bool BeginsWithCamera() const override { return b_camera_first_; }
    [[nodiscard]] QWidget *TipParent() const override { return ptr_tip_parent_; }
    void OnCommand() override { b_event_status_ = true; }
    void OnModeSwitched() override { Q_EMIT ptr_coordinator_->SignalControlModeSwitched(); }

    CJoystickKeyboardControlManager *const ptr_coordinator_;
    bool b_suspended_ = false;
    std::atomic<bool> b_initialised_{false};
    std::atomic<bool> b_event_status_{false}; // set on the GUI thread, read and cleared anywhere
    bool b_serial_open_ = false;
    qint32 com_number_ = -1;
    CJoystickKeyboardControlManager::USBKeyboardFunction usb_function_ = nullptr;
    CJoystickKeyboardControlManager::JoystickFunction joystick_function_ = nullptr;
    QPointer<QWidget> ptr_tip_parent_;
    bool b_stops_always_sent_ = false;
    bool b_camera_first_ = false;
};

namespace {

constexpr quint32 kSerialKeyboard = 1000;
constexpr quint32 kUsbJoystick = 1002;
constexpr quint32 kUsbKeyboard = 1003;

constexpr quint32 kSerialId = 1000;
constexpr quint32 kBaudRate = 9600;
constexpr quint8 kDataBits = 8;
constexpr quint8 kStopBits = 1;
constexpr quint8 kNoParity = 0;
constexpr quint8 kNoFlowControl = 0;

constexpr const char *kPortNames[] = {"COM1", "COM2", "COM3", "COM4"};

// Null unless `com` is a port of a serial keyboard.
const char *PortName(ResourceManager::SystemConfig::COMJoystick com)
{
    const int index = com - ResourceManager::SystemConfig::kCom1;
    return index >= 0 && index < int(std::size(kPortNames)) ? kPortNames[index] : nullptr;
}

// The one coordinator that events may be posted to; the device thread asks while it posts.
std::mutex live_mutex;
CJoystickKeyboardControlManager *live_coordinator = nullptr; // under live_mutex

// On the device library's thread.
int OnDeviceEvent(quint32 message_type, quint32 first_param, quint32 second_param,
                  quint32 third_param, const char *text1, const char *text2, void *user_data)
{
    if (!user_data)
        return 0;
    RunGuarded("Vantor::`anonymous-namespace'::OnDeviceEvent", [&] {
        auto event = std::make_unique<CJoystickKeyboardEvent>(
            message_type, first_param, second_param, third_param, QString::fromLocal8Bit(text1),
            QString::fromLocal8Bit(text2));
        const std::lock_guard<std::mutex> lock(live_mutex);
        if (live_coordinator == user_data)
            QCoreApplication::postEvent(live_coordinator, event.release(), Qt::NormalEventPriority);
    });
    return 0;
}

} // namespace

CJoystickKeyboardControlManager::CJoystickKeyboardControlManager(QObject *parent)
    : QObject(parent), d_ptr_(std::make_unique<CJoystickKeyboardControlManagerDataPtr>(this))
{
    auto *const serial = CZellSerialKeyboardControlManager::CreateInstance(this);
    auto *const keyboard = CZellUSBKeyboardControlManager::CreateInstance(this);
    auto *const joystick = CUSBJoystickControlManager::CreateInstance(this);
    serial->SetHost(d_ptr_.get());
    keyboard->SetHost(d_ptr_.get());
    joystick->SetHost(d_ptr_.get());
    // The first name is the one hosts queue by; the true ones are those of the signals.
    qRegisterMetaType<KeyboradData::KeyOperation::Type>("Vantor::KeyOperation::Type");
    qRegisterMetaType<KeyboradData::KeyOperation::Type>("KeyboradData::KeyOperation::Type");
    qRegisterMetaType<KeyboradData::ModUsb>("KeyboradData::ModUsb");
    connect(serial, &CZellSerialKeyboardControlManager::SignalZellSerialKeyboardControl, this,
            &CJoystickKeyboardControlManager::SignalJoystickKeyboardControl);
    connect(keyboard, &CZellUSBKeyboardControlManager::SignalZellUSBKeyboardControl, this,
            &CJoystickKeyboardControlManager::SignalJoystickKeyboardControl);
    connect(joystick, &CUSBJoystickControlManager::SignalUSBJostickControl, this,
            &CJoystickKeyboardControlManager::SignalJoystickKeyboardControl);
    const std::lock_guard<std::mutex> lock(live_mutex);
    live_coordinator = this;
}

CJoystickKeyboardControlManager::~CJoystickKeyboardControlManager()
{
    {
        const std::lock_guard<std::mutex> lock(live_mutex);
        live_coordinator = nullptr;
    }
    Retire();         // a slot of the stops below may say DeleteInstance()
    UnInitKeyBoard(); // without the lock, which a callback may be waiting for
    // Managers that the host made itself outlive their coordinator.
    if (auto *const serial = CZellSerialKeyboardControlManager::Instance())
        serial->SetHost(nullptr);
    if (auto *const keyboard = CZellUSBKeyboardControlManager::Instance())
        keyboard->SetHost(nullptr);
    if (auto *const joystick = CUSBJoystickControlManager::Instance())
        joystick->SetHost(nullptr);
}

bool CJoystickKeyboardControlManager::InitKeyBoard(ResourceManager::SystemConfig::COMJoystick com,
                                                   USBKeyboardFunction usb_function,
                                                   JoystickFunction joystick_function,
                                                   QWidget *tip_parent)
{
    if (d_ptr_->b_initialised_)
        return true;
    d_ptr_->b_initialised_ = true; // for good, even if the library does not start
    if (!KeyBoard_Init(&OnDeviceEvent, this))
        return false;
    d_ptr_->ptr_tip_parent_ = tip_parent;
    if (auto *const serial = CZellSerialKeyboardControlManager::Instance())
        serial->InitZellSerialKeyboard();
    if (auto *const keyboard = CZellUSBKeyboardControlManager::Instance())
        keyboard->InitZellUSBKeyboard();
    if (auto *const joystick = CUSBJoystickControlManager::Instance())
        joystick->InitUSBJoystick();
    d_ptr_->joystick_function_ = joystick_function;
    d_ptr_->usb_function_ = usb_function;
    return OpenPCSerial(com);
}

bool CJoystickKeyboardControlManager::UnInitKeyBoard()
{
    if (!d_ptr_->b_initialised_)
        return true;
    d_ptr_->b_initialised_ = false;
    ClosePCSerial();
    KeyBoard_Uninit();
    // Each may emit a stop, whose slot may delete the coordinator and with it the others.
    if (auto *const joystick = CUSBJoystickControlManager::Instance())
        joystick->UnInitUSBJoystick();
    if (auto *const keyboard = CZellUSBKeyboardControlManager::Instance())
        keyboard->UnInitZellUSBKeyboard();
    if (auto *const serial = CZellSerialKeyboardControlManager::Instance())
        serial->UnInitZellSerialKeyboard();
    return true;
}

bool CJoystickKeyboardControlManager::OpenPCSerial(ResourceManager::SystemConfig::COMJoystick com)
{
    const char *const port_name = PortName(com);
    if (!port_name)
        return false;
    if (d_ptr_->b_serial_open_ && com == d_ptr_->com_number_)
        return false;
    ClosePCSerial();
    const KeyBoardSerialParam param{port_name, kBaudRate, kDataBits,
                                    kStopBits, kNoParity, kNoFlowControl};
    if (!KeyBoard_OpenSerialKeyBoard(kSerialId, &param))
        return false;
    d_ptr_->b_serial_open_ = true;
    d_ptr_->com_number_ = com;
    return true;
}

bool CJoystickKeyboardControlManager::ClosePCSerial()
{
    if (!d_ptr_->b_serial_open_ || d_ptr_->com_number_ < 0)
        return true;
    KeyBoard_CloseSerialKeyBoard(kSerialId);
    d_ptr_->b_serial_open_ = false;
    d_ptr_->com_number_ = -1;
    return true;
}

QWidget *CJoystickKeyboardControlManager::GetTipInfoParentWnd() const
{
    return d_ptr_->ptr_tip_parent_;
}

void CJoystickKeyboardControlManager::SetTipInfoParentWnd(QWidget *parent)
{
    d_ptr_->ptr_tip_parent_ = parent;
}

bool CJoystickKeyboardControlManager::GetEventStatus() const
{
    return d_ptr_->b_event_status_;
}

void CJoystickKeyboardControlManager::SetEventStatus(bool status)
{
    d_ptr_->b_event_status_ = status;
}

bool CJoystickKeyboardControlManager::GetStopsAlwaysSent() const
{
    return d_ptr_->b_stops_always_sent_;
}

void CJoystickKeyboardControlManager::SetStopsAlwaysSent(bool always)
{
    d_ptr_->b_stops_always_sent_ = always;
}

bool CJoystickKeyboardControlManager::GetCameraFirst() const
{
    return d_ptr_->b_camera_first_;
}

void CJoystickKeyboardControlManager::SetCameraFirst(bool camera_first)
{
    d_ptr_->b_camera_first_ = camera_first;
}

VANTOR_FORWARD_EVENTS(CJoystickKeyboardControlManager, QObject)

void CJoystickKeyboardControlManager::customEvent(QEvent *event)
{
    if (d_ptr_->b_suspended_)
        return;
    const QPointer<QObject> alive(this);
    // By its class: other events of the library have the same type.
    if (const auto *const input = dynamic_cast<CJoystickKeyboardEvent *>(event)) {
        const quint32 first = input->GetFirstParam();
        const quint32 second = input->GetSecondParam();
        auto *const serial = CZellSerialKeyboardControlManager::Instance();
        auto *const joystick = CUSBJoystickControlManager::Instance();
        auto *const keyboard = CZellUSBKeyboardControlManager::Instance();
        if (input->GetMessageType() == kSerialKeyboard && serial)
            serial->InputEvent(first, second);
        else if (input->GetMessageType() == kUsbJoystick && joystick)
            joystick->InputEvent(first, second, d_ptr_->joystick_function_);
        else if (input->GetMessageType() == kUsbKeyboard && keyboard)
            keyboard->InputEvent(first, second, input->GetThirdParam(), d_ptr_->usb_function_);
    }
    if (alive) // a slot may have deleted it
        QObject::customEvent(event);
}

} // namespace Vantor
