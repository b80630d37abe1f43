// SPDX-License-Identifier: MIT
#pragma once

#include "pages/Page.h"
#include "pages/PageFetch.h"
#include "pages/PageSource.h"

#include <QtCore/QTimer>

QT_BEGIN_NAMESPACE
class QAction;
class QCheckBox;
class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
QT_END_NAMESPACE

namespace Ravel {

class CTreeViewModel;

} // namespace Ravel

namespace Vantor {

class CFilterTreeViewEx;
class CMutiPageWidget;

} // namespace Vantor

namespace Client {

class CTableColumns;

/// \brief The management server's incident list: each page is fetched when it is shown.
///
/// With the total known the bar leads to any page; without, from page to page. The server searches
/// and sorts. Rows that come while the user pages do not shift the pages; a button says how many
/// there are and leads to them.
class CServerListPage : public CPage
{
    Q_OBJECT

public:
    explicit CServerListPage(QWidget *parent = nullptr);

    void OnThemeChanged() override;
    [[nodiscard]] bool IsLoading() const override;
    [[nodiscard]] std::optional<RowTotal> Rows() const override;
    void SetRows(Vantor::CListExport &job) override;

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void OnTyped();
    void OnSettled();
    void OnPageChosen();
    void OnRowsPerPage();
    void OnHeaderSorted();
    void OnOrdersOpen();
    void OnNewRows();
    void OnRetry();
    void OnLook();
    void OnTotalKnown();
    void OnUserChanged();
    void OnAnswered(int ticket, const Client::ServerPage &page);
    void OnRebuild();

private:
    void BuildHead();
    void BuildState();
    void Build();
    [[nodiscard]] Vantor::CFilterTreeViewEx *Table() const;
    void Ask(int page);
    void Do(const FetchStep &step);
    void SetOrder(int column, bool is_descending);
    void ShowPage(const ServerPage &page);
    void ShowFailure();
    [[nodiscard]] bool IsSameSearch() const;
    void ShowBar();
    void ShowState();
    [[nodiscard]] QString StateText() const;
    [[nodiscard]] QString OrderText() const;
    [[nodiscard]] int PageOfFirstRow() const;
    [[nodiscard]] QVector<int> AllColumns() const;
    [[nodiscard]] QVector<QString> TextsOf(int column) const;
    void Retranslate();

    Ravel::CTreeViewModel *const model_;
    CPageSource *const source_;
    QLineEdit *const search_;
    QAction *const search_icon_;
    QPushButton *const order_;
    QMenu *const orders_;
    QCheckBox *const total_known_;
    QLabel *const state_;
    QPushButton *const retry_;
    QPushButton *const new_rows_;
    QTimer settle_; // runs while letters are typed, or the window is resized
    QTimer look_;   // for new rows, or for a server that was not there
    CPageFetch fetch_;
    ListQuery query_; // what the user wants to see
    QStringList titles_;
    Qt::LayoutDirection built_for_ = Qt::LeftToRight;
    // Rebuilt when the reading direction changes.
    Vantor::CMutiPageWidget *list_ = nullptr;
    CTableColumns *columns_ = nullptr;
};

} // namespace Client
