// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QEvent>
#include <QtCore/QString>

#include <memory>

namespace Vantor {

struct CJoystickKeyboardEventDataPtr;

/// \brief What the device library told on its own thread, on its way to the GUI thread: an event of
/// type 1000. Copies share what cannot be changed any more.
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
    CJoystickKeyboardEvent(const CJoystickKeyboardEvent &other);
    CJoystickKeyboardEvent &operator=(const CJoystickKeyboardEvent &other);
    ~CJoystickKeyboardEvent() override;

    [[nodiscard]] quint32 GetMessageType() const;
    [[nodiscard]] quint32 GetFirstParam() const;
    [[nodiscard]] quint32 GetSecondParam() const;
    [[nodiscard]] quint32 GetThirdParam() const;
    [[nodiscard]] QString GetText1() const;
    [[nodiscard]] QString GetText2() const;

private:
    std::shared_ptr<const CJoystickKeyboardEventDataPtr> d_ptr_;
};

} // namespace Vantor
