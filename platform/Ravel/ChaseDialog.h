// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtWidgets/QDialog>

#include <memory>

namespace Ravel {

struct CChaseDialogPtr;

/// \brief A small frameless waiting dialog with a turning picture; run it with exec().
///
/// It is modal to the whole application and centred on its parent. Object names for style sheets:
/// "ChaseDialog", and inside it "ChaseMovie" and "ChaseText" (docs/styling.md). GUI thread only.
class VANTOR_PLATFORM_EXPORT CChaseDialog : public QDialog
{
    Q_OBJECT

public:
    /// \param parent      the window to wait in front of; may be null.
    /// \param movie       path of an animated picture, such as a GIF; empty: no picture.
    /// \param text        shown under the picture; empty: no text.
    /// \param cancellable whether Escape and closing end the dialog; otherwise only its slot does.
    CChaseDialog(QWidget *parent, const QString &movie, const QString &text, bool cancellable);
    ~CChaseDialog() override;

    void reject() override;

public Q_SLOTS:
    /// \brief The work is done: close with QDialog::Accepted.
    ///
    /// A stop before exec() is kept, because a worker may be faster than the dialog.
    void OnStopChaseByAccept();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    const std::unique_ptr<CChaseDialogPtr> d_ptr_;
};

} // namespace Ravel
