// SPDX-License-Identifier: MIT
#pragma once

#include <Vantor/CExcelControllorWithC>

#include <QtCore/QByteArray>
#include <QtCore/QMap>
#include <QtCore/QString>

#include <functional>

/// \brief Writes a workbook with one sheet through \a fill and reads it back.
/// \return its parts; empty, with a warning, when it was not saved or a part is not well-formed.
[[nodiscard]] QMap<QString, QByteArray>
WrittenParts(const QString &path, const std::function<void(Vantor::CExcelControllorWithC &)> &fill,
             const std::string &name = "Sheet", const std::string &cache = {});

/// A look with its default values.
[[nodiscard]] std::shared_ptr<Vantor::Clxw_format_> AnyLook();

/// A PNG picture of one colour, 96 pixels an inch.
[[nodiscard]] std::string PngBytes(int width, int height);

/// The files in a workbook by their names.
using Parts = QMap<QString, QByteArray>;

/// \brief Reads a workbook with Python's zipfile, which checks every sum; empty when it is no sound
/// archive.
[[nodiscard]] Parts ReadParts(const QString &path);

/// \brief Compares the workbooks folder/ours/N.xlsx and folder/plain/N.xlsx, part for part but the
/// time of creation.
/// \return what differs, or how many are the same: "600 pairs are the same".
[[nodiscard]] QString ComparePairs(const QString &folder);
