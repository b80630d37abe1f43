// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

// What each operating system answers by itself; one source file per system defines these.
namespace Nim::Base::OS {

bool SystemListSeparator(QString &separator);
bool SystemCapsLock();

} // namespace Nim::Base::OS
