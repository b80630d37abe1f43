// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace Ravel {

class CTextBlock;

/// \brief The place of each row when the texts of \a column are sorted as QString::compare() does
/// it without case; equal texts share a place, and rows without that column come last.
std::vector<int> TextRanks(const std::vector<const CTextBlock *> &rows, int column);

/// \brief Whether \a left comes before \a right in that order.
bool IsTextLess(const CTextBlock &left, const CTextBlock &right, int column);

} // namespace Ravel
