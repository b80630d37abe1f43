// SPDX-License-Identifier: MIT
#include "link/ServerPages.h"

#include <BusinessCommon/NetCommManager.h>
#include <BusinessCommon/NetStop.h>
#include <ClientComm/RapidJsonProto.h>

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <tuple>

namespace Client {
namespace {

using BusinessCommon::CNetCommManager;
using ClientComm::CRapidJsonProto;

constexpr char kPath[] = "/Quorra/Brisent/Platform/V0/IncidentList";
constexpr int kMostColumns = 1000;
constexpr int kLongestToken = 4096;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ServerPages)
};

std::string InRequest(const char *name)
{
    return std::string("/IncidentListRequest/") + name;
}

std::string InReply(const char *name)
{
    return std::string("/ResponseStatus/Data/IncidentList/") + name;
}

// The first texts of an array. A hostile server may send a million, and each is searched for.
QStringList TextsOf(const CRapidJsonProto &reply, const std::string &path)
{
    QStringList texts;
    for (int i = 0, count = std::min(reply.GetCount(path), kMostColumns); i < count; ++i)
        texts.append(QString::fromStdString(reply.GetString(path + '/' + std::to_string(i))));
    return texts;
}

std::string BodyOf(const PageRequest &request)
{
    CRapidJsonProto body;
    const int rows = std::min(request.rows_per_page, kMostRowsPerPage);
    body.SetString(InRequest("Page"), std::to_string(request.page));
    body.SetString(InRequest("PageSize"), std::to_string(rows));
    body.SetString(InRequest("Filter"), request.query.filter.toStdString());
    body.SetString(InRequest("SortColumn"), std::to_string(request.query.sort_column));
    body.SetString(InRequest("Descending"), request.query.is_descending ? "1" : "0");
    if (!request.moment.isEmpty())
        body.SetString(InRequest("Moment"), request.moment.toStdString());
    if (!request.after.isEmpty())
        body.SetString(InRequest("After"), request.after.toStdString());
    return body.ToJson();
}

// The server compares shorter texts row by row.
bool HasIndex(const QString &filter)
{
    constexpr int kIndexed = 3; // characters
    return filter.isEmpty() || filter.toUcs4().size() >= kIndexed;
}

PageError ErrorOf(bool is_answered, const Nim::Base::Error::ErrorCode &code)
{
    static constexpr struct
    {
        int status;
        PageError error;
    } kErrors[] = {{400, PageError::Refused},
                   {401, PageError::LoggedOut},
                   {503, PageError::Busy},
                   {504, PageError::TooSlow}};
    if (!is_answered)
        return PageError::NoReply;
    if (code.error_code == 0)
        return PageError::None;
    for (const auto &known : kErrors) {
        if (code.module_code == BusinessCommon::kModuleHttp && code.error_code == known.status)
            return known.error;
    }
    return PageError::Other;
}

// False for a reply that no honest server gives.
bool ReadPage(const CRapidJsonProto &reply, ServerPage &page)
{
    const int rows = reply.GetCount(InReply("Rows"));
    page.moment = QString::fromStdString(reply.GetString(InReply("Moment")));
    page.next = QString::fromStdString(reply.GetString(InReply("Next")));
    if (rows > kMostRowsPerPage || page.moment.size() > kLongestToken
        || page.next.size() > kLongestToken || (rows == 0 && !page.next.isEmpty()))
        return false;
    page.total = std::max(0, reply.GetInt(InReply("Total"), 0));
    page.is_total_exact = reply.GetInt(InReply("TotalIsExact"), 1) != 0;
    page.new_rows = std::max(0, reply.GetInt(InReply("NewRows"), 0));
    page.are_new_rows_exact = reply.GetInt(InReply("NewRowsIsExact"), 1) != 0;
    page.titles = TextsOf(reply, InReply("Titles"));
    for (int row = 0; row < rows; ++row)
        page.rows.append(TextsOf(reply, InReply("Rows/") + std::to_string(row)));
    return true;
}

} // namespace

bool operator==(const ListQuery &a, const ListQuery &b)
{
    return std::tie(a.filter, a.sort_column, a.is_descending)
           == std::tie(b.filter, b.sort_column, b.is_descending);
}

ServerPage FetchPage(const PageRequest &request, const BusinessCommon::CNetStop &stop)
{
    ClientComm::CClientSendInfo send;
    send.SetVal_URL(kPath);
    send.SetVal_Method("GET");
    send.SetVal_Request_Data(BodyOf(request));
    ClientComm::CClientRecvInfo recv;
    const bool is_answered =
        Nim::Base::CSingleton<CNetCommManager>::Instance().ClientSynSendUntil(stop, recv, send);
    ServerPage page;
    page.error_code = recv.GetVal_Error_code().error_code;
    page.error = ErrorOf(is_answered, recv.GetVal_Error_code());
    if (page.error == PageError::TooSlow && HasIndex(request.query.filter))
        page.error = PageError::Unfinished;
    CRapidJsonProto reply;
    if (page.error != PageError::None
        || (reply.Load(recv.Read().Receive_Data) && ReadPage(reply, page)))
        return page;
    ServerPage bad;
    bad.error = PageError::Other;
    bad.error_code = BusinessCommon::kNetBadReply;
    return bad;
}

QString PageErrorText(const ServerPage &page)
{
    switch (page.error) {
    case PageError::None:
        return {};
    case PageError::NoReply:
        return Texts::tr("The server cannot be reached.");
    case PageError::Busy:
        return Texts::tr("The server is busy.");
    case PageError::TooSlow:
        return Texts::tr("The search took too long. Search for three characters or more.");
    case PageError::Unfinished:
        return Texts::tr("The server needs more time. Try again.");
    case PageError::LoggedOut:
        return Texts::tr("The session has ended. Log in again.");
    case PageError::Refused:
    case PageError::Other:
        break;
    }
    return Texts::tr("The server did not send the page (error %1).").arg(page.error_code);
}

} // namespace Client
