// SPDX-License-Identifier: MIT
#include "pages/PelcoSender.h"

#include "pages/PortText.h"

#include <KeyBoard/PelcoD.h>

#include <QtCore/QUrl>
#include <QtNetwork/QTcpSocket>
#include <QtSerialPort/QSerialPort>

#include <chrono>
#include <utility>

namespace Client {
namespace {

using namespace std::chrono_literals;

constexpr auto kConnectTime = 5s;
constexpr int kFlushTime_ms = 200;   // for the last frame
constexpr qint64 kMostWaiting = 512; // bytes: a camera that takes no more is lost

} // namespace

CPelcoSender::CPelcoSender(QObject *parent) : QObject(parent)
{
    connect_time_.setSingleShot(true);
    connect_time_.setInterval(kConnectTime);
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
    if (is_connected_ && std::exchange(running_, 0)) {
        Write(KeyBoard::EncodePelco(KeyBoard::PelcoStop(address_)));
        if (device_)
            device_->waitForBytesWritten(kFlushTime_ms);
    }
    running_ = 0;
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
        Write(KeyBoard::EncodePelco(*frame));
    } else if (running_ == operation) {
        running_ = 0;
        Write(KeyBoard::EncodePelco(KeyBoard::PelcoStop(address_)));
    }
}

void CPelcoSender::Write(const QByteArray &frame)
{
    if (device_->write(frame) != frame.size() || device_->bytesToWrite() > kMostWaiting)
        Fail(tr("The camera takes no more commands."));
}

void CPelcoSender::Fail(const QString &text)
{
    running_ = 0; // a stop would not arrive
    Disconnect();
    Q_EMIT SignalState(false, text);
}

} // namespace Client
