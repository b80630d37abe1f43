// SPDX-License-Identifier: MIT
// Includes what nearly every test needs.
#pragma once

#include "support/Files.h"
#include "support/Rows.h"
#include "support/TestGuard.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QPointer>
#include <QtCore/QRandomGenerator>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <array>
#include <atomic>
#include <functional>
#include <limits>
#include <memory>
#include <random>
#include <stdexcept>
#include <thread>
#include <vector>
