// SPDX-License-Identifier: MIT
#pragma once

#include "export/TimeLeft.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>
#include <QtWidgets/QDialog>

QT_BEGIN_NAMESPACE
class QLabel;
class QProgressBar;
QT_END_NAMESPACE

namespace Client {

/// \brief How far a work is and how long it will still take, with a button that cancels it: the
/// dialog is rejected then.
///
/// Opens by itself when the work turns out to be long and closes when it is done. In place of
/// QProgressDialog, which handles events in the middle of setValue().
class CProgressDialog : public QDialog
{
    Q_OBJECT

public:
    CProgressDialog(const QString &text, QWidget *parent);

public Q_SLOTS:
    void OnProgress(int done, int total);

private:
    QProgressBar *const bar_;
    QLabel *const time_left_;
    QElapsedTimer since_start_;
    CTimeLeft estimate_;
    QTimer patience_;
};

} // namespace Client
