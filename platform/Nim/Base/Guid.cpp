// SPDX-License-Identifier: MIT
#include "Nim/Base/Guid.h"

#include <QtCore/QUuid>

namespace Nim::Base::GuidUtil {

std::string CreateGuid()
{
    return QUuid::createUuid().toByteArray(QUuid::WithoutBraces).toStdString();
}

} // namespace Nim::Base::GuidUtil
