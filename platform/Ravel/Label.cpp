// SPDX-License-Identifier: MIT
#include "Ravel/Label.h"

namespace Ravel {

CLabel::~CLabel() = default;

} // namespace Ravel
