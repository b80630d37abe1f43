// SPDX-License-Identifier: MIT
#pragma once

#include "KeyBoard/DeviceThread.h"
#include "KeyBoard/JoystickPlugin.h"

#include <functional>

namespace KeyBoard {

/// \brief Polls the joysticks of the plug-in a hundred times a second. Without the plug-in, which a
/// log line then reports, there are no joysticks.
class CJoystickThread : public CDeviceThread // clazy:exclude=ctor-missing-parent-argument
{
public:
    /// Called on the thread.
    using Take = std::function<void(quint32 code, quint32 value)>;

    /// \brief Joysticks are heard when this returns.
    explicit CJoystickThread(Take take);
    ~CJoystickThread() override;

private:
    bool Prepare() override;
    void Serve() override;

    const Take take_;
    const JoystickPlugin *plugin_ = nullptr; // these two are the thread's
    void *handle_ = nullptr;
};

} // namespace KeyBoard
