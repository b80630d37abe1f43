// SPDX-License-Identifier: MIT
// Includes what nearly every test of widgets needs.
#pragma once

#include "support/Test.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
