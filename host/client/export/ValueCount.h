// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

namespace Client {

/// \brief How often a value occurs.
struct ValueCount
{
    QString value;
    int count = 0;
};

} // namespace Client
