// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtWidgets/QListView>

#include <functional>
#include <memory>

namespace Vantor {

struct CItemDragMovableListViewDataPtr;

/// \brief The list of a column chooser: a row is dragged to a new place with the mouse, or moved
/// with Alt and the arrow keys.
///
/// Its model is a CListSightCheckModel. The view follows the mouse itself instead of starting a
/// drag of the window system: that would run an event loop of its own, and take a row to other
/// programs. Escape, and hiding the view, gives a drag up.
class VANTOR_EXPORT CItemDragMovableListView : public QListView
{
    Q_OBJECT

public:
    /// Whether the row at \a from may become the one at \a to.
    using MoveRule = std::function<bool(int from, int to)>;

    explicit CItemDragMovableListView(QWidget *parent = nullptr);
    ~CItemDragMovableListView() override;

    /// \brief Ask \a rule before a row is moved; without one every row goes everywhere.
    void SetMoveRule(MoveRule rule);

    /// \brief Whether a row hangs at the mouse.
    [[nodiscard]] bool IsDragging() const;
    /// \brief Let the row that hangs at the mouse go back to its place.
    void CancelDrag();

    /// \brief All rows at their full width; without a model, that of QListView.
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// Emitted after a drag has ended; a row that was dropped is at its new place by then.
    void SignalDragFinished();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void timerEvent(QTimerEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void StartDrag();
    void DragTo(int y);
    void EndDrag(bool is_dropped);
    void MoveRow(int from, int to);
    [[nodiscard]] bool CanMove(int from, int to) const;

    const std::unique_ptr<CItemDragMovableListViewDataPtr> d_ptr_;
};

} // namespace Vantor
