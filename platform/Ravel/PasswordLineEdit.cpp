// SPDX-License-Identifier: MIT
#include "Ravel/PasswordLineEdit.h"

namespace Ravel {

CPasswordLineEdit::CPasswordLineEdit(QWidget *parent) : CLineEdit(parent)
{
    SetPasswordVisible(false);
}

CPasswordLineEdit::~CPasswordLineEdit() = default;

void CPasswordLineEdit::SetPasswordVisible(bool is_visible)
{
    setEchoMode(is_visible ? QLineEdit::Normal : QLineEdit::Password);
    // After setEchoMode(), because it clears them for visible text.
    setInputMethodHints(Qt::ImhHiddenText | Qt::ImhSensitiveData | Qt::ImhNoPredictiveText
                        | Qt::ImhNoAutoUppercase);
}

bool CPasswordLineEdit::IsPasswordVisible() const
{
    return echoMode() == QLineEdit::Normal;
}

} // namespace Ravel
