// SPDX-License-Identifier: MIT
#include "pages/HiddenWindows.h"

#include <Vantor/CDockWidget>

#include <QtCore/QEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialog>

#include <algorithm>
#include <utility>

namespace Client {
namespace {

bool IsOfTheMoment(const QWidget *window)
{
    const Qt::WindowType type = window->windowType();
    return type == Qt::Popup || type == Qt::ToolTip || type == Qt::SplashScreen
           || qobject_cast<const Vantor::CDockWidget *>(window);
}

// QDialog::setVisible() would end exec(). A file dialog of the system, which Qt does not show
// itself, is only reached that way.
void SetVisible(QWidget *window, bool is_visible)
{
    if (window->testAttribute(Qt::WA_DontShowOnScreen))
        window->setVisible(is_visible);
    else
        window->QWidget::setVisible(is_visible);
}

} // namespace

CHiddenWindows::CHiddenWindows(QWidget *visible, QWidget *first) : visible_(visible)
{
    Hide(first);
    QWidgetList windows = QApplication::topLevelWidgets();
    // A shadow, for example, follows its panel by itself.
    std::stable_partition(windows.begin(), windows.end(), IsOfTheMoment);
    QList<QPointer<QWidget>> alive; // a tip may be deleted when it is hidden
    std::copy(windows.begin(), windows.end(), std::back_inserter(alive));
    for (const QPointer<QWidget> &window : qAsConst(alive)) {
        if (window && !StaysVisible(window))
            Hide(window);
    }
    qApp->installEventFilter(this);
}

void CHiddenWindows::Hide(QWidget *window)
{
    if (!window->isVisible())
        return;
    if (IsOfTheMoment(window)) {
        window->hide();
        return;
    }
    Remember(window);
    SetVisible(window, false);
}

// A window that has just been shown, though not on the screen. It is hidden while it still has the
// attribute: otherwise Qt would not end its modality, and a modal dialog would block visible_.
void CHiddenWindows::HideNew(const QPointer<QWidget> &window)
{
    if (IsOfTheMoment(window)) {
        window->hide();
    } else if (window->isVisible()) {
        Remember(window);
        window->QWidget::setVisible(false);
    }
    if (window) // a tip may be deleted when it is hidden
        window->setAttribute(Qt::WA_DontShowOnScreen, false);
}

void CHiddenWindows::Remember(QWidget *window)
{
    const QWindow *const handle = window->windowHandle();
    hidden_.push_back({window, handle ? handle->geometry() : window->geometry()});
    if (auto *const dialog = qobject_cast<QDialog *>(window)) {
        connect(dialog, &QDialog::finished, this, [this, dialog] {
            const auto is_it = [dialog](const Hidden &one) { return one.window == dialog; };
            hidden_.erase(std::remove_if(hidden_.begin(), hidden_.end(), is_it), hidden_.end());
        });
    }
}

void CHiddenWindows::ShowAgain()
{
    qApp->removeEventFilter(this);
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall); // HideNew() of the newest windows
    const std::vector<Hidden> windows = std::exchange(hidden_, {});
    for (const Hidden &hidden : windows) {
        if (!hidden.window)
            continue;
        // Unless Qt takes the place as asked for, the window manager chooses another one.
        hidden.window->setAttribute(Qt::WA_Moved);
        if (QWindow *const handle = hidden.window->windowHandle())
            handle->setGeometry(hidden.place);
        SetVisible(hidden.window, true);
    }
}

bool CHiddenWindows::StaysVisible(const QWidget *window) const
{
    while (window && window != visible_)
        window = window->parentWidget();
    return window != nullptr;
}

bool CHiddenWindows::eventFilter(QObject *watched, QEvent *event)
{
    auto *const window = qobject_cast<QWidget *>(watched);
    if (event->type() != QEvent::Show || !window || !window->isWindow() || StaysVisible(window)
        || window->testAttribute(Qt::WA_DontShowOnScreen))
        return QObject::eventFilter(watched, event);
    // Qt sends this event before it shows the window on the screen, and looks at the attribute
    // then.
    window->setAttribute(Qt::WA_DontShowOnScreen);
    QMetaObject::invokeMethod(
        this,
        [this, window = QPointer<QWidget>(window)] {
            if (window)
                HideNew(window);
        },
        Qt::QueuedConnection);
    return QObject::eventFilter(watched, event);
}

} // namespace Client
