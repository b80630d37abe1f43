// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/Encrypt.h>

#include <string>
#include <utility>

namespace Nim::Base {

/// \brief A text that is overwritten before its memory is given up: a password, a session.
///
/// It is a std::string in all else. What is copied out of it into a std::string is the caller's to
/// overwrite, see Encrypt::Wipe().
class SecretText : public std::string
{
public:
    SecretText() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): a std::string in all else
    SecretText(std::string text) : std::string(text) { Encrypt::Wipe(text); }
    SecretText(const char *text) : std::string(text) {} // NOLINT(google-explicit-constructor)
    SecretText(const SecretText &other) = default;

    SecretText &operator=(const SecretText &other)
    {
        if (this != &other) {
            Encrypt::Wipe(*this);
            assign(other);
        }
        return *this;
    }

    ~SecretText() { Encrypt::Wipe(*this); }
};

} // namespace Nim::Base

/// The accessors of a field that is a SecretText; hosts see std::string.
#define VANTOR_RECORD_SECRET(field)                                                                \
    [[nodiscard]] std::string GetVal_##field() const                                               \
    {                                                                                              \
        return data_ptr_->field;                                                                   \
    }                                                                                              \
    void SetVal_##field(const std::string &value)                                                  \
    {                                                                                              \
        data_ptr_->field = ::Nim::Base::SecretText(value);                                         \
    }
