// SPDX-License-Identifier: MIT
#pragma once

#include "KeyBoard/KeyBoardDriver.h"

#include <PlatformExport.h>

#include <QtCore/QStringList>

#include <functional>

/// \brief Start the device library. \return false when it cannot start or runs already.
VANTOR_PLATFORM_EXPORT bool KeyBoard_Init(KeyBoardCallBack callback, void *user_data);
/// \brief End it; when this returns, no call of the callback runs or will come.
VANTOR_PLATFORM_EXPORT void KeyBoard_Uninit();
/// \brief Listen to the serial keyboard \a id at the port of \a param.
/// \return false when the library was not started, \a param is null or the port cannot be opened.
VANTOR_PLATFORM_EXPORT bool KeyBoard_OpenSerialKeyBoard(quint32 id,
                                                        const KeyBoardSerialParam *param);
/// \brief Close that port. \return false when it is not open.
VANTOR_PLATFORM_EXPORT bool KeyBoard_CloseSerialKeyBoard(quint32 id);

/// \brief Let \a driver, which the caller keeps alive, drive the devices; null restores the
/// default: joysticks through SDL, which a plug-in brings when the library is started first, and
/// serial keyboards that speak Pelco-D, each on a thread of its own. Not while the library runs.
///
/// The default needs no application object. Its threads end in KeyBoard_Uninit(), or else when the
/// process exits.
VANTOR_PLATFORM_EXPORT void KeyBoard_SetDriver(KeyBoardDriver *driver);

/// \brief That default driver, for a driver that adds devices to it and hands everything on.
[[nodiscard]] VANTOR_PLATFORM_EXPORT KeyBoardDriver &KeyBoard_DefaultDriver();

/// \brief Report what happens to the ports of the default driver to \a listener, which is called on
/// the library's own threads, also while a port is opened or closed, and must not call the library;
/// an empty function ends that. Any thread.
VANTOR_PLATFORM_EXPORT void
KeyBoard_SetPortListener(std::function<void(const KeyBoardPortNews &news)> listener);

/// \brief The ports, up to four, that the default driver knows as COM1 to COM4: system paths such
/// as "/dev/ttyUSB0". An empty list restores the default, the machine's first four serial ports in
/// the order of their names. Takes effect with the next port opened. Any thread.
VANTOR_PLATFORM_EXPORT void KeyBoard_SetSerialPorts(const QStringList &paths);
