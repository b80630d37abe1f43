// SPDX-License-Identifier: MIT
#include "Ravel/Frame.h"

namespace Ravel {

CFrame::~CFrame() = default;

} // namespace Ravel
