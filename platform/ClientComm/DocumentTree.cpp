// SPDX-License-Identifier: MIT
#include "ClientComm/DocumentTree.h"

#include "Nim/Base/Encrypt.h"

#include <algorithm>
#include <utility>

namespace ClientComm {

CDocumentTree::CDocumentTree() : nodes_(1) {}

CDocumentTree::~CDocumentTree()
{
    Clear();
}

void CDocumentTree::Clear()
{
    nodes_.assign(1, {});
    Nim::Base::Encrypt::Wipe(characters_);
    cursors_ = {};
}

void CDocumentTree::Reserve(size_t size)
{
    if (size <= characters_.capacity())
        return;
    std::string larger;
    larger.reserve(size);
    larger = characters_;
    characters_.swap(larger);
    Nim::Base::Encrypt::Wipe(larger);
}

CDocumentTree::Piece CDocumentTree::Append(std::string_view text)
{
    const Piece piece{characters_.size(), text.size()};
    if (piece.at + piece.size > characters_.capacity())
        Reserve(2 * (piece.at + piece.size));
    characters_.append(text);
    return piece;
}

int CDocumentTree::AddChild(int parent, std::string_view name, Kind kind)
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

void CDocumentTree::SetText(int node, std::string_view text)
{
    DropText(node);
    At(node).text = Append(text);
}

void CDocumentTree::AppendText(int node, std::string_view text)
{
    const Piece added = Append(text);
    Piece &whole = At(node).text;
    if (whole.size == 0)
        whole = added;
    else
        whole.size += added.size;
}

void CDocumentTree::SetKind(int node, Kind kind)
{
    DropText(node);
    At(node).kind = kind;
}

void CDocumentTree::DropText(int node)
{
    const Piece before = std::exchange(At(node).text, {});
    std::fill_n(characters_.begin() + static_cast<std::ptrdiff_t>(before.at), before.size, '\0');
}

int CDocumentTree::FindNamed(int parent, std::string_view name, int number) const
{
    for (int child = FirstChild(parent); child != kNone; child = NextSibling(child)) {
        if (Name(child) == name && number-- == 0)
            return child;
    }
    return kNone;
}

int CDocumentTree::CountNamed(int parent, std::string_view name) const
{
    int count = 0;
    for (int child = FirstChild(parent); child != kNone; child = NextSibling(child))
        count += Name(child) == name ? 1 : 0;
    return count;
}

int CDocumentTree::FindNumber(int parent, int number) const
{
    const auto latest = cursors_.begin();
    const auto known = std::find_if(
        latest, cursors_.end(), [parent](const Cursor &cursor) { return cursor.parent == parent; });
    const auto place = known != cursors_.end() ? known : cursors_.end() - 1;
    const bool is_ahead = known != cursors_.end() && known->number <= number;
    Cursor found = is_ahead ? *known : Cursor{parent, 0, FirstChild(parent)};
    for (; found.node != kNone && found.number < number; ++found.number)
        found.node = NextSibling(found.node);
    if (found.node != kNone) {
        *place = found;
        std::rotate(latest, place, place + 1);
    }
    return found.node;
}

int CDocumentTree::CountChildren(int node) const
{
    int count = 0;
    for (int child = FirstChild(node); child != kNone; child = NextSibling(child))
        ++count;
    return count;
}

} // namespace ClientComm
