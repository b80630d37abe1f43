// SPDX-License-Identifier: MIT
#pragma once

#include "common/LogMacro.h"

#include <exception>
#include <utility>

namespace Vantor {

/// \brief Run \a body so that no exception leaves the library. An exception is logged at level 5
/// for \a function.
///
/// \return false if \a body threw.
template <class Body> bool RunGuarded(const char *function, Body &&body)
{
    try {
        std::forward<Body>(body)();
        return true;
    } catch (const std::exception &failure) {
        VANTOR_LOG(function, 5, VANTOR_LOG_WARNING, "Stopped by an exception: %s", failure.what());
    } catch (...) {
        VANTOR_LOG(function, 5, VANTOR_LOG_WARNING, "Stopped by an unknown exception.");
    }
    return false;
}

} // namespace Vantor
