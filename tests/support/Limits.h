// SPDX-License-Identifier: MIT
// Faults of the system that a test can turn on for the lifetime of an object.
#pragma once

#include <sys/resource.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// \brief No file of this process can grow beyond a number of bytes, as if its disk were full: a
/// write fails with EFBIG.
class CFileLimit
{
public:
    explicit CFileLimit(rlim_t bytes);
    ~CFileLimit();
    Q_DISABLE_COPY(CFileLimit)

private:
    rlimit before_{};
    void (*handler_)(int) = nullptr;
};

/// \brief A disk that holds no more than a number of bytes, mounted at \a path: a write fails with
/// ENOSPC. Needs root, or AllowMounts() at the beginning of main().
class CSmallDisk
{
public:
    CSmallDisk(const QString &path, int bytes);
    ~CSmallDisk();
    Q_DISABLE_COPY(CSmallDisk)

private:
    const QByteArray path_;
    bool is_mounted_ = false;
};

/// \brief The process has no rights beyond those of a plain user, also when the tests run as root.
class CPoorUser
{
public:
    CPoorUser();
    ~CPoorUser();
    Q_DISABLE_COPY(CPoorUser)

private:
    const bool was_root_;
};

/// \brief Let a process without root rights mount, in a namespace of its own. Call it first in
/// main(), while the process has one thread.
void AllowMounts();
