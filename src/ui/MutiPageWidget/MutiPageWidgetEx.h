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
    // Only the host changes whether the bar is there; the user's keyword is reported when it is
    // asked for.
    Q_PROPERTY(bool filterWidgetShow READ IsFilterWidgetShow WRITE SetFilterWidgetShow)
    Q_PROPERTY(QString keyWord READ GetKeyWord WRITE SetKeyWord)

public:
    explicit CMutiPageWidgetEx(QWidget *parent = nullptr);
    ~CMutiPageWidgetEx() override;

    /// \brief The list under the filter bar.
    [[nodiscard]] CMutiPageWidget *GetMutiPageWidget() const;
    /// \brief The filter bar.
    [[nodiscard]] CFilterWidgetEx *GetFilterWidget() const;

    /// \brief Filter by the texts of each column, as CFilterTreeViewEx::SetFilterKeyWords() does.
    void OnFilterWithKeyWords(std::vector<QStringList> &lists);
    /// \brief Show or hide the filter bar and the button that folds it.
    void SetFilterWidgetShow(bool show);
    /// \brief Whether the button that folds the filter bar is there.
    [[nodiscard]] bool IsFilterWidgetShow() const;

    /// \brief See CFilterWidgetEx::SetModel().
    void SetModel(Ravel::CTreeViewModel *model);
    /// \brief See CFilterWidgetEx::AddTopLevelItems().
    void AddTopLevelItems();
    /// \brief See CFilterWidgetEx::ClearAllItems().
    void ClearAllItems();
    /// \brief See CFilterWidgetEx::SetRelatedIndex().
    void SetRelatedIndex(int mainColumn, int subColumn);
    /// \brief See CFilterWidgetEx::IsKeyWord().
    [[nodiscard]] bool IsKeyWord() const;
    /// \brief See CFilterWidgetEx::GetKeyWord().
    [[nodiscard]] QString GetKeyWord() const;
    /// \brief See CFilterWidgetEx::SetKeyWord().
    void SetKeyWord(const QString &keyword);
    /// \brief See CFilterWidgetEx::GetSelectedMainType().
    [[nodiscard]] QStringList GetSelectedMainType() const;
    /// \brief See CFilterWidgetEx::SetSelectedMainType().
    void SetSelectedMainType(const QStringList &types);
    /// \brief See CFilterWidgetEx::GetSelectedSubType().
    [[nodiscard]] QStringList GetSelectedSubType() const;
    /// \brief See CFilterWidgetEx::SetSelectedSubType().
    void SetSelectedSubType(const QStringList &types);

    /// \brief See CMutiPageWidget::GetBackupModel().
    [[nodiscard]] QAbstractItemModel *GetBackupModel();
    /// \brief See CMutiPageWidget::TopLevelItemCount().
    [[nodiscard]] int TopLevelItemCount();

Q_SIGNALS:
    /// The user went to another page of GetMutiPageWidget().
    void SignalPageChanged();
    /// See CFilterWidgetEx::SignalMoreBtnClicked().
    void SignalMoreBtnClicked();
    /// See CFilterWidgetEx::SignalFilterWithKeyWords().
    void SignalFilterWithKeyWords();
    /// See CFilterWidgetEx::SignalClearFilter().
    void SignalClearFilter();

public Q_SLOTS:
    /// \brief Fold the filter bar away, or out again.
    void OnShowHideBtnClicked();
    /// \brief Filter by \a keyword, as CMutiPageWidget::SetFilterKeyWord() does.
    void OnFilterWithKeyWord(const QString &keyword);

protected:
    void changeEvent(QEvent *event) override;

private:
    void UpdateShowHideBtn();
    void Retranslate();

    const std::unique_ptr<CMutiPageWidgetExDataPtr> d_ptr_;
};

} // namespace Vantor
