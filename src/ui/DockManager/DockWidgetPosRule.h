// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QObject>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Vantor {

class CAbstractDockFrame;
class CDockWidget;

/// \brief Places a dock in the way of a special host; derive from it.
///
/// Its dynamic property "__dock_frame_attach_to__" (a QWidget * or QObject *) names the window to
/// attach to when the manager has no main window yet. The rule stays its host's and may be deleted
/// at any time. GUI thread only.
class VANTOR_EXPORT CDockWidgetPosRule : public QObject
{
    Q_OBJECT

public:
    explicit CDockWidgetPosRule(QObject *parent = nullptr);
    ~CDockWidgetPosRule() override;

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

    /// \brief Give \a dock its geometry and \a inner, the widget in it that carries the frame, its
    /// size. Called before \a frame is put in and before the dock slides in.
    ///
    /// Positions are in global coordinates. The dock keeps the corner and the height that it has
    /// afterwards. Does nothing here.
    /// \param width in pixels, never negative.
    virtual void Place(CDockWidget *dock, CAbstractDockFrame *frame, QWidget *inner, int width);

    /// \brief Called when \a dock was resized, which includes every step of its animations, and
    /// when the main window was moved or resized. It may move \a dock, which keeps the new corner.
    /// Does nothing here.
    virtual void UpdateOnResize(CDockWidget *dock);
};

} // namespace Vantor
