// SPDX-License-Identifier: MIT
#include "BusinessCommon/AdaptiveColumnWidthObserver.h"

namespace BusinessCommon {

CAdaptiveColumnWidthObserver::~CAdaptiveColumnWidthObserver() = default;

} // namespace BusinessCommon
