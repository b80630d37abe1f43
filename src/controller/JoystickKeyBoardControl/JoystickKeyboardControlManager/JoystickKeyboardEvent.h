// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QEvent>
#include <QtCore/QString>

#include <memory>

namespace Vantor {

struct CJoystickKeyboardEventDataPtr;

/// \brief Carries a report of the device library from its thread to the GUI thread: an event of
/// type 1000. Copies share the report, which no longer changes.
class VANTOR_EXPORT CJoystickKeyboardEvent : public QEvent
{
public:
    /// \brief An event of no device: all four numbers are 0xFFFFFFFF.
    CJoystickKeyboardEvent();
    /// \param message_type 1000 serial keyboard, 1002 USB joystick, 1003 USB keyboard.
    /// \param first_param  the device's code.
    /// \param second_param speed, state, button or index.
    /// \param third_param  of USB keyboards only.
    CJoystickKeyboardEvent(quint32 message_type, quint32 first_param, quint32 second_param,
                           quint32 third_param, const QString &text1, const QString &text2);
    /// \brief Shares the values of \a other.
    CJoystickKeyboardEvent(const CJoystickKeyboardEvent &other);
    /// \brief Shares the values of \a other from now on.
    CJoystickKeyboardEvent &operator=(const CJoystickKeyboardEvent &other);
    ~CJoystickKeyboardEvent() override;

    /// \brief 1000 serial keyboard, 1002 USB joystick, 1003 USB keyboard.
    [[nodiscard]] quint32 GetMessageType() const;
    /// \brief The device's code, see docs/devices.md.
    [[nodiscard]] quint32 GetFirstParam() const;
    /// \brief Speed, state, button or index; depends on the code.
    [[nodiscard]] quint32 GetSecondParam() const;
    /// \brief Of USB keyboards only.
    [[nodiscard]] quint32 GetThirdParam() const;
    /// \brief The first text of the device; may be empty.
    [[nodiscard]] QString GetText1() const;
    /// \brief The second text of the device; may be empty.
    [[nodiscard]] QString GetText2() const;

private:
    std::shared_ptr<const CJoystickKeyboardEventDataPtr> d_ptr_;
};

} // namespace Vantor
