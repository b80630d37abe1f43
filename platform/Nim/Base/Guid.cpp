// SPDX-License-Identifier: MIT
#include "Nim/Base/Guid.h"

#include <QtCore/QUuid>

namespace Nim::Base::Guid {

std::string Create()
{
    return QUuid::createUuid().toByteArray(QUuid::WithoutBraces).toStdString();
}

} // namespace Nim::Base::Guid
