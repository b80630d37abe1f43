// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QPointer>
#include <QtWidgets/QFrame>

#include <memory>

namespace Vantor {

class CAbstractDockFrame;
class CDockWidgetPosRule;
struct CDockWidgetPtr;
struct DockSituation;

/// \brief The frameless window that slides in at the edge of another one and carries a frame;
/// usually reached through CDockManager.
///
/// A click outside or Escape slides it out. It is hidden at once when the application goes to the
/// background. In both cases it lets the frame go. Its child "ptr_dock_widget" carries the frame
/// and keeps the full width while the dock itself grows and shrinks.
///
/// It follows the widget at whose edge it is. When the window of that widget is hidden or
/// minimised, the dock is hidden with it, keeps its frame and comes back with it. Keys that the
/// frame does not use activate the shortcuts of that window.
///
/// On Wayland, where no program can place its windows, the dock is a raised child of that window
/// instead of a window. GUI thread only.
class VANTOR_EXPORT CDockWidget : public QFrame
{
    Q_OBJECT
    /// The size in pixels. It replaces the property of QWidget: a step of the slide moves and
    /// resizes in one request, because the edge at the window's border would jump otherwise.
    Q_PROPERTY(QSize size READ size WRITE SetSlideSize DESIGNABLE false STORED false)

public:
    /// \param parent owns the dock; the frame's window decides where the dock is.
    explicit CDockWidget(QWidget *parent = nullptr);
    /// Gives the frame back.
    ~CDockWidget() override;

    /// \brief Take \a frame in and dock to the right edge of its window, that is its top-level
    /// ancestor; for a frame without parent, the dock's own parent.
    ///
    /// \param frame       null is ignored.
    /// \param width       in pixels; a negative one means 400.
    /// \param find_parent walk up from the window and dock to the full-screen
    ///                    Faceplate::CGUIFullScreenWidget or the Lookout::CBaseWidget that comes
    ///                    first; without one the frame is not shown.
    void SetDockWidget(CAbstractDockFrame *frame, int width, bool find_parent);

    /// \brief Take \a frame in where \a rule places it; without a rule the dock stays where it is.
    void SetDockWidgetWithPosRule(CAbstractDockFrame *frame, QPointer<CDockWidgetPosRule> rule,
                                  int width);

    /// \brief Slide in over 300 ms and take the focus. Clicks outside count from the end of the
    /// slide on. While the window is hidden or minimised, the dock waits for it instead.
    void ShowInAnimation();
    /// \brief Slide out over 300 ms, then hide. Does nothing when hidden or on the way out.
    void HideInAnimation();

    /// \brief 1 is for common content, 2 for exports, which are below the title bar; the default
    /// is 1. Effective from the next SetDockWidget() on.
    void SetContentType(int type);
    /// \brief The widget at whose edge the dock is, or null.
    [[nodiscard]] QWidget *GetParentWidget() const;

    /// \brief Let the frame go, hide at once and take no other frame. The dock is deleted when
    /// control returns to the event loop, so a button of the frame may call this.
    void Retire();

    void setVisible(bool visible) override;
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    /// \brief Move to where the parent widget and the dock's present width want it.
    void UpdatePostion();
    /// \brief Called at the end of the slide in; does nothing.
    void OnShowFinished();
    /// \brief Hides the dock at once.
    void OnHideFinished();

protected:
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    [[nodiscard]] bool Borrow(CAbstractDockFrame *frame, int width);
    void Insert();
    void LetGo();
    void CallOnDockHide();
    void OnFrameDestroyed();
    void OnSlidIn();

    [[nodiscard]] QWidget *FindParent(QWidget *window) const;
    void StandAt(QWidget *widget);
    void OnShownOrHidden();
    void FollowWindow();
    void EndGone();
    void OnWindowDestroyed(const QObject *window);

    [[nodiscard]] DockSituation SituationAt(int width) const;
    void SetSlideSize(const QSize &size);
    void MoveToGlobal(const QPoint &position);
    void Reposition();

    [[nodiscard]] bool Owns(const QWidget *widget) const;
    void OnMousePress(QObject *watched, const QPoint &position);
    void OnWindowShown(QWidget *window);
    void OnApplicationState(Qt::ApplicationState state);

    const std::unique_ptr<CDockWidgetPtr> d_ptr_;
};

} // namespace Vantor
