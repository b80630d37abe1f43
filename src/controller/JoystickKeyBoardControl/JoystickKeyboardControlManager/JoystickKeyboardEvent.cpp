// SPDX-License-Identifier: MIT
#include "controller/JoystickKeyBoardControl/JoystickKeyboardControlManager/JoystickKeyboardEvent.h"

#include <QtCore/QMetaType>

namespace Vantor {

struct CJoystickKeyboardEventDataPtr
{
    quint32 message_type_;
    quint32 first_param_;
    quint32 second_param_;
    quint32 third_param_;
    QString str_text1_;
    QString str_text2_;
};

namespace {

constexpr quint32 kNoNumber = 0xFFFFFFFF;

} // namespace

CJoystickKeyboardEvent::CJoystickKeyboardEvent()
    : CJoystickKeyboardEvent(kNoNumber, kNoNumber, kNoNumber, kNoNumber, {}, {})
{}

CJoystickKeyboardEvent::CJoystickKeyboardEvent(quint32 message_type, quint32 first_param,
                                               quint32 second_param, quint32 third_param,
                                               const QString &text1, const QString &text2)
    : QEvent(QEvent::User),
      d_ptr_(std::make_shared<CJoystickKeyboardEventDataPtr>(CJoystickKeyboardEventDataPtr{
          message_type, first_param, second_param, third_param, text1, text2}))
{
    static const int id = qRegisterMetaType<CJoystickKeyboardEvent>("CJoystickKeyboardEvent");
    Q_UNUSED(id)
}

CJoystickKeyboardEvent::CJoystickKeyboardEvent(const CJoystickKeyboardEvent &other) = default;
CJoystickKeyboardEvent &
CJoystickKeyboardEvent::operator=(const CJoystickKeyboardEvent &other) = default;
CJoystickKeyboardEvent::~CJoystickKeyboardEvent() = default;

quint32 CJoystickKeyboardEvent::GetMessageType() const
{
    return d_ptr_->message_type_;
}

quint32 CJoystickKeyboardEvent::GetFirstParam() const
{
    return d_ptr_->first_param_;
}

quint32 CJoystickKeyboardEvent::GetSecondParam() const
{
    return d_ptr_->second_param_;
}

quint32 CJoystickKeyboardEvent::GetThirdParam() const
{
    return d_ptr_->third_param_;
}

QString CJoystickKeyboardEvent::GetText1() const
{
    return d_ptr_->str_text1_;
}

QString CJoystickKeyboardEvent::GetText2() const
{
    return d_ptr_->str_text2_;
}

} // namespace Vantor
