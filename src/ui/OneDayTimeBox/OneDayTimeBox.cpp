// SPDX-License-Identifier: MIT
#include "ui/OneDayTimeBox/OneDayTimeBox.h"

#include <Nim/Base/TimeUnits.h>
#include <ResourceManager/WorkStationManager.h>

namespace Vantor {

using Nim::Base::kSecondsPerHour;

struct COneDayTimeBoxDataPtr
{
    qint64 remote_site_offset_s_ = 0;
};

COneDayTimeBox::COneDayTimeBox() : d_ptr_(std::make_unique<COneDayTimeBoxDataPtr>()) {}

COneDayTimeBox::~COneDayTimeBox() = default;

bool COneDayTimeBox::SetRemoteSite(unsigned int workstationId)
{
    return GetRemoteSiteOffsetSeconds(workstationId);
}

qint64 COneDayTimeBox::RemoteSiteOffset() const
{
    return d_ptr_->remote_site_offset_s_;
}

bool COneDayTimeBox::GetRemoteSiteOffsetSeconds(unsigned int workstationId)
{
    const auto workstation =
        Nim::Base::CSingleton<ResourceManager::CWorkStationManager>::Instance().FindWorkStationByID(
            workstationId);
    if (!workstation)
        return false;
    d_ptr_->remote_site_offset_s_ = workstation->GetTimeZones() * kSecondsPerHour;
    return true;
}

} // namespace Vantor
