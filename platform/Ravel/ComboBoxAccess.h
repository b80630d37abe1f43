// SPDX-License-Identifier: MIT
#pragma once

namespace Ravel {

/// \brief Let assistive technology see a CComboBox by its accessible name. Called by each that is
/// made; works once.
void InstallComboBoxAccess();

} // namespace Ravel
