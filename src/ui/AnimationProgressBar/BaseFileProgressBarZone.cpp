// SPDX-License-Identifier: MIT
#include "ui/AnimationProgressBar/BaseFileProgressBar.h"

#include <BusinessCommon/IsoTime.h>

namespace Vantor {

qint64 CBaseFileProgressBar::ISOTimeToTimeT(std::string text) // NOLINT: by value is fixed
{
    return BusinessCommon::IsoTextToSeconds(text);
}

} // namespace Vantor
