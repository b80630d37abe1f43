// SPDX-License-Identifier: MIT
#include "ClientComm/DocumentReader.h"

#include "ClientComm/DocumentLimits.h"
#include "ClientComm/DocumentTree.h"
#include "Nim/Base/Encrypt.h"
#include "Nim/Base/WipedMemory.h"

#include <expat.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace ClientComm {
namespace {

using Kind = CDocumentTree::Kind;

// Builds a tree and refuses one beyond the limits.
class CTreeBuilder
{
public:
    explicit CTreeBuilder(CDocumentTree &tree) : tree_(tree) {}

    [[nodiscard]] int Top() const { return open_.back(); }
    [[nodiscard]] size_t Depth() const { return open_.size(); }
    [[nodiscard]] CDocumentTree &Tree() { return tree_; }

    // kNone when there is no room for another one.
    int Add(std::string_view name, Kind kind)
    {
        if (tree_.Size() > kDocumentNodes || name.size() > kDocumentNameBytes)
            return CDocumentTree::kNone;
        return tree_.AddChild(Top(), name, kind);
    }

    bool Open(int node)
    {
        if (node == CDocumentTree::kNone || Depth() > kDocumentDepth)
            return false;
        open_.push_back(node);
        return true;
    }

    void Close() { open_.pop_back(); }

private:
    CDocumentTree &tree_;
    std::vector<int> open_{CDocumentTree::kRoot};
};

// RapidJSON refuses bytes that are no UTF-8, but makes some of the escape of half a surrogate pair
// where that is the second half.
bool HasSurrogate(std::string_view text)
{
    for (size_t at = text.find('\xED'); at != text.npos; at = text.find('\xED', at + 1)) {
        if (static_cast<unsigned char>(text[at + 1]) >= 0xA0) // of a character of three bytes
            return true;
    }
    return false;
}

// Takes what RapidJSON reads. Each call returns false to end the reading.
class CJsonHandler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, CJsonHandler>
{
public:
    explicit CJsonHandler(CDocumentTree &tree) : builder_(tree) {}

    bool Null() { return AddText("null", Kind::Literal); }
    bool Bool(bool value) { return AddText(value ? "true" : "false", Kind::Literal); }
    bool RawNumber(const char *text, rapidjson::SizeType size, bool /*copy*/)
    {
        return AddText({text, size}, Kind::Literal);
    }
    bool String(const char *text, rapidjson::SizeType size, bool /*copy*/)
    {
        return !HasSurrogate({text, size}) && AddText({text, size}, Kind::Text);
    }
    bool Key(const char *name, rapidjson::SizeType size, bool /*copy*/)
    {
        name_ = {name, size};
        return !HasSurrogate(name_);
    }
    bool StartObject() { return Open(Kind::Object); }
    bool StartArray() { return Open(Kind::Array); }
    bool EndArray(rapidjson::SizeType /*count*/)
    {
        builder_.Close();
        return true;
    }
    bool EndObject(rapidjson::SizeType /*count*/)
    {
        const bool is_unique = HasUniqueNames(builder_.Top());
        builder_.Close();
        return is_unique;
    }

private:
    // The root of the text is the root of the tree.
    bool Open(Kind kind)
    {
        if (is_begun_)
            return builder_.Open(builder_.Add(TakeName(), kind));
        is_begun_ = true;
        builder_.Tree().SetKind(CDocumentTree::kRoot, kind);
        return builder_.Open(CDocumentTree::kRoot);
    }

    bool AddText(std::string_view text, Kind kind)
    {
        if (!is_begun_)
            return false; // a bare value
        const int node = builder_.Add(TakeName(), kind);
        if (node == CDocumentTree::kNone)
            return false;
        builder_.Tree().SetText(node, text);
        return true;
    }

    std::string_view TakeName() { return std::exchange(name_, {}); }

    [[nodiscard]] bool HasUniqueNames(int object)
    {
        const CDocumentTree &tree = builder_.Tree();
        names_.clear();
        for (int child = tree.FirstChild(object); child != CDocumentTree::kNone;
             child = tree.NextSibling(child))
            names_.push_back(tree.Name(child));
        std::sort(names_.begin(), names_.end());
        return std::adjacent_find(names_.begin(), names_.end()) == names_.end();
    }

    CTreeBuilder builder_;
    std::string_view name_; // of the value that comes next
    std::vector<std::string_view> names_;
    bool is_begun_ = false;
};

// What Expat's callbacks are given.
struct XmlReading
{
    CTreeBuilder builder;
    XML_Parser parser;
};

void OnElement(void *data, const XML_Char *name, const XML_Char **attributes)
{
    auto &[builder, parser] = *static_cast<XmlReading *>(data);
    size_t count = 0; // name and value are two entries
    while (count <= 2 * kDocumentAttributes && attributes[count])
        ++count;
    builder.Tree().SetKind(builder.Top(), Kind::Object); // the text before the element is dropped
    if (count > 2 * kDocumentAttributes || !builder.Open(builder.Add(name, Kind::Text)))
        XML_StopParser(parser, XML_FALSE);
}

void OnElementEnd(void *data, const XML_Char * /*name*/)
{
    static_cast<XmlReading *>(data)->builder.Close();
}

void OnText(void *data, const XML_Char *text, int size)
{
    auto &builder = static_cast<XmlReading *>(data)->builder;
    if (builder.Tree().KindOf(builder.Top()) == Kind::Text)
        builder.Tree().AppendText(builder.Top(), {text, static_cast<size_t>(size)});
}

void OnDocumentType(void *data, const XML_Char * /*name*/, const XML_Char * /*system*/,
                    const XML_Char * /*id*/, int /*has_subset*/)
{
    XML_StopParser(static_cast<XmlReading *>(data)->parser, XML_FALSE);
}

struct ParserDeleter
{
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

} // namespace

bool ReadJson(std::string_view text, CDocumentTree &tree)
{
    // The reader decodes texts where they are, so it leaves them nowhere else.
    constexpr unsigned kFlags = rapidjson::kParseInsituFlag | rapidjson::kParseIterativeFlag
                                | rapidjson::kParseValidateEncodingFlag
                                | rapidjson::kParseNumbersAsStringsFlag;
    // The reader looks for the rest of a character behind the end of the text.
    constexpr size_t kPadding = 4;
    std::string copy;
    copy.reserve(text.size() + kPadding);
    copy.append(text).append(kPadding, '\0');
    tree.Reserve(text.size());
    CJsonHandler handler(tree);
    rapidjson::InsituStringStream stream(copy.data());
    rapidjson::Reader reader;
    // The reader takes a zero byte for the end of the text.
    const bool is_read =
        !reader.Parse<kFlags>(stream, handler).IsError() && stream.Tell() == text.size();
    Nim::Base::Encrypt::Wipe(copy);
    return is_read;
}

bool ReadXml(std::string_view text, CDocumentTree &tree)
{
    constexpr XML_Memory_Handling_Suite kMemory = {std::malloc, Nim::Base::WipedRealloc,
                                                   Nim::Base::WipedFree};
    const std::unique_ptr<XML_ParserStruct, ParserDeleter> parser(
        XML_ParserCreate_MM(nullptr, &kMemory, nullptr));
    if (!parser || text.size() > kDocumentBytes)
        return false;
    tree.Reserve(text.size());
    XmlReading reading{CTreeBuilder(tree), parser.get()};
    XML_SetUserData(parser.get(), &reading);
    XML_SetElementHandler(parser.get(), OnElement, OnElementEnd);
    XML_SetCharacterDataHandler(parser.get(), OnText);
    XML_SetStartDoctypeDeclHandler(parser.get(), OnDocumentType);
    return XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), XML_TRUE)
           == XML_STATUS_OK;
}

} // namespace ClientComm
