// SPDX-License-Identifier: MIT
#include "controller/JoystickKeyBoardControl/ZellUSBKeyboardControlManager/ZellUSBKeyboardControlManager.h"

#include "common/ForwardEvents.h"
#include "common/Guard.h"
#include "controller/JoystickKeyBoardControl/ControlFlow.h"
#include "controller/JoystickKeyBoardControl/ControlHost.h"

#include <QtCore/QPointer>

#include <algorithm>
#include <iterator>

template class Ravel::CObjectSingleton<Vantor::CZellUSBKeyboardControlManager>;

namespace Vantor {

namespace {

using Source = ControlCode::Source;
using Second = ControlCode::Second;
using Stop = ControlCode::Stop;
using namespace KeyboradData::KeyOperation;

constexpr char kClass[] = "Vantor::CZellUSBKeyboardControlManager";
constexpr char kInputEvent[] = "Vantor::CZellUSBKeyboardControlManager::InputEvent";

constexpr quint32 kDeviceFound = 5001;
constexpr quint32 kDeviceGone = 5002;

// The moves are not in ascending order: the keyboard counts its directions clockwise in pairs.
constexpr ControlCode kCodes[] = {
    {5101, Source::kRowOrSecond, kSelectWindow124, 0, Second::kSelectIndex, Stop::kNever},
    {5102, Source::kKey, kNone, 10, Second::kUnused, Stop::kNever},
    {5103, Source::kKey, kNone, 11, Second::kUnused, Stop::kNever},
    {5104, Source::kKey, kNone, 12, Second::kUnused, Stop::kWhenSecondIsOne},
    {5105, Source::kKey, kNone, 13, Second::kUnused, Stop::kWhenSecondIsOne},
    {5106, Source::kKey, kNone, 14, Second::kUnused, Stop::kWhenSecondIsOne},
    {5201, Source::kRow, kMove100, 0, Second::kSpeed, Stop::kNever},
    {5202, Source::kRow, kMove101, 0, Second::kSpeed, Stop::kNever},
    {5203, Source::kRow, kMove102, 0, Second::kSpeed, Stop::kNever},
    {5204, Source::kRow, kMove103, 0, Second::kSpeed, Stop::kNever},
    {5205, Source::kRow, kMove109, 0, Second::kSpeed, Stop::kNever},
    {5206, Source::kRow, kMove106, 0, Second::kSpeed, Stop::kNever},
    {5207, Source::kRow, kMove108, 0, Second::kSpeed, Stop::kNever},
    {5208, Source::kRow, kMove107, 0, Second::kSpeed, Stop::kNever},
    {5209, Source::kLast, kNone, 0, Second::kUnused, Stop::kAlways},
    {5210, Source::kRow, kPair104, 0, Second::kUnused, Stop::kNever},
    {5211, Source::kRow, kPair105, 0, Second::kUnused, Stop::kNever},
};

constexpr ControlTable kTable{kCodes, std::size(kCodes), ControlTable::Repeats::kMoves};

} // namespace

struct CZellUSBKeyboardControlManagerDataPtr
{
    CZellUSBKeyboardControlManagerDataPtr(QObject *manager, CControlFlow::Send send)
        : flow_(manager, kClass, kTable, std::move(send))
    {
        flow_.Device().SetWindowControl(true);
    }

    bool b_enabled_ = false;
    bool b_wall_mode_ = false;
    KeyboradData::ModUsb mod_usb_ = KeyboradData::kDisconnected;
    CControlFlow flow_;
};

CZellUSBKeyboardControlManager::CZellUSBKeyboardControlManager(QObject *parent)
    : QObject(parent), d_ptr_(std::make_unique<CZellUSBKeyboardControlManagerDataPtr>(
                           this, [this](const ControlCommand &command) { Send(command); }))
{}

CZellUSBKeyboardControlManager::~CZellUSBKeyboardControlManager() = default;

bool CZellUSBKeyboardControlManager::InitZellUSBKeyboard()
{
    d_ptr_->b_enabled_ = true;
    const CControlHost *const host = d_ptr_->flow_.Host();
    if (host && host->BeginsWithCamera())
        d_ptr_->flow_.Device().SetWindowControl(false);
    return true;
}

bool CZellUSBKeyboardControlManager::UnInitZellUSBKeyboard()
{
    if (d_ptr_->flow_.StopAll())
        d_ptr_->b_enabled_ = false;
    return true;
}

bool CZellUSBKeyboardControlManager::IsWindowControl() const
{
    return d_ptr_->flow_.Device().IsWindowControl();
}

KeyboradData::ModUsb CZellUSBKeyboardControlManager::ConnetZellUSBJoystickType() const
{
    return d_ptr_->mod_usb_;
}

void CZellUSBKeyboardControlManager::InputEvent(quint32 first_param, quint32 second_param,
                                                quint32 third_param, TranslateFunction translate)
{
    if (!d_ptr_->b_enabled_)
        return;
    VANTOR_LOG(kInputEvent, 3, VANTOR_LOG_USER_OPERATE,
               "InputEvent first param:[%d], second param:[%d], third param:[%d]",
               static_cast<int>(first_param), static_cast<int>(second_param),
               static_cast<int>(third_param));
    if (first_param == kDeviceFound || first_param == kDeviceGone)
        OnDevice(first_param == kDeviceFound);
    else
        d_ptr_->flow_.Take({first_param, second_param, third_param}, TranslateKeys(translate));
}

void CZellUSBKeyboardControlManager::Send(const ControlCommand &command)
{
    const bool is_window_control = IsWindowControl();
    VANTOR_LOG(kInputEvent, 3, VANTOR_LOG_USER_OPERATE,
               "SignalZellUSBKeyboardControl, operation_type:[%d], stop_action:[%d], "
               "speed:[%d], select index:[%d], ptz mode:[%d]",
               command.operation, command.is_stop, command.speed, command.select_index,
               !is_window_control);
    Q_EMIT SignalZellUSBKeyboardControl(command.operation, command.is_stop, command.speed,
                                        command.select_index, is_window_control, false);
}

void CZellUSBKeyboardControlManager::OnDevice(bool is_found)
{
    const auto mode = is_found ? KeyboradData::kUsbKeyboard : KeyboradData::kDisconnected;
    if (!d_ptr_->flow_.ShowTip(is_found ? "TheUSBKeyboardIsDetected" : "TheUSBKeyboardDisconnected",
                               is_found))
        return;
    const QPointer<QObject> alive(this);
    RunGuarded(kInputEvent, [&] { Q_EMIT SignalSwitchToUsbKeyboardMode(mode); });
    if (alive)
        d_ptr_->mod_usb_ = mode; // slots still see the state before
}

bool CZellUSBKeyboardControlManager::SetMode(quint32 first_param, quint32 second_param,
                                             TranslateFunction translate)
{
    const auto *const code =
        std::find_if(std::begin(kCodes), std::end(kCodes),
                     [first_param](const ControlCode &row) { return row.code == first_param; });
    if (code == std::end(kCodes) || code->source != Source::kKey || !translate)
        return false;
    if (code->stop == Stop::kWhenSecondIsOne && second_param == 1)
        return false;
    if (translate(static_cast<KeyboradData::USBKeyboardOperation::KeyType>(code->key))
        != kToggleWall)
        return false;
    const bool is_wall = !d_ptr_->b_wall_mode_;
    d_ptr_->b_wall_mode_ = is_wall;
    if (d_ptr_->flow_.ShowTip(is_wall ? "SwitchToWallModeAJryBrmWGiU"
                                      : "SwitchToVideoModeMrVWQzLOUDm"))
        Q_EMIT SignalSwitchToUsbKeyboardMode(is_wall ? KeyboradData::kUsbKeyboardWall
                                                     : KeyboradData::kUsbKeyboard);
    return true;
}

void CZellUSBKeyboardControlManager::SetHost(CControlHost *host)
{
    d_ptr_->flow_.SetHost(host);
}

VANTOR_FORWARD_EVENTS(CZellUSBKeyboardControlManager, QObject)

} // namespace Vantor
