// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>

#include <utility>
#include <vector>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
QT_END_NAMESPACE

namespace Vantor {

/// \brief The texts that a column holds, each once, and which texts of another column stand in
/// their rows.
struct ColumnTexts
{
    std::vector<QString> texts;               ///< in alphabetical order, without regard to case
    std::vector<QString> mains;               ///< of the other column, in no order
    std::vector<std::pair<int, int>> related; ///< indexes of a text and a main of a row, each once
};

/// \brief Collect the texts of the top-level rows of \a model.
///
/// \param main_column the other column; one that the model lacks gives no mains.
[[nodiscard]] ColumnTexts CollectTexts(const QAbstractItemModel &model, int column,
                                       int main_column);

} // namespace Vantor
