// SPDX-License-Identifier: MIT
#pragma once

namespace Server {

/// \brief An account that a seeded server begins with, for trying things out.
struct SampleAccount
{
    const char *name;
    const char *password;
};

constexpr SampleAccount kSampleAccounts[] = {
    {"operator", "Vantor-operator-1"},
    {"supervisor", "Vantor-supervisor-1"},
    {"visitor", "Vantor-visitor-1"},
};

} // namespace Server
