// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QEvent>
#include <QtCore/QObject>

// Define event() and eventFilter() of `Class` so that they call those of `Base`.
//
// The exported classes declare both overrides although they add nothing to the base class. They are
// part of the binary interface: a host's class that derives from one of ours links to these symbols
// when it calls the base class, and a later version can handle events in them without a new symbol.
#define VANTOR_FORWARD_EVENTS(Class, Base)                                                         \
    VANTOR_FORWARD_EVENT(Class, Base)                                                              \
    bool Class::eventFilter(QObject *watched, QEvent *event)                                       \
    {                                                                                              \
        return Base::eventFilter(watched, event);                                                  \
    }

// The same for event() alone, in classes whose event filter has work to do.
#define VANTOR_FORWARD_EVENT(Class, Base)                                                          \
    bool Class::event(QEvent *event)                                                               \
    {                                                                                              \
        return Base::event(event);                                                                 \
    }
