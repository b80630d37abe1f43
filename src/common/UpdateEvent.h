// SPDX-License-Identifier: MIT
#pragma once

#include <VantorExport.h>

#include <QtCore/QEvent>

#include <memory>

namespace Vantor {

struct CUpdateEventDataPtr;

/// \brief An event that says no more than its type. May be made on any thread.
class VANTOR_EXPORT CUpdateEvent : public QEvent
{
public:
    /// \brief An event of type 1000 (QEvent::User).
    CUpdateEvent();
    /// \param offset what is added to 1000, 0 to 64535. CCustomEvent takes the whole number instead.
    explicit CUpdateEvent(int offset);
    CUpdateEvent(const CUpdateEvent &other);
    CUpdateEvent &operator=(const CUpdateEvent &other);
    ~CUpdateEvent() override;

private:
    std::shared_ptr<CUpdateEventDataPtr> d_ptr_; // empty: room for what may come
};

} // namespace Vantor
