// SPDX-License-Identifier: MIT
// Includes what nearly every test needs.
#pragma once

#include "support/Files.h"
#include "support/Rows.h"
#include "support/TestGuard.h"

#include <QtCore/QPointer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <memory>
