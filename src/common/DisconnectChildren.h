// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>

namespace Vantor {

/// \brief Disconnect the signals of all children of \a parent, at any depth, from \a parent.
///
/// Call this in the destructor of a widget whose slots read its private data. ~QWidget() hides a
/// window and deletes the children after the private data is gone, and the children emit signals
/// then: an entry, for example, that it has lost the focus.
inline void DisconnectChildren(QObject *parent)
{
    const auto children = parent->findChildren<QObject *>();
    for (QObject *const child : children)
        child->disconnect(parent);
}

} // namespace Vantor
