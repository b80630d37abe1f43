// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// \brief A serial port without wires: bytes written here are read at Path().
class CPseudoTerminal
{
public:
    CPseudoTerminal();
    ~CPseudoTerminal();
    CPseudoTerminal(const CPseudoTerminal &) = delete;
    CPseudoTerminal &operator=(const CPseudoTerminal &) = delete;

    [[nodiscard]] bool IsOpen() const { return handle_ >= 0; }
    [[nodiscard]] QString Path() const;

    /// \brief Write all of \a bytes; waits while the reader is slow.
    void Write(const QByteArray &bytes);

    /// \brief The bytes that were written at Path() and not read yet; does not wait.
    [[nodiscard]] QByteArray Read();

private:
    int handle_;
};
