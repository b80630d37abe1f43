// SPDX-License-Identifier: MIT
#include "ui/DockManager/DockWidget.h"

#include "common/DisconnectChildren.h"
#include "common/LogMacro.h"
#include "ui/DockManager/AbstractDockFrame.h"
#include "ui/DockManager/DockWidgetPosRule.h"
#include "ui/DockManager/DockWidget_p.h"

#include <QtCore/QTimer>
#include <QtGui/QHideEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QVBoxLayout>

#include <utility>

namespace Vantor {
namespace {

constexpr int kSpacerPx = 10;

// On Wayland the compositor places windows, and no program knows where its own are.
bool CanPlaceWindows()
{
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

CDockWidget *OtherDockOf(const CAbstractDockFrame &frame, const CDockWidget *dock)
{
    for (QWidget *owner = frame.parentWidget(); owner; owner = owner->parentWidget()) {
        auto *const other = qobject_cast<CDockWidget *>(owner);
        if (other && other != dock)
            return other;
    }
    return nullptr;
}

void CallOnDockHideOf(QWidget *frame)
{
    // Not of a frame whose destructor has begun.
    if (auto *const alive = qobject_cast<CAbstractDockFrame *>(frame))
        alive->OnDockHide();
}

} // namespace

CDockWidget::CDockWidget(QWidget *parent)
    : QFrame(parent,
             parent && !CanPlaceWindows() ? Qt::Widget : Qt::FramelessWindowHint | Qt::Dialog),
      d_ptr_(std::make_unique<CDockWidgetPtr>())
{
    if (isWindow())
        setWindowFlag(Qt::WindowStaysOnTopHint, true);
    setFocusPolicy(Qt::StrongFocus);
    // The dock has no layout, which would squeeze the frame or stop the slide at its least width.
    d_ptr_->ptr_inner_ = new QWidget(this);
    d_ptr_->ptr_inner_->setObjectName(QLatin1String(kDockInnerName));
    d_ptr_->ptr_inner_->setAutoFillBackground(true);
    d_ptr_->ptr_layout_ = new QVBoxLayout(d_ptr_->ptr_inner_);
    d_ptr_->ptr_layout_->setContentsMargins(0, 0, 0, 0);
    d_ptr_->ptr_layout_->addSpacerItem(
        new QSpacerItem(kSpacerPx, kSpacerPx, QSizePolicy::Preferred, QSizePolicy::Expanding));

    d_ptr_->ptr_window_watch_ = new CWindowWatch(this);
    connect(d_ptr_->ptr_window_watch_, &CWindowWatch::SignalMoved, this, &CDockWidget::Reposition);
    connect(d_ptr_->ptr_window_watch_, &CWindowWatch::SignalShownOrHidden, this,
            &CDockWidget::OnShownOrHidden);
    connect(d_ptr_->ptr_window_watch_, &CWindowWatch::SignalDestroyed, this,
            &CDockWidget::OnWindowDestroyed);
    if (parent)
        connect(parent, &QObject::destroyed, this, &CDockWidget::OnWindowDestroyed);
    // The application's event filter, which hides the dock, is not there before the slide has
    // ended.
    connect(qApp, &QGuiApplication::applicationStateChanged, this,
            [this](Qt::ApplicationState state) {
                if (d_ptr_->phase_ == DockPhase::SlidingIn)
                    OnApplicationState(state);
            });
}

CDockWidget::~CDockWidget()
{
    // Its destroyed() comes when this is no dock any more.
    d_ptr_->ptr_window_watch_->disconnect(this);
    d_ptr_->slide_.Stop();
    d_ptr_->ptr_borrowed_.reset();
    DisconnectChildren(this);
}

void CDockWidget::SetDockWidget(CAbstractDockFrame *frame, int width, bool find_parent)
{
    static constexpr char kFunction[] = "Vantor::CDockWidget::SetDockWidget";
    d_ptr_->b_find_parent_ = find_parent;
    if (!frame || !d_ptr_->ptr_layout_ || !Borrow(frame, width))
        return;
    QWidget *parent = frame->window() == frame ? parentWidget() : frame->window();
    if (find_parent)
        parent = FindParent(parent);
    d_ptr_->ptr_parent_widget_ = parent;
    StandAt(parent);
    if (!parent) {
        CallOnDockHide();
        return;
    }
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

void CDockWidget::SetDockWidgetWithPosRule(CAbstractDockFrame *frame,
                                           QPointer<CDockWidgetPosRule> rule, int width)
{
    if (!frame || !d_ptr_->ptr_layout_ || !Borrow(frame, width))
        return;
    d_ptr_->ptr_rule_ = std::move(rule);
    // An earlier call without a rule may have set a window and a height.
    d_ptr_->ptr_parent_widget_.clear();
    StandAt(parentWidget());
    for (QWidget *const widget : {static_cast<QWidget *>(this), d_ptr_->ptr_inner_}) {
        widget->setMinimumHeight(0);
        widget->setMaximumHeight(QWIDGETSIZE_MAX);
    }
    d_ptr_->ptr_inner_->move(0, 0);
    const QPointer<CDockWidget> self = this;
    if (d_ptr_->ptr_rule_) {
        d_ptr_->ptr_rule_->Place(this, frame, d_ptr_->ptr_inner_, d_ptr_->width_px_);
        if (self)
            d_ptr_->rule_place_ = pos();
    }
    if (self)
        Insert();
}

// Gives the previous frame back and takes this one. False, and nothing is taken, if a host used
// that moment to delete the frame or the dock, or to retire the dock.
bool CDockWidget::Borrow(CAbstractDockFrame *frame, int width)
{
    const QPointer<CAbstractDockFrame> taken = frame;
    const QPointer<CDockWidget> self = this;
    if (CDockWidget *const other = OtherDockOf(*frame, this))
        other->hide(); // which gives it back
    QPointer<QWidget> previous;
    if (!self || !taken)
        return false;
    if (const auto borrowed = std::move(d_ptr_->ptr_borrowed_))
        previous = borrowed->GiveBack();
    if (previous == frame)
        previous.clear();
    if (!self || !taken || !d_ptr_->ptr_layout_) {
        CallOnDockHideOf(previous);
        return false;
    }
    d_ptr_->ptr_let_go_ = previous;
    d_ptr_->width_px_ = DockWidth(width);
    d_ptr_->ptr_borrowed_ = std::make_unique<CBorrowedFrame>(frame, d_ptr_->ptr_layout_);
    return true;
}

void CDockWidget::Insert()
{
    const QPointer<CDockWidget> self = this;
    if (d_ptr_->ptr_borrowed_)
        d_ptr_->ptr_borrowed_->Insert();
    if (!self)
        return;
    if (const CAbstractDockFrame *const frame = d_ptr_->Content()) {
        setWindowTitle(frame->windowTitle());
        // Queued, because the frame is still a child of the dock when it emits this.
        connect(frame, &QObject::destroyed, this, &CDockWidget::OnFrameDestroyed,
                Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection));
    }
    OnShownOrHidden();
    if (self)
        CallOnDockHide();
}

void CDockWidget::OnFrameDestroyed()
{
    if (!d_ptr_->Content())
        hide();
}

// The last step of whatever let the frame go, because its host may show the dock again with another
// frame, or delete the dock.
void CDockWidget::CallOnDockHide()
{
    CallOnDockHideOf(std::exchange(d_ptr_->ptr_let_go_, nullptr));
}

void CDockWidget::LetGo()
{
    static constexpr char kFunction[] = "Vantor::CDockWidget::hideEvent";
    d_ptr_->slide_.Stop();
    if (std::exchange(d_ptr_->phase_, DockPhase::Hidden) == DockPhase::Hidden
        && !d_ptr_->ptr_borrowed_)
        return;
    const QPointer<CDockWidget> self = this;
    const auto borrowed = std::move(d_ptr_->ptr_borrowed_);
    const QPointer<QWidget> frame = borrowed ? borrowed->GiveBack() : nullptr;
    if (!self)
        return;
    d_ptr_->ptr_let_go_ = frame;
    qApp->removeEventFilter(this);
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "qApp->removeEventFilter(this)");
    d_ptr_->ptr_rule_.clear();
    d_ptr_->vec_opened_.clear();
}

// Follow `widget` from now on. `ptr_parent_widget_` is set elsewhere, because a rule has no parent
// widget.
void CDockWidget::StandAt(QWidget *widget)
{
    if (widget && !isWindow() && widget->window() != parentWidget())
        setParent(widget->window());
    d_ptr_->ptr_window_watch_->Watch(widget);
}

void CDockWidget::ShowInAnimation()
{
    static constexpr char kFunction[] = "Vantor::CDockWidget::ShowInAnimation";
    const QPointer<CDockWidget> self = this;
    const int width = DockWidth(d_ptr_->width_px_);
    if (isWindow() && d_ptr_->ptr_window_watch_->IsAway()) {
        d_ptr_->phase_ = DockPhase::AwayWithWindow;
        SetSlideSize(QSize(width, height()));
        return;
    }
    d_ptr_->phase_ = DockPhase::SlidingIn;
    d_ptr_->slide_.Start(this, 0, width, [this] { OnSlidIn(); });
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "ShowInAnimation()");
    show();
    if (!self)
        return;
    raise();
    setFocus();
    if (self)
        activateWindow();
}

void CDockWidget::OnSlidIn()
{
    static constexpr char kFunction[] = "Vantor::CDockWidget::ShowInAnimation";
    d_ptr_->phase_ = DockPhase::Shown;
    qApp->installEventFilter(this);
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "CDockWidget::qApp->installEventFilter(this)");
    OnShowFinished();
}

void CDockWidget::HideInAnimation()
{
    static constexpr char kFunction[] = "Vantor::CDockWidget::HideInAnimation";
    const DockPhase phase = d_ptr_->phase_;
    const bool is_in_sight = phase == DockPhase::SlidingIn || phase == DockPhase::Shown;
    if (is_in_sight && isVisible()) {
        d_ptr_->phase_ = DockPhase::SlidingOut;
        d_ptr_->slide_.Start(this, DockWidth(d_ptr_->width_px_), 0, [this] { hide(); });
    }
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "HideInAnimation()");
    if (phase == DockPhase::AwayWithWindow || (is_in_sight && !isVisible()))
        hide();
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
    d_ptr_->ptr_layout_ = nullptr;
    deleteLater();
    hide();
}

void CDockWidget::OnShownOrHidden()
{
    if (!isWindow()) // a child is shown and hidden with its window
        return;
    if (d_ptr_->ptr_window_watch_->IsAway())
        FollowWindow();
    else if (d_ptr_->phase_ == DockPhase::AwayWithWindow)
        QTimer::singleShot(0, this, &CDockWidget::FollowWindow); // the window comes first
}

void CDockWidget::FollowWindow()
{
    const bool is_away = d_ptr_->ptr_window_watch_->IsAway();
    if (is_away && isVisible()) {
        const bool is_leaving = d_ptr_->phase_ == DockPhase::SlidingOut;
        d_ptr_->phase_ = is_leaving ? DockPhase::GoneWithWindow : DockPhase::AwayWithWindow;
        if (is_leaving)
            QTimer::singleShot(0, this, &CDockWidget::EndGone);
        d_ptr_->slide_.Stop();
        qApp->removeEventFilter(this);
        SetSlideSize(QSize(DockWidth(d_ptr_->width_px_), height()));
        QFrame::setVisible(false);
    } else if (!is_away && d_ptr_->phase_ == DockPhase::AwayWithWindow) {
        d_ptr_->phase_ = DockPhase::Shown;
        SetSlideSize(QSize(DockWidth(d_ptr_->width_px_), height()));
        qApp->installEventFilter(this);
        QFrame::setVisible(true);
        raise();
    }
}

// Not at once, because a host must not be called while Qt hides its window. A host may have shown
// the dock again meanwhile.
void CDockWidget::EndGone()
{
    if (d_ptr_->phase_ == DockPhase::GoneWithWindow)
        hide();
}

void CDockWidget::OnWindowDestroyed(const QObject *window)
{
    const QPointer<CDockWidget> self = this;
    if (d_ptr_->ptr_borrowed_)
        d_ptr_->ptr_borrowed_->GiveBack();
    if (self && window != parent())
        hide();
}

void CDockWidget::hideEvent(QHideEvent *event)
{
    QFrame::hideEvent(event);
    // Not when only its window is hidden or minimised: it comes back as it was.
    const bool is_with_window =
        d_ptr_->phase_ == DockPhase::AwayWithWindow || d_ptr_->phase_ == DockPhase::GoneWithWindow;
    if (isHidden() && !event->spontaneous() && !is_with_window)
        LetGo();
}

void CDockWidget::setVisible(bool visible)
{
    QFrame::setVisible(visible);
    if (!visible)
        LetGo(); // there is no hideEvent() if the window is hidden already
    // Not in hideEvent(), because Qt goes on hiding after it.
    CallOnDockHide();
}

} // namespace Vantor
