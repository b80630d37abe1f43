// SPDX-License-Identifier: MIT
#pragma once

#include "BusinessCommon/AdaptiveLayout.h"

#include <utility>

namespace BusinessCommon {

/// \brief Gets the outcome of each layout request.
class VANTOR_BASE_EXPORT CAdaptiveColumnWidthObserver
{
public:
    /// \brief The outcome of one request.
    struct Param
    {
        int current_column_state = 0;     ///< 1: success
        int get_or_post = 0;              ///< 0: it was a read, otherwise a write
        std::pair<int, int> error_code{}; ///< module and code, see CNetCommManager
        AdaptiveLayoutResponse result;    ///< for a read that succeeded
    };

    virtual ~CAdaptiveColumnWidthObserver();

    /// \brief Called on the GUI thread, once a request. May unregister itself, delete the manager
    /// and ask again.
    virtual void UpdateAdaptiveColumnWidthCurrentState(const Param &param) = 0;
};

} // namespace BusinessCommon
