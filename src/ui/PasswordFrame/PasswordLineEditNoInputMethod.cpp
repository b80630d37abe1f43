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
    // Qt's entry copies nothing while the text is hidden, but it cuts. The key is accepted, so that
    // no parent handles it.
    if (echoMode() == QLineEdit::Password
        && (event->matches(QKeySequence::Copy) || event->matches(QKeySequence::Cut))) {
        event->accept();
        return;
    }
    Ravel::CLineEdit::keyPressEvent(event);
}

} // namespace Vantor
