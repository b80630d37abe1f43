// SPDX-License-Identifier: MIT
#include "KeyBoard/SerialKeyboard.h"

#include "Nim/Base/Log.h"

#include <QtSerialPort/QSerialPortInfo>

#include <algorithm>
#include <chrono>
#include <utility>

namespace KeyBoard {
namespace {

using namespace std::chrono_literals;

constexpr auto kRetryTime = 1s;
constexpr char kPrefix[] = "COM";

void LogPort(const char *what, const QSerialPort &port)
{
    Nim::Base::Log::WriteFramed(
        "KeyBoard::CSerialKeyboard", __FILE__, __LINE__, 4, "ClientWarningAndMore", "%s %s: %s",
        what, qUtf8Printable(port.portName()), qUtf8Printable(port.errorString()));
}

} // namespace

CSerialKeyboard::CSerialKeyboard(Take take, QObject *parent)
    : QObject(parent), take_(std::move(take)), port_(this), retry_(this)
{
    retry_.setInterval(kRetryTime);
    connect(&port_, &QSerialPort::readyRead, this, &CSerialKeyboard::OnReadyRead);
    connect(&port_, &QSerialPort::errorOccurred, this, &CSerialKeyboard::OnError,
            Qt::QueuedConnection); // closing a port inside its own signal is not safe
    connect(&retry_, &QTimer::timeout, this, [this] {
        if (port_.open(QIODevice::ReadOnly))
            retry_.stop();
    });
}

bool CSerialKeyboard::Open(const QString &path, const KeyBoardSerialParam &param)
{
    Close();
    port_.setPortName(path);
    port_.setBaudRate(qint32(param.baud_rate));
    port_.setDataBits(QSerialPort::DataBits(param.data_bits));
    port_.setStopBits(QSerialPort::StopBits(param.stop_bits));
    port_.setParity(QSerialPort::Parity(param.parity));
    port_.setFlowControl(QSerialPort::FlowControl(param.flow_control));
    if (path.isEmpty() || !port_.open(QIODevice::ReadOnly)) {
        LogPort("Cannot open", port_);
        return false;
    }
    is_wanted_ = true;
    return true;
}

bool CSerialKeyboard::Close()
{
    if (!is_wanted_)
        return false;
    is_wanted_ = false;
    retry_.stop();
    reader_.Reset();
    port_.close();
    StopMotion();
    return true;
}

void CSerialKeyboard::OnReadyRead()
{
    reader_.Read(port_.readAll(), [this](const PelcoFrame &frame) {
        const DeviceCode code = TranslatePelco(frame);
        if (!code.code)
            return;
        if (code.code == kSerialStopCode || IsPelcoMotion(frame))
            is_moving_ = code.code != kSerialStopCode;
        take_(code);
    });
}

void CSerialKeyboard::OnError(QSerialPort::SerialPortError error)
{
    // A read error comes again and again until the port is closed.
    const bool is_lost = error == QSerialPort::ResourceError || error == QSerialPort::ReadError;
    if (!is_lost || !is_wanted_ || retry_.isActive())
        return;
    LogPort("Lost", port_);
    reader_.Reset();
    port_.close();
    StopMotion();
    retry_.start();
}

// A camera must not go on moving because nobody hears the keyboard any more.
void CSerialKeyboard::StopMotion()
{
    if (std::exchange(is_moving_, false))
        take_({kSerialStopCode, 0});
}

QString SerialPath(const QByteArray &port_name, const QStringList &paths)
{
    if (!port_name.startsWith(kPrefix))
        return {};
    const int index = port_name.mid(int(qstrlen(kPrefix))).toInt() - 1;
    QStringList present = paths;
    if (present.isEmpty()) {
        const auto ports = QSerialPortInfo::availablePorts();
        for (const QSerialPortInfo &port : ports)
            present.append(port.systemLocation());
        std::sort(present.begin(), present.end());
    }
    return present.value(index);
}

} // namespace KeyBoard
