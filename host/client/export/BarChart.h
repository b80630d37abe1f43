// SPDX-License-Identifier: MIT
#pragma once

#include "export/ValueCount.h"

#include <QtCore/QByteArray>
#include <QtCore/QVector>

namespace Client {

/// \brief A chart as PNG, drawn finer than it will be shown.
struct BarChart
{
    QByteArray png;
    int pixels_per_point = 1;
};

/// \brief Draw one bar a value, the title above, in the reading direction of the language. Runs on
/// any thread.
[[nodiscard]] BarChart PaintBarChart(const QString &title, const QVector<ValueCount> &values);

} // namespace Client
