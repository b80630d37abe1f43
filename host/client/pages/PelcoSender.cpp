// SPDX-License-Identifier: MIT
#include "pages/PelcoSender.h"

#include "pages/PortText.h"

#include <KeyBoard/PelcoD.h>

#include <QtCore/QThread>
#include <QtCore/QUrl>
#include <QtNetwork/QTcpSocket>
#include <QtSerialPort/QSerialPort>

#include <chrono>

namespace Client {
namespace {

using namespace std::chrono_literals;

constexpr auto kConnectTime = 5s;
constexpr int kFlushTime_ms = 200; // for the last frame
constexpr int kMostWaiting = 32;   // frames, and those in the buffer of a connection
constexpr int kBitsOfFrame = 70;   // seven bytes with start and stop bit

} // namespace

CPelcoSender::CPelcoSender(QObject *parent) : QObject(parent)
{
    connect_time_.setSingleShot(true);
    connect_time_.setInterval(kConnectTime);
    pace_.setSingleShot(true);
    connect(&pace_, &QTimer::timeout, this, &CPelcoSender::SendNext);
    connect(&connect_time_, &QTimer::timeout, this, [this] { Fail(tr("There is no answer.")); });
}

CPelcoSender::~CPelcoSender()
{
    Disconnect();
}

void CPelcoSender::Connect(const QString &target, int baud_rate, quint8 address)
{
    Disconnect();
    address_ = address;
    pace_.setInterval(kBitsOfFrame * 1000 / baud_rate + 1);
    if (IsTcpAddress(target))
        ConnectTcp(target);
    else
        ConnectSerial(target, baud_rate);
}

void CPelcoSender::ConnectSerial(const QString &path, int baud_rate)
{
    auto port = std::make_unique<QSerialPort>(path);
    port->setBaudRate(baud_rate);
    // Reading too, although answers are not looked at: only that notices a port that is pulled out.
    if (!port->open(QIODevice::ReadWrite)) {
        Fail(RefusalText(path, port->errorString()));
        return;
    }
    QSerialPort *const opened = port.get();
    connect(opened, &QSerialPort::readyRead, this, [opened] { opened->readAll(); });
    connect(
        opened, &QSerialPort::errorOccurred, this,
        [this](QSerialPort::SerialPortError error) {
            if (error != QSerialPort::NoError && error != QSerialPort::TimeoutError)
                Fail(tr("The port is lost."));
        },
        Qt::QueuedConnection); // closing a port inside its own signal is not safe
    device_ = std::move(port);
    OnConnected(tr("Sending to %1 at %2 baud.").arg(path).arg(baud_rate));
}

void CPelcoSender::ConnectTcp(const QString &target)
{
    const QUrl url(QLatin1String("tcp://") + target);
    auto socket = std::make_unique<QTcpSocket>();
    QTcpSocket *const connecting = socket.get();
    connect(connecting, &QTcpSocket::readyRead, this, [connecting] { connecting->readAll(); });
    connect(connecting, &QTcpSocket::connected, this, [this, connecting, target] {
        connecting->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        OnConnected(tr("Sending to %1.").arg(target));
    });
    connect(
        connecting, &QTcpSocket::errorOccurred, this,
        [this, connecting] { Fail(connecting->errorString()); }, Qt::QueuedConnection);
    device_ = std::move(socket);
    connect_time_.start();
    connecting->connectToHost(url.host(), quint16(url.port()));
}

void CPelcoSender::OnConnected(const QString &text)
{
    connect_time_.stop();
    is_connected_ = true;
    Q_EMIT SignalState(true, text);
}

void CPelcoSender::Disconnect()
{
    connect_time_.stop();
    if (is_connected_ && (running_ || !waiting_.isEmpty())) { // a stop may be among those
        device_->write(KeyBoard::EncodePelco(KeyBoard::PelcoStop(address_)));
        device_->waitForBytesWritten(kFlushTime_ms);
        // Closing a serial port restores its former baud rate, even while the last bytes leave.
        QThread::msleep(2 * static_cast<unsigned long>(pace_.interval()));
    }
    running_ = 0;
    waiting_.clear();
    pace_.stop();
    is_connected_ = false;
    if (!device_)
        return;
    device_->disconnect(this);
    device_.release()->deleteLater(); // this may be its own signal
}

void CPelcoSender::Send(int operation, bool is_stop, int speed, int index)
{
    const auto frame = KeyBoard::PelcoCommand(address_, operation, speed, index);
    if (!is_connected_ || !frame)
        return;
    const bool runs = KeyBoard::IsPelcoMotion(*frame);
    if (!is_stop) {
        if (runs)
            running_ = operation;
        Queue(KeyBoard::EncodePelco(*frame), runs);
    } else if (running_ == operation) {
        running_ = 0;
        Queue(KeyBoard::EncodePelco(KeyBoard::PelcoStop(address_)), true);
    }
}

void CPelcoSender::Queue(const QByteArray &frame, bool is_motion)
{
    if (is_motion && !waiting_.isEmpty() && waiting_.constLast().is_motion)
        waiting_.removeLast();
    waiting_.append({frame, is_motion});
    if (!pace_.isActive())
        SendNext();
}

void CPelcoSender::SendNext()
{
    if (waiting_.isEmpty())
        return;
    const QByteArray bytes = waiting_.takeFirst().bytes;
    pace_.start();
    const bool is_stuck = waiting_.size() > kMostWaiting
                          || device_->bytesToWrite() > qint64{kMostWaiting} * bytes.size();
    if (is_stuck || device_->write(bytes) != bytes.size())
        Fail(tr("The camera takes no more commands."));
}

void CPelcoSender::Fail(const QString &text)
{
    is_connected_ = false; // a stop would not arrive
    Disconnect();
    Q_EMIT SignalState(false, text);
}

} // namespace Client
