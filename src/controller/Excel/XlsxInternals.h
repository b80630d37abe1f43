// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

struct lxw_object_properties;
struct lxw_workbook;
struct lxw_worksheet;

// Everything that looks into libxlsxwriter beyond its documented calls. The .cpp refuses to compile
// with an unknown version. Before you add a version, check each function here against it.
namespace Vantor::XlsxInternals {

// Whether rows go to a temporary file as soon as the next one begins. No call asks this of a sheet.
bool IsConstantMemory(const lxw_worksheet *sheet);
// The row that a sheet in constant-memory mode has not let go yet.
int CurrentRow(const lxw_worksheet *sheet);
// Whether the temporary file of the sheet refused bytes: libxlsxwriter does not look.
bool HasFailed(const lxw_worksheet *sheet);
// Pixels of a column or row as libxlsxwriter will count them where it places pictures: 0 when it is
// hidden, unless pictures with that position ignore this. It does not know the heights of rows that
// went to the temporary file, and takes the usual one.
int ColumnPx(const lxw_worksheet *sheet, int column, int object_position);
int RowPx(lxw_worksheet *sheet, int row, int object_position);

// The pictures of the sheet. The library measures each when it is inserted.
std::vector<lxw_object_properties *> Pictures(const lxw_worksheet *sheet);

// Replaces the list of the validation that was added last. worksheet_data_validation_range() counts
// characters but copies bytes into a buffer of that many; a formula would be the same XML, but a
// copy of it would leak.
void ReplaceLastList(lxw_worksheet *sheet, const std::string &formula);
// How many validations the sheet counts.
int ValidationCount(const lxw_worksheet *sheet);

// Name of the sheet's part in the archive.
std::string PartName(const lxw_worksheet *sheet);

// What the sheet puts into its part of the file, once its last row is written out.
struct SheetRows
{
    std::string part;        // name in the archive
    std::uint64_t bytes = 0; // of rows in the temporary file; 0 in memory
    bool is_sound = true;    // false: the temporary file could not be written
};
std::vector<SheetRows> FlushRows(lxw_workbook *workbook);

// Makes the first visible sheet active if the active one is hidden: libxlsxwriter would show that
// one again.
void ActivateVisibleSheet(lxw_workbook *workbook);

// Changes the name that workbook_close() writes to.
void SetFileName(lxw_workbook *workbook, const std::string &path);

// Closes the workbook, or frees it unsaved; no stream stays open. libxlsxwriter closes the
// temporary file of a sheet when it packs that sheet, so those behind a failure would stay open and
// fill the disk unseen. `error` is errno of a failed close as far as it is known, else 0.
int CloseWorkbook(lxw_workbook *workbook, int &error);
void FreeWorkbook(lxw_workbook *workbook);

} // namespace Vantor::XlsxInternals
