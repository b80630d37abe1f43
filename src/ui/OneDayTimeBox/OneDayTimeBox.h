// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QtGlobal>

#include <memory>

namespace Vantor {

struct COneDayTimeBoxDataPtr;

/// \brief The time of day at the remote site of a workstation. GUI thread only.
class VANTOR_EXPORT COneDayTimeBox
{
public:
    COneDayTimeBox();
    ~COneDayTimeBox();
    COneDayTimeBox(const COneDayTimeBox &) = delete;
    COneDayTimeBox &operator=(const COneDayTimeBox &) = delete;

    /// \brief Count in the time of the site of a workstation that
    /// ResourceManager::CWorkStationManager knows.
    /// \return false, with everything as it was, for an unknown id.
    bool SetRemoteSite(unsigned int workstationId);

    /// \brief Offset of the site from UTC in seconds, whole hours, east positive; 0 at first.
    [[nodiscard]] qint64 RemoteSiteOffset() const;

private:
    bool GetRemoteSiteOffsetSeconds(unsigned int workstationId);

    const std::unique_ptr<COneDayTimeBoxDataPtr> d_ptr_;
};

} // namespace Vantor
