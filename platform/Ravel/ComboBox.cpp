// SPDX-License-Identifier: MIT
#include "Ravel/ComboBox.h"

#include <QtGui/QWheelEvent>
#include <QtWidgets/QListView>

namespace Ravel {

CComboBox::CComboBox(QWidget *parent) : QComboBox(parent)
{
    // Style sheets reach the rows of a view of our own; the built-in one paints a menu's rows.
    auto *const list = new QListView(this);
    list->setUniformItemSizes(true);
    setView(list);
    setFocusPolicy(Qt::StrongFocus);
}

CComboBox::~CComboBox() = default;

void CComboBox::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace Ravel
