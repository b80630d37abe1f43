// SPDX-License-Identifier: MIT
#include "ui/DockManager/AbstractDockFrame.h"

#include "common/ForwardEvents.h"

namespace Vantor {

struct CAbstractDockFramePtr
{
    bool b_auto_hide_ = true;
};

CAbstractDockFrame::CAbstractDockFrame(QWidget *parent)
    : QFrame(parent), d_ptr_(std::make_unique<CAbstractDockFramePtr>())
{}

CAbstractDockFrame::~CAbstractDockFrame() = default;

bool CAbstractDockFrame::IsAutoHide() const
{
    return d_ptr_->b_auto_hide_;
}

void CAbstractDockFrame::SetAutoHide(bool auto_hide)
{
    d_ptr_->b_auto_hide_ = auto_hide;
}

void CAbstractDockFrame::OnDockHide() {}

VANTOR_FORWARD_EVENTS(CAbstractDockFrame, QFrame)

} // namespace Vantor
