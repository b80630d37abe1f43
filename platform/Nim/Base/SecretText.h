// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/Encrypt.h>

#include <string>

namespace Nim::Base {

/// \brief A text that is overwritten before its memory is given up: a password, a session.
///
/// It can be read, compared and replaced as a whole; nothing appends to it, because growing would
/// leave copies behind. A caller that copies it into a std::string must overwrite that copy, see
/// Encrypt::Wipe().
class SecretText
{
public:
    SecretText() = default; ///< Empty.
    /// \brief Copies \a text and overwrites the parameter; the caller's own string is left as it
    /// is.
    // NOLINTNEXTLINE(google-explicit-constructor): hosts hand over std::string
    SecretText(std::string text) : text_(text.data(), text.size()) { Encrypt::Wipe(text); }
    /// \brief Copies a zero-terminated text, not null.
    SecretText(const char *text) : text_(text) {} // NOLINT(google-explicit-constructor)
    /// \brief A second copy, overwritten on its own.
    SecretText(const SecretText &other) = default;

    /// \brief Overwrites the old text before it copies the new one.
    SecretText &operator=(const SecretText &other)
    {
        if (this != &other) {
            Encrypt::Wipe(text_);
            text_ = other.text_;
        }
        return *this;
    }

    ~SecretText() { Encrypt::Wipe(text_); }

    /// \brief See Text().
    operator const std::string &() const { return text_; } // NOLINT(google-explicit-constructor)
    /// \brief The text, valid until it is replaced or deleted.
    [[nodiscard]] const std::string &Text() const { return text_; }

    [[nodiscard]] bool empty() const { return text_.empty(); }      ///< Whether the length is 0.
    [[nodiscard]] std::size_t size() const { return text_.size(); } ///< The length in bytes.
    [[nodiscard]] const char *data() const { return text_.data(); } ///< The bytes, zero-terminated.
    [[nodiscard]] const char *c_str() const { return text_.c_str(); } ///< The same as data().

    /// \brief Compares bytes; the time depends on where the texts differ.
    friend bool operator==(const SecretText &a, const SecretText &b) { return a.text_ == b.text_; }
    /// \brief The opposite of ==.
    friend bool operator!=(const SecretText &a, const SecretText &b) { return a.text_ != b.text_; }

private:
    std::string text_;
};

} // namespace Nim::Base

/// The accessors of a field that is a SecretText; hosts see std::string.
#define VANTOR_RECORD_SECRET(field)                                                                \
    [[nodiscard]] std::string GetVal_##field() const                                               \
    {                                                                                              \
        return data_ptr_->field.Text();                                                            \
    }                                                                                              \
    void SetVal_##field(const std::string &value)                                                  \
    {                                                                                              \
        data_ptr_->field = ::Nim::Base::SecretText(value);                                         \
    }
