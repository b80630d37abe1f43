// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtWidgets/QTreeView>

namespace Ravel {

class CTableDelegate;

/// \brief The client's table, a tree view without branches: rows of one height, drawn fast.
///
/// Made for lists that are paged and filtered while the user types: all rows have the height of the
/// first, and cells with text only are drawn without the style's item drawing. A cell with an icon,
/// a check state or its own font is drawn by the style. A host that shows a tree calls
/// setRootIsDecorated(true).
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
