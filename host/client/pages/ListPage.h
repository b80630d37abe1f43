// SPDX-License-Identifier: MIT
#pragma once

#include "list/IncidentList.h"

#include <QtCore/QTimer>
#include <QtWidgets/QWidget>

#include <vector>

QT_BEGIN_NAMESPACE
class QAction;
class QLabel;
class QLineEdit;
class QModelIndex;
QT_END_NAMESPACE

namespace Vantor {

class CFilterTreeViewEx;
class CMutiPageWidget;
class CMutiPageWidgetEx;

} // namespace Vantor

namespace Client {

class CIncidentModel;
class CMatchDelegate;
class CShareBar;
class CTableColumns;

/// \brief The list: a filter bar, the incidents page by page, the paging bar.
///
/// All rows are in the model and paged here. A typed keyword filters at once; in a long list, keys
/// that are typed faster than it can answer are answered together. Types are filtered by the filter
/// button.
class CListPage : public QWidget
{
    Q_OBJECT

public:
    explicit CListPage(QWidget *parent = nullptr);

    /// \brief Show \a list in its own order, searched as before.
    void SetList(IncidentListPtr list);
    void SetFilter(const QString &text);
    /// \brief The rows that pass the filter, on all pages, in the order shown, and the
    /// columns that the user sees.
    [[nodiscard]] IncidentRows Rows();
    /// \brief How much of the list is shown, in words and as a bar, for the window's status bar.
    [[nodiscard]] QWidget *Totals() const { return totals_; }

    void FocusSearch();
    /// \brief Copy the current cell or, while the keyword field has the focus, its selection.
    void Copy();
    [[nodiscard]] bool CanCopy() const;
    /// \brief Select the text of the keyword field while keys go there; the list selects one row.
    void SelectAll();
    [[nodiscard]] bool CanSelectAll() const;
    /// \brief Show the list in the order of its file.
    void RestoreOrder();

Q_SIGNALS:
    /// The user clicked the row of \a index or pressed Enter on it.
    void SignalRowChosen(const QModelIndex &index);

public Q_SLOTS:
    /// \brief Another user is logged in: show the columns that he chose.
    void OnUserChanged();
    /// \brief Take over what a style sheet cannot give: icons, and a fainter colour for hints.
    void OnThemeChanged();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void OnTyped();
    void OnSearch();
    void OnFilterByTypes();
    void OnClearFilter();
    void OnRebuild();
    void OnPageReset(int records);

private:
    void Build(const QString &keyword);
    void BuildSearch();
    void BuildTable();
    void ShowKeyWord(const QString &keyword);
    void FillTypes();
    [[nodiscard]] std::vector<QStringList> TypeLists() const;
    void Retranslate();
    [[nodiscard]] QLineEdit *Search() const;
    [[nodiscard]] Vantor::CMutiPageWidget *Paging() const;
    [[nodiscard]] Vantor::CFilterTreeViewEx *Table() const;

    CIncidentModel *const model_;
    CMatchDelegate *const delegate_;
    QWidget *const totals_;
    CShareBar *const share_;
    QLabel *const total_;
    QString filter_; // what the list is filtered by, for exports
    QTimer typed_;   // runs while keys are typed that the list does not answer yet
    Qt::LayoutDirection built_for_ = Qt::LeftToRight;
    // Rebuilt when the reading direction changes.
    Vantor::CMutiPageWidgetEx *list_ = nullptr;
    QAction *search_icon_ = nullptr;
    QLabel *nothing_found_ = nullptr;
    CTableColumns *columns_ = nullptr;
};

} // namespace Client
