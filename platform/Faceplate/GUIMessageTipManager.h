// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QString>

#include <functional>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Faceplate {

/// \brief Short messages over a widget that tell of something without stopping anything.
///
/// GUI thread only.
class VANTOR_PLATFORM_EXPORT CGUIMessageTipManager
{
public:
    using Presenter =
        std::function<void(QWidget *widget, const QString &text, int kind, int place, int time_s)>;

    /// \brief Show \a text over \a widget and return at once.
    ///
    /// The default is a strip inside \a widget ("MessageTip", docs/styling.md) that takes no focus,
    /// goes by itself or by a click, and never runs an event loop. A widget has one tip: a further
    /// message takes the place of the last one.
    ///
    /// \param widget where it appears; null shows it over the active window, or nowhere when there
    ///               is none.
    /// \param text   plain text; empty takes an earlier message away.
    /// \param kind   0 information, others an error; a theme sees it as the property "kind".
    /// \param place  0 at the lower edge, others at the upper one.
    /// \param time_s seconds until it goes; 0 and less: until it is clicked or replaced.
    static void ShowMessage(QWidget *widget, const QString &text, int kind, int place, int time_s);

    /// \brief Let the client show messages its own way; an empty function restores the default.
    static void SetPresenter(Presenter presenter);
};

} // namespace Faceplate
