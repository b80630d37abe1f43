// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QJsonValue>
#include <QtCore/QString>
#include <QtCore/QStringView>

#include <vector>

QT_BEGIN_NAMESPACE
class QXmlStreamWriter;
QT_END_NAMESPACE

namespace ClientComm {

/// \brief Named texts in a tree. Node 0 is the root, an object without a name.
///
/// Nodes lie in one array and their names and texts in one string, because a reply has tens of
/// thousands of them. Numbers of nodes stay valid until Clear().
class CDocumentTree
{
public:
    enum class Kind {
        Text,
        Literal, ///< a number, Boolean or null; its text is what JSON writes
        Object,
        Array, ///< its children have no names
    };

    static constexpr int kRoot = 0;
    static constexpr int kNone = -1;

    CDocumentTree();
    ~CDocumentTree();
    CDocumentTree(const CDocumentTree &) = delete;
    CDocumentTree &operator=(const CDocumentTree &) = delete;

    /// \brief Forget everything; the characters are overwritten.
    void Clear();

    /// \brief Replace everything by XML, whose outermost element becomes the root's one child.
    /// \return false, with an empty tree, when it is refused.
    [[nodiscard]] bool ReadXml(const QByteArray &text);
    /// \brief Replace everything by an object or array of JSON.
    void ReadJson(const QJsonValue &value);

    /// \brief The document as XML; empty when it cannot be.
    [[nodiscard]] QByteArray ToXml() const;
    [[nodiscard]] QJsonValue ToJson(int node = kRoot) const;

    [[nodiscard]] Kind KindOf(int node) const { return At(node).kind; }
    [[nodiscard]] QStringView Text(int node) const { return View(At(node).text); }
    [[nodiscard]] QStringView Name(int node) const { return View(At(node).name); }
    [[nodiscard]] int FirstChild(int node) const { return At(node).first_child; }
    [[nodiscard]] int NextSibling(int node) const { return At(node).next; }
    [[nodiscard]] int CountChildren(int node) const;
    /// \brief The child of that name, or of several the one of that number; kNone for no such.
    [[nodiscard]] int FindNamed(int parent, QStringView name, int number = 0) const;
    [[nodiscard]] int CountNamed(int parent, QStringView name) const;
    /// \brief The child of that number, whatever its name.
    [[nodiscard]] int FindNumber(int parent, int number) const;

    int AddChild(int parent, QStringView name, Kind kind);
    /// \brief Make \a node a text or a literal; the text before is overwritten.
    void SetText(int node, QStringView text, Kind kind = Kind::Text);

private:
    // A piece of the characters.
    struct Piece
    {
        int at = 0;
        int size = 0;
    };

    struct Node
    {
        Piece name;
        Piece text;
        int first_child = kNone;
        int last_child = kNone;
        int next = kNone;
        Kind kind = Kind::Object;
    };

    [[nodiscard]] const Node &At(int node) const { return nodes_[static_cast<size_t>(node)]; }
    [[nodiscard]] Node &At(int node) { return nodes_[static_cast<size_t>(node)]; }
    [[nodiscard]] QStringView View(const Piece &piece) const
    {
        return QStringView(characters_).mid(piece.at, piece.size);
    }
    Piece Append(QStringView text);
    void Reserve(int size);
    void AppendText(int node, QStringView text);
    void AddJson(int parent, QStringView name, const QJsonValue &value);
    bool ReadElements(const QByteArray &text);
    [[nodiscard]] bool WriteElement(QXmlStreamWriter &writer, int node, const QString &name) const;

    std::vector<Node> nodes_;
    QString characters_;
};

} // namespace ClientComm
