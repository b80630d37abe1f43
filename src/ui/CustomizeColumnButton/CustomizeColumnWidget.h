// SPDX-License-Identifier: MIT
#pragma once

#include "ui/CustomizeColumnButton/ColumnInfo.h"

#include <QtCore/QList>
#include <QtCore/QStringList>
#include <QtCore/QVector>
#include <QtWidgets/QWidget>

#include <memory>

namespace Vantor {

struct CCustomizeColumnWidgetDataPtr;

/// \brief The drop-down of CCustomizeColumnButton: the columns of a table with check boxes, to
/// show, hide and move them, a box for all of them and Reset.
///
/// It is a popup: a press beside it and Escape close it. It knows three lists of columns, all in
/// the host's order: the initial one, the current one, and the last one that was settled
/// ("pre-changed"). Object names are listed in docs/styling.md. GUI thread only.
class VANTOR_EXPORT CCustomizeColumnWidget : public QWidget
{
    Q_OBJECT

public:
    /// Whether the stored choice is known. Until it is, nothing can be changed, because a change
    /// would replace it.
    enum class ChoiceState {
        Ready,   ///< it is known
        Loading, ///< it is on its way
        Unread,  ///< it could not be read; the user can ask again
    };

    explicit CCustomizeColumnWidget(QWidget *parent = nullptr);
    ~CCustomizeColumnWidget() override;

    /// \brief Take \a columns as the initial list, the current one and the settled one.
    void InitCustomizeWidget(const QVector<CColumnInfo> &columns);
    /// \brief Show \a columns as the current list. Emits nothing; a drag under way is given up.
    void SetCustomizeWidgetListItems(const QVector<CColumnInfo> &columns);

    /// \brief Names and identifiers of the shown columns in the order of the table. The earlier
    /// content of the two lists is dropped.
    void GetCustomlistItemsContent(QStringList &names, QList<int> &ids) const;
    /// \brief The same without the identifiers.
    void GetCustomlistItemsContent(QStringList &names) const;
    /// \brief The current list, in the host's order.
    void GetCustomlistItemsContent(QVector<CColumnInfo> &columns) const;
    /// \brief The initial list, in the host's order.
    void GetCustomlistItemsContentInit(QVector<CColumnInfo> &columns) const;

    /// \brief A press on one of \a widgets while the drop-down is open only closes it; the widget
    /// does not get it. They may be deleted at any time.
    void SetRelateWidget(const QVector<QWidget *> &widgets);
    /// \brief Empty the current list.
    void ClearCustomizeListItemsContent();

    /// \brief The list that was settled last: what to go back to when a change is refused.
    void GetPreChangedCustomListState(QVector<CColumnInfo> &columns) const;
    /// \brief Take \a columns as the list that was settled last.
    void SetPreChangedCustomListState(const QVector<CColumnInfo> &columns);

    /// \brief Enable the list for Ready; show why it is disabled for the other states.
    void SetChoiceState(ChoiceState state);
    /// \brief Whether the user holds a row with the mouse.
    [[nodiscard]] bool IsDragging() const;

    /// \brief Show it at \a button, inside the button's window.
    void ShowFor(const QWidget &button);

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// The user has changed the current list.
    void SignalCutomizelistChanged();
    /// The user wants the stored choice to be read again.
    void SignalReadAgain();
    /// The drop-down has been closed.
    void SignalLeaveWidget();
    /// The user has let go of a row, after SignalCutomizelistChanged() if that moved it.
    void SignalColumnWidgetFinishChanged();

protected:
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private Q_SLOTS:
    void OnUpdateCurrentCutomizeListIndex(const QModelIndex &parent, int from, int to);
    void OnUpdateCurrentListState(const QModelIndex &index, int old_state, int new_state);
    void OnResetCustomizeListClicked();
    void OnAllCheckBoxStateChanged(int state);

private:
    [[nodiscard]] QWidget *FirstFocus() const;
    void FillRows();
    void DetectListViewAllItemCheckState();
    [[nodiscard]] int CalculateAdaptiveWidth(const QStringList &names) const;
    void UpdateEnabled();
    void Retranslate();

    const std::unique_ptr<CCustomizeColumnWidgetDataPtr> d_ptr_;
};

} // namespace Vantor
