// SPDX-License-Identifier: MIT
#include "window/Panels.h"

#include "window/DetailPanel.h"
#include "window/ExportPanel.h"

#include <Vantor/CDockManager>

#include <QtCore/QEvent>
#include <QtCore/QModelIndex>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <utility>

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
    window->installEventFilter(this);
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

void CPanels::ShowExport(const RowTotal &rows)
{
    export_->SetRowCount(rows);
    OpenExport();
}

void CPanels::OpenExport()
{
    Docks().SetContentType(CDockManager::Export);
    Docks().SetDockWidget(export_, kUsualWidth);
}

// The dock lets its panel go when the lock of the client hides the window, and here when a modal
// dialog opens: the dock is in front of all windows, so it would cover the dialog.
bool CPanels::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != parent() || event->spontaneous() || !details_ || !export_)
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::Hide && export_->isVisible()) {
        hidden_ = Panel::Export; // a dialog is what the user asked it for, so only for the lock
    } else if (event->type() == QEvent::Hide || event->type() == QEvent::WindowBlocked) {
        if (details_->isVisible())
            hidden_ = Panel::Details;
        if (event->type() == QEvent::WindowBlocked)
            Docks().HideDockWidget();
    } else if (event->type() == QEvent::Show || event->type() == QEvent::WindowUnblocked) {
        QMetaObject::invokeMethod(this, &CPanels::Reopen, Qt::QueuedConnection);
    }
    return QObject::eventFilter(watched, event);
}

void CPanels::Reopen()
{
    if (!static_cast<QWidget *>(parent())->isVisible() || QApplication::activeModalWidget())
        return; // the end of that calls this again
    const Panel panel = std::exchange(hidden_, Panel::None);
    if (panel == Panel::Details && details_)
        ShowDetails(QModelIndex(shown_)); // a copy, because it sets shown_
    else if (panel == Panel::Export && export_)
        OpenExport();
}

} // namespace Client
