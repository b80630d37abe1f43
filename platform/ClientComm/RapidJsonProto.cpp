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

using Kind = CDocumentTree::Kind;

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
    int node = CDocumentTree::kNone;
    int parent = CDocumentTree::kNone;
};

Place FindNode(const CDocumentTree &tree, const std::vector<QString> &parts)
{
    constexpr int kNone = CDocumentTree::kNone;
    Place place{CDocumentTree::kRoot, kNone};
    for (const QString &part : parts) {
        const int node = place.node;
        int index = 0;
        if (tree.KindOf(node) == CDocumentTree::Kind::Array) {
            place = {ReadIndex(part, index) ? tree.FindNumber(node, index) : kNone, kNone};
        } else if (const int child = tree.FindNamed(node, part); child != kNone) {
            place = {child, node};
        } else if (place.parent != kNone && ReadIndex(part, index)) {
            place = {tree.FindNamed(place.parent, tree.Name(node), index), kNone};
        } else {
            place = {};
        }
        if (place.node == kNone)
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
    bool b_json_ = false; // the document is json_, else tree_
    CDocumentTree tree_;
};

CRapidJsonProto::CRapidJsonProto() : d_ptr_(std::make_unique<CRapidJsonProtoDataPtr>()) {}

CRapidJsonProto::~CRapidJsonProto() = default;

bool CRapidJsonProto::Load(const std::string &text)
{
    d_ptr_->tree_.Clear();
    d_ptr_->json_ = {};
    d_ptr_->b_json_ = false;
    if (text.size() > kMaximumBytes)
        return false;
    constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";
    const size_t begin = text.rfind(kByteOrderMark, 0) == 0 ? sizeof kByteOrderMark - 1 : 0;
    const size_t first = text.find_first_not_of(" \t\r\n", begin);
    if (first == std::string::npos)
        return false;
    const auto bytes =
        QByteArray::fromRawData(text.data() + first, static_cast<int>(text.size() - first));
    if (bytes.at(0) == '<')
        return d_ptr_->tree_.ReadXml(bytes);
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
    CDocumentTree &tree = d_ptr_->tree_;
    if (d_ptr_->b_json_) {
        tree.ReadJson(d_ptr_->json_);
        d_ptr_->json_ = {};
        d_ptr_->b_json_ = false;
    }
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
    QString value = QString::fromStdString(text);
    tree.SetText(node, value);
    value.fill(QChar());
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
    const int node = FindNode(d_ptr_->tree_, parts).node;
    return node == CDocumentTree::kNone ? preset
                                        : IntOf(d_ptr_->tree_.Text(node).toString(), preset);
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
    const CDocumentTree &tree = d_ptr_->tree_;
    const int node = FindNode(tree, parts).node;
    if (node == CDocumentTree::kNone || tree.KindOf(node) == Kind::Object
        || tree.KindOf(node) == Kind::Array)
        return preset;
    const QStringView text = tree.Text(node);
    const bool is_null = tree.KindOf(node) == Kind::Literal && text == QLatin1String("null");
    return is_null ? preset : text.toString().toStdString();
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
    const CDocumentTree &tree = d_ptr_->tree_;
    const Place place = FindNode(tree, parts);
    if (place.node == CDocumentTree::kNone)
        return 0;
    const int named = place.parent == CDocumentTree::kNone
                          ? 0
                          : tree.CountNamed(place.parent, tree.Name(place.node));
    return named > 1 ? named : tree.CountChildren(place.node);
}

std::string CRapidJsonProto::ToJson() const
{
    const QJsonValue value = d_ptr_->b_json_ ? d_ptr_->json_ : d_ptr_->tree_.ToJson();
    const QJsonDocument document =
        value.isArray() ? QJsonDocument(value.toArray()) : QJsonDocument(value.toObject());
    return document.toJson(QJsonDocument::Compact).toStdString();
}

std::string CRapidJsonProto::ToXml() const
{
    if (!d_ptr_->b_json_)
        return d_ptr_->tree_.ToXml().toStdString();
    CDocumentTree tree;
    tree.ReadJson(d_ptr_->json_);
    return tree.ToXml().toStdString();
}

} // namespace ClientComm
