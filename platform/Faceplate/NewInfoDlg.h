// SPDX-License-Identifier: MIT
#pragma once

#include <Faceplate/InfoTipsData.h>
#include <PlatformExport.h>

#include <functional>

namespace Faceplate {

/// \brief Pop-ups at the lower right of the screen that tell of something without stopping
/// anything. GUI thread only.
class VANTOR_PLATFORM_EXPORT CNewInfoDlg
{
public:
    using Presenter = std::function<void(const CStruInfoTipsData &data)>;

    /// \brief Show \a data for a few seconds and return at once.
    ///
    /// The default is a small frameless window ("InfoTip", docs/styling.md) that never takes the
    /// focus and never runs an event loop; several stand one above the other. It goes by itself, by
    /// a click and with its parent. An empty text shows nothing, nor
    /// does anything without a QApplication.
    static void ShowInformationAtScreenRightBottom_V3(const CStruInfoTipsData &data);

    /// \brief Let the client show pop-ups its own way; an empty function restores the default.
    static void SetPresenter(Presenter presenter);
};

} // namespace Faceplate
