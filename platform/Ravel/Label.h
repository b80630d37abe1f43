// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtWidgets/QLabel>

namespace Ravel {

/// \brief The client's label: QLabel with its own class name for themes ("Ravel--CLabel").
class VANTOR_PLATFORM_EXPORT CLabel : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;
    ~CLabel() override;

Q_SIGNALS:
    /// Emitted when the left button was pressed and released inside the label.
    void SignalMouseClicked();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    bool is_pressed_ = false;
};

} // namespace Ravel
