// SPDX-License-Identifier: MIT
#include "Nim/Base/FileSystem.h"
#include "Nim/Base/FileSystem_p.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QFile>

#include <cerrno>
#include <cstdio>
#include <memory>

namespace Nim::Base::FileSystem {
namespace {

// The data of a stream of WatchClosing().
struct Watched
{
    std::FILE *file;
    bool *is_closed;
};

ssize_t ReadWatched(void *cookie, char *bytes, size_t size)
{
    std::FILE *const file = static_cast<Watched *>(cookie)->file;
    const size_t length = std::fread(bytes, 1, size, file);
    return length == 0 && std::ferror(file) != 0 ? -1 : static_cast<ssize_t>(length);
}

int SeekWatched(void *cookie, off64_t *position, int whence)
{
    std::FILE *const file = static_cast<Watched *>(cookie)->file;
    if (fseeko64(file, *position, whence) != 0)
        return -1;
    *position = ftello64(file);
    return 0;
}

int CloseWatched(void *cookie)
{
    const std::unique_ptr<Watched> watched(static_cast<Watched *>(cookie));
    *watched->is_closed = true;
    return std::fclose(watched->file);
}

} // namespace

std::FILE *WatchClosing(std::FILE *file, bool *is_closed)
{
    auto watched = std::make_unique<Watched>(Watched{file, is_closed});
    std::FILE *const stream =
        fopencookie(watched.get(), "r", {ReadWatched, nullptr, SeekWatched, CloseWatched});
    if (stream)
        static_cast<void>(watched.release()); // the stream owns it now
    return stream;
}

bool IsWritable(const char *path)
{
    return access(path, W_OK) == 0;
}

int CreateLike(const char *path, const char *model)
{
    constexpr mode_t kUsual = 0666;       // less the umask
    constexpr mode_t kPermissions = 0777; // without the set-id bits
    const int file = open(path, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kUsual);
    if (file < 0)
        return errno;
    struct stat status = {};
    // A file system without permissions refuses, which does no harm.
    if (stat(model, &status) == 0 && fchmod(file, status.st_mode & kPermissions) != 0)
        errno = 0;
    close(file);
    return 0;
}

std::FILE *OpenShared(const QString &path, const char *mode)
{
    const std::string close_on_exec = std::string(mode) + "e";
    return std::fopen(QFile::encodeName(path).constData(), close_on_exec.c_str());
}

bool RenameWithoutReplacing(const char *source, const char *target)
{
    if (renameat2(AT_FDCWD, source, AT_FDCWD, target, RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    // The file system lacks that operation. A hard link also fails if the name is taken.
    if (link(source, target) == 0) {
        unlink(source);
        return true;
    }
    if (errno != EPERM && errno != ENOSYS && errno != EOPNOTSUPP)
        return false;
    // The file system has no hard links, as on a USB stick: take the name with an empty file, then
    // replace that.
    const int reserved = open(target, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (reserved < 0)
        return false;
    close(reserved);
    if (rename(source, target) == 0)
        return true;
    const int error = errno;
    unlink(target);
    errno = error;
    return false;
}

} // namespace Nim::Base::FileSystem
