// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
QT_END_NAMESPACE

namespace Ravel {

class CTreeViewModel;

} // namespace Ravel

namespace Vantor {

class CFilterWidgetEx;
class CMutiPageWidget;
struct CMutiPageWidgetExDataPtr;

/// \brief A CMutiPageWidget under a CFilterWidgetEx that a button folds away; folded at first.
///
/// SetModel(), AddTopLevelItems() and ClearAllItems() are the filter bar's: the host also calls
/// those of GetMutiPageWidget(), which holds the rows. A keyword that the user asks for filters the
/// list by itself; on SignalFilterWithKeyWords() the host reads the ticked types and calls
/// OnFilterWithKeyWords(), and on SignalClearFilter() it shows everything again. GUI thread only.
class VANTOR_EXPORT CMutiPageWidgetEx : public QWidget
{
    Q_OBJECT

public:
    explicit CMutiPageWidgetEx(QWidget *parent = nullptr);
    ~CMutiPageWidgetEx() override;

    /// \brief The list under the filter bar.
    [[nodiscard]] CMutiPageWidget *GetMutiPageWidget() const;
    [[nodiscard]] CFilterWidgetEx *GetFilterWidget() const;

    /// \brief Filter by the texts of each column, as CFilterTreeViewEx::SetFilterKeyWords() does.
    void OnFilterWithKeyWords(std::vector<QStringList> &lists);
    /// \brief Show or hide the filter bar and the button that folds it.
    void SetFilterWidgetShow(bool show);
    /// \brief Whether the button that folds the filter bar is there.
    [[nodiscard]] bool IsFilterWidgetShow() const;

    // See CFilterWidgetEx.
    void SetModel(Ravel::CTreeViewModel *model);
    void AddTopLevelItems();
    void ClearAllItems();
    void SetRelatedIndex(int mainColumn, int subColumn);
    [[nodiscard]] bool IsKeyWord() const;
    [[nodiscard]] QString GetKeyWord() const;
    void SetKeyWord(const QString &keyword);
    [[nodiscard]] QStringList GetSelectedMainType() const;
    void SetSelectedMainType(const QStringList &types);
    [[nodiscard]] QStringList GetSelectedSubType() const;
    void SetSelectedSubType(const QStringList &types);

    // See CMutiPageWidget.
    [[nodiscard]] QAbstractItemModel *GetBackupModel();
    [[nodiscard]] int TopLevelItemCount();

Q_SIGNALS:
    /// The user went to another page of GetMutiPageWidget().
    void SignalPageChanged();
    // Those of the filter bar.
    void SignalMoreBtnClicked();
    void SignalFilterWithKeyWords();
    void SignalClearFilter();

public Q_SLOTS:
    /// \brief Fold the filter bar away, or out again.
    void OnShowHideBtnClicked();
    void OnFilterWithKeyWord(const QString &keyword);

protected:
    void changeEvent(QEvent *event) override;

private:
    void UpdateShowHideBtn();
    void Retranslate();

    const std::unique_ptr<CMutiPageWidgetExDataPtr> d_ptr_;
};

} // namespace Vantor
