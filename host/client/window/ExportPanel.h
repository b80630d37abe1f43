// SPDX-License-Identifier: MIT
#pragma once

#include "pages/Page.h"

#include <Vantor/CBaseDockFrame>

QT_BEGIN_NAMESPACE
class QLabel;
class QRadioButton;
QT_END_NAMESPACE

namespace Client {

/// \brief Asks for the format of an export; a file dialog asks for the file afterwards.
class CExportPanel : public Vantor::CBaseDockFrame
{
    Q_OBJECT

public:
    explicit CExportPanel(QWidget *parent);

    /// \brief Show that \a rows rows would be exported.
    void SetRowCount(const RowTotal &rows);

Q_SIGNALS:
    void SignalExportCsv();
    void SignalExportXlsx();

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void OnConfirm();

private:
    void Retranslate();

    QLabel *const summary_;
    QRadioButton *const csv_;
    QLabel *const csv_hint_;
    QRadioButton *const xlsx_;
    QLabel *const xlsx_hint_;
    RowTotal rows_;
};

} // namespace Client
