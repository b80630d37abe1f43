// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QTimer>
#include <QtWidgets/QFrame>

QT_BEGIN_NAMESPACE
class QLabel;
QT_END_NAMESPACE

namespace Faceplate {

/// \brief The strip that CGUIMessageTipManager shows by default; it stays at the edge of its
/// parent.
class CMessageTip : public QFrame
{
    Q_OBJECT

public:
    explicit CMessageTip(QWidget *parent);

    void ShowText(const QString &text, int kind, int place, int time_s);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    void KeepToEdge();

    QLabel *const label_;
    QTimer timer_;
    bool is_above_ = true;
};

} // namespace Faceplate
