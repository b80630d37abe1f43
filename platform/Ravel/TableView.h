// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtWidgets/QTreeView>

namespace Ravel {

class CTableDelegate;

/// \brief The client's table in the shape of a tree: rows of one height, drawn lean, no branches.
///
/// Made for lists that are flipped and filtered under the user's hand: all rows have the height of
/// the first, and cells that hold nothing but text are drawn without the style's item machinery. A
/// cell with an icon, a check state or a font of its own is drawn as everywhere else. A host that
/// shows a tree calls setRootIsDecorated(true).
class VANTOR_PLATFORM_EXPORT CTableView : public QTreeView
{
    Q_OBJECT

public:
    explicit CTableView(QWidget *parent = nullptr);

    /// \brief Keep \a column at its present width: the user cannot drag it any more. A column that
    /// does not exist is ignored.
    void SetSectionFixed(int column);

protected:
    void changeEvent(QEvent *event) override;

private:
    CTableDelegate *const delegate_;
};

} // namespace Ravel
