// SPDX-License-Identifier: MIT
#pragma once

#include "controller/JoystickKeyBoardControl/KeyboradData.h"

#include <Ravel/ObjectSingleton.h>
#include <VantorExport.h>

#include <QtCore/QObject>

#include <memory>

namespace Vantor {

class CControlHost;
class CZellSerialKeyboardControlManager;
struct ControlCommand;

} // namespace Vantor

extern template class VANTOR_EXPORT
    Ravel::CObjectSingleton<Vantor::CZellSerialKeyboardControlManager>;

namespace Vantor {

struct CZellSerialKeyboardControlManagerDataPtr;

/// \brief Translates what a control keyboard at a serial port sends. GUI thread; made by
/// CJoystickKeyboardControlManager, whose signal hosts connect to.
class VANTOR_EXPORT CZellSerialKeyboardControlManager
    : public QObject,
      public Ravel::CObjectSingleton<CZellSerialKeyboardControlManager>
{
    Q_OBJECT

public:
    ~CZellSerialKeyboardControlManager() override;

    /// \brief Begin to translate, in camera mode. \return true.
    bool InitZellSerialKeyboard();
    /// \brief Ignore the keyboard from now on. Where the host wants every stop, a move that runs is
    /// stopped first. \return true.
    bool UnInitZellSerialKeyboard();

    /// \brief Whether the keyboard steers windows; a camera otherwise.
    [[nodiscard]] bool IsWindowControl() const;

    /// \param first_param  the key, see docs/devices.md; one that is not there is ignored.
    /// \param second_param its value; 1 counts as 4.
    void InputEvent(quint32 first_param, quint32 second_param);

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// As CJoystickKeyboardControlManager::SignalJoystickKeyboardControl().
    void SignalZellSerialKeyboardControl(KeyboradData::KeyOperation::Type enum_operation_type,
                                         bool b_stop_action, int i_speed, int i_select_index,
                                         bool b_wnd_ctrl, bool is_from_PC);

private:
    friend class Ravel::CObjectSingleton<CZellSerialKeyboardControlManager>;
    explicit CZellSerialKeyboardControlManager(QObject *parent);

    friend class CJoystickKeyboardControlManager;
    void SetHost(CControlHost *host);
    void Send(const ControlCommand &command);

    const std::unique_ptr<CZellSerialKeyboardControlManagerDataPtr> d_ptr_;
};

} // namespace Vantor
