// SPDX-License-Identifier: MIT
#pragma once

#include "Ravel/RowPages.h"
#include "Ravel/TextAccess.h"
#include "Ravel/TreeViewItem.h"
#include "Ravel/TreeViewItem_p.h"

#include <QtCore/QList>
#include <QtCore/QStringList>

#include <memory>
#include <mutex>
#include <vector>

namespace Ravel {

class CRankKeeper;
class CRowFilter;
class CRowSet;
class CTextRanks;

struct CTreeViewModelPtr
{
    CTreeViewModelPtr()
    {
        root_.Extras().ptr_pages_ = &pages_;
        ptr_access_->rows = &Rows();
    }
    ~CTreeViewModelPtr()
    {
        const auto lock = ForChange();
        ptr_access_->rows = nullptr;
    }

    std::vector<std::unique_ptr<CTreeViewItem>> &Rows() { return root_.Extras().vec_children_; }
    const CTextBlock &Texts(int row) const { return root_.Child(row)->texts_; }
    // Taken for every change of rows or texts, because other threads may be reading them.
    std::unique_lock<std::mutex> ForChange()
    {
        std::unique_lock<std::mutex> lock(ptr_access_->mutex);
        ++ptr_access_->version;
        return lock;
    }
    bool TakePlaces(const QList<CTreeViewItem *> &items, int first, bool &has_extras);
    void Renumber(CTreeViewItem &above, int first);
    void AdoptPages(int first, int count);
    void DropForeign(int row);
    quint64 LettersOf(const CTreeViewItem &item) const;
    void ReadLetters();
    void UpdateLetters(const CTreeViewItem &item);
    void ForgetLetters(int first);
    CRowSet Accepted(const CRowFilter &filter, const CRowSet *within);
    CRowSet Candidates(const CRowFilter &filter, const CRowSet *within);
    void AskRanks(const CRowFilter &filter, CRowSet &left, CRowSet &accepted);
    CRowSet HitsByRank(const CRowFilter &filter, const CRowSet &rows, int column,
                       const CTextRanks &ranks);
    CRowSet AcceptedByTexts(const CRowFilter &filter, const CRowSet &rows);

    CTreeViewItem root_; // above the top-level items; never shown
    QStringList list_labels_;
    CRowPages pages_;
    // LettersOf() the first top-level rows, side by side; read for the first keyword.
    std::vector<quint64> vec_letters_;
    bool b_tree_ = false;
    bool b_changing_rows_ = false;
    quint64 pages_version_ = 1;
    CRankKeeper *ptr_ranks_ = nullptr; // a child of the model
    std::shared_ptr<CTextAccess> ptr_access_ = std::make_shared<CTextAccess>();
};

} // namespace Ravel
