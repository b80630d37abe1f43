// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace Client {

/// \brief Stands in for a window that is locked, which is hidden until the password is right.
/// Closing it ends the client. It deletes itself.
class CLockWindow : public QWidget
{
    Q_OBJECT

public:
    CLockWindow(QWidget *locked, const QString &user);

    /// \brief Take the place of the window.
    void Lock();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void OnUnlocked();

    const QPointer<QWidget> locked_;
};

} // namespace Client
