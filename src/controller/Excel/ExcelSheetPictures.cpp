// SPDX-License-Identifier: MIT
// The pictures of a sheet: placed so that they end inside it.
#include "controller/Excel/ExcelPicture.h"
#include "controller/Excel/ExcelSheet.h"
#include "controller/Excel/ExcelText.h"
#include "controller/Excel/XlsxInternals.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <cmath>
#include <functional>

namespace Vantor {
namespace {

constexpr int kMaxPicturePx = 32767; // a side, and the way to it from its cell
constexpr double kScreenDpi = 96;

double ScaleOf(double scale)
{
    return std::isfinite(scale) && scale > 0 ? scale : 1;
}

// Columns or rows of the sheet: how many there are, and their sizes in pixels.
struct Cells
{
    int count;
    std::function<int(int)> size_of;
};

// Pixels from the cell `at` to the end of the sheet, as far as a picture may reach. The last one is
// left free: a picture that ends with the sheet would name the cell behind it.
int Room(const Cells &cells, int at)
{
    int room = -1;
    for (int cell = at; cell < cells.count && room < kMaxPicturePx; ++cell)
        room += cells.size_of(cell);
    return std::min(room, kMaxPicturePx);
}

// As far in front of the cell `at` as the sheet goes, and not behind its end.
int OffsetOf(const Cells &cells, int at, int offset_px, int room_px)
{
    const int offset = std::clamp(offset_px, -kMaxPicturePx, room_px - 1);
    int before = 0;
    for (int cell = at - 1; cell >= 0 && before > offset; --cell)
        before -= cells.size_of(cell);
    return std::max(offset, std::min(before, 0));
}

// One direction of a picture.
struct Side
{
    int at;         // cell that it begins in
    int &offset_px; // from the beginning of that cell; may be negative
    double size_px; // as the picture has it
    double &scale;
    double &dpi;
};

// Makes the picture begin and end inside the sheet; true when it had to be made smaller.
//
// libxlsxwriter 1.1.4 counts cell by cell where a picture ends, however far that is, and names
// cells that no sheet has.
bool KeepInside(const Cells &cells, const Side &side)
{
    const int room = Room(cells, side.at);
    side.offset_px = OffsetOf(cells, side.at, side.offset_px, room);
    if (!std::isfinite(side.dpi) || side.dpi <= 0) // as the picture's header has it
        side.dpi = kScreenDpi;
    const int most_px = std::clamp(room - side.offset_px, 1, kMaxPicturePx);
    const double most = most_px * side.dpi / (side.size_px * kScreenDpi);
    const bool is_more = side.scale > most;
    side.scale = std::min(side.scale, most);
    return is_more;
}

} // namespace

void CExcelSheet::InsertPicture(int row, int col, const std::string &picture,
                                const lxw_image_options_ &options)
{
    if (!Holds(CellAt(row, col)))
        return;
    const auto *const bytes = reinterpret_cast<const unsigned char *>(picture.data());
    if (!IsPicture(bytes, picture.size())) {
        Lose(Loss::PictureUnknown);
        return;
    }
    lxw_image_options placed{};
    placed.x_offset = options.x_offset;
    placed.y_offset = options.y_offset;
    placed.x_scale = ScaleOf(options.x_scale);
    placed.y_scale = ScaleOf(options.y_scale);
    placed.object_position = options.object_position;
    // libxlsxwriter copies the texts. An empty address would become a link to nowhere.
    const auto fit = [this](const char *text) { return text ? FitAttribute(text) : std::string(); };
    constexpr std::size_t kMost = ExcelText::kMaxAttributeBytes;
    std::string description = ExcelText::CutToBytes(fit(options.description), kMost);
    std::string url = ExcelText::LinkTarget(fit(options.url));
    std::string tip = ExcelText::CutToBytes(fit(options.tip), kMost);
    const bool is_link = !url.empty() && ExcelText::EscapedBytes(url) <= kMost;
    if (!url.empty() && !is_link)
        Lose(Loss::PictureLink);
    placed.description = options.description ? description.data() : nullptr;
    placed.url = is_link ? url.data() : nullptr;
    placed.tip = options.tip ? tip.data() : nullptr;
    Check(worksheet_insert_image_buffer_opt(sheet_, static_cast<lxw_row_t>(row),
                                            static_cast<lxw_col_t>(col), bytes, picture.size(),
                                            &placed));
}

void CExcelSheet::KeepPicturesInside()
{
    for (lxw_object_properties *const picture : XlsxInternals::Pictures(sheet_)) {
        const int position = picture->object_position;
        const Cells columns{kSheetColumns, [this, position](int column) {
                                return XlsxInternals::ColumnPx(sheet_, column, position);
                            }};
        const Cells rows{kSheetRows, [this, position](int row) {
                             return XlsxInternals::RowPx(sheet_, row, position);
                         }};
        const bool is_narrowed =
            KeepInside(columns, {picture->col, picture->x_offset, picture->width, picture->x_scale,
                                 picture->x_dpi});
        const bool is_lowered =
            KeepInside(rows, {static_cast<int>(picture->row), picture->y_offset, picture->height,
                              picture->y_scale, picture->y_dpi});
        if (is_narrowed || is_lowered)
            Lose(Loss::PictureShrunk);
    }
}

void CExcelSheet::InsertPictureFile(int row, int col, const std::string &path)
{
    if (!Holds(CellAt(row, col)))
        return;
    std::string bytes;
    if (!ReadPictureFile(path, bytes)) {
        Lose(Loss::PictureUnreadable);
        return;
    }
    std::string description = path.substr(path.find_last_of('/') + 1); // npos + 1 is 0: all of it
    lxw_image_options_ options;
    options.description = description.data();
    InsertPicture(row, col, bytes, options);
}

} // namespace Vantor
