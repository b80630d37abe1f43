// SPDX-License-Identifier: MIT
#include "ResourceManager/WorkStationManager.h"

#include <algorithm>
#include <utility>

template class Nim::Base::CSingleton<ResourceManager::CWorkStationManager>;

namespace ResourceManager {

CWorkStation::CWorkStation(unsigned int id, int time_zones) : id_(id), time_zones_(time_zones) {}

unsigned int CWorkStation::GetID() const
{
    return id_;
}

int CWorkStation::GetTimeZones() const
{
    return time_zones_;
}

std::shared_ptr<const CWorkStation> CWorkStationManager::FindWorkStationByID(unsigned int id) const
{
    std::shared_ptr<const WorkStations> all;
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        all = vec_workstations_;
    }
    if (!all)
        return nullptr;
    const auto found = std::find_if(all->begin(), all->end(),
                                    [id](const CWorkStation &one) { return one.GetID() == id; });
    // The pointer keeps the whole list, which is replaced and never changed.
    return found == all->end() ? nullptr : std::shared_ptr<const CWorkStation>(all, &*found);
}

void CWorkStationManager::SetWorkStations(std::vector<CWorkStation> workstations)
{
    std::shared_ptr<const WorkStations> next =
        std::make_shared<const WorkStations>(std::move(workstations));
    const std::lock_guard<std::mutex> lock(mutex_);
    vec_workstations_.swap(next); // the old list is deleted outside the lock
}

} // namespace ResourceManager
