// SPDX-License-Identifier: MIT
#pragma once

#include <Ravel/MultiPairData.h>
#include <VantorExport.h>

#include <QtCore/QEvent>

#include <memory>

namespace Vantor {

struct CCustomEventDataPtr;

/// \brief An event that carries key/value pairs through Qt's event queue.
///
/// Copies have the type and the pairs of the original and are independent of it. May be made on any
/// thread. Receivers identify it by dynamic_cast, because CUpdateEvent and CJoystickKeyboardEvent
/// use the same numbers.
///
/// The first event registers the type "CCustomEvent&" with the meta-type system, so that queued
/// signals can have it as an argument.
class VANTOR_EXPORT CCustomEvent : public QEvent, public Ravel::CMultiPairData
{
public:
    /// \brief An event of type 1000 (QEvent::User).
    CCustomEvent();
    /// \param type the whole number of the event, 1000 to 65535: smaller ones are Qt's own, and of
    ///             larger ones Qt keeps the lower 16 bits.
    explicit CCustomEvent(int type);
    /// \brief The type and the pairs of \a other.
    CCustomEvent(const CCustomEvent &other);
    /// \brief Takes the type and the pairs of \a other.
    CCustomEvent &operator=(const CCustomEvent &other);
    ~CCustomEvent() override;

private:
    std::shared_ptr<CCustomEventDataPtr> d_ptr_; // empty, reserved
};

} // namespace Vantor
