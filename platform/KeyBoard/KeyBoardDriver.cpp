// SPDX-License-Identifier: MIT
#include "KeyBoard/KeyBoardDriver.h"

KeyBoardDriver::~KeyBoardDriver() = default;
