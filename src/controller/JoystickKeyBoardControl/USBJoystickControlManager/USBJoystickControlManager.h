// SPDX-License-Identifier: MIT
#pragma once

#include "controller/JoystickKeyBoardControl/KeyboradData.h"

#include <Ravel/ObjectSingleton.h>
#include <VantorExport.h>

#include <QtCore/QObject>

#include <memory>

namespace Vantor {

class CControlHost;
class CUSBJoystickControlManager;
struct ControlCommand;

} // namespace Vantor

extern template class VANTOR_EXPORT Ravel::CObjectSingleton<Vantor::CUSBJoystickControlManager>;

namespace Vantor {

struct CUSBJoystickControlManagerDataPtr;

/// \brief Translates what a joystick at USB sends. GUI thread; made by
/// CJoystickKeyboardControlManager, whose signal hosts connect to.
class VANTOR_EXPORT CUSBJoystickControlManager
    : public QObject,
      public Ravel::CObjectSingleton<CUSBJoystickControlManager>
{
    Q_OBJECT

public:
    ~CUSBJoystickControlManager() override;

    /// The host's meaning of a button.
    using TranslateFunction =
        KeyboradData::KeyOperation::Type (*)(KeyboradData::JoystickOperation::KeyType key);

    /// \brief Begin again, with window control unless the host wants the camera first.
    /// \return true.
    bool InitUSBJoystick();
    /// \brief Forget the last command and go back to the first mode. Where the host wants every
    /// stop, a move that runs is stopped first. Events are still translated. \return true.
    bool UnInitUSBJoystick();

    /// \brief Whether the joystick steers windows; a camera otherwise.
    [[nodiscard]] bool IsWindowControl() const;

    /// \brief Whether a joystick is plugged in.
    [[nodiscard]] KeyboradData::ModUsb ConnetZellUSBJoystickType() const;

    /// \param first_param  the move, the button's edge or the news of the device, see
    ///                     docs/devices.md; one that is not there is ignored.
    /// \param second_param speed, or the button from 0.
    /// \param translate    may be null: buttons do nothing.
    void InputEvent(quint32 first_param, quint32 second_param, TranslateFunction translate);

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// As CJoystickKeyboardControlManager::SignalJoystickKeyboardControl().
    void SignalUSBJostickControl(KeyboradData::KeyOperation::Type enum_oper_type,
                                 bool b_stop_action, int i_speed, int i_select_index,
                                 bool b_wnd_ctrl, bool is_from_PC);
    /// A joystick came or went.
    void SignalSwitchToUsbJostickMode(KeyboradData::ModUsb mode_usb);

private:
    friend class Ravel::CObjectSingleton<CUSBJoystickControlManager>;
    explicit CUSBJoystickControlManager(QObject *parent);

    friend class CJoystickKeyboardControlManager;
    void SetHost(CControlHost *host);
    void Send(const ControlCommand &command);
    void OnDevice(bool is_found);
    [[nodiscard]] static KeyboradData::KeyOperation::KeyOperationMode
    GetOperationType(KeyboradData::KeyOperation::Type operation);

    const std::unique_ptr<CUSBJoystickControlManagerDataPtr> d_ptr_;
};

} // namespace Vantor
