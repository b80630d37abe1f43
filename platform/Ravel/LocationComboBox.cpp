// SPDX-License-Identifier: MIT
#include "Ravel/LocationComboBox.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QStyleOption>

#include <algorithm>
#include <iterator>

namespace Ravel {
namespace {

constexpr int kMeasuredRows = 200;
constexpr int kBesideTextPx = 64; // the box, the margins and a scroll bar
constexpr int kWidestPx = 480;
constexpr int kTickKeys[] = {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Select};
constexpr int kCloseKeys[] = {Qt::Key_F4, Qt::Key_Tab, Qt::Key_Backtab};
constexpr int kOpenKeys[] = {Qt::Key_Space, Qt::Key_Down, Qt::Key_Up, Qt::Key_F4, Qt::Key_Select};

template <std::size_t Count> bool Holds(const int (&keys)[Count], int key)
{
    return std::find(std::begin(keys), std::end(keys), key) != std::end(keys);
}

} // namespace

CLocationComboBox::CLocationComboBox(QWidget *parent) : CComboBox(parent)
{
    setEditable(true);
    setCompleter(nullptr);
    setInsertPolicy(QComboBox::NoInsert);
    setCurrentIndex(-1);
    // Measuring every row for the widest one takes too long for long lists.
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    lineEdit()->setReadOnly(true);
    lineEdit()->setFocusPolicy(Qt::NoFocus);
    lineEdit()->setContextMenuPolicy(Qt::NoContextMenu);
    lineEdit()->installEventFilter(this);
    // Installed after the popup's own filter, so it is called first.
    view()->installEventFilter(this);
    view()->viewport()->installEventFilter(this);
}

CLocationComboBox::~CLocationComboBox() = default;

// As wide as the first rows need, because measuring all rows of a long list takes long.
void CLocationComboBox::showPopup()
{
    int text_px = 0;
    for (int row = 0, rows = std::min(count(), kMeasuredRows); row < rows; ++row)
        text_px = std::max(text_px, fontMetrics().horizontalAdvance(itemText(row)));
    view()->setMinimumWidth(std::max(width(), std::min(text_px + kBesideTextPx, kWidestPx)));
    CComboBox::showPopup();
}

bool CLocationComboBox::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == view()->viewport() && OnPopupMouse(*event))
        return true;
    if (watched == view()
        && (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride)
        && OnPopupKey(static_cast<QKeyEvent &>(*event)))
        return true;
    if (watched == lineEdit() && event->type() == QEvent::MouseButtonPress && isEnabled()) {
        PressArrow(static_cast<const QMouseEvent &>(*event));
        return true;
    }
    return CComboBox::eventFilter(watched, event);
}

// A press on the field counts as one on the arrow: only then does Qt leave the popup open when the
// button comes up (Qt 5.15).
void CLocationComboBox::PressArrow(const QMouseEvent &event)
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QPointF arrow =
        style()
            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this)
            .center();
    QMouseEvent press(QEvent::MouseButtonPress, arrow, mapTo(window(), arrow.toPoint()),
                      event.globalPos(), event.button(), event.buttons(), event.modifiers());
    mousePressEvent(&press);
}

// Keep mouse buttons from the view and the popup, because a release would close the popup.
bool CLocationComboBox::OnPopupMouse(QEvent &event)
{
    const QEvent::Type type = event.type();
    if (type != QEvent::MouseButtonPress && type != QEvent::MouseButtonDblClick
        && type != QEvent::MouseButtonRelease)
        return false;
    const auto &mouse = static_cast<const QMouseEvent &>(event);
    const QModelIndex row = view()->indexAt(mouse.pos());
    if (type != QEvent::MouseButtonRelease) {
        pressed_row_ = mouse.button() == Qt::LeftButton ? row : QModelIndex();
        return view()->viewport()->rect().contains(mouse.pos()); // elsewhere it closes the popup
    }
    // The release of the button that opened the popup may hit a row that the user did not choose.
    if (row.isValid() && row == pressed_row_)
        ToggleRow(row);
    pressed_row_ = QPersistentModelIndex();
    return true;
}

// The popup already handles Return, F4 and Alt+Down as shortcuts (Qt 5.15), and takes them for a
// choice.
bool CLocationComboBox::OnPopupKey(QKeyEvent &event)
{
    const bool is_press = event.type() == QEvent::KeyPress;
    const bool is_closing =
        Holds(kCloseKeys, event.key())
        || (event.key() == Qt::Key_Down && event.modifiers().testFlag(Qt::AltModifier));
    if (!is_closing && !Holds(kTickKeys, event.key()))
        return false;
    event.accept();
    if (is_press && is_closing)
        hidePopup();
    else if (is_press && view()->currentIndex().isValid())
        ToggleRow(view()->currentIndex());
    return true;
}

void CLocationComboBox::ToggleRow(const QModelIndex &index)
{
    const bool is_ticked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    model()->setData(index, is_ticked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

void CLocationComboBox::keyPressEvent(QKeyEvent *event)
{
    if (Holds(kOpenKeys, event->key()))
        showPopup();
    else
        event->ignore();
}

void CLocationComboBox::wheelEvent(QWheelEvent *event)
{
    event->ignore(); // there is no current row to change
}

} // namespace Ravel
