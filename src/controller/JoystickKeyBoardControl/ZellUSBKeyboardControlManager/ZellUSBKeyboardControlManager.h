// SPDX-License-Identifier: MIT
#pragma once

#include "controller/JoystickKeyBoardControl/KeyboradData.h"

#include <Ravel/ObjectSingleton.h>
#include <VantorExport.h>

#include <QtCore/QObject>

#include <memory>

namespace Vantor {

class CControlHost;
class CZellUSBKeyboardControlManager;
struct ControlCommand;

} // namespace Vantor

extern template class VANTOR_EXPORT Ravel::CObjectSingleton<Vantor::CZellUSBKeyboardControlManager>;

namespace Vantor {

struct CZellUSBKeyboardControlManagerDataPtr;

/// \brief Translates what a control keyboard at USB sends. GUI thread; made by
/// CJoystickKeyboardControlManager, whose signal hosts connect to.
class VANTOR_EXPORT CZellUSBKeyboardControlManager
    : public QObject,
      public Ravel::CObjectSingleton<CZellUSBKeyboardControlManager>
{
    Q_OBJECT

public:
    ~CZellUSBKeyboardControlManager() override;

    /// The host's meaning of a key.
    using TranslateFunction =
        KeyboradData::KeyOperation::Type (*)(KeyboradData::USBKeyboardOperation::KeyType key);

    /// \brief Begin to translate. The mode stays as it was, window control at first, unless the
    /// host wants the camera first. \return true.
    bool InitZellUSBKeyboard();
    /// \brief Ignore the keyboard from now on. Where the host wants every stop, a move that runs is
    /// stopped first. \return true.
    bool UnInitZellUSBKeyboard();

    /// \brief Whether the keyboard steers windows; a camera otherwise.
    [[nodiscard]] bool IsWindowControl() const;

    /// \brief Whether a keyboard is plugged in; the name is the one hosts know.
    [[nodiscard]] KeyboradData::ModUsb ConnetZellUSBJoystickType() const;

    /// \param first_param  the key or the news of the device, see docs/devices.md; one that is not
    ///                     there is ignored.
    /// \param second_param speed, state or index.
    /// \param third_param  2 for the second window of a selection.
    /// \param translate    may be null: keys that need it do nothing.
    void InputEvent(quint32 first_param, quint32 second_param, quint32 third_param,
                    TranslateFunction translate);

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// As CJoystickKeyboardControlManager::SignalJoystickKeyboardControl().
    void SignalZellUSBKeyboardControl(KeyboradData::KeyOperation::Type enum_operation_type,
                                      bool b_stop_action, int i_speed, int i_select_index,
                                      bool b_wnd_ctrl, bool is_from_PC);
    /// A keyboard came, went, or changed to its wall mode.
    void SignalSwitchToUsbKeyboardMode(KeyboradData::ModUsb mode_usb);

private:
    friend class Ravel::CObjectSingleton<CZellUSBKeyboardControlManager>;
    explicit CZellUSBKeyboardControlManager(QObject *parent);

    friend class CJoystickKeyboardControlManager;
    void SetHost(CControlHost *host);
    void Send(const ControlCommand &command);
    void OnDevice(bool is_found);
    /// Switches the wall mode by a key that \a translate gives 701 for. No code of the keyboard
    /// leads here: it is for a host's device library that calls the managers by key.
    bool SetMode(quint32 first_param, quint32 second_param, TranslateFunction translate);

    const std::unique_ptr<CZellUSBKeyboardControlManagerDataPtr> d_ptr_;
};

} // namespace Vantor
