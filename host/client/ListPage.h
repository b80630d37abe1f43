// SPDX-License-Identifier: MIT
#pragma once

#include "IncidentList.h"

#include <QtWidgets/QWidget>

QT_BEGIN_NAMESPACE
class QAction;
class QLabel;
class QLineEdit;
class QTableView;
QT_END_NAMESPACE

namespace Client {

class CListModel;
class CMatchDelegate;
class CShareBar;

/// \brief The list: a search field, how much of the list is shown, and the table.
class CListPage : public QWidget
{
    Q_OBJECT

public:
    explicit CListPage(QWidget *parent = nullptr);

    /// \brief Show \a list in its own order, searched as before.
    void SetList(IncidentListPtr list);
    void SetFilter(const QString &text);
    [[nodiscard]] IncidentRows Rows() const;

    void FocusSearch();
    /// \brief Copy the current cell, or what is selected in the search field while keys go there.
    void Copy();
    [[nodiscard]] bool CanCopy() const;
    /// \brief Select the text of the search field while keys go there; the table selects one row.
    void SelectAll();
    [[nodiscard]] bool CanSelectAll() const;
    /// \brief Show the list in the order of its file.
    void RestoreOrder();
public Q_SLOTS:
    /// \brief Take over what a style sheet cannot give: icons, and a fainter colour for hints.
    void OnThemeChanged();

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void OnSearch(const QString &text);

private:
    void BuildTable();
    void Retranslate();
    void UpdateTotal();
    void FitColumns();

    CListModel *const model_;
    CMatchDelegate *const delegate_;
    QLineEdit *const search_;
    QAction *const search_icon_;
    CShareBar *const share_;
    QLabel *const total_;
    QTableView *const table_;
    QLabel *const nothing_found_;
};

} // namespace Client
