// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace ClientComm {

/// \brief Named texts in a tree, all UTF-8. Node 0 is the root, an object without a name.
///
/// All nodes are in one array, and all names and texts in one string, because a reply has tens of
/// thousands of them. Numbers of nodes stay valid until Clear(). Characters are overwritten before
/// their memory is given up.
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

    /// \brief Forget everything.
    void Clear();
    /// \brief Make room for \a size characters, so that reading them never grows the memory.
    void Reserve(size_t size);

    [[nodiscard]] size_t Size() const { return nodes_.size(); }
    [[nodiscard]] Kind KindOf(int node) const { return At(node).kind; }
    [[nodiscard]] std::string_view Text(int node) const { return View(At(node).text); }
    [[nodiscard]] std::string_view Name(int node) const { return View(At(node).name); }
    [[nodiscard]] int FirstChild(int node) const { return At(node).first_child; }
    [[nodiscard]] int NextSibling(int node) const { return At(node).next; }
    [[nodiscard]] int CountChildren(int node) const;
    /// \brief The child of that name; of several the one with that number. kNone if it is missing.
    [[nodiscard]] int FindNamed(int parent, std::string_view name, int number = 0) const;
    [[nodiscard]] int CountNamed(int parent, std::string_view name) const;
    /// \brief The child of that number, whatever its name. Reading the children in order is linear.
    [[nodiscard]] int FindNumber(int parent, int number) const;

    int AddChild(int parent, std::string_view name, Kind kind);
    /// \brief Replace the text of \a node.
    void SetText(int node, std::string_view text);
    /// \brief Continue the text that was added last.
    void AppendText(int node, std::string_view text);
    /// \brief Change what \a node is; its text is dropped.
    void SetKind(int node, Kind kind);

private:
    // A piece of the characters.
    struct Piece
    {
        size_t at = 0;
        size_t size = 0;
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

    // Where a search by number ended.
    struct Cursor
    {
        int parent = kNone;
        int number = 0;
        int node = kNone;
    };

    [[nodiscard]] const Node &At(int node) const { return nodes_[static_cast<size_t>(node)]; }
    [[nodiscard]] Node &At(int node) { return nodes_[static_cast<size_t>(node)]; }
    [[nodiscard]] std::string_view View(const Piece &piece) const
    {
        return std::string_view(characters_).substr(piece.at, piece.size);
    }
    Piece Append(std::string_view text);
    void DropText(int node);

    std::vector<Node> nodes_;
    std::string characters_;
    // Latest first, because rows and the cells of a row are searched in turns.
    mutable std::array<Cursor, 4> cursors_;
};

} // namespace ClientComm
