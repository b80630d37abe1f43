// SPDX-License-Identifier: MIT
// Loaded by the test as a host loads its plug-ins: own symbols hidden, the library shared.
#include <Nim/Base/Log.h>
#include <Ravel/WaitWatcher.h>
#include <Vantor/CStyleManager>

extern "C" Q_DECL_EXPORT void *PluginStyleManager()
{
    return &Nim::Base::CSingleton<Vantor::CStyleManager>::Instance();
}

extern "C" Q_DECL_EXPORT void *PluginWaitWatcher()
{
    return &Ravel::CUiSingleton<Ravel::CWaitWatcher>::Instance();
}

extern "C" Q_DECL_EXPORT void *PluginLog()
{
    Nim::Base::Log::Write(3, "Clientframework", "from the plug-in");
    return nullptr;
}
