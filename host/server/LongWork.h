// SPDX-License-Identifier: MIT
#pragma once

#include "Store.h"

#include <chrono>

namespace Server {

/// \brief Lets the statements of a store take hours as long as this exists, because they make
/// indexes or fill tables.
class CLongWork
{
public:
    explicit CLongWork(CStore &store) : store_(store)
    {
        constexpr std::chrono::hours kPatience{24};
        store_.SetPatience(kPatience);
    }

    ~CLongWork()
    {
        try {
            store_.ResetPatience();
        } catch (const DatabaseError &) {
            return; // the connection is lost, and the store is of no use any more
        }
    }

    CLongWork(const CLongWork &) = delete;
    CLongWork &operator=(const CLongWork &) = delete;

private:
    CStore &store_;
};

} // namespace Server
