// SPDX-License-Identifier: MIT
#include "ui/PasswordFrame/CustomPasswordFrame.h"

#include "ui/PasswordFrame/PasswordLineEditNoInputMethod.h"

namespace Vantor {

CCustomPasswordFrame::CCustomPasswordFrame(QWidget *parent)
    : CPasswordFrameBase(new CPasswordLineEditNoInputMethod, parent)
{}

CCustomPasswordFrame::~CCustomPasswordFrame() = default;

CPasswordLineEditNoInputMethod *CCustomPasswordFrame::GetPassWordLineEdit() const
{
    return static_cast<CPasswordLineEditNoInputMethod *>(GetPasswordLineEdit());
}

} // namespace Vantor
