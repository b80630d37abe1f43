// SPDX-License-Identifier: MIT
#include "ui/DockManager/DockManager.h"

#include "common/Guard.h"
#include "ui/DockManager/AbstractDockFrame.h"
#include "ui/DockManager/BorrowedFrame.h"
#include "ui/DockManager/DockWidget.h"
#include "ui/DockManager/DockWidgetPosRule.h"

#include <Ravel/ShadowWidget.h>

#include <QtCore/QScopedValueRollback>
#include <QtCore/QVariant>

#include <utility>

template class Ravel::CUiSingleton<Vantor::CDockManager>;

namespace Vantor {
namespace {

constexpr char kAttachTo[] = "__dock_frame_attach_to__";

constexpr char kSetDockWidget[] = "Vantor::CDockManager::SetDockWidget";

// A modal dialog blocks every window that it does not own, so it has to own the docks of its
// frames.
QWidget *ModalWindowOf(const CAbstractDockFrame &frame)
{
    QWidget *const window = frame.window();
    return window != &frame && window->isModal() ? window : nullptr;
}

// Hosts store either kind of pointer.
QWidget *AttachedTo(const CDockWidgetPosRule &rule)
{
    const QVariant value = rule.property(kAttachTo);
    if (auto *const widget = value.value<QWidget *>())
        return widget;
    return qobject_cast<QWidget *>(value.value<QObject *>());
}

} // namespace

struct CDockManagerPtr
{
    QPointer<CDockWidget> ptr_dock_widget_;
    QPointer<QWidget> ptr_main_window_;
    QPointer<Ravel::CShadowWidget> ptr_shadow_;
    CDockManager::ContentType content_type_ = CDockManager::Common;
    bool b_replacing_ = false; // a host may be inside the OnDockHide() of a frame
};

namespace {

// If so, the call around this one is about to show its own frame.
bool IsReplacing(const CDockManagerPtr &data)
{
    if (data.b_replacing_) {
        VANTOR_LOG(kSetDockWidget, 4, VANTOR_LOG_WARNING,
                   "Refused: another frame is just being shown.");
    }
    return data.b_replacing_;
}

// `body` calls OnDockHide() of a host's frame, which may do or throw anything.
template <class Body> void Replace(CDockManagerPtr &data, Body body)
{
    const QScopedValueRollback<bool> replacing(data.b_replacing_, true);
    RunGuarded(kSetDockWidget, body);
}

} // namespace

CDockManager::CDockManager() : d_ptr_(std::make_unique<CDockManagerPtr>()) {}

CDockManager::~CDockManager() = default;

void CDockManager::SetMainWindow(QWidget *window)
{
    if (window)
        d_ptr_->ptr_main_window_ = window;
}

QWidget *CDockManager::GetMainWindow() const
{
    return d_ptr_->ptr_main_window_;
}

void CDockManager::SetDockWidget(CAbstractDockFrame *frame, int width, bool find_parent,
                                 QWidget *parent)
{
    if (!frame || (!MainWindow() && !parent) || IsReplacing(*d_ptr_))
        return;
    const QPointer<CAbstractDockFrame> wanted = frame;
    const QPointer<QWidget> given = parent;
    RetireDock(); // after which the frame is at home again
    if (!wanted || (parent && !given) || (!parent && !MainWindow()))
        return;
    MakeDock(OwnerFor(*wanted, parent));
    CDockWidget *const dock = d_ptr_->ptr_dock_widget_;
    if (d_ptr_->content_type_ == Common) {
        dock->SetContentType(Common);
        VANTOR_LOG(kSetDockWidget, 3, VANTOR_LOG_FRAMEWORK,
                   "d_ptr_->ptr_dock_widget_->SetContentType(Common);");
    } else if (d_ptr_->content_type_ == Export) {
        dock->SetContentType(Export);
        VANTOR_LOG(kSetDockWidget, 3, VANTOR_LOG_FRAMEWORK,
                   "d_ptr_->ptr_dock_widget_->SetContentType(Export);");
    }
    VANTOR_LOG(kSetDockWidget, 3, VANTOR_LOG_FRAMEWORK,
               "d_ptr_->ptr_dock_widget_->SetDockWidget[width:%d]", width);
    dock->SetDockWidget(wanted, width, find_parent);
    if (d_ptr_->ptr_dock_widget_) // the host may have deleted it when its frame was shown
        d_ptr_->ptr_dock_widget_->ShowInAnimation();
}

void CDockManager::SetDockWidget(CAbstractDockFrame *frame, QPointer<CDockWidgetPosRule> rule,
                                 int width)
{
    if (!frame || IsReplacing(*d_ptr_))
        return;
    if (!MainWindow() && rule)
        d_ptr_->ptr_main_window_ = AttachedTo(*rule);
    if (!MainWindow())
        return;
    const QPointer<CAbstractDockFrame> wanted = frame;
    const QPointer<QWidget> modal = ModalWindowOf(*frame);
    if (modal && d_ptr_->ptr_dock_widget_ && d_ptr_->ptr_dock_widget_->parentWidget() != modal)
        RetireDock();
    if (!wanted || !MainWindow())
        return;
    if (!d_ptr_->ptr_dock_widget_)
        MakeDock(OwnerFor(*wanted, nullptr));
    Replace(*d_ptr_, [&] {
        d_ptr_->ptr_dock_widget_->SetDockWidgetWithPosRule(wanted, std::move(rule), width);
    });
    if (d_ptr_->ptr_dock_widget_)
        d_ptr_->ptr_dock_widget_->ShowInAnimation();
}

// Null also from the moment on in which it is being destroyed.
QWidget *CDockManager::MainWindow() const
{
    QWidget *const window = d_ptr_->ptr_main_window_;
    return window && !IsBeingDestroyed(*window) ? window : nullptr;
}

QWidget *CDockManager::OwnerFor(const CAbstractDockFrame &frame, QWidget *parent) const
{
    if (parent)
        return parent;
    QWidget *const modal = ModalWindowOf(frame);
    return modal ? modal : MainWindow();
}

void CDockManager::RetireDock()
{
    Replace(*d_ptr_, [this] {
        if (CDockWidget *const old = std::exchange(d_ptr_->ptr_dock_widget_, nullptr))
            old->Retire();
    });
}

void CDockManager::MakeDock(QWidget *parent)
{
    d_ptr_->ptr_dock_widget_ = new CDockWidget(parent);
    // A modal dialog shows the shadow of its own docks.
    const bool is_of_main_window = d_ptr_->ptr_main_window_ && !parent->isModal();
    QWidget *const window = is_of_main_window ? d_ptr_->ptr_main_window_.data() : parent;
    d_ptr_->ptr_shadow_ = new Ravel::CShadowWidget(window);
    d_ptr_->ptr_shadow_->Wrap(d_ptr_->ptr_dock_widget_, Ravel::CShadowWidget::kShadowAround);
}

void CDockManager::HideDockWidget()
{
    static constexpr char kFunction[] = "Vantor::CDockManager::HideDockWidget";
    if (!d_ptr_->ptr_dock_widget_)
        return;
    VANTOR_LOG(kFunction, 3, VANTOR_LOG_FRAMEWORK, "CDockManager::HideDockWidget()");
    d_ptr_->ptr_dock_widget_->HideInAnimation();
}

CDockWidget *CDockManager::GetDockWidget() const
{
    return d_ptr_->ptr_dock_widget_;
}

int CDockManager::GetDockWidgetHeight() const
{
    return d_ptr_->ptr_dock_widget_ ? d_ptr_->ptr_dock_widget_->height() : 0;
}

void CDockManager::SetContentType(ContentType type)
{
    d_ptr_->content_type_ = type;
}

} // namespace Vantor
