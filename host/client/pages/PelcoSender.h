// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <memory>

QT_BEGIN_NAMESPACE
class QIODevice;
QT_END_NAMESPACE

namespace Client {

/// \brief Sends commands to a camera that speaks Pelco-D, at a serial port or a TCP address. GUI
/// thread; nothing here waits for the camera, except Disconnect() for its last frame.
class CPelcoSender : public QObject
{
    Q_OBJECT

public:
    explicit CPelcoSender(QObject *parent = nullptr);
    /// Disconnects.
    ~CPelcoSender() override;

    /// \brief Connect to \a target, the path of a serial port or "host:port", instead of the camera
    /// that is connected. SignalState() says how that ends, perhaps during the call.
    ///
    /// \param baud_rate of the serial port, or of the one behind the TCP address; 8 data bits, no
    ///                  parity, 1 stop bit. No more is sent than that takes.
    /// \param address   of the camera, 1 to 255.
    void Connect(const QString &target, int baud_rate, quint8 address);
    /// \brief Stop a move that runs, and let the camera go. No signal.
    void Disconnect();
    [[nodiscard]] bool IsConnected() const { return is_connected_; }

    /// \brief Begin an operation of the devices, or end it. Operations that a camera does not know,
    /// and those while no camera is connected, are left out. Of moves that come faster than the
    /// camera takes them, the latest is sent.
    void Send(int operation, bool is_stop, int speed, int index);

Q_SIGNALS:
    /// \param is_connected false, with the reason in \a text, when the camera is missing or was lost.
    void SignalState(bool is_connected, const QString &text);

private:
    void ConnectSerial(const QString &path, int baud_rate);
    void ConnectTcp(const QString &target);
    void OnConnected(const QString &text);
    void Fail(const QString &text);
    void Queue(const QByteArray &frame, bool is_motion);
    void SendNext();

    struct Frame
    {
        QByteArray bytes;
        bool is_motion; // says all that moves, so that a later one replaces it
    };

    std::unique_ptr<QIODevice> device_; // null, connecting or connected
    QTimer connect_time_;
    QTimer pace_; // runs until the frame that was sent last has left the line
    QList<Frame> waiting_;
    quint8 address_ = 1;
    bool is_connected_ = false;
    int running_ = 0; // the operation that still runs, or 0
};

} // namespace Client
