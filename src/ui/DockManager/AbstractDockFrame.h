// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtWidgets/QFrame>

#include <memory>

namespace Vantor {

struct CAbstractDockFramePtr;

/// \brief What a dock can show: derive from it, or fill a CBaseDockFrame.
///
/// The frame stays its host's. While it is shown it is a child of the dock; when the dock lets it
/// go, it goes back, hidden, to the parent it had. A frame whose parent is deleted while the dock
/// has it is deleted too, as any child is; one that had no parent stays alive, for its host to
/// delete. GUI thread only.
class VANTOR_EXPORT CAbstractDockFrame : public QFrame
{
    Q_OBJECT
    Q_PROPERTY(bool autoHide READ IsAutoHide WRITE SetAutoHide) // only the host changes it

public:
    explicit CAbstractDockFrame(QWidget *parent = nullptr);
    ~CAbstractDockFrame() override;

    /// \brief Whether a click outside hides the dock; true by default.
    [[nodiscard]] virtual bool IsAutoHide() const;
    virtual void SetAutoHide(bool auto_hide); ///< See IsAutoHide().

    /// \brief Called by the dock after it has let the frame go: hidden by a click, by Escape, by
    /// its host, or replaced by another frame. Does nothing here.
    ///
    /// May show another frame, delete this one, or delete the dock. Not called when the dock itself
    /// is destroyed with its window.
    virtual void OnDockHide();

    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const std::unique_ptr<CAbstractDockFramePtr> d_ptr_;
};

} // namespace Vantor
