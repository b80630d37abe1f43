// SPDX-License-Identifier: MIT
#pragma once

#include <Ravel/UiSingleton.h>
#include <VantorExport.h>

#include <QtCore/QPointer>

#include <memory>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Vantor {

class CAbstractDockFrame;
class CDockManager;
class CDockWidget;
class CDockWidgetPosRule;
struct CDockManagerPtr;

} // namespace Vantor

extern template class VANTOR_EXPORT Ravel::CUiSingleton<Vantor::CDockManager>;

namespace Vantor {

/// \brief Slides panels in at the edge of the client's windows, one at a time.
///
/// Reached through Ravel::CUiSingleton<CDockManager>::Instance(). The panel slides out again when
/// the user clicks outside it or presses Escape, and is hidden when the application goes to the
/// background. Frames stay the property of their hosts: they come back to the parent they had,
/// whatever happens to the dock, and die with that parent only. GUI thread only.
class VANTOR_EXPORT CDockManager : public Ravel::CUiSingleton<CDockManager>
{
public:
    /// How high a dock is.
    enum ContentType : int {
        Common = 1, ///< as high as its window but for its bars
        Export = 2, ///< the same, below the title bar
    };

    ~CDockManager();

    /// \brief The default parent of docks; null is ignored.
    void SetMainWindow(QWidget *window);
    /// \brief The main window, or null.
    [[nodiscard]] QWidget *GetMainWindow() const;

    /// \brief Show \a frame in a new dock at the right edge of its own window, at the left one
    /// where text runs from the right; the dock that is there is destroyed first.
    ///
    /// Ignored for a null \a frame and where there is neither main window nor \a parent, and (with
    /// a log line) from within the OnDockHide() of the frame that is just being replaced.
    /// \param width       of the panel in pixels; a negative one means 400.
    /// \param find_parent see CDockWidget::SetDockWidget().
    /// \param parent      owns the dock in place of the main window. If it is null and the frame's
    ///                    window is modal, that window owns the dock, because it blocks all others.
    void SetDockWidget(CAbstractDockFrame *frame, int width, bool find_parent = false,
                       QWidget *parent = nullptr);

    /// \brief Show \a frame where \a rule places it, in the dock that is there or in a new one.
    ///
    /// Without a main window the one that the rule names becomes it, for good; see
    /// CDockWidgetPosRule.
    void SetDockWidget(CAbstractDockFrame *frame, QPointer<CDockWidgetPosRule> rule,
                       int width = -1);

    /// \brief Slide the dock out, if there is one.
    void HideDockWidget();
    /// \brief The dock, shown or hidden, or null.
    [[nodiscard]] CDockWidget *GetDockWidget() const;
    /// \brief Its height in pixels, 0 without one.
    [[nodiscard]] int GetDockWidgetHeight() const;

    /// \brief The type of what SetDockWidget() with a width shows from now on; Common at first.
    void SetContentType(ContentType type);

private:
    friend class Ravel::CUiSingleton<CDockManager>;
    CDockManager();
    [[nodiscard]] QWidget *MainWindow() const;
    [[nodiscard]] QWidget *OwnerFor(const CAbstractDockFrame &frame, QWidget *parent) const;
    void RetireDock();
    void MakeDock(QWidget *parent);

    const std::unique_ptr<CDockManagerPtr> d_ptr_;
};

} // namespace Vantor
