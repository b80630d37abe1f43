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

/// \brief Shows the progress of long work and the time left, with a button to cancel, which rejects
/// the dialog.
///
/// Opens by itself if the work takes long, and closes when it is done. It replaces QProgressDialog,
/// whose setValue() handles events.
class CProgressDialog : public QDialog
{
    Q_OBJECT

public:
    CProgressDialog(const QString &text, QWidget *parent);

public Q_SLOTS:
    /// \brief Show how far the work is; with \a total 0, which is not known, how many rows are
    /// done.
    void OnProgress(int done, int total);

private:
    QProgressBar *const bar_;
    QLabel *const time_left_;
    QElapsedTimer since_start_;
    CTimeLeft estimate_;
    QTimer patience_;
};

} // namespace Client
