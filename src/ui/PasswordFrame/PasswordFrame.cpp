// SPDX-License-Identifier: MIT
#include "ui/PasswordFrame/PasswordFrame.h"

#include <Ravel/PasswordLineEdit.h>

namespace Vantor {

CPasswordFrame::CPasswordFrame(QWidget *parent)
    : CPasswordFrameBase(new Ravel::CPasswordLineEdit, parent)
{}

CPasswordFrame::~CPasswordFrame() = default;

Ravel::CPasswordLineEdit *CPasswordFrame::GetPassWordLineEdit() const
{
    return GetPasswordLineEdit();
}

void CPasswordFrame::HideLeftSpacer(bool hide)
{
    if (hide)
        HideSpacer();
}

} // namespace Vantor
