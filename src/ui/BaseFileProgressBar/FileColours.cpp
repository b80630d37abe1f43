// SPDX-License-Identifier: MIT
#include "ui/BaseFileProgressBar/FileColours.h"

#include <QtGui/QBrush>

#include <algorithm>
#include <array>
#include <iterator>

namespace Vantor {
namespace {

struct LookRow
{
    int type;
    int bar_type;
    QRgb colour;
};

constexpr QRgb kBlue = 0xFF2196F3;
constexpr QRgb kOrange = 0xFFFF6842;
constexpr int kPlainType = 1;

// By record file type, for files of type 0.
constexpr LookRow kRecordLooks[] = {
    {0, 0, kBlue},        {1, 1, 0xFF836ABB},     {2, 2, 0xFFB25959},     {13, 13, kOrange},
    {22, 22, 0xFF666666}, {500, 500, 0xFF15B89B}, {501, 501, 0xFF519F8F},
};

// By file type.
constexpr LookRow kFileLooks[] = {
    {1, 13, kOrange}, {3, 13, kOrange}, {5, 13, kOrange}, {4, 0, kBlue}};

// The brushes of a table, made once in the process.
template <size_t size> auto BrushesOf(const LookRow (&rows)[size])
{
    std::array<QBrush, size> brushes;
    std::transform(std::begin(rows), std::end(rows), brushes.begin(),
                   [](const LookRow &row) { return QBrush(QColor(row.colour)); });
    return brushes;
}

template <size_t size>
FileLook Find(const LookRow (&rows)[size], const std::array<QBrush, size> &brushes, int type)
{
    const auto *const found = std::find_if(std::begin(rows), std::end(rows),
                                           [type](const LookRow &row) { return row.type == type; });
    if (found == std::end(rows))
        return {}; // not a default brush: its colour is a valid black
    return {found->bar_type, brushes[size_t(found - std::begin(rows))].color()};
}

} // namespace

FileLook LookOfFile(int file_type, int record_file_type)
{
    static const auto record_brushes = BrushesOf(kRecordLooks);
    static const auto file_brushes = BrushesOf(kFileLooks);
    return file_type == 0 ? Find(kRecordLooks, record_brushes, record_file_type)
                          : Find(kFileLooks, file_brushes, file_type);
}

FileLook PlainLookOfFile()
{
    static const QBrush brush{QColor(kBlue)};
    return {kPlainType, brush.color()};
}

} // namespace Vantor
