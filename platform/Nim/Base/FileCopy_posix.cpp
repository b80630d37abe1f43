// SPDX-License-Identifier: MIT
#include "Nim/Base/FileSystem.h"
#include "Nim/Base/FileSystem_p.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>

namespace Nim::Base::FileSystem {
namespace {

constexpr std::int64_t kPieceBytes = std::int64_t{16} * 1024 * 1024; // of one call to the kernel
constexpr std::int64_t kBufferBytes = std::int64_t{1024} * 1024;
constexpr std::int64_t kSmallBufferBytes = std::int64_t{64} * 1024; // for a file of size 0
constexpr mode_t kPrivateMode = 0600; // until it is whole, no other user can read it
constexpr mode_t kKeptMode = 0777;

// Errors that mean: the kernel cannot copy between these two files itself.
constexpr int kNotInKernel[] = {EXDEV, EINVAL, ENOSYS, EOPNOTSUPP, EPERM};

class CDescriptor
{
public:
    explicit CDescriptor(int number) : number_(number) {}
    CDescriptor(const CDescriptor &) = delete;
    CDescriptor &operator=(const CDescriptor &) = delete;
    ~CDescriptor()
    {
        if (number_ >= 0)
            close(number_);
    }

    [[nodiscard]] int Number() const { return number_; }

private:
    const int number_;
};

struct Source
{
    int file = -1;
    struct stat facts = {};
};

int LastError()
{
    return errno != 0 ? -errno : -EIO;
}

// Copies `left` bytes, or up to the end of the file if that comes first.
int CopyThroughBuffer(int from, int to, std::int64_t left, std::int64_t buffer_bytes,
                      const CopyProgress &on_bytes)
{
    // Not make_unique(), which clears the buffer: that took longer than copying an empty file.
    const std::unique_ptr<char[]> buffer(new char[size_t(buffer_bytes)]);
    while (left > 0) {
        const auto wanted = static_cast<size_t>(std::min(left, buffer_bytes));
        const ssize_t count = read(from, buffer.get(), wanted);
        if (count == 0)
            return 0;
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return LastError();
        for (ssize_t done = 0; done < count;) {
            const ssize_t written = write(to, buffer.get() + done, size_t(count - done));
            if (written < 0 && errno != EINTR)
                return LastError();
            done += std::max<ssize_t>(written, 0);
        }
        left -= count;
        if (on_bytes)
            on_bytes(count);
    }
    return 0;
}

// From the present positions of both files.
int CopyBytes(int from, int to, std::int64_t size, const CopyProgress &on_bytes)
{
    if (size == 0) // empty, or on a file system that reports no sizes
        return CopyThroughBuffer(from, to, INT64_MAX, kSmallBufferBytes, on_bytes);
    std::int64_t left = size;
    while (left > 0) {
        const auto wanted = static_cast<size_t>(std::min(left, kPieceBytes));
        const ssize_t count = copy_file_range(from, nullptr, to, nullptr, wanted, 0);
        if (count < 0 && errno == EINTR)
            continue;
        const bool is_for_us = count < 0
                               && std::find(std::begin(kNotInKernel), std::end(kNotInKernel), errno)
                                      != std::end(kNotInKernel);
        // No bytes before the end: the file has shrunk, or this file system cannot copy this way.
        if (is_for_us || count == 0)
            return CopyThroughBuffer(from, to, left, std::min(left, kBufferBytes), on_bytes);
        if (count < 0)
            return LastError();
        left -= count;
        if (on_bytes)
            on_bytes(count);
    }
    return 0;
}

// Fills `file` with the bytes, the times and the permissions of the source.
int FillFrom(const Source &source, int file, const CopyProgress &on_bytes)
{
    const int result = CopyBytes(source.file, file, source.facts.st_size, on_bytes);
    if (result != 0)
        return result;
    // Best effort: a stick's file system may know neither.
    static_cast<void>(fchmod(file, source.facts.st_mode & kKeptMode));
    const timespec times[] = {source.facts.st_atim, source.facts.st_mtim};
    static_cast<void>(futimens(file, times));
    // A network file system may report only on close that it had no room.
    const int copy = dup(file);
    return copy >= 0 && close(copy) != 0 ? LastError() : 0;
}

int LinkUnnamed(int file, const char *name)
{
    if (linkat(file, "", AT_FDCWD, name, AT_EMPTY_PATH) == 0)
        return 0;
    if (errno == EEXIST)
        return -EEXIST;
    // Before Linux 6.10 that took a privilege; the way through /proc never did.
    char path[32];
    std::snprintf(path, sizeof path, "/proc/self/fd/%d", file);
    return linkat(AT_FDCWD, path, AT_FDCWD, name, AT_SYMLINK_FOLLOW) == 0 ? 0 : LastError();
}

// Gives the finished file `temporary` its name, or removes it.
int Publish(const std::string &temporary, const char *target, int fail_if_exists)
{
    int result = 0;
    if (fail_if_exists != 0)
        result = RenameWithoutReplacing(temporary.c_str(), target) ? 0 : LastError();
    else
        result = rename(temporary.c_str(), target) == 0 ? 0 : LastError();
    if (result != 0)
        unlink(temporary.c_str());
    return result;
}

int CopyUnderTemporaryName(const Source &source, const char *target, int fail_if_exists,
                           const CopyProgress &on_bytes)
{
    const std::string temporary = TemporaryNameBeside(target);
    {
        const CDescriptor file(
            open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kPrivateMode));
        if (file.Number() < 0)
            return LastError();
        const int result = FillFrom(source, file.Number(), on_bytes);
        if (result != 0) {
            unlink(temporary.c_str());
            return result;
        }
    }
    return Publish(temporary, target, fail_if_exists);
}

// \return false when this file system has no files without a name, or they cannot get one here.
bool CopyWithoutName(const Source &source, const char *target, int fail_if_exists,
                     const CopyProgress &on_bytes, int &result)
{
    const CDescriptor file(
        open(FolderOf(target).c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, kPrivateMode));
    if (file.Number() < 0)
        return false;
    result = FillFrom(source, file.Number(), on_bytes);
    if (result != 0)
        return true;
    result = LinkUnnamed(file.Number(), target);
    if (result == -EEXIST && fail_if_exists == 0) {
        const std::string temporary = TemporaryNameBeside(target);
        result = LinkUnnamed(file.Number(), temporary.c_str());
        if (result == 0)
            result = Publish(temporary, target, 0);
    }
    // -ENOENT: there is neither the privilege nor /proc; or the folder is gone, which the other way
    // reports.
    return result != -ENOENT || lseek(source.file, 0, SEEK_SET) != 0;
}

int OpenSource(const char *path)
{
    // Without O_NONBLOCK a named pipe would wait for a writer.
    const int file = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat facts = {};
    if (file >= 0 || errno != EWOULDBLOCK || stat(path, &facts) != 0 || !S_ISREG(facts.st_mode))
        return file;
    // Another program has a lease on the file, which the kernel takes back while this waits.
    return open(path, O_RDONLY | O_CLOEXEC);
}

int Copy(const char *source_path, const char *target, int fail_if_exists,
         const CopyProgress &on_bytes)
{
    const CDescriptor file(OpenSource(source_path));
    Source source;
    source.file = file.Number();
    if (source.file < 0 || fstat(source.file, &source.facts) != 0)
        return LastError();
    if (!S_ISREG(source.facts.st_mode))
        return S_ISDIR(source.facts.st_mode) ? -EISDIR : -EINVAL;
    if (fail_if_exists != 0 && FileExists(target) == 0)
        return -EEXIST; // now, not after the copy
    int result = 0;
    if (CopyWithoutName(source, target, fail_if_exists, on_bytes, result))
        return result;
    return CopyUnderTemporaryName(source, target, fail_if_exists, on_bytes);
}

} // namespace

int CopyFileWithProgress(const char *source, const char *target, int fail_if_exists,
                         const CopyProgress &on_bytes)
{
    try {
        return Copy(source, target, fail_if_exists, on_bytes);
    } catch (...) { // building a name may run out of memory
        return -ENOMEM;
    }
}

} // namespace Nim::Base::FileSystem
