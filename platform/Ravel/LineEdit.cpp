// SPDX-License-Identifier: MIT
#include "Ravel/LineEdit.h"

#include <QtGui/QFocusEvent>

namespace Ravel {

CLineEdit::CLineEdit(QWidget *parent) : QLineEdit(parent) {}

CLineEdit::CLineEdit(const QString &text, QWidget *parent) : QLineEdit(text, parent) {}

CLineEdit::~CLineEdit() = default;

void CLineEdit::focusInEvent(QFocusEvent *event)
{
    const bool is_return_from_menu = event->reason() == Qt::PopupFocusReason;
    QLineEdit::focusInEvent(event);
    if (!is_return_from_menu)
        Q_EMIT SignalFocusIn();
}

void CLineEdit::focusOutEvent(QFocusEvent *event)
{
    const bool is_own_menu = event->reason() == Qt::PopupFocusReason;
    QLineEdit::focusOutEvent(event);
    if (!is_own_menu)
        Q_EMIT SignalFousOut(text());
}

} // namespace Ravel
