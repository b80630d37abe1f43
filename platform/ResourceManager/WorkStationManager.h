// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>
#include <Nim/Base/Singleton.h>

#include <memory>
#include <mutex>
#include <vector>

namespace ResourceManager {

class CWorkStationManager;

} // namespace ResourceManager

extern template class VANTOR_BASE_EXPORT
    Nim::Base::CSingleton<ResourceManager::CWorkStationManager>;

namespace ResourceManager {

/// \brief A workstation and the time zone of its site.
class VANTOR_BASE_EXPORT CWorkStation
{
public:
    /// \param time_zones whole hours east of Greenwich.
    CWorkStation(unsigned int id, int time_zones);

    /// \brief The number that the server knows the workstation by.
    [[nodiscard]] unsigned int GetID() const;
    /// \brief The site's offset from UTC in whole hours, east positive.
    [[nodiscard]] int GetTimeZones() const;

private:
    unsigned int id_;
    int time_zones_;
};

/// \brief The workstations of the client; empty until SetWorkStations(). Reached through
/// Nim::Base::CSingleton<CWorkStationManager>::Instance(). Any thread.
class VANTOR_BASE_EXPORT CWorkStationManager : public Nim::Base::CSingleton<CWorkStationManager>
{
    friend class Nim::Base::CSingleton<CWorkStationManager>;
    CWorkStationManager() = default;

public:
    /// \return null if there is no such workstation. The object never changes, even if other
    /// workstations are set. Of several with one id, the first.
    [[nodiscard]] std::shared_ptr<const CWorkStation> FindWorkStationByID(unsigned int id) const;

    /// \brief Replace all workstations by \a workstations.
    void SetWorkStations(std::vector<CWorkStation> workstations);

private:
    using WorkStations = std::vector<CWorkStation>;

    mutable std::mutex mutex_;
    std::shared_ptr<const WorkStations> vec_workstations_; // under mutex_; null: the list is empty
};

} // namespace ResourceManager
