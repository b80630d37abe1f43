// SPDX-License-Identifier: MIT
#include "ClientComm/DocumentTree.h"

#include "ClientComm/RapidJsonProto.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QMap>
#include <QtCore/QXmlStreamReader>
#include <QtCore/QXmlStreamWriter>

#include <algorithm>

namespace ClientComm {
namespace {

constexpr char kDeclaration[] = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

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

QJsonValue LiteralOf(const QString &text)
{
    const QJsonDocument parsed = QJsonDocument::fromJson('[' + text.toUtf8() + ']');
    return parsed.array().at(0);
}

} // namespace

CDocumentTree::CDocumentTree() : nodes_(1) {}

CDocumentTree::~CDocumentTree()
{
    Clear();
}

void CDocumentTree::Clear()
{
    nodes_.assign(1, {});
    characters_.fill(QChar());
    characters_.clear();
}

// Never leaves a copy of the characters behind: they may be secrets.
void CDocumentTree::Reserve(int size)
{
    if (size <= characters_.capacity())
        return;
    QString larger;
    larger.reserve(size);
    larger.append(characters_);
    characters_.fill(QChar());
    characters_.swap(larger);
}

CDocumentTree::Piece CDocumentTree::Append(QStringView text)
{
    const Piece piece{characters_.size(), static_cast<int>(text.size())};
    if (piece.at + piece.size > characters_.capacity())
        Reserve(2 * (piece.at + piece.size));
    characters_.append(text.data(), piece.size);
    return piece;
}

int CDocumentTree::AddChild(int parent, QStringView name, Kind kind)
{
    const int child = static_cast<int>(nodes_.size());
    Node node;
    node.name = Append(name);
    node.kind = kind;
    nodes_.push_back(node);
    Node &above = At(parent);
    if (above.last_child == kNone)
        above.first_child = child;
    else
        At(above.last_child).next = child;
    above.last_child = child;
    return child;
}

void CDocumentTree::SetText(int node, QStringView text, Kind kind)
{
    const Piece before = At(node).text;
    std::fill_n(characters_.begin() + before.at, before.size, QChar());
    At(node).text = Append(text);
    At(node).kind = kind;
}

// Texts come in pieces, one behind the other.
void CDocumentTree::AppendText(int node, QStringView text)
{
    const Piece added = Append(text);
    Piece &whole = At(node).text;
    if (whole.size == 0)
        whole = added;
    else if (whole.at + whole.size == added.at)
        whole.size += added.size;
    // Otherwise elements have come in between, and it is no text.
}

int CDocumentTree::FindNamed(int parent, QStringView name, int number) const
{
    for (int child = FirstChild(parent); child != kNone; child = NextSibling(child)) {
        if (Name(child) == name && number-- == 0)
            return child;
    }
    return kNone;
}

int CDocumentTree::CountNamed(int parent, QStringView name) const
{
    int count = 0;
    for (int child = FirstChild(parent); child != kNone; child = NextSibling(child))
        count += Name(child) == name ? 1 : 0;
    return count;
}

int CDocumentTree::FindNumber(int parent, int number) const
{
    int child = FirstChild(parent);
    while (child != kNone && number-- > 0)
        child = NextSibling(child);
    return child;
}

int CDocumentTree::CountChildren(int node) const
{
    int count = 0;
    for (int child = FirstChild(node); child != kNone; child = NextSibling(child))
        ++count;
    return count;
}

bool CDocumentTree::ReadXml(const QByteArray &text)
{
    Clear();
    Reserve(text.size());
    if (ReadElements(text))
        return true;
    Clear();
    return false;
}

bool CDocumentTree::ReadElements(const QByteArray &text)
{
    QXmlStreamReader reader(text);
    reader.setNamespaceProcessing(false);
    std::vector<int> open{kRoot};
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            if (nodes_.size() > size_t(CRapidJsonProto::kMaximumElements)
                || open.size() > size_t(CRapidJsonProto::kMaximumDepth))
                return false;
            At(open.back()).kind = Kind::Object;
            At(open.back()).text = {}; // what stood between the tags
            open.push_back(AddChild(open.back(), reader.qualifiedName(), Kind::Text));
            break;
        case QXmlStreamReader::EndElement:
            open.pop_back();
            break;
        case QXmlStreamReader::Characters:
            if (KindOf(open.back()) == Kind::Text)
                AppendText(open.back(), reader.text());
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

QByteArray CDocumentTree::ToXml() const
{
    const int outermost = FirstChild(kRoot);
    if (KindOf(kRoot) != Kind::Object || CountChildren(kRoot) != 1
        || KindOf(outermost) == Kind::Array)
        return {};
    QByteArray text;
    QXmlStreamWriter writer(&text);
    writer.setCodec("UTF-8");
    if (!WriteElement(writer, outermost, Name(outermost).toString()))
        return {};
    text = kDeclaration + text + '\n';
    // Which letters beyond ASCII a name may hold is for the reader to say.
    CDocumentTree copy;
    return copy.ReadXml(text) ? text : QByteArray();
}

bool CDocumentTree::WriteElement(QXmlStreamWriter &writer, int node, const QString &name) const
{
    const bool is_array = KindOf(node) == Kind::Array;
    if (!is_array) {
        if (!IsElementName(name))
            return false;
        writer.writeStartElement(name);
        WriteText(writer, XmlText(Text(node).toString()));
    }
    for (int child = FirstChild(node); child != kNone; child = NextSibling(child)) {
        if (!WriteElement(writer, child, is_array ? name : Name(child).toString()))
            return false;
    }
    if (!is_array)
        writer.writeEndElement();
    return true;
}

void CDocumentTree::ReadJson(const QJsonValue &value)
{
    Clear();
    if (value.isArray()) {
        At(kRoot).kind = Kind::Array;
        const QJsonArray array = value.toArray();
        for (const QJsonValue &item : array)
            AddJson(kRoot, {}, item);
        return;
    }
    const QJsonObject object = value.toObject();
    for (auto member = object.begin(); member != object.end(); ++member)
        AddJson(kRoot, member.key(), member.value());
}

void CDocumentTree::AddJson(int parent, QStringView name, const QJsonValue &value)
{
    if (value.isObject()) {
        const int node = AddChild(parent, name, Kind::Object);
        const QJsonObject object = value.toObject();
        for (auto member = object.begin(); member != object.end(); ++member)
            AddJson(node, member.key(), member.value());
    } else if (value.isArray()) {
        const int node = AddChild(parent, name, Kind::Array);
        const QJsonArray array = value.toArray();
        for (const QJsonValue &item : array)
            AddJson(node, {}, item);
    } else if (value.isString()) {
        SetText(AddChild(parent, name, Kind::Text), value.toString());
    } else {
        const QString text = value.isNull() ? QStringLiteral("null") : value.toVariant().toString();
        SetText(AddChild(parent, name, Kind::Literal), text, Kind::Literal);
    }
}

QJsonValue CDocumentTree::ToJson(int node) const
{
    switch (KindOf(node)) {
    case Kind::Text:
        return Text(node).toString();
    case Kind::Literal:
        return LiteralOf(Text(node).toString());
    case Kind::Array: {
        QJsonArray array;
        for (int item = FirstChild(node); item != kNone; item = NextSibling(item))
            array.append(ToJson(item));
        return array;
    }
    case Kind::Object:
        break;
    }
    QMap<QString, QJsonArray> members; // more than one value: elements of one name
    for (int child = FirstChild(node); child != kNone; child = NextSibling(child))
        members[Name(child).toString()].append(ToJson(child));
    QJsonObject object;
    for (auto member = members.cbegin(); member != members.cend(); ++member)
        object.insert(member.key(),
                      member->size() == 1 ? member->at(0) : QJsonValue(member.value()));
    return object;
}

} // namespace ClientComm
