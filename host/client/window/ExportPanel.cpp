// SPDX-License-Identifier: MIT
#include "window/ExportPanel.h"

#include <Vantor/CDockManager>

#include <QtCore/QEvent>
#include <QtCore/QLocale>
#include <QtWidgets/QLabel>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QVBoxLayout>

namespace Client {
namespace {

constexpr int kMarginPx = 16;
constexpr int kGapPx = 12;

Vantor::CDockManager &Docks()
{
    return Ravel::CUiSingleton<Vantor::CDockManager>::Instance();
}

} // namespace

CExportPanel::CExportPanel(QWidget *parent)
    : CBaseDockFrame(parent), summary_(new QLabel), csv_(new QRadioButton), csv_hint_(new QLabel),
      xlsx_(new QRadioButton), xlsx_hint_(new QLabel)
{
    setObjectName(QStringLiteral("ExportPanel"));
    auto *const content = new QWidget;
    auto *const layout = new QVBoxLayout(content);
    layout->setContentsMargins(kMarginPx, 0, kMarginPx, kMarginPx);
    layout->setSpacing(kGapPx);
    for (QLabel *const label : {summary_, csv_hint_, xlsx_hint_})
        label->setWordWrap(true);
    for (QLabel *const hint : {csv_hint_, xlsx_hint_})
        hint->setObjectName(QStringLiteral("DetailName"));
    for (QWidget *const widget : {static_cast<QWidget *>(summary_), static_cast<QWidget *>(xlsx_),
                                  static_cast<QWidget *>(xlsx_hint_), static_cast<QWidget *>(csv_),
                                  static_cast<QWidget *>(csv_hint_)})
        layout->addWidget(widget);
    layout->addStretch(1);
    xlsx_->setChecked(true);
    SetContentWnd(content);
    connect(this, &CBaseDockFrame::signalConfirm, this, &CExportPanel::OnConfirm);
    connect(this, &CBaseDockFrame::signalCancel, this, [] { Docks().HideDockWidget(); });
    connect(this, &CBaseDockFrame::signalReset, xlsx_, [this] { xlsx_->setChecked(true); });
    Retranslate();
}

void CExportPanel::SetRowCount(const RowTotal &rows)
{
    rows_ = rows;
    Retranslate();
}

void CExportPanel::OnConfirm()
{
    Docks().HideDockWidget();
    if (csv_->isChecked())
        Q_EMIT SignalExportCsv();
    else
        Q_EMIT SignalExportXlsx();
}

void CExportPanel::changeEvent(QEvent *event)
{
    CBaseDockFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

void CExportPanel::Retranslate()
{
    SetTitleText(tr("Export the list"));
    SetSaveBtnText(tr("Export…"));
    SetSaveEnabeld(rows_.rows > 0);
    const QString text = rows_.is_exact
                             ? tr("Rows that the list shows, in its order: %1")
                             : tr("Rows that the list shows, in its order: more than %1");
    summary_->setText(text.arg(QLocale().toString(rows_.rows)));
    xlsx_->setText(tr("XLSX workbook"));
    xlsx_hint_->setText(tr("With a summary and charts, for a spreadsheet."));
    csv_->setText(tr("CSV file"));
    csv_hint_->setText(tr("Plain text, for other programs."));
}

} // namespace Client
