// SPDX-License-Identifier: MIT
#pragma once

#include "pages/HeldClipboard.h"

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <memory>

namespace Client {

class CHiddenWindows;
class CLoginForm;

/// \brief Takes the place of a window until the user has entered the right password. All other
/// windows of the process are hidden meanwhile, and its data is removed from the clipboard.
///
/// Closing it ends the client. It deletes itself.
class CLockWindow : public QWidget
{
    Q_OBJECT

public:
    CLockWindow(QWidget *locked, const QString &user);
    ~CLockWindow() override;

    /// \brief Take the place of the window.
    void Lock();

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void OnUnlocked();
    void Retranslate();

    const QPointer<QWidget> locked_;
    const QString user_;
    CLoginForm *const form_;
    std::unique_ptr<CHiddenWindows> windows_; // while it is locked, as the next one
    std::unique_ptr<CHeldClipboard> clipboard_;
};

} // namespace Client
