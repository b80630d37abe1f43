// SPDX-License-Identifier: MIT
#include "Pairs.h"

#include <ClientComm/RapidJsonProto.h>

#include <QtCore/QByteArray>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QXmlStreamReader>

#include <string>

namespace {

constexpr size_t kReplyBytes = 1 << 20;
constexpr double kReadBar = 1 / 1.5;
constexpr double kNestingBar = 1.0;
constexpr int kReads = 20; // so many values a reply is asked for
constexpr char kPath[] = "/ResponseStatus/Data/IncidentList/Total";

const std::string kRow = "{\"Airport\":\"BARKSDALE AIR FORCE BASE\",\"Species\":\"Turkey vulture\","
                         "\"Cost\":1952,\"Speed\":300,\"Note\":\"seen \\u2192 noted\"},";
const std::string kElement = "<Row><Airport>BARKSDALE AIR FORCE BASE</Airport><Species>Turkey "
                             "vulture</Species><Cost>1952</Cost><Speed>300</Speed><Note>seen "
                             "&#x2192; noted</Note></Row>";

std::string Repeated(const std::string &text)
{
    std::string all;
    while (all.size() < kReplyBytes)
        all += text;
    return all;
}

std::string JsonReply()
{
    std::string rows = Repeated(kRow);
    rows.pop_back();
    return "{\"ResponseStatus\":{\"ErrorCode\":0,\"Data\":{\"IncidentList\":{\"Total\":10000,"
           "\"Rows\":["
           + rows + "]}}}}";
}

std::string XmlReply()
{
    return "<ResponseStatus><ErrorCode>0</ErrorCode><Data><IncidentList><Total>10000</Total><Rows>"
           + Repeated(kElement) + "</Rows></IncidentList></Data></ResponseStatus>";
}

int ReadByPath(const std::string &reply)
{
    ClientComm::CRapidJsonProto document;
    if (!document.Load(reply))
        return -1;
    int total = 0;
    for (int i = 0; i < kReads; ++i)
        total = document.GetInt(kPath);
    return total;
}

// Qt's reader alone, which a caller would have to walk by himself.
int ReadJson(const std::string &reply)
{
    const auto bytes = QByteArray::fromRawData(reply.data(), static_cast<int>(reply.size()));
    return QJsonDocument::fromJson(bytes).object().isEmpty() ? -1 : 0;
}

int ReadXml(const std::string &reply)
{
    QXmlStreamReader reader(QByteArray::fromRawData(reply.data(), static_cast<int>(reply.size())));
    int characters = 0;
    while (!reader.atEnd()) {
        reader.readNext();
        characters += reader.text().size();
    }
    return reader.hasError() ? -1 : characters;
}

void PathReadOfJson(benchmark::State &state)
{
    const std::string reply = JsonReply();
    Pairs::Compare(
        state, "document_json_1_mb", kReadBar, [&] { benchmark::DoNotOptimize(ReadJson(reply)); },
        [&] { benchmark::DoNotOptimize(ReadByPath(reply)); });
    if (ReadByPath(reply) != 10000)
        state.SkipWithError("the value is wrong");
}
BENCHMARK(PathReadOfJson)->Iterations(1)->Unit(benchmark::kMillisecond);

void PathReadOfXml(benchmark::State &state)
{
    const std::string reply = XmlReply();
    Pairs::Compare(
        state, "document_xml_1_mb", kReadBar, [&] { benchmark::DoNotOptimize(ReadXml(reply)); },
        [&] { benchmark::DoNotOptimize(ReadByPath(reply)); });
    if (ReadByPath(reply) != 10000)
        state.SkipWithError("the value is wrong");
}
BENCHMARK(PathReadOfXml)->Iterations(1)->Unit(benchmark::kMillisecond);

// A million levels are refused in less time than an honest reply of that size takes.
void Nesting(benchmark::State &state)
{
    const std::string honest = JsonReply();
    const std::string json = "{\"a\":" + std::string(1'000'000, '[');
    std::string xml;
    for (int i = 0; i < 1'000'000; ++i)
        xml += "<a>";
    bool is_refused = true;
    Pairs::Compare(
        state, "document_million_levels", kNestingBar,
        [&] { benchmark::DoNotOptimize(ReadByPath(honest)); },
        [&] { is_refused = is_refused && ReadByPath(json) < 0 && ReadByPath(xml) < 0; });
    if (!is_refused)
        state.SkipWithError("nesting is not refused");
}
BENCHMARK(Nesting)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
