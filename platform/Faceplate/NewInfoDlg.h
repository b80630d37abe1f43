// SPDX-License-Identifier: MIT
#pragma once

#include <Faceplate/InfoTipsData.h>
#include <PlatformExport.h>

#include <functional>

namespace Faceplate {

/// \brief Pop-ups at the lower right of the screen, which block nothing. GUI thread only.
class VANTOR_PLATFORM_EXPORT CNewInfoDlg
{
public:
    /// \brief Shows one pop-up. GUI thread.
    using Presenter = std::function<void(const CStruInfoTipsData &data)>;

    /// \brief Show \a data for a few seconds and return at once.
    ///
    /// The default is a small frameless window ("InfoTip", docs/styling.md) that never takes the
    /// focus and never runs an event loop; several are stacked upwards. It disappears after its
    /// time, when it is clicked, and with its parent. An empty text, or a process without a
    /// QApplication, shows nothing.
    static void ShowInformationAtScreenRightBottom_V3(const CStruInfoTipsData &data);

    /// \brief Show pop-ups by a function of the client; an empty function restores the default.
    static void SetPresenter(Presenter presenter);
};

} // namespace Faceplate
