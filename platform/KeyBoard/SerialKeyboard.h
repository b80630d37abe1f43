// SPDX-License-Identifier: MIT
#pragma once

#include "KeyBoard/DeviceThread.h"
#include "KeyBoard/KeyBoardDriver.h"
#include "KeyBoard/PelcoD.h"

#include <functional>
#include <memory>

QT_BEGIN_NAMESPACE
class QSerialPort;
QT_END_NAMESPACE

namespace KeyBoard {

/// \brief The serial keyboard of the default driver, from the opening of its port to the closing.
///
/// A port that vanishes is tried again every second. A move that runs when the port vanishes or is
/// closed, or when another move begins, is stopped first.
class CSerialKeyboard : public CDeviceThread // clazy:exclude=ctor-missing-parent-argument
{
public:
    /// Both are called on the thread.
    using Take = std::function<void(const DeviceCode &code)>;
    using Listener = std::function<void(const KeyBoardPortNews &news)>;

    /// \brief Open \a path as \a param says; IsOpen() returns whether that worked.
    CSerialKeyboard(const QString &path, const KeyBoardSerialParam &param, Take take,
                    Listener listener);
    ~CSerialKeyboard() override;

    [[nodiscard]] bool IsOpen() const { return is_open_; }

private:
    bool Prepare() override;
    void Serve() override;
    bool OpenPort();
    void ReadPort();
    void LosePort(const QString &reason);
    void Report(KeyBoardPortNews::Kind kind, const QString &reason = {}) const;
    void TakeFrame(const PelcoFrame &frame);
    void StopMotion();

    const QString path_;
    const KeyBoardSerialParam param_;
    const Take take_;
    const Listener listener_;
    bool is_open_ = false; // as the constructor found it
    // The thread's.
    std::unique_ptr<QSerialPort> port_;
    CPelcoReader reader_;
    quint32 motion_ = 0; // the code of the motion that runs, or 0
};

/// \brief The system's path of "COM1" to "COM4": of \a paths, or else of the machine's ports in the
/// order of their names; empty when there are not so many.
[[nodiscard]] QString SerialPath(const QByteArray &port_name, const QStringList &paths);

} // namespace KeyBoard
