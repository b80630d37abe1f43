// SPDX-License-Identifier: MIT
#include "common/CustomEvent.h"

#include <QtCore/QMetaType>

namespace Vantor {
namespace {

void RegisterType()
{
    // Hosts look the type up under this name, reference sign included.
    static const int id = qRegisterMetaType<CCustomEvent>("CCustomEvent&");
    Q_UNUSED(id)
}

} // namespace

CCustomEvent::CCustomEvent() : CCustomEvent(QEvent::User) {}

CCustomEvent::CCustomEvent(int type) : QEvent(static_cast<QEvent::Type>(type))
{
    RegisterType();
}

CCustomEvent::CCustomEvent(const CCustomEvent &other) = default;
CCustomEvent &CCustomEvent::operator=(const CCustomEvent &other) = default;
CCustomEvent::~CCustomEvent() = default;

} // namespace Vantor
