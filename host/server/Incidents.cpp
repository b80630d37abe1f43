// SPDX-License-Identifier: MIT
#include "Records.h"
#include "Store.h"

#include <ClientComm/RapidJsonProto.h>

#include <QtCore/QJsonArray>
#include <QtCore/QStringList>

namespace Server {
namespace {

constexpr int kMaximumPageSize = 1000;
constexpr int kMaximumFilter = 1000;

struct PageRequest
{
    int page = 1; // from 1
    int size = 100;
    int sort_column = -1; // -1: as they came
    bool is_descending = false;
    QString filter;
};

PageRequest PageOf(const Request &request, int columns)
{
    ClientComm::CRapidJsonProto body;
    if (!body.Load(request.body))
        throw Refused(kBadRequest);
    PageRequest page;
    const auto number = [&body](const std::string &name, int preset) {
        // What is there and is no number must not pass for what is not there.
        const std::string path = "/IncidentListRequest/" + name;
        constexpr int kOther = -2;
        return body.GetString(path).empty() ? preset : body.GetInt(path, kOther);
    };
    page.page = number("Page", page.page);
    page.size = number("PageSize", page.size);
    page.sort_column = number("SortColumn", page.sort_column);
    const int descending = number("Descending", 0);
    page.is_descending = descending == 1;
    page.filter = QString::fromStdString(body.GetString("/IncidentListRequest/Filter"));
    if (page.page < 1 || page.size < 1 || page.size > kMaximumPageSize || page.sort_column < -1
        || page.sort_column >= columns || descending < 0 || descending > 1
        || page.filter.size() > kMaximumFilter)
        throw Refused(kBadRequest);
    return page;
}

QStringList Titles(CStore &store)
{
    QStringList titles;
    CRows query = store.Run(QStringLiteral("SELECT title FROM incident_title ORDER BY position"));
    while (query.Next())
        titles.append(query.Value(0).toString());
    return titles;
}

// The condition that a row holds the filter's text, and the values for it.
QString WhereOf(const PageRequest &page, int columns, QVariantList &values)
{
    if (page.filter.isEmpty())
        return {};
    QString pattern = page.filter;
    for (const QLatin1Char special : {QLatin1Char('\\'), QLatin1Char('%'), QLatin1Char('_')})
        pattern.replace(special, QLatin1Char('\\') + QString(special));
    QStringList conditions;
    for (int column = 0; column < columns; ++column) {
        conditions.append(QStringLiteral("c%1 LIKE ? ESCAPE '\\'").arg(column));
        values.append(QLatin1Char('%') + pattern + QLatin1Char('%'));
    }
    return QStringLiteral(" WHERE ") + conditions.join(QLatin1String(" OR "));
}

QString OrderOf(const PageRequest &page)
{
    if (page.sort_column < 0)
        return QStringLiteral(" ORDER BY id");
    // Numbers in order of size, then texts.
    return QStringLiteral(" ORDER BY CAST(c%1 AS REAL) %2, c%1 COLLATE NOCASE %2, id")
        .arg(page.sort_column)
        .arg(page.is_descending ? QLatin1String("DESC") : QLatin1String("ASC"));
}

} // namespace

Reply ReadIncidents(CStore &store, const Request &request)
{
    const QStringList titles = Titles(store);
    const PageRequest page = PageOf(request, titles.size());
    int total = 0;
    QJsonArray rows;
    if (!titles.isEmpty()) {
        QVariantList values;
        const QString where = WhereOf(page, titles.size(), values);
        total =
            store.Value(QStringLiteral("SELECT count(*) FROM incident") + where, values).toInt();
        values << page.size << qint64(page.page - 1) * page.size;
        CRows query = store.Run(QStringLiteral("SELECT * FROM incident") + where + OrderOf(page)
                                    + QStringLiteral(" LIMIT ? OFFSET ?"),
                                values);
        while (query.Next()) {
            QJsonArray row;
            for (int column = 0; column < titles.size(); ++column)
                row.append(query.Value(column + 1).toString());
            rows.append(row);
        }
    }
    Reply reply;
    reply.data =
        QJsonObject{{QStringLiteral("IncidentList"),
                     QJsonObject{{QStringLiteral("Total"), total},
                                 {QStringLiteral("Page"), page.page},
                                 {QStringLiteral("PageSize"), page.size},
                                 {QStringLiteral("Titles"), QJsonArray::fromStringList(titles)},
                                 {QStringLiteral("Rows"), rows}}}};
    return reply;
}

} // namespace Server
