// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>
#include <Nim/Base/Error.h>

#include <QtCore/QString>

namespace ErrorText {

/// \brief An error code that will be shown to the user.
class VANTOR_BASE_EXPORT CErrorCodeEvent
{
public:
    CErrorCodeEvent() = default; ///< No error: all numbers are 0.
    /// \brief The error \a code, as the server or a library reported it.
    explicit CErrorCodeEvent(const Nim::Base::Error::ErrorCode &code) : code_(code) {}

    /// \brief The numbers of the error; all 0 without an error.
    [[nodiscard]] Nim::Base::Error::ErrorCode GetErrorCode() const { return code_; }
    /// \brief The text for the user, see GetErrorInfoByErrorCode(); empty if there is no error.
    [[nodiscard]] QString GetErrorText() const;

private:
    Nim::Base::Error::ErrorCode code_;
};

} // namespace ErrorText
