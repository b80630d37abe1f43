// SPDX-License-Identifier: MIT
#include "ClientComm/RapidJsonProto.h"

#include "ClientComm/DocumentReader.h"
#include "ClientComm/DocumentTree.h"
#include "ClientComm/DocumentWriter.h"
#include "Nim/Base/Encrypt.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>
#include <vector>

namespace ClientComm {
namespace {

using Kind = CDocumentTree::Kind;
using Parts = std::vector<std::string_view>;

// The parts of a path, empty for "/", which is the document. Returns false for a malformed path.
bool SplitPath(const std::string &path, Parts &parts)
{
    if (path.empty() || path.front() != '/')
        return false;
    for (size_t begin = 1; begin < path.size();) {
        const size_t end = std::min(path.find('/', begin), path.size());
        if (end == begin || end + 1 == path.size())
            return false;
        parts.push_back(std::string_view(path).substr(begin, end - begin));
        begin = end + 1;
    }
    return true;
}

// Load() would refuse a document with them.
bool AreTooLarge(const Parts &parts)
{
    return parts.size() > size_t(CRapidJsonProto::kMaximumDepth)
           || std::any_of(parts.begin(), parts.end(), [](std::string_view name) {
                  return name.size() > CRapidJsonProto::kMaximumNameBytes;
              });
}

QString ToQt(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

bool ReadIndex(std::string_view part, int &index)
{
    bool is_number = false;
    index = ToQt(part).toInt(&is_number);
    return is_number && index >= 0 && part.front() >= '0' && part.front() <= '9';
}

// Also the parent, because elements of one name are counted.
struct Place
{
    int node = CDocumentTree::kNone;
    int parent = CDocumentTree::kNone;
};

int IntOf(double number, int preset)
{
    using Limits = std::numeric_limits<int>;
    const bool fits = number >= Limits::min() && number <= Limits::max();
    return fits && std::trunc(number) == number ? static_cast<int>(number) : preset;
}

} // namespace

struct CRapidJsonProtoDataPtr
{
    // kNone for a malformed path, too.
    [[nodiscard]] Place Find(const std::string &path) const;

    CDocumentTree tree_;
    bool b_xml_ = false; // elements of one name are an array
};

Place CRapidJsonProtoDataPtr::Find(const std::string &path) const
{
    constexpr int kNone = CDocumentTree::kNone;
    Parts parts;
    if (!SplitPath(path, parts))
        return {};
    Place place{CDocumentTree::kRoot, kNone};
    for (const std::string_view part : parts) {
        const int node = place.node;
        int index = 0;
        if (tree_.KindOf(node) == Kind::Array) {
            place = {ReadIndex(part, index) ? tree_.FindNumber(node, index) : kNone, kNone};
        } else if (const int child = tree_.FindNamed(node, part); child != kNone) {
            place = {child, node};
        } else if (b_xml_ && place.parent != kNone && ReadIndex(part, index)) {
            place = {tree_.FindNamed(place.parent, tree_.Name(node), index), kNone};
        } else {
            place = {};
        }
        if (place.node == kNone)
            break;
    }
    return place;
}

CRapidJsonProto::CRapidJsonProto() : d_ptr_(std::make_unique<CRapidJsonProtoDataPtr>()) {}

CRapidJsonProto::~CRapidJsonProto() = default;

bool CRapidJsonProto::Load(const std::string &text)
{
    CDocumentTree &tree = d_ptr_->tree_;
    tree.Clear();
    d_ptr_->b_xml_ = false;
    if (text.size() > kMaximumBytes)
        return false;
    constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";
    const size_t begin = text.rfind(kByteOrderMark, 0) == 0 ? sizeof kByteOrderMark - 1 : 0;
    const size_t first = text.find_first_not_of(" \t\r\n", begin);
    if (first == std::string::npos)
        return false;
    const std::string_view document = std::string_view(text).substr(first);
    d_ptr_->b_xml_ = document.front() == '<';
    const bool is_read = d_ptr_->b_xml_ ? ReadXml(document, tree) : ReadJson(document, tree);
    if (!is_read) {
        tree.Clear();
        d_ptr_->b_xml_ = false;
    }
    return is_read;
}

bool CRapidJsonProto::SetString(const std::string &path, const std::string &text)
{
    const std::string names = ToUtf8(path);
    Parts parts;
    if (!SplitPath(names, parts) || parts.empty() || AreTooLarge(parts))
        return false;
    CDocumentTree &tree = d_ptr_->tree_;
    int node = CDocumentTree::kRoot;
    size_t known = 0; // nothing is made before it is clear that all can be
    for (; known < parts.size(); ++known) {
        if (tree.KindOf(node) != Kind::Object)
            return false;
        const int child = tree.FindNamed(node, parts[known]);
        if (child == CDocumentTree::kNone)
            break;
        if (tree.FindNamed(node, parts[known], 1) != CDocumentTree::kNone)
            return false; // elements of one name are an array
        node = child;
    }
    const bool is_there = known == parts.size();
    if (is_there && (tree.KindOf(node) == Kind::Object || tree.KindOf(node) == Kind::Array))
        return false;
    for (; known < parts.size(); ++known)
        node = tree.AddChild(node, parts[known], Kind::Object);
    tree.SetKind(node, Kind::Text);
    std::string value = ToUtf8(text);
    tree.SetText(node, value);
    Nim::Base::Encrypt::Wipe(value);
    return true;
}

int CRapidJsonProto::GetInt(const std::string &path, int preset) const
{
    const CDocumentTree &tree = d_ptr_->tree_;
    const int node = d_ptr_->Find(path).node;
    if (node == CDocumentTree::kNone)
        return preset;
    bool is_number = false;
    const QString text = ToQt(tree.Text(node));
    if (tree.KindOf(node) == Kind::Literal) {
        const double number = text.toDouble(&is_number);
        return is_number ? IntOf(number, preset) : preset;
    }
    const int number = text.toInt(&is_number);
    return is_number ? number : preset;
}

std::string CRapidJsonProto::GetString(const std::string &path, const std::string &preset) const
{
    const CDocumentTree &tree = d_ptr_->tree_;
    const int node = d_ptr_->Find(path).node;
    if (node == CDocumentTree::kNone || tree.KindOf(node) == Kind::Object
        || tree.KindOf(node) == Kind::Array)
        return preset;
    const bool is_null = tree.KindOf(node) == Kind::Literal && tree.Text(node) == "null";
    return is_null ? preset : std::string(tree.Text(node));
}

int CRapidJsonProto::GetCount(const std::string &path) const
{
    const CDocumentTree &tree = d_ptr_->tree_;
    const Place place = d_ptr_->Find(path);
    if (place.node == CDocumentTree::kNone)
        return 0;
    const int named = place.parent == CDocumentTree::kNone
                          ? 0
                          : tree.CountNamed(place.parent, tree.Name(place.node));
    return named > 1 ? named : tree.CountChildren(place.node);
}

std::string CRapidJsonProto::ToJson() const
{
    return WriteJson(d_ptr_->tree_);
}

std::string CRapidJsonProto::ToXml() const
{
    return WriteXml(d_ptr_->tree_);
}

} // namespace ClientComm
