// SPDX-License-Identifier: MIT
#include "ui/BaseFileProgressBar/FileColours.h"

#include <QtGui/QBrush>

#include <algorithm>
#include <array>

namespace Vantor {
namespace {

constexpr QRgb kBlue = 0xFF2196F3;
constexpr QRgb kOrange = 0xFFFF6842;
constexpr int kPlainType = 1;
constexpr int kByRecord = 0; // the file type that leaves the choice to the record file type

struct LookRow
{
    int file_type;
    int record_type; // read for files of type kByRecord only
    int bar_type;
    QBrush brush;
};

QBrush Brush(QRgb colour)
{
    return QBrush(QColor(colour));
}

// The brushes are made once in the process.
const auto &Looks()
{
    static const std::array<LookRow, 11> rows{{
        {kByRecord, 0, 0, Brush(kBlue)},
        {kByRecord, 1, 1, Brush(0xFF836ABB)},
        {kByRecord, 2, 2, Brush(0xFFB25959)},
        {kByRecord, 13, 13, Brush(kOrange)},
        {kByRecord, 22, 22, Brush(0xFF666666)},
        {kByRecord, 500, 500, Brush(0xFF15B89B)},
        {kByRecord, 501, 501, Brush(0xFF519F8F)},
        {1, 0, 13, Brush(kOrange)},
        {3, 0, 13, Brush(kOrange)},
        {4, 0, 0, Brush(kBlue)},
        {5, 0, 13, Brush(kOrange)},
    }};
    return rows;
}

} // namespace

FileLook LookOfFile(int file_type, int record_file_type)
{
    const auto &rows = Looks();
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const LookRow &row) {
        return row.file_type == file_type
               && (file_type != kByRecord || row.record_type == record_file_type);
    });
    return found == rows.end() ? FileLook{} : FileLook{found->bar_type, found->brush.color()};
}

FileLook PlainLookOfFile()
{
    return {kPlainType, LookOfFile(kByRecord, 0).colour};
}

} // namespace Vantor
