// SPDX-License-Identifier: MIT
#include "window/Panels.h"

#include "window/DetailPanel.h"
#include "window/ExportPanel.h"

#include <Vantor/CDockManager>

#include <QtCore/QModelIndex>
#include <QtWidgets/QWidget>

namespace Client {
namespace {

using Vantor::CDockManager;

constexpr int kUsualWidth = -1;

CDockManager &Docks()
{
    return Ravel::CUiSingleton<CDockManager>::Instance();
}

} // namespace

CPanels::CPanels(QWidget *window)
    : QObject(window), details_(new CDetailPanel(window)), export_(new CExportPanel(window))
{
    details_->hide();
    export_->hide();
    Docks().SetMainWindow(window);
    connect(details_.data(), &CDetailPanel::SignalMessage, this, &CPanels::SignalMessage);
    connect(export_.data(), &CExportPanel::SignalExportCsv, this, &CPanels::SignalExportCsv);
    connect(export_.data(), &CExportPanel::SignalExportXlsx, this, &CPanels::SignalExportXlsx);
}

CPanels::~CPanels()
{
    delete details_.data();
    delete export_.data();
}

void CPanels::ShowDetails(const QModelIndex &index)
{
    // This is the second click of a double click, and the panel is already sliding in.
    if (!index.isValid() || (details_->isVisible() && shown_ == index.siblingAtColumn(0)))
        return;
    shown_ = index.siblingAtColumn(0);
    details_->SetRow(index);
    Docks().SetContentType(CDockManager::Common);
    Docks().SetDockWidget(details_, kUsualWidth);
}

void CPanels::ShowExport(int rows)
{
    export_->SetRowCount(rows);
    Docks().SetContentType(CDockManager::Export);
    Docks().SetDockWidget(export_, kUsualWidth);
}

} // namespace Client
