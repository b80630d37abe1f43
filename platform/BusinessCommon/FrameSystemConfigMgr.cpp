// SPDX-License-Identifier: MIT
#include "BusinessCommon/FrameSystemConfigMgr.h"

template class Nim::Base::CSingleton<BusinessCommon::CFrameSystemConfigMgr>;

namespace BusinessCommon {

int CFrameSystemConfigMgr::GetTimeZone() const
{
    return mode_;
}

void CFrameSystemConfigMgr::SetTimeZone(int mode)
{
    mode_ = mode;
}

} // namespace BusinessCommon
