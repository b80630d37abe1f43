// SPDX-License-Identifier: MIT
#pragma once

/// Includes all records of the namespace NimClientFrameWork.

#include "common/LoginData.h"
#include "common/SecuritySettings.h"
