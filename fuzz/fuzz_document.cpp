// SPDX-License-Identifier: MIT
// Bytes become a document, JSON or XML, and then paths into it. Whatever is read is written and
// read again; both forms must give the same values.
#include "Require.h"

#include <ClientComm/RapidJsonProto.h>

#include <cstdint>
#include <string>

namespace {

using ClientComm::CRapidJsonProto;

// The first line is a path, the second a text to set there, the rest the document.
std::string TakeLine(std::string &input)
{
    const size_t end = input.find('\n');
    std::string line = input.substr(0, end);
    input.erase(0, end == std::string::npos ? end : end + 1);
    return line;
}

void CompareCopy(const CRapidJsonProto &document, const std::string &path, bool is_xml)
{
    const std::string json = document.ToJson();
    const std::string xml = document.ToXml();
    CRapidJsonProto as_xml;
    Require(xml.empty() || as_xml.Load(xml), "what is written as XML is read");
    CRapidJsonProto as_json;
    Require(as_json.Load(json), "what is written as JSON is read");
    const CRapidJsonProto &copy = is_xml ? as_xml : as_json;
    Require(copy.GetString(path, "-") == document.GetString(path, "-"), "the text is the same");
    Require(copy.GetInt(path) == document.GetInt(path), "the number is the same");
    Require(copy.GetCount(path) == document.GetCount(path), "the count is the same");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::string input(reinterpret_cast<const char *>(data), size);
    const std::string path = TakeLine(input);
    const std::string text = TakeLine(input);
    CRapidJsonProto document;
    if (document.Load(input)) {
        // An XML element repeats where JSON has an array, so XML is compared with XML.
        const size_t first = input.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
        CompareCopy(document, path, input[first] == '<');
    }
    CRapidJsonProto made;
    if (made.SetString(path, text))
        CompareCopy(made, path, false);
    if (document.SetString(path, text))
        Require(document.GetString(path, "-") == made.GetString(path, "-"),
                "what was set is there");
    return 0;
}
