// SPDX-License-Identifier: MIT
#include "ClientComm/DocumentTree.h"

#include "ClientComm/RapidJsonProto.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <algorithm>

namespace ClientComm {
namespace {

constexpr char kDeclaration[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

// An earlier element whose name the next child of `parent` probably has: the child before it, or
// the one at its place in the element before `parent`. Lists repeat a few names a thousand times;
// sharing them saves half of the memory and most of the time.
const Node *LikelyNamesake(const std::vector<Node *> &open, const QStringRef &name)
{
    Node &parent = *open.back();
    if (!parent.children.empty() && parent.children.back().name == name)
        return &parent.children.back();
    if (open.size() < 2 || open[open.size() - 2]->children.size() < 2)
        return nullptr;
    const auto &parents = open[open.size() - 2]->children;
    const auto &cousins = parents[parents.size() - 2].children;
    const size_t place = parent.children.size();
    if (place == 0)
        parent.children.reserve(cousins.size());
    return place < cousins.size() && cousins[place].name == name ? &cousins[place] : nullptr;
}

bool OpenElement(const QXmlStreamReader &reader, std::vector<Node *> &open)
{
    if (open.size() > size_t(CRapidJsonProto::kMaximumDepth))
        return false;
    Node &parent = *open.back();
    parent.kind = Node::Kind::Object;
    parent.text.clear(); // what stood between the tags
    const QStringRef name = reader.qualifiedName();
    const Node *const namesake = LikelyNamesake(open, name);
    QString shared = namesake ? namesake->name : name.toString(); // growing moves the namesake
    parent.children.emplace_back();
    parent.children.back().name = std::move(shared);
    open.push_back(&parent.children.back());
    return true;
}

void AddText(Node &node, const QXmlStreamReader &reader)
{
    if (node.kind != Node::Kind::Text)
        return;
    if (node.text.isEmpty())
        node.text = reader.text().toString();
    else
        node.text += reader.text();
}

// Letters, digits, "-", "." and "_", no digit, "-" or "." in front: what servers use, and XML's
// rule for ASCII.
bool IsElementName(const QString &name)
{
    const auto may_start = [](QChar c) { return c.isLetter() || c == QLatin1Char('_'); };
    const auto may_follow = [&may_start](QChar c) {
        return may_start(c) || c.isDigit() || c == QLatin1Char('-') || c == QLatin1Char('.');
    };
    return !name.isEmpty() && may_start(name.at(0))
           && std::all_of(name.begin(), name.end(), may_follow);
}

QString XmlText(QString text)
{
    constexpr ushort kFirstPlain = 0x20;
    for (QChar &c : text) {
        const bool is_control = c.unicode() < kFirstPlain && c != QLatin1Char('\t')
                                && c != QLatin1Char('\n') && c != QLatin1Char('\r');
        if (is_control || c.isNonCharacter())
            c = QChar::ReplacementCharacter;
    }
    return text;
}

// Readers take a carriage return as it stands for a line feed.
void WriteText(QXmlStreamWriter &writer, const QString &text)
{
    for (int begin = 0; begin < text.size();) {
        const int end = text.indexOf(QLatin1Char('\r'), begin);
        writer.writeCharacters(text.mid(begin, end < 0 ? -1 : end - begin));
        if (end < 0)
            break;
        writer.writeEntityReference(QStringLiteral("#13"));
        begin = end + 1;
    }
}

bool WriteElement(QXmlStreamWriter &writer, const Node &node, const QString &name)
{
    if (node.kind == Node::Kind::Array) {
        return std::all_of(node.children.begin(), node.children.end(),
                           [&](const Node &item) { return WriteElement(writer, item, name); });
    }
    if (!IsElementName(name))
        return false;
    writer.writeStartElement(name);
    WriteText(writer, XmlText(node.text));
    const bool is_written =
        std::all_of(node.children.begin(), node.children.end(),
                    [&](const Node &child) { return WriteElement(writer, child, child.name); });
    writer.writeEndElement();
    return is_written;
}

QJsonValue LiteralOf(const QString &text)
{
    const QJsonDocument parsed = QJsonDocument::fromJson('[' + text.toUtf8() + ']');
    return parsed.array().at(0);
}

} // namespace

bool ReadXml(const QByteArray &text, Node &root)
{
    QXmlStreamReader reader(text);
    reader.setNamespaceProcessing(false);
    std::vector<Node *> open{&root};
    int elements = 0;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            if (++elements > CRapidJsonProto::kMaximumElements || !OpenElement(reader, open))
                return false;
            break;
        case QXmlStreamReader::EndElement:
            open.pop_back();
            break;
        case QXmlStreamReader::Characters:
            AddText(*open.back(), reader);
            break;
        case QXmlStreamReader::DTD:
        case QXmlStreamReader::EntityReference:
        case QXmlStreamReader::Invalid:
            return false;
        default:
            break;
        }
    }
    return !reader.hasError();
}

QByteArray WriteXml(const Node &root)
{
    if (root.kind != Node::Kind::Object || root.children.size() != 1
        || root.children.front().kind == Node::Kind::Array)
        return {};
    QByteArray text;
    QXmlStreamWriter writer(&text);
    writer.setCodec("UTF-8");
    if (!WriteElement(writer, root.children.front(), root.children.front().name))
        return {};
    text = kDeclaration + text + '\n';
    // Which letters beyond ASCII a name may hold is for the reader to say.
    Node copy;
    copy.kind = Node::Kind::Object;
    return ReadXml(text, copy) ? text : QByteArray();
}

Node NodeOf(const QString &name, const QJsonValue &value)
{
    Node node;
    node.name = name;
    if (value.isObject()) {
        node.kind = Node::Kind::Object;
        const QJsonObject object = value.toObject();
        for (auto member = object.begin(); member != object.end(); ++member)
            node.children.push_back(NodeOf(member.key(), member.value()));
    } else if (value.isArray()) {
        node.kind = Node::Kind::Array;
        const QJsonArray array = value.toArray();
        for (const QJsonValue item : array)
            node.children.push_back(NodeOf({}, item));
    } else if (value.isString()) {
        node.text = value.toString();
    } else {
        node.kind = Node::Kind::Literal;
        node.text = value.isNull() ? QStringLiteral("null") : value.toVariant().toString();
    }
    return node;
}

QJsonValue JsonOf(const Node &node)
{
    switch (node.kind) {
    case Node::Kind::Text:
        return node.text;
    case Node::Kind::Literal:
        return LiteralOf(node.text);
    case Node::Kind::Array: {
        QJsonArray array;
        for (const Node &item : node.children)
            array.append(JsonOf(item));
        return array;
    }
    case Node::Kind::Object:
        break;
    }
    QJsonObject object;
    for (const Node &child : node.children) {
        // Elements of one name become an array.
        const auto found = object.find(child.name);
        if (found == object.end()) {
            object.insert(child.name, JsonOf(child));
            continue;
        }
        QJsonArray several = child.kind != Node::Kind::Array && found->isArray()
                                 ? found->toArray()
                                 : QJsonArray{*found};
        several.append(JsonOf(child));
        *found = several;
    }
    return object;
}

void Wipe(Node &node)
{
    if (node.text.isDetached())
        node.text.fill(QChar());
    for (Node &child : node.children)
        Wipe(child);
}

} // namespace ClientComm
