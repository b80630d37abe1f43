// SPDX-License-Identifier: MIT
#include "controller/Excel/ExcelLink.h"

#include "controller/Excel/ExcelText.h"

namespace Vantor {
namespace {

// libxlsxwriter writes the shown text of a link inside the workbook as an attribute too, cut
// inside a character and with its control characters.
bool IsInside(const std::string &target)
{
    return target.rfind("internal:", 0) == 0;
}

} // namespace

LinkCell PlanLink(const std::string &url, const std::string *text)
{
    LinkCell link;
    const std::string address = ExcelText::CleanedAttribute(url);
    link.is_replaced = address != url;
    link.target = ExcelText::LinkTarget(address);
    link.is_link = ExcelText::EscapedBytes(link.target) <= ExcelText::kMaxAttributeBytes;
    if (!link.is_link)
        return link;
    if (text) {
        link.has_display = true;
        link.display = ExcelText::CutToBytes(ExcelText::CleanedAttribute(*text),
                                             ExcelText::kMaxAttributeBytes);
        link.has_text = link.display != *text || ExcelText::HasEscape(link.display);
        link.text = *text;
        if (link.has_text && !IsInside(link.target))
            link.display.clear();
        return link;
    }
    // libxlsxwriter would show the escaped form, and without its first letters where "mailto:"
    // is in the middle.
    link.has_display =
        link.target != address || link.target.find("mailto:", 1) != std::string::npos;
    link.display = address;
    link.has_text = ExcelText::HasEscape(address);
    link.text = address;
    return link;
}

} // namespace Vantor
