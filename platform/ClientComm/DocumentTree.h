// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QJsonValue>
#include <QtCore/QString>

#include <vector>

namespace ClientComm {

/// \brief One named text of a document, or what holds more of them.
struct Node
{
    enum class Kind {
        Text,
        Literal, ///< a number, Boolean or null; its text is what JSON writes
        Object,
        Array, ///< its children have no names
    };

    QString name;
    QString text; ///< empty for objects and arrays
    std::vector<Node> children;
    Kind kind = Kind::Text;
};

/// \brief Read XML into \a root, whose one child is the outermost element.
/// \return false, and a root that holds anything, when it is refused.
[[nodiscard]] bool ReadXml(const QByteArray &text, Node &root);

/// \brief \a root as XML; empty when it cannot be.
[[nodiscard]] QByteArray WriteXml(const Node &root);

[[nodiscard]] Node NodeOf(const QString &name, const QJsonValue &value);
[[nodiscard]] QJsonValue JsonOf(const Node &node);

/// \brief Overwrite every text that nobody else shares.
void Wipe(Node &node);

} // namespace ClientComm
