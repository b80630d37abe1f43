// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/qnamespace.h>

namespace Client {

/// \brief The columns of the list of evidence.
enum EvidenceColumn { kName, kSize, kResult };

// The data of a row besides its texts.
constexpr int kPathRole = Qt::UserRole;      // of the name: the path of the file
constexpr int kBytesRole = Qt::UserRole;     // of the size
constexpr int kTargetRole = Qt::UserRole;    // of the result: the path of the copy, or empty
constexpr int kErrorRole = Qt::UserRole + 1; // of the result: why there is no copy, or empty

/// The steps of the bar that shows how far a copy is.
constexpr int kBarSteps = 1000;

} // namespace Client
