// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/Log.h>

// Categories of the client's log.
#define VANTOR_LOG_FRAMEWORK "Clientframework"
#define VANTOR_LOG_USER_OPERATE "UserOperate"
#define VANTOR_LOG_CLIENT_USER_OPERATE "ClientUserOperate"
#define VANTOR_LOG_WARNING "ClientWarningAndMore"

/// Writes one log line "[function]message[file(line)]".
///
/// \param function the qualified name of the operation, as a literal, because compilers spell their
///                 own names differently, and a helper logs for the operation that called it.
/// \param level    of Nim::Base::Log::Level: 3 information, 4 warning, 5 error.
/// \param category one of the categories above.
///
/// The rest is a printf format and its arguments; text from outside goes in through "%s" only.
#define VANTOR_LOG(function, level, category, ...)                                                 \
    ::Nim::Base::Log::WriteFramed(function, __FILE__, __LINE__, level, category, __VA_ARGS__)
