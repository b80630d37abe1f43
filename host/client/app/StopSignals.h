// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>

namespace Client {

/// \brief Turns the system's wish that the program end, SIGINT and SIGTERM, into a Qt signal.
///
/// As long as it lives the program does not end by itself; a signal that was ignored before stays
/// ignored. One at a time, on the GUI thread.
class CStopSignals : public QObject
{
    Q_OBJECT

public:
    explicit CStopSignals(QObject *parent = nullptr);
    ~CStopSignals() override;

    /// \brief The exit status that tells of the signal, 128 and its number; 0 when none has come.
    [[nodiscard]] int Status() const { return status_; }

Q_SIGNALS:
    /// Emitted from the event loop, for the first signal only.
    void SignalStop(int status);

private:
    void OnReadable();

    int status_ = 0;
};

} // namespace Client
