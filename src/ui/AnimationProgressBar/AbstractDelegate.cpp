// SPDX-License-Identifier: MIT
#include "common/ForwardEvents.h"
#include "ui/AnimationProgressBar/AbstractDelegate_p.h"

namespace Vantor {

CAbstractDelegate::CAbstractDelegate(int type, QObject *parent)
    : QObject(parent), d_ptr_(std::make_unique<CAbstractDelegateDataPtr>())
{
    d_ptr_->type_ = type;
}

CAbstractDelegate::~CAbstractDelegate()
{
    if (const auto leave = d_ptr_->leave_) // a copy, because leaving empties the field
        leave();
}

int CAbstractDelegate::GetDelegateType() const
{
    return d_ptr_->type_;
}

CAnimationProgressBar *CAbstractDelegate::AnimationProgressBar() const
{
    return d_ptr_->ptr_bar_;
}

void CAbstractDelegate::Clear() {}

QVariantList CAbstractDelegate::GetValidPixmapInfo()
{
    return {};
}

QVariantList CAbstractDelegate::GetValidTipInfo()
{
    return {};
}

void CAbstractDelegate::UpdateValidPixmapInfo() {}

bool CAbstractDelegate::ShouldRespondAtPos(QPoint /*pos*/)
{
    return false;
}

void CAbstractDelegate::Paint(QPainter * /*painter*/) {}

VANTOR_FORWARD_EVENTS(CAbstractDelegate, QObject)

} // namespace Vantor
