// SPDX-License-Identifier: MIT
#include "ClientComm/DocumentWriter.h"

#include "ClientComm/DocumentTree.h"
#include "Nim/Base/Encrypt.h"

#include <rapidjson/memorystream.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <map>
#include <vector>

namespace ClientComm {
namespace {

using Kind = CDocumentTree::Kind;

constexpr char kDeclaration[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
constexpr char kReplacement[] = "\xEF\xBF\xBD"; // U+FFFD

// A text that overwrites its old memory when it grows. RapidJSON writes to it character by
// character.
class CTextSink
{
public:
    using Ch = char;

    void Put(char c)
    {
        if (text_.size() == text_.capacity())
            Grow(2 * text_.capacity());
        text_.push_back(c);
    }
    void Add(std::string_view text)
    {
        if (text_.size() + text.size() > text_.capacity())
            Grow(2 * (text_.size() + text.size()));
        text_.append(text);
    }
    void Flush() {}
    [[nodiscard]] std::string Take() { return std::move(text_); }
    void Wipe() { Nim::Base::Encrypt::Wipe(text_); }

private:
    void Grow(size_t size)
    {
        std::string larger;
        larger.reserve(size);
        larger = text_;
        text_.swap(larger);
        Nim::Base::Encrypt::Wipe(larger);
    }

    std::string text_;
};

using CJsonWriter = rapidjson::Writer<CTextSink>;

void WriteValue(CJsonWriter &writer, const CDocumentTree &tree, int node);

void WriteMembers(CJsonWriter &writer, const CDocumentTree &tree, int object)
{
    std::map<std::string_view, std::vector<int>> members;
    for (int child = tree.FirstChild(object); child != CDocumentTree::kNone;
         child = tree.NextSibling(child))
        members[tree.Name(child)].push_back(child);
    writer.StartObject();
    for (const auto &[name, nodes] : members) {
        writer.Key(name.data(), static_cast<rapidjson::SizeType>(name.size()));
        if (nodes.size() > 1)
            writer.StartArray();
        for (const int node : nodes)
            WriteValue(writer, tree, node);
        if (nodes.size() > 1)
            writer.EndArray();
    }
    writer.EndObject();
}

void WriteValue(CJsonWriter &writer, const CDocumentTree &tree, int node)
{
    const std::string_view text = tree.Text(node);
    switch (tree.KindOf(node)) {
    case Kind::Text:
        writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
        break;
    case Kind::Literal:
        writer.RawValue(text.data(), text.size(), rapidjson::kNumberType);
        break;
    case Kind::Array:
        writer.StartArray();
        for (int item = tree.FirstChild(node); item != CDocumentTree::kNone;
             item = tree.NextSibling(item))
            WriteValue(writer, tree, item);
        writer.EndArray();
        break;
    case Kind::Object:
        WriteMembers(writer, tree, node);
        break;
    }
}

// Takes one character off the front of \a text; false, and one byte, where it is no UTF-8.
bool TakeCharacter(std::string_view &text, unsigned &character)
{
    rapidjson::MemoryStream stream(text.data(), text.size());
    const bool is_one =
        rapidjson::UTF8<>::Decode(stream, &character) && stream.Tell() <= text.size();
    text.remove_prefix(is_one ? stream.Tell() : 1);
    return is_one;
}

// The letters beyond ASCII that every edition of XML 1.0 takes.
struct Range
{
    unsigned first;
    unsigned last;
};

constexpr Range kLetters[] = {
    {'A', 'Z'},     {'_', '_'},     {'a', 'z'},     {0xC0, 0xD6},     {0xD8, 0xF6},
    {0xF8, 0x131},  {0x134, 0x13E}, {0x141, 0x148}, {0x14A, 0x17E},   {0x388, 0x38A},
    {0x38E, 0x3A1}, {0x3A3, 0x3CE}, {0x401, 0x40C}, {0x40E, 0x44F},   {0x451, 0x45C},
    {0x45E, 0x481}, {0x621, 0x63A}, {0x641, 0x64A}, {0x4E00, 0x9FA5}, {0xAC00, 0xD7A3},
};

bool IsElementName(std::string_view name)
{
    const bool is_empty = name.empty();
    for (bool is_first = true; !name.empty(); is_first = false) {
        unsigned c = 0;
        if (!TakeCharacter(name, c))
            return false;
        const bool is_letter =
            std::any_of(std::begin(kLetters), std::end(kLetters),
                        [c](const Range &range) { return c >= range.first && c <= range.last; });
        const bool is_other = (c >= '0' && c <= '9') || c == '-' || c == '.';
        if (!is_letter && (is_first || !is_other))
            return false;
    }
    return !is_empty;
}

bool CanBeInXml(unsigned c)
{
    return c == '\t' || c == '\n' || c == '\r' || (c >= 0x20 && c != 0xFFFE && c != 0xFFFF);
}

void AddXmlText(CTextSink &sink, std::string_view text)
{
    while (!text.empty()) {
        const std::string_view rest = text;
        unsigned c = 0;
        const bool is_one = TakeCharacter(text, c);
        if (!is_one || !CanBeInXml(c))
            sink.Add(kReplacement);
        else if (c == '<')
            sink.Add("&lt;");
        else if (c == '>')
            sink.Add("&gt;");
        else if (c == '&')
            sink.Add("&amp;");
        else if (c == '"')
            sink.Add("&quot;");
        else if (c == '\r') // readers take one for a line feed
            sink.Add("&#13;");
        else
            sink.Add(rest.substr(0, rest.size() - text.size()));
    }
}

// An array has no element of its own: its items are elements of its name.
bool WriteElement(CTextSink &sink, const CDocumentTree &tree, int node, std::string_view name)
{
    const bool is_array = tree.KindOf(node) == Kind::Array;
    if (!is_array) {
        if (!IsElementName(name))
            return false;
        sink.Add("<");
        sink.Add(name);
        sink.Add(">");
        AddXmlText(sink, tree.Text(node));
    }
    for (int child = tree.FirstChild(node); child != CDocumentTree::kNone;
         child = tree.NextSibling(child)) {
        if (!WriteElement(sink, tree, child, is_array ? name : tree.Name(child)))
            return false;
    }
    if (!is_array) {
        sink.Add("</");
        sink.Add(name);
        sink.Add(">");
    }
    return true;
}

} // namespace

std::string WriteJson(const CDocumentTree &tree)
{
    CTextSink sink;
    CJsonWriter writer(sink);
    WriteValue(writer, tree, CDocumentTree::kRoot);
    return sink.Take();
}

std::string WriteXml(const CDocumentTree &tree)
{
    const int outermost = tree.FirstChild(CDocumentTree::kRoot);
    if (tree.KindOf(CDocumentTree::kRoot) != Kind::Object || outermost == CDocumentTree::kNone
        || tree.NextSibling(outermost) != CDocumentTree::kNone
        || tree.KindOf(outermost) == Kind::Array)
        return {};
    CTextSink sink;
    sink.Add(kDeclaration);
    if (!WriteElement(sink, tree, outermost, tree.Name(outermost))) {
        sink.Wipe();
        return {};
    }
    sink.Put('\n');
    return sink.Take();
}

std::string ToUtf8(std::string_view text)
{
    CTextSink sink;
    while (!text.empty()) {
        const std::string_view rest = text;
        unsigned c = 0;
        sink.Add(TakeCharacter(text, c) ? rest.substr(0, rest.size() - text.size()) : kReplacement);
    }
    return sink.Take();
}

} // namespace ClientComm
