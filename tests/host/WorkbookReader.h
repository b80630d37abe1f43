// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QJsonArray>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

/// \brief What read_xlsx.py finds in the workbook \a path; empty, with a message on the standard
/// error output, when it cannot read it.
[[nodiscard]] QJsonObject ReadWorkbook(const QString &path);

/// \brief The sheet at \a index of what ReadWorkbook() gave.
[[nodiscard]] QJsonObject Sheet(const QJsonObject &workbook, int index);

/// \brief The cells of \a row as texts, numbers in their shortest form.
[[nodiscard]] QStringList Cells(const QJsonObject &sheet, int row);
