// SPDX-License-Identifier: MIT
#pragma once

#include <Faceplate/InfoTipsData.h>

#include <QtCore/QTimer>
#include <QtWidgets/QFrame>

namespace Faceplate {

/// \brief The window that CNewInfoDlg shows by default; it deletes itself.
class CInfoTip : public QFrame
{
    Q_OBJECT

public:
    CInfoTip(const CStruInfoTipsData &tip, QWidget *parent);
    ~CInfoTip() override;

    /// \brief Show it above the tips that are already shown.
    void Appear();

protected:
    void mousePressEvent(QMouseEvent *event) override;

private:
    void FadeAway();

    QTimer timer_;
};

} // namespace Faceplate
