// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QList>
#include <QtCore/QModelIndexList>
#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
class QComboBox;
class QPushButton;
QT_END_NAMESPACE

namespace Ravel {

class CTreeViewItem;
class CTreeViewModel;

} // namespace Ravel

namespace Vantor {

class CFilterTreeViewEx;
struct CMutiPageWidgetDataPtr;

/// \brief One page of a long list in a CFilterTreeViewEx, and a paging bar under it.
///
/// Two ways of paging, chosen by SetPageSeen() and HideTotalPageWidget():
/// - known total: the bar shows the current page and the number of pages, and its buttons are
///   enabled against both ends;
/// - open-ended, the default: only Previous and Next mean something. Previous is enabled on every
///   page after the first, Next whenever the last delivered page was full.
///
/// Rows that are in the model already are paged by the tree view: call SetFilterEnabled(true).
/// Pages that come from a server are fetched by the host on SignalPageChanged(), for
/// GetCurrentPage(), and handed over by OnUpdatePageInfo() and AddTopLevelItems(); such a host
/// calls SetFilterEnabled(false), because a tree view that still pages would look for page n in the
/// single page it has and show nothing.
///
/// Ctrl+Page Up and Ctrl+Page Down turn pages wherever the keys go inside it.
///
/// The widget does not ask for rows itself and keeps nothing. Whether the bar is mirrored, with
/// names and icons of its own, follows the application's layout direction at construction. Slots of
/// every signal may call any operation. GUI thread only.
class VANTOR_EXPORT CMutiPageWidget : public QWidget
{
    Q_OBJECT
    // SignalPageChanged() reports the user's steps alone, so it is no notification of currentPage.
    // What changes itemsPerPage, CFilterTreeViewEx::SignalPageReset() reports. Only the host
    // changes the others.
    Q_PROPERTY(bool pageSeen READ IsPageSeen WRITE SetPageSeen)
    Q_PROPERTY(int itemsPerPage READ GetItemsPerPage WRITE SetItemsPerPage)
    Q_PROPERTY(int currentPage READ GetCurrentPage)
    Q_PROPERTY(bool confirmBtnVisible READ IsConfirmBtnVisible WRITE SetConfirmBtnVisible)
    Q_PROPERTY(bool jumpFuncVisible READ IsJumpFuncVisible WRITE SetJumpFuncVisible)

public:
    explicit CMutiPageWidget(QWidget *parent = nullptr);
    ~CMutiPageWidget() override;

    /// \brief The records-per-page chooser; its items carry their counts under Qt::UserRole, 0 for
    /// as many rows as fit.
    [[nodiscard]] QComboBox *GetItemPerPageComboBox() const;
    /// \brief The view of the rows, a child of the widget.
    [[nodiscard]] CFilterTreeViewEx *GetTreeView() const;
    /// \brief The Next button, a child of the widget.
    [[nodiscard]] QPushButton *GetNextPageBtn();

    /// \brief Page with a known total but show neither it nor what leads to a certain page: the
    /// records label, Home, Last, the page edit with its holder and label, and the jump button.
    void HideTotalPageWidget();
    /// \brief Page with a known total and show those seven widgets, or page open-ended without
    /// them. The bar follows at the next page update.
    void SetPageSeen(bool seen);
    /// \brief Whether SetPageSeen(true) is in force.
    [[nodiscard]] bool IsPageSeen() const;
    /// \brief Keep \a column of the tree view at its present width.
    void SetCustomColumnFixedWidth(const int &column);
    /// \brief Show the batch-confirm button and the room around it, hidden at first.
    void SetConfirmBtnVisible(bool visible);
    /// \brief Whether the batch-confirm button is there; it is not at first.
    [[nodiscard]] bool IsConfirmBtnVisible() const;
    /// \brief Enable or disable the batch-confirm button.
    void SetBatchAlarmsConfirmEnable(bool enable);
    /// \brief Show the record count in a sentence instead of behind a word; from the next page
    /// update on.
    void SetRecordsVisible(bool visible);
    /// \brief Show or hide the record count and the records-per-page chooser.
    void SetTotalAndComboBoxVisible(bool visible);
    /// \brief Hide the paging bar and the line above it, for a list of one page.
    void HideBottomPageWidget();
    /// \brief Show or hide the page edit and the jump button.
    void SetJumpFuncVisible(bool visible);
    /// \brief Whether the jump button is there.
    [[nodiscard]] bool IsJumpFuncVisible() const;

    /// \brief Show \a model, which stays the host's; a null one is ignored.
    void SetModel(Ravel::CTreeViewModel *model);
    /// \brief Remove all rows and return to page 1 of 1.
    void ClearAllItems();
    /// \brief Remove all rows of the tree view.
    void InitTreeView();
    /// \brief Return to page 1 of 1 with 0 records.
    void InitPageInfo();

    /// \brief Append \a items, which the model then owns; the list itself stays as it is.
    ///
    /// An empty list disables Next and emits SignalErrorInfo(). Otherwise Next is enabled exactly
    /// when there are at least GetItemsPerPage() items: a full page suggests that more follow.
    /// Hosts that know the total want SetNextByTotal() first.
    void AddTopLevelItems(QList<Ravel::CTreeViewItem *> &items);

    /// \brief Whether AddTopLevelItems(), while the total is known, enables Next unless this is the
    /// last page, however many items it appends. Off by default.
    void SetNextByTotal(bool by_total);

    /// \brief Rows on all pages: the tree view's count, or with SetFilterEnabled(false) the records
    /// that OnUpdatePageInfo() was given.
    [[nodiscard]] int TopLevelItemCount();
    /// \brief The tree view's keyword proxy: the rows of all pages in the order shown.
    [[nodiscard]] QAbstractItemModel *GetBackupModel();
    /// \brief Rows per page, at least 1.
    [[nodiscard]] int GetItemsPerPage();
    /// \brief Set the rows per page; 0, and anything below, is as many as fit. The chooser shows
    /// \a count if it is one of its items.
    void SetItemsPerPage(int count);
    /// \brief Whether the tree view pages its rows itself.
    ///
    /// Each call with true also connects SignalPageChanged() to the bar once more; false does not
    /// disconnect. Call it once.
    void SetFilterEnabled(bool enabled);
    /// \brief The 1-based page shown now.
    [[nodiscard]] int GetCurrentPage();
    /// \brief The selected rows of the tree view, as indexes of column 0 of the page.
    [[nodiscard]] QList<QModelIndex> GetSelectedRows() const;
    /// \brief Make \a index of the tree view's model the current one; an invalid one is ignored.
    void SetCurrentIndex(const QModelIndex &index);
    /// \brief When exactly one row is selected, make the one \a delta rows below it current, if the
    /// page has one.
    void MoveFromTheCurrentRow(int delta);

    /// \brief See CFilterTreeViewEx::SetFilterKeyWord().
    void SetFilterKeyWord(const QString &keyword);
    /// \brief See CFilterTreeViewEx::SetFilterKeyWords().
    void SetFilterKeyWords(std::vector<QStringList> &lists);

Q_SIGNALS:
    /// The user went to another page.
    void SignalPageChanged();
    /// The batch-confirm button was clicked.
    void SignalBatchConfirm();
    /// A message for the host to show.
    void SignalErrorInfo(const QString &text);

public Q_SLOTS:
    /// \brief The host has a page of the server: \a records in total, of which it shows the 1-based
    /// \a page (0 counts as 1). \a records counts with a known total only.
    void OnUpdatePageInfo(int records, int page);
    /// \brief Page by the count of the chooser's item \a index; an index that it lacks is ignored.
    void OnItemPerPageChanged(int index);
    /// \brief Enable Previous and Next as given; Home and Last stay as they are.
    void OnUpdateMaxMinPage(bool previousEnabled, bool nextEnabled);

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void OnHomePageClicked();
    void OnPreviousBtnClicked();
    void OnNextBtnClicked();
    void OnLastPageBtnClicked();
    void OnJump();
    void OnCurrentPageChanged();
    void OnPageReset(int records, int pages);
    void OnSetCurrentPageSize(int index);
    void OnCurrentPageEditFousOut();

private:
    void ConnectBar();
    void MirrorNames();
    void GoTo(int page);
    void SetTotalWidgetsVisible(bool visible);
    void WriteRecords(int records);
    void WriteTotalPages(int pages);
    void WriteCurrentPage();
    [[nodiscard]] bool IsCursorOverPagingButton() const;

    const std::shared_ptr<CMutiPageWidgetDataPtr> d_ptr_;
};

} // namespace Vantor
