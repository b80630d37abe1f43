// SPDX-License-Identifier: MIT
#pragma once

#include "controller/Excel/ExcelCloseNotes.h"

#include <array>
#include <cstddef>

namespace Vantor {

// The kinds of content that a workbook cannot keep.
enum class Loss : std::size_t {
    CellOutside,
    RowAbove,
    Number,
    TextCut,
    TextReplaced,
    LinkAsText,
    ListTooLong,
    ListEmpty,
    ListBeyond,
    MergeOverlaps,
    MergeBeyond,
    PictureUnreadable,
    PictureUnknown,
    PictureLink,
    PictureShrunk,
    LookReplaced,
    Refused,
    Count_
};

// The log line of a loss, and the field of the notes that counts it.
struct LossKind
{
    const char *text;
    int ExcelCloseNotes::*count;
};

const LossKind &KindOf(Loss loss);

using LossCounts = std::array<int, static_cast<std::size_t>(Loss::Count_)>;

// Adds what `counts` holds to `notes`.
void AddLosses(ExcelCloseNotes &notes, const LossCounts &counts);

} // namespace Vantor
