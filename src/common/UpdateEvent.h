// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QEvent>

#include <memory>

namespace Vantor {

struct CUpdateEventDataPtr;

/// \brief An event without data. May be created on any thread.
class VANTOR_EXPORT CUpdateEvent : public QEvent
{
public:
    /// \brief An event of type 1000 (QEvent::User).
    CUpdateEvent();
    /// \param offset added to 1000 for the type, 0 to 64535. CCustomEvent takes
    ///               the type itself instead.
    explicit CUpdateEvent(int offset);
    /// \brief The type of \a other.
    CUpdateEvent(const CUpdateEvent &other);
    /// \brief Takes the type of \a other.
    CUpdateEvent &operator=(const CUpdateEvent &other);
    ~CUpdateEvent() override;

private:
    std::shared_ptr<CUpdateEventDataPtr> d_ptr_; // empty, reserved
};

} // namespace Vantor
