// SPDX-License-Identifier: MIT
#pragma once

#include "ui/MutiPageWidget/MutiPageForm.h"
#include "ui/MutiPageWidget/PageState.h"

#include <QtGui/QGuiApplication>

namespace Vantor {

struct CMutiPageWidgetDataPtr
{
    explicit CMutiPageWidgetDataPtr(QWidget *page)
        : b_right_to_left_(QGuiApplication::isRightToLeft()), form_(page, b_right_to_left_)
    {}

    bool b_records_sentence_ = false;
    CPageState page_;
    bool b_local_paging_ = true;
    bool b_next_by_total_ = false;

    const bool b_right_to_left_;
    int shown_records_ = 0; // what the records label says, for another language
    const CMutiPageForm form_;
};

} // namespace Vantor
