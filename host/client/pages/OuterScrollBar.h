// SPDX-License-Identifier: MIT
#pragma once

#include <QtWidgets/QScrollBar>

QT_BEGIN_NAMESPACE
class QAbstractScrollArea;
QT_END_NAMESPACE

namespace Client {

/// \brief The horizontal scroll bar of a list, below the list instead of inside it.
///
/// A list counts the rows of a page from its own height. A scroll bar inside it, which comes and
/// goes with the columns, would cover the last row.
class COuterScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    /// \brief Take the place below \a area, in the layout of its parent.
    explicit COuterScrollBar(QAbstractScrollArea &area);

private:
    void Follow();

    const QScrollBar *const inner_;
};

} // namespace Client
