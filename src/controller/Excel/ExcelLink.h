// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Vantor {

// How a link is handed to libxlsxwriter.
struct LinkCell
{
    bool is_link = false;     // false: the address is beyond the format's limits
    bool is_replaced = false; // characters that a workbook cannot hold were replaced
    std::string target;
    bool has_display = false; // false: libxlsxwriter shows the target
    std::string display;      // also an attribute of links inside the workbook
    bool has_text = false;    // false: the cell keeps `display`
    std::string text;         // of the cell, not fitted yet
};

// The link to `url`, not empty, that shows `text`, or the address when that is null.
LinkCell PlanLink(const std::string &url, const std::string *text);

} // namespace Vantor
