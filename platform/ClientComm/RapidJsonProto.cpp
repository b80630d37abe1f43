// SPDX-License-Identifier: MIT
#include "ClientComm/RapidJsonProto.h"

#include "ClientComm/DocumentTree.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>
#include <cmath>
#include <limits>

namespace ClientComm {
namespace {

// The parts of a path; none at all for a malformed one, but for "/", which is the document.
bool SplitPath(const std::string &path, std::vector<QString> &parts)
{
    if (path.empty() || path.front() != '/')
        return false;
    for (size_t begin = 1; begin < path.size();) {
        const size_t end = std::min(path.find('/', begin), path.size());
        if (end == begin || end + 1 == path.size())
            return false;
        parts.push_back(QString::fromUtf8(path.data() + begin, static_cast<int>(end - begin)));
        begin = end + 1;
    }
    return true;
}

bool ReadIndex(const QString &part, int &index)
{
    bool is_number = false;
    index = part.toInt(&is_number);
    return is_number && index >= 0 && part.at(0).isDigit();
}

// Also where it stands, because elements of one name are counted.
struct Place
{
    const Node *node = nullptr;
    const Node *parent = nullptr;
};

const Node *NamedChild(const Node &parent, const QString &name, int index = 0)
{
    for (const Node &child : parent.children) {
        if (child.name == name && index-- == 0)
            return &child;
    }
    return nullptr;
}

Place FindNode(const Node &root, const std::vector<QString> &parts)
{
    Place place{&root, nullptr};
    for (const QString &part : parts) {
        const Node &node = *place.node;
        int index = 0;
        if (node.kind == Node::Kind::Array) {
            const bool is_there = ReadIndex(part, index) && size_t(index) < node.children.size();
            place = {is_there ? &node.children[size_t(index)] : nullptr, nullptr};
        } else if (const Node *const child = NamedChild(node, part)) {
            place = {child, &node};
        } else if (place.parent && ReadIndex(part, index)) {
            place = {NamedChild(*place.parent, node.name, index), nullptr};
        } else {
            place = {};
        }
        if (!place.node)
            break;
    }
    return place;
}

QJsonValue FindValue(QJsonValue value, const std::vector<QString> &parts)
{
    for (const QString &part : parts) {
        int index = 0;
        if (value.isObject())
            value = value.toObject().value(part);
        else if (value.isArray() && ReadIndex(part, index))
            value = value.toArray().at(index);
        else
            return QJsonValue::Undefined;
    }
    return value;
}

int IntOf(double number, int preset)
{
    using Limits = std::numeric_limits<int>;
    const bool fits = number >= Limits::min() && number <= Limits::max();
    return fits && std::trunc(number) == number ? static_cast<int>(number) : preset;
}

int IntOf(const QString &text, int preset)
{
    bool is_number = false;
    const int number = text.toInt(&is_number);
    return is_number ? number : preset;
}

} // namespace

// JSON stays as Qt has read it until it is changed: most replies are only looked at.
struct CRapidJsonProtoDataPtr
{
    QJsonValue json_;
    bool b_json_ = false; // the document is json_, else root_
    bool b_set_ = false;  // texts were set: they may be secrets
    Node root_;

    void Clear()
    {
        b_json_ = false;
        json_ = {};
        if (b_set_)
            Wipe(root_);
        b_set_ = false;
        root_ = {};
        root_.kind = Node::Kind::Object;
    }
};

CRapidJsonProto::CRapidJsonProto() : d_ptr_(std::make_unique<CRapidJsonProtoDataPtr>())
{
    d_ptr_->root_.kind = Node::Kind::Object;
}

CRapidJsonProto::~CRapidJsonProto()
{
    d_ptr_->Clear();
}

bool CRapidJsonProto::Load(const std::string &text)
{
    d_ptr_->Clear();
    if (text.size() > kMaximumBytes)
        return false;
    constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";
    const size_t begin = text.rfind(kByteOrderMark, 0) == 0 ? sizeof kByteOrderMark - 1 : 0;
    const size_t first = text.find_first_not_of(" \t\r\n", begin);
    if (first == std::string::npos)
        return false;
    const auto bytes =
        QByteArray::fromRawData(text.data() + first, static_cast<int>(text.size() - first));
    if (bytes.at(0) == '<') {
        Node root;
        root.kind = Node::Kind::Object;
        if (!ReadXml(bytes, root))
            return false;
        d_ptr_->root_ = std::move(root);
        return true;
    }
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    if (document.isNull())
        return false;
    d_ptr_->json_ =
        document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
    d_ptr_->b_json_ = true;
    return true;
}

bool CRapidJsonProto::SetString(const std::string &path, const std::string &text)
{
    std::vector<QString> parts;
    if (!SplitPath(path, parts) || parts.empty() || parts.size() > size_t(kMaximumDepth))
        return false;
    if (d_ptr_->b_json_) {
        d_ptr_->root_ = NodeOf({}, d_ptr_->json_);
        d_ptr_->json_ = {};
        d_ptr_->b_json_ = false;
    }
    Node *node = &d_ptr_->root_;
    size_t known = 0; // nothing is made before it is clear that all can be
    for (; known < parts.size(); ++known) {
        if (node->kind != Node::Kind::Object)
            return false;
        const Node *const child = NamedChild(*node, parts[known]);
        if (!child)
            break;
        if (NamedChild(*node, parts[known], 1))
            return false; // elements of one name are an array
        node = const_cast<Node *>(child);
    }
    if (known == parts.size() && node->kind != Node::Kind::Text
        && node->kind != Node::Kind::Literal)
        return false;
    for (; known < parts.size(); ++known) {
        node->children.emplace_back();
        node->children.back().name = parts[known];
        node->children.back().kind =
            known + 1 == parts.size() ? Node::Kind::Text : Node::Kind::Object;
        node = &node->children.back();
    }
    Wipe(*node);
    d_ptr_->b_set_ = true;
    node->kind = Node::Kind::Text;
    node->text = QString::fromStdString(text);
    return true;
}

int CRapidJsonProto::GetInt(const std::string &path, int preset) const
{
    std::vector<QString> parts;
    if (!SplitPath(path, parts))
        return preset;
    if (d_ptr_->b_json_) {
        const QJsonValue value = FindValue(d_ptr_->json_, parts);
        return value.isDouble() ? IntOf(value.toDouble(), preset) : IntOf(value.toString(), preset);
    }
    const Node *const node = FindNode(d_ptr_->root_, parts).node;
    return node ? IntOf(node->text, preset) : preset;
}

std::string CRapidJsonProto::GetString(const std::string &path, const std::string &preset) const
{
    std::vector<QString> parts;
    if (!SplitPath(path, parts))
        return preset;
    if (d_ptr_->b_json_) {
        const QJsonValue value = FindValue(d_ptr_->json_, parts);
        if (value.isString())
            return value.toString().toStdString();
        return value.isDouble() || value.isBool() ? value.toVariant().toString().toStdString()
                                                  : preset;
    }
    const Node *const node = FindNode(d_ptr_->root_, parts).node;
    const bool is_null =
        node && node->kind == Node::Kind::Literal && node->text == QLatin1String("null");
    if (!node || is_null || node->kind == Node::Kind::Object || node->kind == Node::Kind::Array)
        return preset;
    return node->text.toStdString();
}

int CRapidJsonProto::GetCount(const std::string &path) const
{
    std::vector<QString> parts;
    if (!SplitPath(path, parts))
        return 0;
    if (d_ptr_->b_json_) {
        const QJsonValue value = FindValue(d_ptr_->json_, parts);
        return value.isArray() ? value.toArray().size() : value.toObject().size();
    }
    const Place place = FindNode(d_ptr_->root_, parts);
    if (!place.node)
        return 0;
    if (place.parent) {
        const auto &siblings = place.parent->children;
        const auto named =
            std::count_if(siblings.begin(), siblings.end(), [&place](const Node &sibling) {
                return sibling.name == place.node->name;
            });
        if (named > 1)
            return static_cast<int>(named);
    }
    return static_cast<int>(place.node->children.size());
}

std::string CRapidJsonProto::ToJson() const
{
    const QJsonValue value = d_ptr_->b_json_ ? d_ptr_->json_ : JsonOf(d_ptr_->root_);
    const QJsonDocument document =
        value.isArray() ? QJsonDocument(value.toArray()) : QJsonDocument(value.toObject());
    return document.toJson(QJsonDocument::Compact).toStdString();
}

std::string CRapidJsonProto::ToXml() const
{
    return WriteXml(d_ptr_->b_json_ ? NodeOf({}, d_ptr_->json_) : d_ptr_->root_).toStdString();
}

} // namespace ClientComm
