// SPDX-License-Identifier: MIT
// The pictures of a sheet: placed so that they end inside it.
#include "controller/Excel/ExcelPicture.h"
#include "controller/Excel/ExcelSheet.h"
#include "controller/Excel/ExcelText.h"
#include "controller/Excel/XlsxInternals.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace Vantor {
namespace {

constexpr int kMaxPicturePx = 32767; // a side, and the way to it from its cell
constexpr double kScreenDpi = 96;

double ScaleOf(double scale)
{
    return std::isfinite(scale) && scale > 0 ? scale : 1;
}

// Pixels from the cell `at` to the end of the sheet, as far as a picture may reach. The last one is
// left free: a picture that ends with the sheet would name the cell behind it.
int Room(int at, int count, int cell_px)
{
    return static_cast<int>(
        std::min<std::int64_t>(kMaxPicturePx, std::int64_t{count - at} * cell_px - 1));
}

int OffsetOf(int offset_px, int room_px)
{
    return std::clamp(offset_px, -kMaxPicturePx, room_px - 1);
}

// Makes the scaled size end within the room; true when it had to.
bool Clamp(double &scale, double &dpi, double size, int offset_px, double room_px)
{
    if (!std::isfinite(dpi) || dpi <= 0) // as the picture's header has it
        dpi = kScreenDpi;
    const double most = (room_px - std::max(offset_px, 0)) * dpi / (size * kScreenDpi);
    const bool is_more = scale > most;
    scale = std::min(scale, most);
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
    placed.x_offset = OffsetOf(options.x_offset,
                               Room(col, kSheetColumns, XlsxInternals::DefaultColumnPx(sheet_)));
    placed.y_offset =
        OffsetOf(options.y_offset, Room(row, kSheetRows, XlsxInternals::DefaultRowPx(sheet_)));
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
    if (Check(worksheet_insert_image_buffer_opt(sheet_, static_cast<lxw_row_t>(row),
                                                static_cast<lxw_col_t>(col), bytes, picture.size(),
                                                &placed)))
        KeepInside(*XlsxInternals::LastPicture(sheet_));
}

// libxlsxwriter 1.1.4 counts cell by cell where a picture ends, however far that is, and names
// cells that no sheet has.
void CExcelSheet::KeepInside(lxw_object_properties &picture)
{
    const double width =
        Room(static_cast<int>(picture.col), kSheetColumns, XlsxInternals::DefaultColumnPx(sheet_));
    const double height =
        Room(static_cast<int>(picture.row), kSheetRows, XlsxInternals::DefaultRowPx(sheet_));
    const bool is_narrowed =
        Clamp(picture.x_scale, picture.x_dpi, picture.width, picture.x_offset, width);
    const bool is_lowered =
        Clamp(picture.y_scale, picture.y_dpi, picture.height, picture.y_offset, height);
    if (is_narrowed || is_lowered)
        Lose(Loss::PictureShrunk);
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
