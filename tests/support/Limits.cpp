// SPDX-License-Identifier: MIT
#include "support/Limits.h"

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <QtCore/QDir>
#include <QtCore/QFile>

#include <cerrno>
#include <csignal>
#include <cstring>

namespace {

constexpr uid_t kPlainUser = 65534;

void WriteProc(const char *path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qWarning("cannot write %s", path);
}

} // namespace

CFileLimit::CFileLimit(rlim_t bytes) : handler_(std::signal(SIGXFSZ, SIG_IGN))
{
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
}

CFileLimit::~CFileLimit()
{
    setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
}

CSmallDisk::CSmallDisk(const QString &path, int bytes) : path_(QFile::encodeName(path))
{
    const QByteArray options = "size=" + QByteArray::number(bytes);
    is_mounted_ = QDir().mkpath(path)
                  && mount("none", path_.constData(), "tmpfs", 0, options.constData()) == 0;
    if (!is_mounted_)
        qWarning("cannot mount a small disk: %s", std::strerror(errno));
}

CSmallDisk::~CSmallDisk()
{
    if (is_mounted_)
        umount2(path_.constData(), MNT_DETACH);
}

CPoorUser::CPoorUser() : was_root_(geteuid() == 0)
{
    if (was_root_ && seteuid(kPlainUser) != 0)
        qFatal("cannot become another user");
}

CPoorUser::~CPoorUser()
{
    if (was_root_ && seteuid(0) != 0)
        qFatal("cannot become root again");
}

void AllowMounts()
{
    const QByteArray user = QByteArray::number(geteuid());
    const QByteArray group = QByteArray::number(getegid());
    if (geteuid() == 0 || unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return;
    WriteProc("/proc/self/uid_map", user + ' ' + user + " 1");
    WriteProc("/proc/self/setgroups", "deny");
    WriteProc("/proc/self/gid_map", group + ' ' + group + " 1");
}
