// SPDX-License-Identifier: MIT
#pragma once

#include "KeyBoard/KeyBoard.h"
#include "KeyBoard/PelcoD.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtSerialPort/QSerialPort>

#include <functional>

namespace KeyBoard {

/// \brief The serial keyboard of the default driver. Lives on the driver's thread.
///
/// A port that vanishes is tried again every second until it is closed.
class CSerialKeyboard : public QObject
{
public:
    using Take = std::function<void(const DeviceCode &code)>;

    explicit CSerialKeyboard(Take take, QObject *parent = nullptr);

    /// \brief Listen at \a path as \a param says. \return false when it cannot be opened.
    bool Open(const QString &path, const KeyBoardSerialParam &param);
    /// \return false when no port is open.
    bool Close();

private:
    void OnReadyRead();
    void OnError(QSerialPort::SerialPortError error);
    void StopMotion();

    const Take take_;
    QSerialPort port_;
    QTimer retry_;
    CPelcoReader reader_;
    bool is_wanted_ = false;
    bool is_moving_ = false; // told of a motion and of no stop since
};

/// \brief The system's path of "COM1" to "COM4": of \a paths, or else of the machine's ports in the
/// order of their names; empty when there are not so many.
[[nodiscard]] QString SerialPath(const QByteArray &port_name, const QStringList &paths);

} // namespace KeyBoard
