// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"
#include "list/IncidentList.h"

namespace Client {

class CLanguageSwitch;
class CThemeSwitch;

/// \brief Run --headless: export the list to the folder of \a options, and write there a picture of
/// the window in each theme and language, and one of the waiting dialog.
/// \return an exit status.
[[nodiscard]] int RunHeadless(const Options &options, const IncidentListPtr &list,
                              CThemeSwitch &theme, CLanguageSwitch &language);

} // namespace Client
