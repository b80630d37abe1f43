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

/// \brief The frameless window that slides in at the edge of another and carries a frame; usually
/// reached through CDockManager.
///
/// A click outside, Escape or the application going to the background slides it out or hides it;
/// then it lets the frame go. Its child "ptr_dock_widget" carries the frame and keeps the full
/// width while the dock itself grows and shrinks. It follows the widget that it stands at. GUI
/// thread only.
class VANTOR_EXPORT CDockWidget : public QFrame
{
    Q_OBJECT
    // In place of QWidget's: a step of the slide moves and resizes in one request, or a window
    // system shows the edge that shall stand still jump back and forth.
    Q_PROPERTY(QSize size READ size WRITE SetSlideSize DESIGNABLE false STORED false)

public:
    /// \param parent owns the dock; where it stands is for the frame's window to say.
    explicit CDockWidget(QWidget *parent = nullptr);
    /// Gives the frame back.
    ~CDockWidget() override;

    /// \brief Take \a frame in and stand at the right edge of its window, that is its top-level
    /// ancestor; for a frame without parent, the dock's own parent.
    ///
    /// \param frame       null is ignored.
    /// \param width       in pixels; a negative one means 400.
    /// \param find_parent walk up from the window and stand at the full-screen
    ///                    Faceplate::CGUIFullScreenWidget or the Lookout::CBaseWidget that comes
    ///                    first; without one the frame is not shown.
    void SetDockWidget(CAbstractDockFrame *frame, int width, bool find_parent);

    /// \brief Take \a frame in where \a rule places it; without a rule the dock stays where it is.
    void SetDockWidgetWithPosRule(CAbstractDockFrame *frame, QPointer<CDockWidgetPosRule> rule,
                                  int width);

    /// \brief Slide in over 300 ms and take the keys. Clicks outside count from its end on.
    void ShowInAnimation();
    /// \brief Slide out over 300 ms, then hide. Does nothing when hidden or on the way out.
    void HideInAnimation();

    /// \brief 1 is for common content, 2 for exports, which stand below the title bar; the default
    /// is 1. Effective from the next SetDockWidget() on.
    void SetContentType(int type);
    /// \brief The widget that the dock stands at, or null.
    [[nodiscard]] QWidget *GetParentWidget() const;

    /// \brief Let the frame go and be hidden at once; the dock is deleted when control returns to
    /// the event loop, so a button of the frame may be the cause.
    void Retire();

    void setVisible(bool visible) override;
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

public Q_SLOTS:
    /// \brief Move to where the parent widget and the dock's present width want it.
    void UpdatePostion();
    void OnShowFinished();
    void OnHideFinished();

protected:
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    [[nodiscard]] bool Take(CAbstractDockFrame *frame, int width);
    void Insert();
    [[nodiscard]] QPointer<CAbstractDockFrame> Release();
    [[nodiscard]] QWidget *FindParent(QWidget *window) const;
    void SetSlideSize(const QSize &size);
    [[nodiscard]] DockSituation SituationAt(int width) const;
    void Reposition();
    void Animate(int from, int to);
    void StopAnimation();
    void OnMousePress(QObject *watched, const QPoint &position);
    void OnApplicationState(Qt::ApplicationState state);

    const std::unique_ptr<CDockWidgetPtr> d_ptr_;
};

} // namespace Vantor
