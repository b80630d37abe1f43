// SPDX-License-Identifier: MIT
#include "common/UpdateEvent.h"

namespace Vantor {

CUpdateEvent::CUpdateEvent() : CUpdateEvent(0) {}

// Unsigned, so that no offset overflows: Qt keeps the lower 16 bits anyway.
CUpdateEvent::CUpdateEvent(int offset)
    : QEvent(static_cast<QEvent::Type>(quint16(unsigned(QEvent::User) + unsigned(offset))))
{}

CUpdateEvent::CUpdateEvent(const CUpdateEvent &other) = default;
CUpdateEvent &CUpdateEvent::operator=(const CUpdateEvent &other) = default;
CUpdateEvent::~CUpdateEvent() = default;

} // namespace Vantor
