// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QStringList>
#include <QtCore/QtGlobal>

/// What a device told: called on the library's own thread, and on others where a client's driver
/// does so; it has to be safe for that.
///
/// \param message_type 1000 serial keyboard, 1002 USB joystick, 1003 USB keyboard.
/// \param first_param  the code; this and the two that follow are described in docs/devices.md.
/// \param text1, text2 zero-terminated, in the local 8-bit encoding; may be null; valid during the
///                     call.
/// \param user_data    as given to KeyBoard_Init().
/// \return 0.
using KeyBoardCallBack = int (*)(quint32 message_type, quint32 first_param, quint32 second_param,
                                 quint32 third_param, const char *text1, const char *text2,
                                 void *user_data);

/// \brief How a serial keyboard is connected.
struct KeyBoardSerialParam
{
    const char *port_name; ///< "COM1" to "COM4", zero-terminated.
    quint32 baud_rate;
    quint8 data_bits;
    quint8 stop_bits;
    quint8 parity;       ///< 0 none.
    quint8 flow_control; ///< 0 none.
};

/// \brief What drives the devices. A client that has its own devices gives one to
/// KeyBoard_SetDriver().
///
/// The four operations are called from one thread at a time and must not throw. Uninit() returns
/// only when no call of the callback runs or will come; it must not be called from the callback.
class VANTOR_PLATFORM_EXPORT KeyBoardDriver
{
public:
    KeyBoardDriver() = default;
    virtual ~KeyBoardDriver();
    KeyBoardDriver(const KeyBoardDriver &) = delete;
    KeyBoardDriver &operator=(const KeyBoardDriver &) = delete;

    virtual bool Init(KeyBoardCallBack callback, void *user_data) = 0;
    virtual void Uninit() = 0;
    virtual bool OpenSerialKeyBoard(quint32 id, const KeyBoardSerialParam &param) = 0;
    virtual bool CloseSerialKeyBoard(quint32 id) = 0;
};

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
/// default: joysticks through SDL on a thread of their own, serial keyboards that speak Pelco-D.
/// Not while the library runs.
VANTOR_PLATFORM_EXPORT void KeyBoard_SetDriver(KeyBoardDriver *driver);

/// \brief That default driver, for a driver that adds devices to it and hands everything on.
[[nodiscard]] VANTOR_PLATFORM_EXPORT KeyBoardDriver &KeyBoard_DefaultDriver();

/// \brief The ports, up to four, that the default driver knows as COM1 to COM4: system paths such
/// as "/dev/ttyUSB0". An empty list restores the default, the machine's first four serial ports in
/// the order of their names. Takes effect with the next port opened. Any thread.
VANTOR_PLATFORM_EXPORT void KeyBoard_SetSerialPorts(const QStringList &paths);
