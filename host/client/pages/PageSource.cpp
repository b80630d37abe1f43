// SPDX-License-Identifier: MIT
#include "pages/PageSource.h"

#include <BusinessCommon/NetCommManager.h>
#include <ClientComm/RapidJsonProto.h>

#include <QtConcurrent/QtConcurrentRun>

#include <algorithm>
#include <utility>

namespace Client {
namespace {

using BusinessCommon::CNetCommManager;
using ClientComm::CRapidJsonProto;

constexpr char kPath[] = "/Quorra/Brisent/Platform/V0/IncidentList";
constexpr int kMostRowsPerPage = 1000; // the server gives no more
constexpr int kMostColumns = 1000;

// The first texts of an array. A hostile server may send a million, and each is searched for.
QStringList Texts(const CRapidJsonProto &reply, const std::string &path)
{
    QStringList texts;
    for (int i = 0, count = std::min(reply.GetCount(path), kMostColumns); i < count; ++i)
        texts.append(QString::fromStdString(reply.GetString(path + '/' + std::to_string(i))));
    return texts;
}

std::string RequestFor(const PageQuery &query)
{
    CRapidJsonProto body;
    const int rows = std::min(query.rows_per_page, kMostRowsPerPage);
    body.SetString("/IncidentListRequest/Page", std::to_string(query.page));
    body.SetString("/IncidentListRequest/PageSize", std::to_string(rows));
    body.SetString("/IncidentListRequest/Filter", query.filter.toStdString());
    return body.ToJson();
}

ServerPage Fetch(const PageQuery &query)
{
    ServerPage page;
    page.page = query.page;
    ClientComm::CClientSendInfo send;
    send.SetVal_URL(kPath);
    send.SetVal_Method("GET");
    send.SetVal_Request_Data(RequestFor(query));
    ClientComm::CClientRecvInfo recv;
    const bool is_answered =
        Nim::Base::CSingleton<CNetCommManager>::Instance().ClientSynSend(recv, send, 0);
    int code = recv.GetVal_Error_code().error_code;
    const std::string list = "/ResponseStatus/Data/IncidentList";
    CRapidJsonProto reply;
    if (is_answered && code == 0
        && (!reply.Load(recv.Read().Receive_Data)
            || reply.GetCount(list + "/Rows") > kMostRowsPerPage))
        code = BusinessCommon::kNetBadReply;
    if (!is_answered || code != 0) {
        page.error = CPageSource::tr("The server did not send the page (error %1).").arg(code);
        return page;
    }
    page.total = reply.GetInt(list + "/Total", 0);
    page.titles = Texts(reply, list + "/Titles");
    for (int row = 0, rows = reply.GetCount(list + "/Rows"); row < rows; ++row)
        page.rows.append(Texts(reply, list + "/Rows/" + std::to_string(row)));
    return page;
}

} // namespace

CPageSource::CPageSource(QObject *parent) : QObject(parent)
{
    connect(&watcher_, &QFutureWatcher<ServerPage>::finished, this, &CPageSource::OnFinished);
}

void CPageSource::Ask(const PageQuery &query)
{
    if (watcher_.isRunning())
        next_ = query;
    else
        Start(query);
}

void CPageSource::Start(const PageQuery &query)
{
    watcher_.setFuture(QtConcurrent::run(Fetch, query));
}

void CPageSource::OnFinished()
{
    const ServerPage page = watcher_.result();
    const std::optional<PageQuery> next = std::exchange(next_, std::nullopt);
    if (next)
        Start(*next);
    else
        Q_EMIT SignalPage(page);
}

} // namespace Client
