// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/Record.h>

namespace Vantor {

// The library's records and the platform's follow one copy rule.
using Nim::Base::CRecord;
using Nim::Base::DeepAssignment;
using Nim::Base::SharedAssignment;

} // namespace Vantor
