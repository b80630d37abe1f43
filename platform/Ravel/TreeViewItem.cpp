// SPDX-License-Identifier: MIT
#include "Ravel/TreeViewItem.h"

#include "Ravel/PageTag.h"
#include "Ravel/TreeViewItem_p.h"

namespace Ravel {
namespace {

bool IsText(int role)
{
    return role == Qt::DisplayRole || role == Qt::EditRole;
}

} // namespace

CTreeViewItem::CTreeViewItem(const QStringList &texts) : texts_(texts) {}

CTreeViewItem::~CTreeViewItem() = default;

CTreeViewItemExtras &CTreeViewItem::Extras()
{
    if (!ptr_extras_)
        ptr_extras_ = std::make_unique<CTreeViewItemExtras>();
    return *ptr_extras_;
}

// Where a top-level row's page is; null for everything else.
CRowPages *CTreeViewItem::PagesFor(int column, int role) const
{
    return role == kPageTagRole && column == 0 && ptr_parent_ ? ptr_parent_->ptr_extras_->ptr_pages_
                                                              : nullptr;
}

void CTreeViewItem::SetPage(CRowPages &pages, const QVariant &value)
{
    const int page = value.userType() == QMetaType::QString ? PageOfTag(value.toString()) : kNoPage;
    const bool is_foreign = page == kNoPage && value.isValid();
    if (pages.At(row_) == kForeignPage)
        ptr_extras_->map_others_.remove(qMakePair(0, kPageTagRole));
    if (is_foreign)
        Extras().map_others_.insert(qMakePair(0, kPageTagRole), value);
    pages.Set(row_, is_foreign ? kForeignPage : page);
}

QVariant CTreeViewItem::Data(int column, int role) const
{
    if (IsText(role))
        return column >= 0 && column < texts_.Count() ? QVariant(texts_.Text(column)) : QVariant();
    const CRowPages *const pages = PagesFor(column, role);
    if (pages && pages->At(row_) > 0)
        return PageTag(pages->At(row_));
    return ptr_extras_ ? ptr_extras_->map_others_.value(qMakePair(column, role)) : QVariant();
}

void CTreeViewItem::SetData(int column, int role, const QVariant &value)
{
    if (column < 0)
        return;
    if (CRowPages *const pages = PagesFor(column, role)) {
        SetPage(*pages, value);
        return;
    }
    if (!IsText(role)) {
        Extras().map_others_.insert(qMakePair(column, role), value);
        return;
    }
    QStringList texts = texts_.Texts();
    while (texts.size() <= column)
        texts.append(QString());
    texts[column] = value.toString();
    texts_ = CTextBlock(texts);
}

void CTreeViewItem::AppendChild(std::unique_ptr<CTreeViewItem> child)
{
    if (!child)
        return;
    child->ptr_parent_ = this;
    child->row_ = ChildCount();
    Extras().vec_children_.push_back(std::move(child));
}

int CTreeViewItem::ChildCount() const
{
    return ptr_extras_ ? static_cast<int>(ptr_extras_->vec_children_.size()) : 0;
}

CTreeViewItem *CTreeViewItem::Child(int row) const
{
    return row >= 0 && row < ChildCount()
               ? ptr_extras_->vec_children_[static_cast<size_t>(row)].get()
               : nullptr;
}

CTreeViewItem *CTreeViewItem::Parent() const
{
    return ptr_parent_ && ptr_parent_->ptr_extras_->ptr_pages_ ? nullptr : ptr_parent_;
}

int CTreeViewItem::Row() const
{
    return row_;
}

} // namespace Ravel
