// SPDX-License-Identifier: MIT
#include "IncidentPages.h"
#include "IncidentTokens.h"
#include "Records.h"
#include "Store.h"

#include <ClientComm/RapidJsonProto.h>

#include <QtCore/QJsonArray>

namespace Server {
namespace {

using ClientComm::CRapidJsonProto;

constexpr int kMaximumPageSize = 1000;
constexpr int kMaximumFilter = 1000;
constexpr int kMaximumAppended = 1000;
constexpr char kAsked[] = "/IncidentListRequest/";
constexpr char kGivenRows[] = "/IncidentRequest/Rows";

IncidentQuery QueryOf(const CRapidJsonProto &body, int columns)
{
    const auto number = [&body](const std::string &name, int preset) {
        // A member that is no number must not count as missing.
        const std::string path = kAsked + name;
        constexpr int kOther = -2;
        return body.GetString(path).empty() ? preset : body.GetInt(path, kOther);
    };
    IncidentQuery query;
    query.page = number("Page", query.page);
    query.size = number("PageSize", query.size);
    query.order.column = number("SortColumn", query.order.column);
    const int descending = number("Descending", 0);
    query.order.is_descending = descending == 1;
    query.filter = QString::fromStdString(body.GetString(kAsked + std::string("Filter")));
    if (query.page < 1 || query.size < 1 || query.size > kMaximumPageSize || query.order.column < -1
        || query.order.column >= std::max(columns, 1) || descending < 0 || descending > 1
        || query.filter.size() > kMaximumFilter)
        throw Refused(kBadRequest);
    return query;
}

// What the server gave itself, or nothing.
void ReadTokens(const CRapidJsonProto &body, const QByteArray &secret, IncidentQuery &query)
{
    const std::string moment = body.GetString(kAsked + std::string("Moment"));
    const std::string after = body.GetString(kAsked + std::string("After"));
    if (!moment.empty()) {
        query.moment = ReadMomentToken(secret, moment);
        if (!query.moment)
            throw Refused(kBadRequest);
    }
    if (!after.empty()) {
        const auto place = ReadPlaceToken(secret, after, query.order, query.filter);
        if (!place || (query.moment && *query.moment != place->moment))
            throw Refused(kBadRequest);
        query.moment = place->moment;
        query.after = place->id;
    }
}

// Counted from 1 in the texts of refusals.
std::string NameOf(const char *what, int index)
{
    return what + std::to_string(index + 1);
}

QStringList GivenRow(const CRapidJsonProto &body, int row, int columns)
{
    const std::string path = kGivenRows + ('/' + std::to_string(row));
    const int count = body.GetCount(path);
    if (count != columns)
        throw Refused(kBadRequest, NameOf("row ", row) + " has " + std::to_string(count)
                                       + " cells, and the list has " + std::to_string(columns));
    const std::string missing(1, '\xff'); // no UTF-8
    QStringList cells;
    for (int column = 0; column < columns; ++column) {
        const std::string cell = body.GetString(path + '/' + std::to_string(column), missing);
        if (cell == missing)
            throw Refused(kBadRequest,
                          NameOf("row ", row) + NameOf(", cell ", column) + " is not a text");
        cells.append(QString::fromStdString(cell));
    }
    return cells;
}

IncidentRows GivenRows(const Request &request, int columns)
{
    CRapidJsonProto body;
    if (!body.Load(request.body))
        throw Refused(kBadRequest, "the body is neither JSON nor XML");
    const int count = body.GetCount(kGivenRows);
    if (columns == 0 || count < 1 || count > kMaximumAppended)
        throw Refused(kBadRequest, columns == 0 ? "there is no list"
                                                : "there must be 1 to "
                                                      + std::to_string(kMaximumAppended) + " rows");
    IncidentRows rows;
    for (int row = 0; row < count; ++row)
        rows.push_back(GivenRow(body, row, columns));
    return rows;
}

QJsonArray ArrayOf(const IncidentRows &rows)
{
    QJsonArray array;
    for (const QStringList &row : rows)
        array.append(QJsonArray::fromStringList(row));
    return array;
}

} // namespace

Reply ReadIncidents(CIncidentPages &pages, CStore &store, const Request &request)
{
    CRapidJsonProto body;
    if (!body.Load(request.body))
        throw Refused(kBadRequest);
    const QStringList titles = ReadIncidentTitles(store);
    const QByteArray secret = ReadIncidentState(store).secret;
    IncidentQuery query = QueryOf(body, titles.size());
    ReadTokens(body, secret, query);
    const IncidentPage page = pages.Read(store, query);
    const QString next =
        page.next ? PlaceToken(secret, {page.moment, *page.next}, query.order, query.filter)
                  : QString();
    Reply reply;
    reply.data = QJsonObject{
        {QStringLiteral("IncidentList"),
         QJsonObject{{QStringLiteral("Total"), page.total.rows},
                     {QStringLiteral("TotalIsExact"), page.total.is_exact ? 1 : 0},
                     {QStringLiteral("TotalBound"), pages.Limits().counted},
                     {QStringLiteral("Page"), query.page},
                     {QStringLiteral("PageSize"), query.size},
                     {QStringLiteral("Titles"), QJsonArray::fromStringList(titles)},
                     {QStringLiteral("Rows"), ArrayOf(page.rows)},
                     {QStringLiteral("Moment"), MomentToken(secret, page.moment)},
                     {QStringLiteral("Next"), next},
                     {QStringLiteral("NewRows"), page.arrived.rows},
                     {QStringLiteral("NewRowsIsExact"), page.arrived.is_exact ? 1 : 0}}}};
    return reply;
}

Reply WriteIncidents(CStore &store, const Request &request)
{
    const int columns = ReadIncidentTitles(store).size();
    const IncidentRows rows = GivenRows(request, columns);
    if (!ReadIncidentState(store).is_ready)
        throw Refused(kUnavailable);
    Reply reply;
    reply.data =
        QJsonObject{{QStringLiteral("Incident"),
                     QJsonObject{{QStringLiteral("Total"), AppendIncidents(store, rows)}}}};
    return reply;
}

} // namespace Server
