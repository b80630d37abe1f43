// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QTemporaryDir>

#include <atomic>
#include <future>

/// All bytes of the file \a path; empty when there is none.
[[nodiscard]] QByteArray FileBytes(const QString &path);

/// \brief A named pipe with a reader on a thread of its own.
///
/// The reader takes nothing until Drain(), so a writer with more than a pipe holds stands still: a
/// slow disk on command.
class CPipe
{
public:
    /// \param is_open whether the reader takes what comes from the beginning.
    explicit CPipe(bool is_open = true);
    ~CPipe();

    [[nodiscard]] QString Path() const;

    /// Let the reader take everything from now on.
    void Drain();

    /// \brief Everything that came through, after the writer has closed its end.
    [[nodiscard]] QByteArray Bytes();

private:
    QByteArray Read();

    QTemporaryDir folder_;
    std::promise<void> drain_;
    std::atomic<bool> is_draining_{false};
    std::atomic<bool> is_over_{false}; // set by the destructor: a writer may be left open for good
    // The reading end, open from the beginning, so that opening to write never blocks.
    int stream_ = -1;
    std::future<QByteArray> reader_;
    QByteArray bytes_;
};
