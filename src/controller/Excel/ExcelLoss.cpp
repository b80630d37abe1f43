// SPDX-License-Identifier: MIT
#include "controller/Excel/ExcelLoss.h"

namespace Vantor {
namespace {

using Notes = ExcelCloseNotes;

// In the order of Loss.
constexpr std::array<LossKind, static_cast<std::size_t>(Loss::Count_)> kKinds{{
    {"cells outside the sheet were left out", &Notes::cells_left_out},
    {"what came for a row above the current one was left out", &Notes::cells_left_out},
    {"a number that is not finite was left out", &Notes::cells_left_out},
    {"a text was cut to 32,767 characters", &Notes::texts_cut},
    {"what a workbook cannot hold was replaced in a text", &Notes::texts_replaced},
    {"links beyond the format's limits were written as plain text", &Notes::links_as_text},
    {"a list of more than 255 characters was left out", &Notes::lists_left_out},
    {"a list without items was left out", &Notes::lists_left_out},
    {"lists beyond the 65,534th validation were left out", &Notes::lists_left_out},
    {"a merged range that overlaps another was written without a merge", &Notes::merges_left_out},
    {"ranges beyond the 65,535th were written without a merge", &Notes::merges_left_out},
    {"a picture file that cannot be read was left out", &Notes::pictures_left_out},
    {"what is no PNG, JPEG, BMP or GIF picture was left out", &Notes::pictures_left_out},
    {"a picture's link beyond the format's limits was left out", &Notes::links_left_out},
    {"a picture larger than the sheet was made smaller", &Notes::pictures_shrunk},
    {"looks beyond the 64,000th were replaced by others", &Notes::looks_replaced},
    {"what the format does not allow was left out", &Notes::cells_left_out},
}};

} // namespace

const LossKind &KindOf(Loss loss)
{
    return kKinds[static_cast<std::size_t>(loss)];
}

void AddLosses(ExcelCloseNotes &notes, const LossCounts &counts)
{
    for (std::size_t i = 0; i < counts.size(); ++i)
        notes.*kKinds[i].count += counts[i];
}

} // namespace Vantor
