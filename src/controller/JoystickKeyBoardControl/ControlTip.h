// SPDX-License-Identifier: MIT
#pragma once

namespace Vantor {

/// \brief A pop-up at the lower right of the screen, beside the coordinator's tip parent.
///
/// \param key      of the text.
/// \param context  the class that speaks, for the translation.
/// \param is_found a device was found: the pop-up's information type is 7.
void ShowControlTip(const char *key, const char *context, bool is_found = false);

} // namespace Vantor
