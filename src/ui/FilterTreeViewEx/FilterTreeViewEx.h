// SPDX-License-Identifier: MIT
#pragma once

#include <Ravel/TableView.h>
#include <VantorExport.h>

#include <QtCore/QList>
#include <QtCore/QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace Ravel {

class CTreeViewItem;
class CTreeViewModel;

} // namespace Ravel

namespace Vantor {

class CFilterProxyModelEx;
struct CFilterTreeViewExDataPtr;

/// \brief A list that filters its rows by keywords and shows them page by page.
///
/// A keyword proxy (GetBackupModel()) is on top of the host's model, and a page proxy, which is the
/// view's model, on top of that. A paging pass writes "Page001", "Page002", … into role
/// Qt::UserRole + 100 of column 0 of every row that passes the keywords, shows page 1 and emits
/// SignalPageReset(). It runs when a model with rows is set and after AddTopLevelItems(),
/// ClearAllItems(), a filter, a sort, another page size and a new height of the view; not after
/// changes that the host makes in its model itself: rows it inserts there are on every page until
/// the next pass.
///
/// The pages are in the model, so a model belongs to one view: two views on one model cut it by
/// turns, and each shows the other's pages until its next pass. SetModel() logs a warning then.
///
/// Slots of every signal may call any operation, or delete the view. A pass that is asked for from
/// inside a pass runs once, after it. Without a model nothing happens. GUI thread only.
class VANTOR_EXPORT CFilterTreeViewEx : public Ravel::CTableView
{
    Q_OBJECT
    // It follows the height, too. SignalPageReset() reports each change of the page breaks.
    Q_PROPERTY(int itemsPerPage READ GetItemsPerPage WRITE SetTreeViewItemPerPage)

public:
    /// Paging is on and the page size follows the height.
    explicit CFilterTreeViewEx(QWidget *parent = nullptr);
    ~CFilterTreeViewEx() override;

    /// \brief Show \a model, sorted and filtered as the one before; null shows nothing. It stays
    /// the host's and may be deleted at any time.
    void SetModel(Ravel::CTreeViewModel *model);

    /// \brief Clear the keyword filter and append \a items, which the model then owns; the list
    /// itself stays as it is. Without a model, and with items that have a place already, nothing is
    /// taken.
    void AddTopLevelItems(QList<Ravel::CTreeViewItem *> &items);
    /// \brief Remove all rows of the model.
    void ClearAllItems();
    /// \brief Rows that pass the keywords, on all pages.
    [[nodiscard]] int TopLevelItemCount() const;
    /// \brief The keyword proxy. Never null.
    [[nodiscard]] CFilterProxyModelEx *GetBackupModel() const;

    /// \brief Rows per page, at least 1.
    [[nodiscard]] int GetItemsPerPage() const;
    /// \brief Whether rows are cut into pages. Changes nothing that is shown: turned off, the last
    /// page stays in force.
    void SetFilterEnabled(bool enabled);
    /// \brief Leave sorting to the host, for rows that come in the order of a server: a click into
    /// the header only moves its arrow and emits SignalDataSort(). Only with paging off; the
    /// default is false.
    void SetSortByHost(bool by_host);
    /// \brief The role that lists with paging off are sorted by.
    void SetSortRole(int role);
    /// \brief Show the 1-based \a page, without a check of its range; only with paging on.
    void SetFilterPage(int page);
    /// \brief See CFilterProxyModelEx::SetKeyWordFilter().
    void SetFilterKeyWord(const QString &keyword);
    /// \brief See CFilterProxyModelEx::SetKeyWordsFilter().
    void SetFilterKeyWords(std::vector<QStringList> &lists);
    /// \brief Set the rows per page; 0, and anything below, follows the height of the view.
    void SetTreeViewItemPerPage(int count);

    /// \brief From the page proxy to the keyword proxy, not to the host's model.
    [[nodiscard]] QModelIndex MapToSourceIndex(const QModelIndex &index) const;
    /// \brief From the keyword proxy to the page proxy; invalid for a row on another page.
    [[nodiscard]] QModelIndex MapFromSourceIndex(const QModelIndex &index) const;

Q_SIGNALS:
    /// The list has been cut into \a pages pages, at least 1, and shows page 1.
    void SignalPageReset(int records, int pages);
    /// Another page is about to be shown: how to set the Previous and Next buttons.
    void SignalUpdateMaxMinPage(bool previousEnabled, bool nextEnabled);
    /// The view has another height, and the list has been cut for it.
    void SignalSizeChanged();
    /// The user sorted the list; the paging pass follows. With SetSortByHost(): the user asks for
    /// the order that the header shows.
    void SignalDataSort();

public Q_SLOTS:
    /// \brief Sort by \a column; -1 gives back the model's order.
    void OnSortIndicatorChanged(int column, Qt::SortOrder order);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void DoPaging();
    void Change(const std::function<void()> &step);
    void CutPages(const std::function<void()> &step);
    [[nodiscard]] bool WaitForModel(const std::function<void()> &operation);
    void RunLater();
    void CaculateAdaptiveHight();
    void MeasureRowHeight();

    const std::unique_ptr<CFilterTreeViewExDataPtr> d_ptr_;
};

} // namespace Vantor
