// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QString>

#include <functional>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Faceplate {

/// \brief Short messages over a widget, which block nothing.
///
/// GUI thread only.
class VANTOR_PLATFORM_EXPORT CGUIMessageTipManager
{
public:
    /// \brief Shows one message; the parameters are those of ShowMessage(). GUI thread.
    using Presenter =
        std::function<void(QWidget *widget, const QString &text, int kind, int place, int time_s)>;

    /// \brief Show \a text over \a widget and return at once.
    ///
    /// The default is a strip inside \a widget ("MessageTip", docs/styling.md) that takes no focus,
    /// disappears after its time or when it is clicked, and never runs an event loop. A widget has
    /// one tip: the next message replaces it.
    ///
    /// \param widget the parent of the tip; null: the active window, or no tip without one.
    /// \param text   plain text; empty hides the tip.
    /// \param kind   0 information, others an error; a theme sees it as the property "kind".
    /// \param place  0 at the lower edge, others at the upper one.
    /// \param time_s seconds until it disappears; 0 or less: until it is clicked or replaced.
    static void ShowMessage(QWidget *widget, const QString &text, int kind, int place, int time_s);

    /// \brief Show messages by a function of the client; an empty function restores the default.
    static void SetPresenter(Presenter presenter);
};

} // namespace Faceplate
