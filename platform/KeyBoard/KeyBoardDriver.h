// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QString>
#include <QtCore/QtGlobal>

/// Receives what a device sends. Called on the library's own threads, one call at a time, and on
/// others where a client's driver does so; it must be safe for that.
///
/// \param message_type 1000 serial keyboard, 1002 USB joystick, 1003 USB keyboard.
/// \param first_param  the code; this and the next two are described in docs/devices.md.
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
    quint32 baud_rate;     ///< Bits per second, such as 9600.
    quint8 data_bits;      ///< 5 to 8.
    quint8 stop_bits;      ///< 1 or 2.
    quint8 parity;         ///< 0 none.
    quint8 flow_control;   ///< 0 none.
};

/// \brief What happened to the port of a serial keyboard.
struct KeyBoardPortNews
{
    /// \brief The events of a port.
    enum Kind : int {
        kOpened,  ///< Also when a lost port is back.
        kRefused, ///< The port could not be opened.
        kLost,    ///< The device vanished; the port is tried again every second until it is closed.
        kClosed,  ///< KeyBoard_CloseSerialKeyBoard() or KeyBoard_Uninit() closed it.
    };

    Kind kind;      ///< The event.
    QString path;   ///< The system's path of the port, such as "/dev/ttyUSB0".
    QString reason; ///< The system's text for kRefused and kLost.
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

    /// \brief Start, and report what devices send to \a callback. \return false when nothing can be
    /// started.
    virtual bool Init(KeyBoardCallBack callback, void *user_data) = 0;
    /// \brief Close all devices and stop.
    virtual void Uninit() = 0;
    /// \brief See KeyBoard_OpenSerialKeyBoard().
    virtual bool OpenSerialKeyBoard(quint32 id, const KeyBoardSerialParam &param) = 0;
    /// \brief See KeyBoard_CloseSerialKeyBoard().
    virtual bool CloseSerialKeyBoard(quint32 id) = 0;
};
