// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QMap>
#include <QtCore/QString>

/// The files in a workbook by their names.
using Parts = QMap<QString, QByteArray>;

/// \brief Reads a workbook with Python's zipfile, which checks every sum; empty when it is no sound
/// archive.
[[nodiscard]] Parts ReadParts(const QString &path);

/// \return the first part that is not well-formed XML; empty when all are.
[[nodiscard]] QString DamagedPart(const Parts &parts);

/// \brief Compares the workbooks folder/ours/N.xlsx and folder/plain/N.xlsx, part for part but the
/// time of creation.
/// \return what differs, or how many are the same: "600 pairs are the same".
[[nodiscard]] QString ComparePairs(const QString &folder);
