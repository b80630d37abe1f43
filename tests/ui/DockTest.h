// SPDX-License-Identifier: MIT
#pragma once

#include "support/Test.h"

#include <Vantor/CBaseDockFrame>
#include <Vantor/CDockManager>
#include <Vantor/CDockWidget>
#include <Vantor/CDockWidgetPosRule>

inline Vantor::CDockManager &Manager()
{
    return Ravel::CUiSingleton<Vantor::CDockManager>::Instance();
}

inline Vantor::CDockWidget *Dock()
{
    return Manager().GetDockWidget();
}

using RulePointer = QPointer<Vantor::CDockWidgetPosRule>;

class CRule : public Vantor::CDockWidgetPosRule
{
public:
    const QPoint place{50, 60};
    QWidget *window = nullptr; // whose place it is; null: that of the screen
    int updates = 0;

    void Place(Vantor::CDockWidget *dock, Vantor::CAbstractDockFrame *, QWidget *inner,
               int width) override
    {
        dock->setGeometry(QRect(window ? window->mapToGlobal(place) : place, QSize(0, 300)));
        inner->resize(width, 300);
    }
    void UpdateOnResize(Vantor::CDockWidget *) override { ++updates; }
};
