// SPDX-License-Identifier: MIT
#include "Ravel/TreeViewItem.h"

#include "Ravel/TreeViewItem_p.h"

namespace Ravel {
namespace {

bool IsText(int role)
{
    return role == Qt::DisplayRole || role == Qt::EditRole;
}

} // namespace

CTreeViewItem::CTreeViewItem(const QStringList &texts)
    : d_ptr_(std::make_unique<CTreeViewItemPtr>())
{
    d_ptr_->list_texts_ = texts;
}

CTreeViewItem::~CTreeViewItem() = default;

QVariant CTreeViewItem::Data(int column, int role) const
{
    if (!IsText(role))
        return d_ptr_->map_others_.value(qMakePair(column, role));
    if (column < 0 || column >= d_ptr_->list_texts_.size())
        return {};
    return d_ptr_->list_texts_.at(column);
}

void CTreeViewItem::SetData(int column, int role, const QVariant &value)
{
    if (column < 0)
        return;
    if (!IsText(role)) {
        d_ptr_->map_others_.insert(qMakePair(column, role), value);
        return;
    }
    while (d_ptr_->list_texts_.size() <= column)
        d_ptr_->list_texts_.append(QString());
    d_ptr_->list_texts_[column] = value.toString();
}

void CTreeViewItem::AppendChild(std::unique_ptr<CTreeViewItem> child)
{
    if (!child)
        return;
    child->d_ptr_->ptr_parent_ = this;
    child->d_ptr_->row_ = ChildCount();
    d_ptr_->vec_children_.push_back(std::move(child));
}

int CTreeViewItem::ChildCount() const
{
    return static_cast<int>(d_ptr_->vec_children_.size());
}

CTreeViewItem *CTreeViewItem::Child(int row) const
{
    return row >= 0 && row < ChildCount() ? d_ptr_->vec_children_[static_cast<size_t>(row)].get()
                                          : nullptr;
}

CTreeViewItem *CTreeViewItem::Parent() const
{
    CTreeViewItem *const above = d_ptr_->ptr_parent_;
    return above && !above->d_ptr_->b_root_ ? above : nullptr;
}

int CTreeViewItem::Row() const
{
    return d_ptr_->row_;
}

} // namespace Ravel
