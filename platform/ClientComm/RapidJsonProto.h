// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>
#include <ClientComm/DocumentLimits.h>

#include <memory>
#include <string>

namespace ClientComm {

struct CRapidJsonProtoDataPtr;

/// \brief A JSON (RFC 8259) or XML (1.0) document that is read and written by slash paths, such as
/// "/ResponseStatus/ErrorCode".
///
/// A path names members of objects, or elements, from the outside in; names are UTF-8 and must not
/// be empty. Where it comes upon an array, or upon elements of the same name, the next part may be
/// a number, counted from 0; without one the first such element is meant, but no item of an array.
/// Attributes of elements are not read. One thread at a time.
///
/// All texts of the document, and the copies that reading and writing made, are overwritten when
/// they are no longer needed. The texts that are returned belong to the caller.
class VANTOR_BASE_EXPORT CRapidJsonProto
{
public:
    /// The longest text that Load() takes.
    static constexpr size_t kMaximumBytes = kDocumentBytes;
    /// The deepest nesting that Load() takes and SetString() makes.
    static constexpr int kMaximumDepth = kDocumentDepth;
    /// The longest name, in bytes of UTF-8, that Load() takes and SetString() makes.
    static constexpr size_t kMaximumNameBytes = kDocumentNameBytes;
    /// The most elements, or members and items, that Load() takes.
    static constexpr int kMaximumElements = kDocumentNodes;
    /// The most attributes of one element that Load() takes.
    static constexpr int kMaximumAttributes = kDocumentAttributes;

    CRapidJsonProto();
    ~CRapidJsonProto();
    CRapidJsonProto(const CRapidJsonProto &) = delete;
    CRapidJsonProto &operator=(const CRapidJsonProto &) = delete;

    /// \brief Replace the document by \a text: XML when its first character that is no blank is
    /// "<", else JSON, an object or an array.
    ///
    /// JSON is UTF-8; XML has the encoding that it declares. A document type is refused, and with
    /// it every entity but the five of XML.
    /// \return false for anything that is not well-formed or beyond a limit, and for two members of
    /// one name; the document is then empty. It takes time linear in \a text.
    bool Load(const std::string &text);

    /// \brief Put \a text at \a path and add missing members on the way.
    /// \return false when the path is malformed, too deep or has a name that is too long, leads
    /// through a text, an array or several elements of one name, or ends at something other than a
    /// text.
    bool SetString(const std::string &path, const std::string &text);

    /// \brief The whole number at \a path, or written in its text in decimal digits.
    /// \return \a preset when it is missing, does not fit an int or has a fraction.
    [[nodiscard]] int GetInt(const std::string &path, int preset = -1) const;

    /// \brief The text at \a path, UTF-8; of a number or a Boolean what JSON writes.
    /// \return \a preset when it is missing or null.
    [[nodiscard]] std::string GetString(const std::string &path,
                                        const std::string &preset = {}) const;

    /// \brief The number of items in the array at \a path, or of elements of that name when there
    /// are several, or of members of the object; 0 for a text and for nothing.
    [[nodiscard]] int GetCount(const std::string &path) const;

    /// \brief The document as compact JSON, members in the order of their names.
    [[nodiscard]] std::string ToJson() const;

    /// \brief The document as "<?xml version="1.0" encoding="UTF-8"?>", a line feed, its elements
    /// in the order in which they were set or read, and a line feed.
    ///
    /// Characters that XML cannot hold become U+FFFD.
    /// \return an empty text unless there is exactly one outermost member and every name is valid
    /// for an XML element.
    [[nodiscard]] std::string ToXml() const;

private:
    const std::unique_ptr<CRapidJsonProtoDataPtr> d_ptr_;
};

} // namespace ClientComm
