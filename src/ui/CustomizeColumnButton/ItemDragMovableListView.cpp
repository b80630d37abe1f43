// SPDX-License-Identifier: MIT
#include "ui/CustomizeColumnButton/ItemDragMovableListView.h"

#include "common/StyleManager.h"
#include "ui/CustomizeColumnButton/ListSightCheckModel.h"

#include <QtCore/QBasicTimer>
#include <QtCore/QTimerEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollBar>

#include <algorithm>

namespace Vantor {
namespace {

constexpr int kNoRow = -1;
constexpr int kLinePx = 2;
constexpr int kScroll_ms = 40;
constexpr int kScrollPx = 8;

// A theme's colour for selected rows is too faint for a line.
QColor Accent(const QPalette &palette)
{
    const QColor brand = Nim::Base::CSingleton<CStyleManager>::Instance().BrandColor();
    return brand.isValid() ? brand : palette.color(QPalette::Highlight);
}

} // namespace

struct CItemDragMovableListViewDataPtr
{
    CItemDragMovableListView::MoveRule move_rule_;
    QPoint pt_press_;
    int pressed_row_ = kNoRow;
    int dragged_row_ = kNoRow;
    int target_row_ = kNoRow; // where it would be dropped; the dragged row itself: nowhere
    int mouse_y_ = 0;
    int grip_y_ = 0; // from the top of the dragged row to the mouse
    QPixmap floating_;
    QBasicTimer scroll_timer_;
};

CItemDragMovableListView::CItemDragMovableListView(QWidget *parent)
    : QListView(parent), d_ptr_(std::make_unique<CItemDragMovableListViewDataPtr>())
{
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setUniformItemSizes(true);
    setMouseTracking(true);
}

CItemDragMovableListView::~CItemDragMovableListView() = default;

void CItemDragMovableListView::SetMoveRule(MoveRule rule)
{
    d_ptr_->move_rule_ = std::move(rule);
}

bool CItemDragMovableListView::IsDragging() const
{
    return d_ptr_->dragged_row_ != kNoRow;
}

void CItemDragMovableListView::CancelDrag()
{
    d_ptr_->pressed_row_ = kNoRow; // another row may be there now
    EndDrag(false);
}

QSize CItemDragMovableListView::sizeHint() const
{
    if (!model())
        return QListView::sizeHint(); // a form without data needs some room for it
    const int rows = model()->rowCount();
    const int frame = 2 * frameWidth();
    return {sizeHintForColumn(0) + frame, rows * std::max(0, sizeHintForRow(0)) + frame};
}

void CItemDragMovableListView::mousePressEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->pos());
    const bool is_grip = event->button() == Qt::LeftButton
                         && index.data(CListSightCheckModel::kManualSortRole).toBool();
    d_ptr_->pressed_row_ = is_grip ? index.row() : kNoRow;
    d_ptr_->pt_press_ = event->pos();
    QListView::mousePressEvent(event);
}

void CItemDragMovableListView::mouseMoveEvent(QMouseEvent *event)
{
    if (!(event->buttons() & Qt::LeftButton)) {
        QListView::mouseMoveEvent(event); // the row below the mouse is lit
        return;
    }
    const int way = (event->pos() - d_ptr_->pt_press_).manhattanLength();
    if (!IsDragging() && d_ptr_->pressed_row_ != kNoRow && way >= QApplication::startDragDistance())
        StartDrag();
    if (IsDragging())
        DragTo(event->pos().y());
}

void CItemDragMovableListView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        d_ptr_->pressed_row_ = kNoRow;
    if (!IsDragging())
        QListView::mouseReleaseEvent(event);
    else if (event->button() == Qt::LeftButton)
        EndDrag(true);
}

// Qt drops the release after a double click, and with it the second of two quick clicks.
void CItemDragMovableListView::mouseDoubleClickEvent(QMouseEvent *event)
{
    QMouseEvent press(QEvent::MouseButtonPress, event->localPos(), event->windowPos(),
                      event->screenPos(), event->button(), event->buttons(), event->modifiers(),
                      event->source());
    mousePressEvent(&press);
}

void CItemDragMovableListView::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (IsDragging()) {
        if (key == Qt::Key_Escape)
            CancelDrag();
        return;
    }
    if ((event->modifiers() & Qt::AltModifier) && (key == Qt::Key_Up || key == Qt::Key_Down)) {
        const int row = currentIndex().row();
        MoveRow(row, key == Qt::Key_Up ? row - 1 : row + 1);
        return;
    }
    QListView::keyPressEvent(event);
}

void CItemDragMovableListView::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != d_ptr_->scroll_timer_.timerId()) {
        QListView::timerEvent(event);
        return;
    }
    const bool is_up = d_ptr_->mouse_y_ < 0;
    verticalScrollBar()->setValue(verticalScrollBar()->value() + (is_up ? -kScrollPx : kScrollPx));
    DragTo(d_ptr_->mouse_y_);
}

void CItemDragMovableListView::hideEvent(QHideEvent *event)
{
    CancelDrag();
    QListView::hideEvent(event);
}

void CItemDragMovableListView::StartDrag()
{
    const QRect row = visualRect(model()->index(d_ptr_->pressed_row_, 0));
    d_ptr_->floating_ = viewport()->grab(row);
    d_ptr_->grip_y_ = d_ptr_->pt_press_.y() - row.y();
    d_ptr_->dragged_row_ = d_ptr_->pressed_row_;
    d_ptr_->target_row_ = d_ptr_->pressed_row_;
}

void CItemDragMovableListView::DragTo(int y)
{
    d_ptr_->mouse_y_ = y;
    const int height = viewport()->height();
    const QModelIndex below =
        indexAt(QPoint(viewport()->width() / 2, std::clamp(y, 0, height - 1)));
    const int row = below.isValid() ? below.row() : model()->rowCount() - 1;
    const bool is_possible = CanMove(d_ptr_->dragged_row_, row);
    d_ptr_->target_row_ = is_possible ? row : d_ptr_->dragged_row_;
    viewport()->setCursor(is_possible || row == d_ptr_->dragged_row_ ? Qt::ClosedHandCursor
                                                                     : Qt::ForbiddenCursor);
    if (y >= 0 && y < height)
        d_ptr_->scroll_timer_.stop();
    else if (!d_ptr_->scroll_timer_.isActive())
        d_ptr_->scroll_timer_.start(kScroll_ms, this);
    viewport()->update();
}

void CItemDragMovableListView::EndDrag(bool is_dropped)
{
    if (!IsDragging())
        return;
    const int from = d_ptr_->dragged_row_;
    const int to = d_ptr_->target_row_;
    d_ptr_->pressed_row_ = d_ptr_->dragged_row_ = d_ptr_->target_row_ = kNoRow;
    d_ptr_->floating_ = QPixmap();
    d_ptr_->scroll_timer_.stop();
    viewport()->unsetCursor();
    viewport()->update();
    if (is_dropped)
        MoveRow(from, to);
    Q_EMIT SignalDragFinished();
}

void CItemDragMovableListView::MoveRow(int from, int to)
{
    auto *const rows = qobject_cast<CListSightCheckModel *>(model());
    if (!rows || !CanMove(from, to) || !rows->MoveRow(from, to))
        return;
    setCurrentIndex(rows->index(to, 0));
}

bool CItemDragMovableListView::CanMove(int from, int to) const
{
    return from != to && (!d_ptr_->move_rule_ || d_ptr_->move_rule_(from, to));
}

void CItemDragMovableListView::paintEvent(QPaintEvent *event)
{
    QListView::paintEvent(event);
    if (!IsDragging())
        return;
    QPainter painter(viewport());
    const QRect source = visualRect(model()->index(d_ptr_->dragged_row_, 0));
    painter.fillRect(source, palette().color(QPalette::Base)); // its place is empty meanwhile
    const QColor accent = Accent(palette());
    QRect floating = source;
    floating.moveTop(d_ptr_->mouse_y_ - d_ptr_->grip_y_);
    painter.drawPixmap(floating.topLeft(), d_ptr_->floating_);
    painter.setPen(accent);
    painter.drawRect(floating.adjusted(0, 0, -1, -1));
    if (d_ptr_->target_row_ == d_ptr_->dragged_row_)
        return;
    const QRect target = visualRect(model()->index(d_ptr_->target_row_, 0));
    const bool is_down = d_ptr_->target_row_ > d_ptr_->dragged_row_;
    const int y = (is_down ? target.bottom() + 1 : target.top()) - kLinePx / 2;
    painter.fillRect(target.x(), std::clamp(y, 0, std::max(0, viewport()->height() - kLinePx)),
                     target.width(), kLinePx, accent);
}

} // namespace Vantor
