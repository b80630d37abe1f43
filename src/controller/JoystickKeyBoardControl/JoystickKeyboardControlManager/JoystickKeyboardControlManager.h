// SPDX-License-Identifier: MIT
#pragma once

#include "controller/JoystickKeyBoardControl/KeyboradData.h"

#include <Ravel/ObjectSingleton.h>
#include <ResourceManager/SystemConfig.h>
#include <VantorExport.h>

#include <QtCore/QObject>

#include <memory>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Vantor {

class CJoystickKeyboardControlManager;

} // namespace Vantor

extern template class VANTOR_EXPORT
    Ravel::CObjectSingleton<Vantor::CJoystickKeyboardControlManager>;

namespace Vantor {

struct CJoystickKeyboardControlManagerDataPtr;

/// \brief The control keyboards and joysticks of this workstation as one stream of commands.
///
/// Made by Ravel::CObjectSingleton's CreateInstance(), with the managers of the three kinds of
/// device as children. The device library calls on its own thread; each of its events is posted to
/// this object and translated on the GUI thread, where all signals come from. Everything here is
/// for that thread, except GetEventStatus() and SetEventStatus().
///
/// Deleting the instance ends the device library first. See docs/devices.md for the codes.
class VANTOR_EXPORT CJoystickKeyboardControlManager
    : public QObject,
      public Ravel::CObjectSingleton<CJoystickKeyboardControlManager>
{
    Q_OBJECT

public:
    /// Gives the operation of a key of the USB keyboard.
    using USBKeyboardFunction =
        KeyboradData::KeyOperation::Type (*)(KeyboradData::USBKeyboardOperation::KeyType key);
    /// Gives the operation of a button of the joystick.
    using JoystickFunction =
        KeyboradData::KeyOperation::Type (*)(KeyboradData::JoystickOperation::KeyType key);

    ~CJoystickKeyboardControlManager() override;

    /// \brief Start the device library and open the serial keyboard at \a com.
    ///
    /// \param usb_function, joystick_function may be null: keys that need it then do nothing.
    /// \param tip_parent see SetTipInfoParentWnd().
    /// \return true when that is done, or was done before; false when the device library does not
    ///         start, which is not tried again, and when there is no serial keyboard at \a com,
    ///         although USB devices then work: UnInitKeyBoard() is called in each case.
    bool InitKeyBoard(ResourceManager::SystemConfig::COMJoystick com,
                      USBKeyboardFunction usb_function, JoystickFunction joystick_function,
                      QWidget *tip_parent);
    /// \brief Close the serial port and end the device library. With GetStopsAlwaysSent(), a move
    /// that runs is stopped first, as it is when the instance is deleted. \return true.
    bool UnInitKeyBoard();

    /// \brief Open the serial keyboard at \a com, COM1 to COM4, instead of the one open now.
    /// \return false when \a com is not one of them, is open already, or cannot be opened.
    bool OpenPCSerial(ResourceManager::SystemConfig::COMJoystick com);
    /// \brief Close the serial keyboard, if one is open. \return true.
    bool ClosePCSerial();

    /// \brief The widget whose screen shows the pop-ups; null when it was deleted.
    [[nodiscard]] QWidget *GetTipInfoParentWnd() const;
    /// \brief Show pop-ups on the screen of \a parent; null shows them on the primary screen.
    void SetTipInfoParentWnd(QWidget *parent);

    /// \brief Set by every command that is not a stop; the host reads and clears it. Any thread.
    [[nodiscard]] bool GetEventStatus() const;
    /// \brief Store \a status for GetEventStatus(). Any thread.
    void SetEventStatus(bool status);

    /// \brief Whether each stop of a device is sent. False, as it is at first, drops some as
    /// repeats, see docs/known-behaviour.md: a camera may go on moving.
    [[nodiscard]] bool GetStopsAlwaysSent() const;
    /// \brief Send each stop, or drop repeats, from the next one on.
    void SetStopsAlwaysSent(bool always);

    /// \brief Whether joysticks and USB keyboards begin with the camera. False, as it is at first,
    /// lets them begin with the choice of windows, where of each move only the first speed is sent.
    /// Takes effect with the next InitKeyBoard().
    [[nodiscard]] bool GetCameraFirst() const;
    /// \brief Choose what the devices begin with, see GetCameraFirst().
    void SetCameraFirst(bool camera_first);

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// A device asks for an operation.
    ///
    /// \param b_stop_action  the operation ends.
    /// \param i_speed        of a move, as the device counts.
    /// \param i_select_index of a selection; always -1 from a joystick.
    /// \param b_wnd_ctrl     meant for the choice of windows, not for the camera.
    /// \param is_from_PC     always false.
    void SignalJoystickKeyboardControl(KeyboradData::KeyOperation::Type enum_operation_type,
                                       bool b_stop_action, int i_speed, int i_select_index,
                                       bool b_wnd_ctrl, bool is_from_PC);
    /// A device was switched between windows and camera by its key; each manager's
    /// IsWindowControl() gives the new mode.
    void SignalControlModeSwitched();
    /// For hosts; the library never emits it.
    void SignalJoystickKeyboardControlWall(KeyboradData::KeyOperation::Type enum_operation_type,
                                           bool b_stop_action, int i_speed, int i_select_index,
                                           bool b_wnd_ctrl);

protected:
    void customEvent(QEvent *event) override;

private:
    friend class Ravel::CObjectSingleton<CJoystickKeyboardControlManager>;
    explicit CJoystickKeyboardControlManager(QObject *parent);

    const std::unique_ptr<CJoystickKeyboardControlManagerDataPtr> d_ptr_;
};

} // namespace Vantor
