// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>
#include <Ravel/TextBlock.h>

#include <QtCore/QStringList>
#include <QtCore/QVariant>

#include <memory>

namespace Ravel {

class CRowPages;
struct CTreeViewItemExtras;

/// \brief One row of a CTreeViewModel: a text a column, data of other roles, and rows below it.
///
/// An item owns the rows below it; a model owns its top-level items. Changes of an item that is in
/// a model go through the model, which notifies the views.
///
/// Texts are kept small for lists of a million rows, and what only some rows have (other roles,
/// rows below) takes memory only there.
class VANTOR_PLATFORM_EXPORT CTreeViewItem
{
public:
    /// \param texts the display texts, column by column.
    explicit CTreeViewItem(const QStringList &texts = {});
    ~CTreeViewItem();

    CTreeViewItem(const CTreeViewItem &) = delete;
    CTreeViewItem &operator=(const CTreeViewItem &) = delete;

    /// \brief The data of \a role in \a column, or an invalid value. Edit role and display
    /// role are one.
    [[nodiscard]] QVariant Data(int column, int role = Qt::DisplayRole) const;

    /// \brief The display texts of all columns.
    [[nodiscard]] const CTextBlock &Texts() const { return texts_; }

    /// \brief Store \a value under \a role in \a column; a column beyond the texts is made, a
    /// negative one ignored.
    void SetData(int column, int role, const QVariant &value);

    /// \brief Put \a child, which the item then owns, below the last row. A null child is ignored.
    /// Only while the item is in no model.
    void AppendChild(std::unique_ptr<CTreeViewItem> child);

    /// \brief How many rows are directly below the item.
    [[nodiscard]] int ChildCount() const;
    /// \return the row below at \a row, or null outside 0 to ChildCount() - 1.
    [[nodiscard]] CTreeViewItem *Child(int row) const;
    /// \return the item above, or null for a top-level item and one that is in no model.
    [[nodiscard]] CTreeViewItem *Parent() const;
    /// \return the place among the rows of Parent() or of the model; 0 for an item that is
    /// alone.
    [[nodiscard]] int Row() const;

private:
    friend class CTreeViewModel;
    friend struct CTreeViewModelPtr;

    CTreeViewItemExtras &Extras();
    CRowPages *PagesFor(int column, int role) const;
    void SetPage(CRowPages &pages, const QVariant &value);

    // No private object: it would be one more piece of memory a row.
    CTextBlock texts_;
    std::unique_ptr<CTreeViewItemExtras> ptr_extras_; // null while there is nothing in it
    CTreeViewItem *ptr_parent_ = nullptr;             // the model's root for a top-level item
    int row_ = 0;                                     // place among the parent's rows
};

} // namespace Ravel
