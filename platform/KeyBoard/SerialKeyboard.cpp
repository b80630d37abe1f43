// SPDX-License-Identifier: MIT
#include "KeyBoard/SerialKeyboard.h"

#include "Nim/Base/Log.h"

#include <QtCore/QStringList>
#include <QtSerialPort/QSerialPort>
#include <QtSerialPort/QSerialPortInfo>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <utility>

namespace KeyBoard {
namespace {

using namespace std::chrono_literals;

constexpr auto kReadTime = 25ms; // the longest that closing a port has to wait
constexpr auto kRetryTime = 1s;
constexpr char kPrefix[] = "COM";

QString RefusalReason(const QString &path, const QSerialPort &port)
{
    if (path.isEmpty())
        return QStringLiteral("There is no such port");
    // The system's text for a file that is no terminal is about a call that no user knows.
    if (port.errorString() == qt_error_string(ENOTTY))
        return QStringLiteral("It is no serial port");
    return port.errorString();
}

} // namespace

CSerialKeyboard::CSerialKeyboard(const QString &path, const KeyBoardSerialParam &param, Take take,
                                 Listener listener)
    : path_(path), param_(param), take_(std::move(take)), listener_(std::move(listener))
{
    is_open_ = Begin();
}

CSerialKeyboard::~CSerialKeyboard()
{
    End();
}

bool CSerialKeyboard::Prepare()
{
    port_ = std::make_unique<QSerialPort>();
    port_->setPortName(path_);
    port_->setBaudRate(qint32(param_.baud_rate));
    port_->setDataBits(QSerialPort::DataBits(param_.data_bits));
    port_->setStopBits(QSerialPort::StopBits(param_.stop_bits));
    port_->setParity(QSerialPort::Parity(param_.parity));
    port_->setFlowControl(QSerialPort::FlowControl(param_.flow_control));
    if (OpenPort())
        return true;
    Report(KeyBoardPortNews::kRefused, RefusalReason(path_, *port_));
    port_.reset();
    return false;
}

void CSerialKeyboard::Serve()
{
    while (!ShallEnd(port_->isOpen() ? 0ms : kRetryTime)) {
        if (port_->isOpen())
            ReadPort();
        else
            OpenPort();
    }
    StopMotion();
    port_.reset();
    Report(KeyBoardPortNews::kClosed);
}

bool CSerialKeyboard::OpenPort()
{
    if (path_.isEmpty() || !port_->open(QIODevice::ReadOnly))
        return false;
    Report(KeyBoardPortNews::kOpened);
    return true;
}

void CSerialKeyboard::ReadPort()
{
    // A port whose device is gone reads nothing and sets no errno; Qt would then report what an
    // earlier call left there.
    errno = 0;
    const bool has_bytes = port_->waitForReadyRead(int(kReadTime.count()));
    const int reason = errno;
    if (has_bytes) {
        reader_.Read(port_->readAll(), [this](const PelcoFrame &frame) { TakeFrame(frame); });
        return;
    }
    const QSerialPort::SerialPortError error = port_->error();
    port_->clearError();
    if (error != QSerialPort::TimeoutError && error != QSerialPort::NoError)
        LosePort(reason ? qt_error_string(reason) : QStringLiteral("The device is gone"));
}

void CSerialKeyboard::LosePort(const QString &reason)
{
    reader_.Reset();
    port_->close();
    StopMotion();
    Report(KeyBoardPortNews::kLost, reason);
}

void CSerialKeyboard::Report(KeyBoardPortNews::Kind kind, const QString &reason) const
{
    if (kind == KeyBoardPortNews::kRefused || kind == KeyBoardPortNews::kLost)
        Nim::Base::Log::WriteFramed("KeyBoard::CSerialKeyboard", __FILE__, __LINE__, 4,
                                    "ClientWarningAndMore", "%s %s: %s",
                                    kind == KeyBoardPortNews::kLost ? "Lost" : "Cannot open",
                                    qUtf8Printable(path_), qUtf8Printable(reason));
    listener_({kind, path_, reason});
}

void CSerialKeyboard::TakeFrame(const PelcoFrame &frame)
{
    const DeviceCode code = TranslatePelco(frame);
    if (!code.code)
        return;
    if (code.code == kSerialStopCode) {
        motion_ = 0;
    } else if (IsPelcoMotion(frame)) {
        if (code.code != motion_)
            StopMotion();
        motion_ = code.code;
    }
    take_(code);
}

void CSerialKeyboard::StopMotion()
{
    if (std::exchange(motion_, 0))
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
