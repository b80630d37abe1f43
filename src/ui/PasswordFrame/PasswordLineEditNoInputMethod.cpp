// SPDX-License-Identifier: MIT
#include "ui/PasswordFrame/PasswordLineEditNoInputMethod.h"

#include <QtGui/QKeyEvent>

namespace Vantor {

CPasswordLineEditNoInputMethod::CPasswordLineEditNoInputMethod(QWidget *parent)
    : Ravel::CPasswordLineEdit(parent)
{}

CPasswordLineEditNoInputMethod::~CPasswordLineEditNoInputMethod() = default;

void CPasswordLineEditNoInputMethod::keyPressEvent(QKeyEvent *event)
{
    // Qt's own edit would copy nothing but still cut. Accepted, so that no parent takes the key for
    // a shortcut of its own.
    if (echoMode() == QLineEdit::Password
        && (event->matches(QKeySequence::Copy) || event->matches(QKeySequence::Cut))) {
        event->accept();
        return;
    }
    Ravel::CLineEdit::keyPressEvent(event);
}

} // namespace Vantor
