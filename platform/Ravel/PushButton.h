// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtWidgets/QPushButton>

namespace Ravel {

/// \brief The client's push button ("Ravel--CPushButton" in a theme).
///
/// Return presses it while it has the focus, as Space does. It is never a dialog's default button.
class VANTOR_PLATFORM_EXPORT CPushButton : public QPushButton
{
    Q_OBJECT

public:
    explicit CPushButton(QWidget *parent = nullptr);
    /// \brief Shows \a text at first; \a parent owns the widget.
    explicit CPushButton(const QString &text, QWidget *parent = nullptr);
    ~CPushButton() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
};

} // namespace Ravel
