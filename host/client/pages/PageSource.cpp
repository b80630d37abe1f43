// SPDX-License-Identifier: MIT
#include "pages/PageSource.h"

#include <BusinessCommon/NetStop.h>

#include <QtConcurrent/QtConcurrentRun>

namespace Client {
namespace {

constexpr int kThreads = 2;

} // namespace

CPageSource::CPageSource(QObject *parent) : QObject(parent)
{
    threads_.setMaxThreadCount(kThreads);
    connect(&watcher_, &QFutureWatcher<ServerPage>::finished, this, &CPageSource::OnFinished);
}

CPageSource::~CPageSource()
{
    BreakOff();
}

void CPageSource::Send(int ticket, const PageRequest &request)
{
    BreakOff();
    auto stop = std::make_shared<BusinessCommon::CNetStop>();
    stop_ = stop;
    ticket_ = ticket;
    watcher_.setFuture(
        QtConcurrent::run(&threads_, [request, stop] { return FetchPage(request, *stop); }));
}

void CPageSource::BreakOff()
{
    if (stop_)
        stop_->Stop();
    stop_.reset();
}

void CPageSource::OnFinished()
{
    if (!stop_)
        return; // broken off
    stop_.reset();
    Q_EMIT SignalAnswered(ticket_, watcher_.result());
}

} // namespace Client
