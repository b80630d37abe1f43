// SPDX-License-Identifier: MIT
#include "Ravel/ComboBox.h"

#include "Ravel/ComboBoxAccess.h"

#include <QtGui/QWheelEvent>
#include <QtWidgets/QListView>

namespace Ravel {

CComboBox::CComboBox(QWidget *parent) : QComboBox(parent)
{
    // Style sheets apply to the rows of this view; the built-in view paints the rows of a menu.
    auto *const list = new QListView(this);
    list->setUniformItemSizes(true);
    setView(list);
    setFocusPolicy(Qt::StrongFocus);
    InstallComboBoxAccess();
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
