// SPDX-License-Identifier: MIT
#include "KeyBoard/JoystickThread.h"

#include "KeyBoard/PluginPath.h"
#include "Nim/Base/Log.h"

#include <QtCore/QLibrary>

namespace KeyBoard {
namespace {

using namespace std::chrono_literals;

constexpr auto kPollTime = 10ms;

// The plug-in stays loaded: SDL cannot be unloaded safely while a client may use it too.
const JoystickPlugin *LoadPlugin()
{
    QLibrary library(LibraryFolder() + QLatin1Char('/') + QLatin1String(kJoystickPluginFile));
    library.setLoadHints(QLibrary::PreventUnloadHint);
    const auto function =
        reinterpret_cast<JoystickPluginFunction>(library.resolve(kJoystickPluginFunction));
    if (function)
        return function();
    Nim::Base::Log::WriteFramed("KeyBoard::CJoystickThread", __FILE__, __LINE__, 4,
                                "ClientWarningAndMore",
                                "There are no joysticks, because their plug-in is missing: %s",
                                qUtf8Printable(library.errorString()));
    return nullptr;
}

} // namespace

CJoystickThread::CJoystickThread(Take take) : take_(std::move(take))
{
    Begin();
}

CJoystickThread::~CJoystickThread()
{
    End();
}

bool CJoystickThread::Prepare()
{
    plugin_ = LoadPlugin();
    if (!plugin_)
        return false;
    const auto take = [](quint32 code, quint32 value, void *thread) {
        static_cast<CJoystickThread *>(thread)->take_(code, value);
    };
    handle_ = plugin_->begin(take, this);
    if (!handle_)
        return false;
    plugin_->poll(handle_);
    return true;
}

void CJoystickThread::Serve()
{
    while (!ShallEnd(kPollTime))
        plugin_->poll(handle_);
    plugin_->end(handle_);
}

} // namespace KeyBoard
