// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QObject>

namespace Client {

/// \brief Turns SIGHUP, SIGINT and SIGTERM (on Windows: the events of the console) into a Qt
/// signal.
///
/// While it exists, these signals do not end the program. A signal that was ignored before stays
/// ignored. One object at a time, on the GUI thread.
class CStopSignals : public QObject
{
    Q_OBJECT

public:
    explicit CStopSignals(QObject *parent = nullptr);
    ~CStopSignals() override;

    /// \brief The exit status for the signal, 128 plus its number; 0 before a signal arrives.
    [[nodiscard]] int Status() const { return status_; }

Q_SIGNALS:
    /// Emitted from the event loop, for the first signal only.
    void SignalStop(int status);

private Q_SLOTS:
    void OnStop(int number);

private:
    int status_ = 0;
};

} // namespace Client
