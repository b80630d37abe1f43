// SPDX-License-Identifier: MIT
#include "Ravel/PushButton.h"

#include <QtGui/QKeyEvent>

namespace Ravel {

CPushButton::CPushButton(QWidget *parent) : CPushButton(QString(), parent) {}

CPushButton::CPushButton(const QString &text, QWidget *parent) : QPushButton(text, parent)
{
    setAutoDefault(false);
}

CPushButton::~CPushButton() = default;

void CPushButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QPushButton::keyPressEvent(event);
}

} // namespace Ravel
