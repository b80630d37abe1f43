// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

#include <atomic>
#include <future>
#include <memory>

/// \brief All bytes of the file \a path; empty if the file does not exist.
[[nodiscard]] QByteArray FileBytes(const QString &path);

/// \brief Names of everything in the folder \a path, hidden files included, in the order of their
/// names.
[[nodiscard]] QStringList FileNames(const QString &path);

/// \brief A temporary folder. It is made on first use and deleted by Clear() and by the destructor.
///
/// Names may contain folders ("out/a.csv"). A file that cannot be written ends the program, because
/// no test can go on without its input.
class CTestFolder
{
public:
    /// \brief Absolute path of \a name; of the folder itself if \a name is empty.
    [[nodiscard]] QString Path(const QString &name = QString()) const;

    /// \brief Write \a bytes as the whole file \a name; makes the folders on the way to it.
    /// \return the path of the file.
    QString Put(const QString &name, const QByteArray &bytes) const;

    /// \brief Make the folder \a name. \return its path.
    QString PutFolder(const QString &name) const;

    /// \brief Names of everything in the folder \a name, hidden files included, sorted.
    [[nodiscard]] QStringList Files(const QString &name = QString()) const;

    /// \brief All bytes of the file \a name; empty if it does not exist.
    [[nodiscard]] QByteArray Bytes(const QString &name) const;

    /// Delete the folder with all files. The next use makes a new one.
    void Clear() { folder_.reset(); }

private:
    mutable std::unique_ptr<QTemporaryDir> folder_;
};

/// \brief A named pipe with a reader on its own thread.
///
/// The reader takes nothing until Drain(), so a writer blocks once the pipe is full. This is a slow
/// disk under the control of the test.
class CPipe
{
public:
    /// \param is_open whether the reader reads from the beginning.
    explicit CPipe(bool is_open = true);
    ~CPipe();

    [[nodiscard]] QString Path() const;

    /// Let the reader read everything from now on.
    void Drain();

    /// \brief Wait until the writer has closed its end. \return all bytes that were read.
    [[nodiscard]] QByteArray Bytes();

private:
    QByteArray Read();

    QTemporaryDir folder_;
    std::promise<void> drain_;
    std::atomic<bool> is_draining_{false};
    std::atomic<bool> is_over_{false}; // set by the destructor, because a writer may never close
    // The reading end is open from the beginning, so that opening to write never blocks.
    int stream_ = -1;
    std::future<QByteArray> reader_;
    QByteArray bytes_;
};
