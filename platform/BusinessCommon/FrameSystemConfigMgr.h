// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>
#include <Nim/Base/Singleton.h>

#include <atomic>

namespace BusinessCommon {

class CFrameSystemConfigMgr;

} // namespace BusinessCommon

extern template class VANTOR_BASE_EXPORT
    Nim::Base::CSingleton<BusinessCommon::CFrameSystemConfigMgr>;

namespace BusinessCommon {

/// \brief The client's configuration, as far as time is concerned. Reached through
/// Nim::Base::CSingleton<CFrameSystemConfigMgr>::Instance(). Any thread.
class VANTOR_BASE_EXPORT CFrameSystemConfigMgr : public Nim::Base::CSingleton<CFrameSystemConfigMgr>
{
    friend class Nim::Base::CSingleton<CFrameSystemConfigMgr>;
    CFrameSystemConfigMgr() = default;

public:
    /// \brief The configured time mode, a code of the client's; 0 until it is set.
    [[nodiscard]] int GetTimeZone() const;
    /// \brief Store \a mode; it is not checked, and nothing is emitted.
    void SetTimeZone(int mode);

private:
    std::atomic<int> mode_{0}; // written and read by any thread
};

} // namespace BusinessCommon
