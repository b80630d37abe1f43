// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

// The defaults of the operating system; each system has a source file that defines them.
namespace Nim::Base::OS {

bool SystemListSeparator(QString &separator);
bool SystemCapsLock();

} // namespace Nim::Base::OS
