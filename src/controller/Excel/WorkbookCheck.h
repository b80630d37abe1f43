// SPDX-License-Identifier: MIT
#pragma once

#include "controller/Excel/XlsxInternals.h"

#include <QtCore/QtGlobal>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

QT_BEGIN_NAMESPACE
class QXmlStreamReader;
QT_END_NAMESPACE

namespace Vantor {

// Reads one XML part of a workbook piece by piece, to its end.
//
// Parsing the cells as well would take longer than writing them. So the content of <sheetData> and
// <sst>, whose texts were checked before they were written, is only searched for bytes that XML
// forbids; everything else goes through Qt's reader.
class CXmlPart
{
public:
    CXmlPart();
    ~CXmlPart();
    CXmlPart(const CXmlPart &) = delete;
    CXmlPart &operator=(const CXmlPart &) = delete;

    void Take(std::string_view piece);
    // Whether the pieces so far are one well-formed document.
    [[nodiscard]] bool IsWhole();

private:
    enum class Place { BeforeCells, InCells, AfterCells };

    void TakeBefore();
    void TakeCells();
    void Read(std::string_view bytes);

    const std::unique_ptr<QXmlStreamReader> reader_;
    Place place_ = Place::BeforeCells;
    std::string pending_;   // bytes that are not decided on yet
    std::string cells_end_; // the tag that ends the cells
    bool has_forbidden_ = false;
};

// 0 when the file `path` is a sound archive whose parts are whole and hold all of `rows`, else what
// libxlsxwriter 1.1.4 should have said: it does not look whether its temporary files could be
// written.
int CheckWorkbook(const std::string &path, const std::vector<XlsxInternals::SheetRows> &rows);

} // namespace Vantor
