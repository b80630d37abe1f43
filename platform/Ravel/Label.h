// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtWidgets/QLabel>

namespace Ravel {

/// \brief The client's label: QLabel under a class name of its own, so that a theme can tell it
/// from Qt's ("Ravel--CLabel").
class VANTOR_PLATFORM_EXPORT CLabel : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;
    ~CLabel() override;

Q_SIGNALS:
    /// Emitted when the left button was pressed and let go inside the label.
    void SignalMouseClicked();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    bool is_pressed_ = false;
};

} // namespace Ravel
