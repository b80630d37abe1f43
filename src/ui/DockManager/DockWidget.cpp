// SPDX-License-Identifier: MIT
#include "ui/DockManager/DockWidget.h"

#include "common/ForwardEvents.h"
#include "common/LogMacro.h"
#include "ui/DockManager/AbstractDockFrame.h"
#include "ui/DockManager/DockPosition.h"
#include "ui/DockManager/DockWidgetPosRule.h"

#include <Faceplate/GUIFullScreenWidget.h>

#include <QtCore/QPropertyAnimation>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QVBoxLayout>

#include <utility>

namespace Vantor {
namespace {

constexpr char kInnerName[] = "ptr_dock_widget";
constexpr char kFullScreenClass[] = "Faceplate::CGUIFullScreenWidget";
constexpr char kPluginClass[] = "Lookout::CBaseWidget";
constexpr int kSlideTime_ms = 300;
constexpr int kSpacerPx = 10;

bool IsFullScreenWidget(const QWidget *widget)
{
    return widget->inherits(kFullScreenClass) && Faceplate::IsFullScreenMode(widget);
}

// Across the borders of windows: to the owner of a dialog, and to the field that a list of
// completions belongs to, which has no parent. That way once only: a window may also hand its keys
// to a child of its own.
template <class Condition> bool AnyOwner(const QWidget *widget, Condition condition)
{
    bool is_proxied = false;
    while (widget && !condition(widget)) {
        const QWidget *const parent = widget->parentWidget();
        widget = parent || std::exchange(is_proxied, true) ? parent : widget->focusProxy();
    }
    return widget != nullptr;
}

// Watches the whole line of parents: a dying window still looks alive to its children, but to get
// one more child would crash it. It tells before it takes them along.
QVector<QMetaObject::Connection> WatchOwners(QWidget *widget, const QObject *context, bool &is_gone)
{
    QVector<QMetaObject::Connection> watches;
    for (; widget; widget = widget->parentWidget()) {
        watches.append(
            QObject::connect(widget, &QObject::destroyed, context, [&is_gone] { is_gone = true; }));
    }
    return watches;
}

} // namespace

struct CDockWidgetPtr
{
    QVBoxLayout *ptr_layout_ = nullptr;
    QWidget *ptr_inner_ = nullptr;
    QPointer<CAbstractDockFrame> ptr_content_;
    QPointer<QWidget> ptr_parent_widget_;
    QPointer<CDockWidgetPosRule> ptr_rule_;
    QPointer<CAbstractDockFrame> ptr_let_go_; // is to hear that it was hidden
    QPointer<QPropertyAnimation> ptr_animation_;
    int width_px_ = -1;
    int content_type_ = kCommonContent;
    bool b_find_parent_ = false;
    bool b_hiding_ = false;
    bool b_retired_ = false;
    bool b_dying_ = false; // the dock is about to go with its window

    // What the frame was before it was taken.
    QPointer<QWidget> ptr_previous_parent_;
    bool b_had_parent_ = false;
    bool b_owner_gone_ = false; // that parent, or what it was part of, has died or is dying
    QVector<QMetaObject::Connection> vec_owner_watch_;
    Qt::WindowFlags previous_flags_;
};

CDockWidget::CDockWidget(QWidget *parent)
    : QFrame(parent, Qt::FramelessWindowHint | Qt::Dialog),
      d_ptr_(std::make_unique<CDockWidgetPtr>())
{
    WatchOwners(parent, this, d_ptr_->b_dying_);
    setWindowFlag(Qt::WindowStaysOnTopHint, true);
    setFocusPolicy(Qt::StrongFocus);
    // In no layout of the dock, which would squeeze the frame or stop the slide at its least width.
    d_ptr_->ptr_inner_ = new QWidget(this);
    d_ptr_->ptr_inner_->setObjectName(QLatin1String(kInnerName));
    d_ptr_->ptr_inner_->setAutoFillBackground(true);
    d_ptr_->ptr_layout_ = new QVBoxLayout(d_ptr_->ptr_inner_);
    d_ptr_->ptr_layout_->setContentsMargins(0, 0, 0, 0);
    d_ptr_->ptr_layout_->addSpacerItem(
        new QSpacerItem(kSpacerPx, kSpacerPx, QSizePolicy::Preferred, QSizePolicy::Expanding));
}

CDockWidget::~CDockWidget()
{
    // hideEvent() does not come here any more when QWidget's destructor hides.
    static_cast<void>(Release());
}

void CDockWidget::SetDockWidget(CAbstractDockFrame *frame, int width, bool find_parent)
{
    static constexpr char kFunction[] = "Vantor::CDockWidget::SetDockWidget";
    d_ptr_->b_find_parent_ = find_parent;
    if (!frame || !d_ptr_->ptr_layout_)
        return;
    if (!Take(frame, width))
        return;
    QWidget *parent = frame->window() == frame ? parentWidget() : frame->window();
    if (find_parent)
        parent = FindParent(parent);
    d_ptr_->ptr_parent_widget_ = parent;
    if (!parent)
        return;
    if (HasFixedHeight(d_ptr_->content_type_)) {
        setFixedHeight(DockHeight(parent->height()));
        d_ptr_->ptr_inner_->setFixedHeight(DockHeight(parent->height()));
        d_ptr_->ptr_inner_->resize(d_ptr_->width_px_, height());
    }
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "DockWidget:parent widget size:(%d,%d)",
               parent->width(), parent->height());
    UpdatePostion();
    Insert();
}

QWidget *CDockWidget::FindParent(QWidget *window) const
{
    static constexpr char kFunction[] = "Vantor::CDockWidget::SetDockWidget";
    QString trace = d_ptr_->ptr_content_->objectName();
    QWidget *widget = window;
    while (widget && !IsFullScreenWidget(widget)) {
        trace += QLatin1String("--") + widget->objectName();
        if (widget->inherits(kPluginClass))
            break;
        widget = widget->parentWidget();
    }
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "DockWidget:parent widgets:%s",
               qUtf8Printable(trace));
    return widget;
}

void CDockWidget::SetDockWidgetWithPosRule(CAbstractDockFrame *frame,
                                           QPointer<CDockWidgetPosRule> rule, int width)
{
    if (!frame || !d_ptr_->ptr_layout_)
        return;
    if (!Take(frame, width))
        return;
    d_ptr_->ptr_rule_ = std::move(rule);
    // Of an earlier call without a rule: neither its window nor its height counts here.
    d_ptr_->ptr_parent_widget_.clear();
    for (QWidget *const widget : {static_cast<QWidget *>(this), d_ptr_->ptr_inner_}) {
        widget->setMinimumHeight(0);
        widget->setMaximumHeight(QWIDGETSIZE_MAX);
    }
    d_ptr_->ptr_inner_->move(0, 0);
    const QPointer<CDockWidget> self = this;
    if (d_ptr_->ptr_rule_)
        d_ptr_->ptr_rule_->Place(this, frame, d_ptr_->ptr_inner_, d_ptr_->width_px_);
    if (self)
        Insert();
}

// \return false when the frame or the dock is gone: the previous frame's host may do anything when
// it hears of the change.
bool CDockWidget::Take(CAbstractDockFrame *frame, int width)
{
    const QPointer<CAbstractDockFrame> taken = frame;
    const QPointer<CDockWidget> self = this;
    const QPointer<CAbstractDockFrame> previous = Release();
    if (previous && previous != frame)
        previous->OnDockHide();
    if (!self || d_ptr_->b_retired_ || !taken)
        return false;
    d_ptr_->width_px_ = DockWidth(width);
    d_ptr_->ptr_content_ = taken;
    d_ptr_->ptr_previous_parent_ = taken->parentWidget();
    d_ptr_->b_had_parent_ = taken->parentWidget() != nullptr;
    d_ptr_->previous_flags_ = taken->windowFlags();
    d_ptr_->b_owner_gone_ = false;
    d_ptr_->vec_owner_watch_ = WatchOwners(taken->parentWidget(), this, d_ptr_->b_owner_gone_);
    return true;
}

void CDockWidget::Insert()
{
    if (!d_ptr_->ptr_content_) // a rule may delete it
        return;
    // With all the room: beside the expanding spacer a frame would get half of it, or less.
    d_ptr_->ptr_layout_->insertWidget(0, d_ptr_->ptr_content_, 1);
    d_ptr_->ptr_content_->show();
    setWindowTitle(d_ptr_->ptr_content_->windowTitle());
}

QPointer<CAbstractDockFrame> CDockWidget::Release()
{
    QPointer<CAbstractDockFrame> frame = d_ptr_->ptr_content_;
    d_ptr_->ptr_content_.clear();
    for (const QMetaObject::Connection &watch : qAsConst(d_ptr_->vec_owner_watch_))
        disconnect(watch);
    d_ptr_->vec_owner_watch_.clear();
    if (!frame)
        return frame;
    d_ptr_->ptr_layout_->removeWidget(frame);
    QWidget *owner = d_ptr_->b_owner_gone_ ? nullptr : d_ptr_->ptr_previous_parent_.data();
    if (!owner && d_ptr_->b_had_parent_ && !d_ptr_->b_dying_)
        owner = parentWidget();
    const Qt::WindowFlags flags = d_ptr_->previous_flags_;
    const bool is_ours = frame->parentWidget() == d_ptr_->ptr_inner_;
    frame->hide();
    // Not when its host has put it elsewhere meanwhile.
    if (frame && is_ours)
        frame->setParent(owner, flags);
    return frame;
}

void CDockWidget::ShowInAnimation()
{
    static constexpr char kFunction[] = "Vantor::CDockWidget::ShowInAnimation";
    d_ptr_->b_hiding_ = false;
    Animate(0, DockWidth(d_ptr_->width_px_));
    connect(d_ptr_->ptr_animation_.data(), &QPropertyAnimation::finished, this, [this] {
        qApp->installEventFilter(this);
        VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK,
                   "CDockWidget::qApp->installEventFilter(this)");
    });
    connect(d_ptr_->ptr_animation_.data(), &QPropertyAnimation::finished, this,
            &CDockWidget::OnShowFinished);
    d_ptr_->ptr_animation_->start(QAbstractAnimation::DeleteWhenStopped);
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "ShowInAnimation()");
    show();
    raise();
    setFocus();
    activateWindow();
}

void CDockWidget::HideInAnimation()
{
    static constexpr char kFunction[] = "Vantor::CDockWidget::HideInAnimation";
    const bool is_under_way = std::exchange(d_ptr_->b_hiding_, true);
    if (isVisible() && !is_under_way) {
        Animate(DockWidth(d_ptr_->width_px_), 0);
        connect(d_ptr_->ptr_animation_.data(), &QPropertyAnimation::finished, this, &QWidget::hide);
        d_ptr_->ptr_animation_->start(QAbstractAnimation::DeleteWhenStopped);
    }
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "HideInAnimation()");
}

void CDockWidget::Animate(int from, int to)
{
    StopAnimation();
    d_ptr_->ptr_animation_ = new QPropertyAnimation(this, QByteArrayLiteral("size"), this);
    d_ptr_->ptr_animation_->setDuration(kSlideTime_ms);
    d_ptr_->ptr_animation_->setStartValue(QSize(from, height()));
    d_ptr_->ptr_animation_->setEndValue(QSize(to, height()));
}

// One that is stopped halfway does not tell that it has finished. It is not deleted here: its end
// may be what brought us here.
void CDockWidget::StopAnimation()
{
    if (d_ptr_->ptr_animation_)
        d_ptr_->ptr_animation_->stop();
    d_ptr_->ptr_animation_.clear();
}

void CDockWidget::OnShowFinished() {}

void CDockWidget::OnHideFinished()
{
    static constexpr char kFunction[] = "Vantor::CDockWidget::OnHideFinished";
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "CDockWidget::OnHideFinished()");
    hide();
}

void CDockWidget::SetContentType(int type)
{
    d_ptr_->content_type_ = type;
}

QWidget *CDockWidget::GetParentWidget() const
{
    return d_ptr_->ptr_parent_widget_;
}

void CDockWidget::Retire()
{
    d_ptr_->b_retired_ = true;
    deleteLater();
    const QPointer<CDockWidget> self = this; // what hears of the hiding may delete it
    hide();
    if (self)
        static_cast<void>(Release()); // it was not shown
}

DockSituation CDockWidget::SituationAt(int width) const
{
    const QWidget *const parent = d_ptr_->ptr_parent_widget_;
    const QRect frame = parent->frameGeometry();
    DockSituation situation;
    situation.top_left = parent->mapToGlobal(QPoint(0, 0));
    situation.bottom_right = IsFullScreenWidget(parent)
                                 ? parent->mapToGlobal(QPoint(frame.width(), frame.height()))
                                 : parent->mapToGlobal(parent->rect().bottomRight());
    situation.width = width;
    situation.is_parent_found = d_ptr_->b_find_parent_;
    situation.content_type = d_ptr_->content_type_;
    situation.direction = parent->layoutDirection();
    return situation;
}

void CDockWidget::SetSlideSize(const QSize &size)
{
    std::optional<QPoint> position;
    if (d_ptr_->ptr_content_ && d_ptr_->ptr_parent_widget_ && !d_ptr_->ptr_rule_)
        position = DockPosition(SituationAt(size.width()));
    setGeometry(QRect(position.value_or(pos()), size));
}

void CDockWidget::UpdatePostion()
{
    static constexpr char kFunction[] = "Vantor::CDockWidget::UpdatePostion";
    QWidget *const parent = d_ptr_->ptr_parent_widget_;
    if (!d_ptr_->ptr_content_ || !parent)
        return;
    const QRect frame = parent->frameGeometry();
    const DockSituation situation = SituationAt(width());
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK,
               "DockWidget:pt_base_frame_topleft(%d,%d),pt_base_frame_bottonright(%d,%d),"
               "pt_global_topleft(%d,%d),pt_global_bottonright(%d,%d)",
               frame.left(), frame.top(), frame.right(), frame.bottom(), situation.top_left.x(),
               situation.top_left.y(), situation.bottom_right.x(), situation.bottom_right.y());
    const QWidget *const owner = parent->parentWidget();
    const QByteArray owner_name = owner ? owner->objectName().toUtf8() : QByteArray();
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK,
               "DockWidget:d_ptr_->ptr_parent_widget_->parentWidget():%s,Pos(%d,%d)",
               owner_name.constData(), parent->x(), parent->y());
    const std::optional<QPoint> position = DockPosition(situation);
    if (!position)
        return;
    move(*position);
    // Slid in from the left, the panel's right part comes first.
    d_ptr_->ptr_inner_->move(IsLeftDocked(situation) ? width() - d_ptr_->width_px_ : 0, 0);
    if (situation.is_parent_found && situation.content_type == kCommonContent) {
        VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "DockWidget:Move position(%d,%d)",
                   position->x(), position->y());
    }
}

VANTOR_FORWARD_EVENT(CDockWidget, QFrame)

// On the application from the end of the slide on, until the dock is hidden.
bool CDockWidget::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        OnMousePress(watched, static_cast<QMouseEvent *>(event)->pos());
        break;
    case QEvent::ApplicationStateChange:
        OnApplicationState(static_cast<QApplicationStateChangeEvent *>(event)->applicationState());
        break;
    case QEvent::Move:
    case QEvent::Resize:
        if (d_ptr_->ptr_parent_widget_
            && (watched == d_ptr_->ptr_parent_widget_
                || watched == d_ptr_->ptr_parent_widget_->window()))
            Reposition();
        break;
    default:
        break;
    }
    return QFrame::eventFilter(watched, event);
}

void CDockWidget::OnMousePress(QObject *watched, const QPoint &position)
{
    static constexpr char kFunction[] = "Vantor::CDockWidget::eventFilter";
    bool hides = !d_ptr_->ptr_content_ || d_ptr_->ptr_content_->IsAutoHide();
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_USER_OPERATE, "QEvent::MouseButtonPress[x:%d][y:%d]",
               position.x(), position.y());
    // One click comes as often as there are receivers: the native window, which is no widget, the
    // widget, and its parents while nobody takes it.
    const auto *const widget = qobject_cast<QWidget *>(watched);
    if (!widget)
        return;
    const QLatin1String inner(kInnerName);
    if (AnyOwner(widget, [inner](const QWidget *owner) { return owner->objectName() == inner; }))
        hides = false;
    const QPoint global = widget->mapToGlobal(position);
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "pt_global_pos[x:%d][y:%d]", global.x(),
               global.y());
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "pt_global_pos[x:%d][y:%d]", int(hides),
               int(d_ptr_->b_hiding_));
    if (geometry().contains(global) || !hides || d_ptr_->b_hiding_)
        return;
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "this->geometry().contains");
    HideInAnimation();
}

void CDockWidget::OnApplicationState(Qt::ApplicationState state)
{
    static constexpr char kFunction[] = "Vantor::CDockWidget::eventFilter";
    if (state != Qt::ApplicationInactive && state != Qt::ApplicationHidden)
        return;
    const QWidget *const modal = QApplication::activeModalWidget();
    if (!modal) {
        hide();
        // One blank more than below: log readers of hosts look for both texts.
        VANTOR_LOG(kFunction, 4, VANTOR_LOG_WARNING,
                   "Activate Detail Widget,app hide. add by vtq.");
    } else if (!AnyOwner(modal, [this](const QWidget *owner) { return owner == this; })) {
        hide();
        VANTOR_LOG(kFunction, 4, VANTOR_LOG_WARNING, "Activate Detail Widget,app hide.add by vtq.");
    }
}

void CDockWidget::Reposition()
{
    if (d_ptr_->ptr_rule_)
        d_ptr_->ptr_rule_->UpdateOnResize(this);
    else
        UpdatePostion();
}

void CDockWidget::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    Reposition();
}

void CDockWidget::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier)
        HideInAnimation();
    else
        QFrame::keyPressEvent(event);
}

void CDockWidget::hideEvent(QHideEvent *event)
{
    static constexpr char kFunction[] = "Vantor::CDockWidget::hideEvent";
    QFrame::hideEvent(event);
    if (event->spontaneous()) // minimised with its window: it comes back as it was
        return;
    StopAnimation();
    d_ptr_->ptr_let_go_ = Release();
    qApp->removeEventFilter(this);
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "qApp->removeEventFilter(this)");
    d_ptr_->ptr_rule_.clear();
}

void CDockWidget::setVisible(bool visible)
{
    QFrame::setVisible(visible);
    // Not in hideEvent(), from where Qt goes on hiding: the frame's host may show the dock again
    // with another frame, or delete it.
    const QPointer<CAbstractDockFrame> frame = std::exchange(d_ptr_->ptr_let_go_, nullptr);
    if (frame)
        frame->OnDockHide();
}

} // namespace Vantor
