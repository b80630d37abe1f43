// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QtGlobal>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

namespace Vantor {

/// \brief What the managers of the devices ask of the coordinator, which implements it and hands it
/// down to them.
class CControlHost
{
public:
    /// No stop counts as a repeat, and a move that runs is stopped before its device ends.
    [[nodiscard]] virtual bool AlwaysSendsStops() const = 0;
    /// Devices that can steer windows or a camera begin with the camera.
    [[nodiscard]] virtual bool BeginsWithCamera() const = 0;
    /// The widget whose screen shows the pop-ups; may be null.
    [[nodiscard]] virtual QWidget *TipParent() const = 0;
    /// A command that is no stop is about to be emitted.
    virtual void OnCommand() = 0;
    /// A device has switched between windows and camera.
    virtual void OnModeSwitched() = 0;

protected:
    ~CControlHost() = default;
};

} // namespace Vantor
