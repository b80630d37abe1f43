// SPDX-License-Identifier: MIT
#pragma once

#include <Nim/Base/MonitorDriveUtil.h>
#include <Nim/Base/Singleton.h>
#include <VantorExport.h>

#include <memory>
#include <vector>

namespace Vantor {

class CScreenStateManager;

} // namespace Vantor

// The base library keeps its address for good.
template <> struct Nim::Base::IsKeptAtUnload<Vantor::CScreenStateManager> : std::true_type
{
};

extern template class VANTOR_EXPORT Nim::Base::CSingleton<Vantor::CScreenStateManager>;

namespace Vantor {

struct CScreenStateManagerDataPtr;

/// \brief Hands each change of the displays to any number of listeners.
///
/// The base library takes one callback; the manager gives it its own at the first SetCallBack() and
/// never withdraws it. Reached through Nim::Base::CSingleton<CScreenStateManager>::Instance().
///
/// The table of listeners has no lock, so that a listener may wait for another thread:
/// SetCallBack() belongs in the start-up, before displays change, or on the thread that notifies.
/// A listener may call it; a listener that is added so is called as well if its address comes later
/// in the order.
class VANTOR_EXPORT CScreenStateManager : public Nim::Base::CSingleton<CScreenStateManager>
{
public:
    ~CScreenStateManager();

    /// \brief Have \a callback, a Nim::Base::MonitorDriveUtil::DeviceChangeCallBack, called with
    /// \a user_data at each change; \a enable false keeps it in the table, silenced.
    ///
    /// The same callback again replaces its entry; there is no removal. Null is kept and never
    /// called. Called on the notifier's thread; a listener that touches widgets posts to the GUI
    /// thread itself.
    void SetCallBack(bool enable, void *callback, void *user_data);

    /// \brief Call each enabled listener, in the order of their addresses, with its own copy of
    /// \a devices. What a listener throws is logged and keeps the others from nothing.
    void UpdateScreenParam(std::vector<Nim::Base::MonitorDriveUtil::DeviceInfoStru> devices);

private:
    friend class Nim::Base::CSingleton<CScreenStateManager>;
    CScreenStateManager();

    const std::shared_ptr<CScreenStateManagerDataPtr> d_ptr_;
};

} // namespace Vantor
