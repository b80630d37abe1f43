// SPDX-License-Identifier: MIT
#include "Nim/Base/FileSystem.h"
#include "Nim/Base/FileSystem_p.h"

#include <windows.h>

#include <cerrno>
#include <system_error>

namespace Nim::Base::FileSystem {
namespace {

std::wstring Wide(const char *path)
{
    return QString::fromLocal8Bit(path).toStdWString();
}

// The system's last error as a negative errno.
int LastError()
{
    const DWORD code = GetLastError();
    switch (code) {
    // Only these two mean that the name is taken.
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return -EEXIST;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return -ENOSPC;
    case ERROR_WRITE_PROTECT:
        return -EROFS;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        return -EBUSY;
    default:
        break;
    }
    const std::error_condition condition =
        std::error_code(int(code), std::system_category()).default_error_condition();
    return condition.category() == std::generic_category() && condition.value() != 0
               ? -condition.value()
               : -EIO;
}

struct Progress
{
    const CopyProgress &on_bytes;
    LONGLONG reported = 0;

    void Reach(LONGLONG done)
    {
        if (on_bytes && done > reported)
            on_bytes(done - reported);
        reported = done;
    }
};

DWORD CALLBACK OnProgress(LARGE_INTEGER, LARGE_INTEGER done, LARGE_INTEGER, LARGE_INTEGER, DWORD,
                          DWORD, HANDLE, HANDLE, void *data)
{
    static_cast<Progress *>(data)->Reach(done.QuadPart);
    return PROGRESS_CONTINUE;
}

// Wine, for one, reports nothing on the way.
void ReportRest(const std::wstring &copy, Progress &progress)
{
    WIN32_FILE_ATTRIBUTE_DATA found{};
    if (GetFileAttributesExW(copy.c_str(), GetFileExInfoStandard, &found) != 0)
        progress.Reach((LONGLONG{found.nFileSizeHigh} << 32) | found.nFileSizeLow);
}

// Times and attributes go along with CopyFileEx().
int Copy(const std::wstring &source, const char *target, int fail_if_exists,
         const CopyProgress &on_bytes)
{
    const DWORD attributes = GetFileAttributesW(source.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return LastError();
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return -EISDIR;
    if ((attributes & FILE_ATTRIBUTE_DEVICE) != 0)
        return -EINVAL;
    if (fail_if_exists != 0 && FileExists(target) == 0)
        return -EEXIST;
    const std::wstring temporary = Wide(TemporaryNameBeside(target).c_str());
    Progress progress{on_bytes};
    const bool is_copied = CopyFileExW(source.c_str(), temporary.c_str(), &OnProgress, &progress,
                                       nullptr, COPY_FILE_FAIL_IF_EXISTS)
                           != 0;
    if (is_copied)
        ReportRest(temporary, progress);
    const DWORD replace = fail_if_exists != 0 ? 0 : MOVEFILE_REPLACE_EXISTING;
    if (is_copied && MoveFileExW(temporary.c_str(), Wide(target).c_str(), replace) != 0)
        return 0;
    const int result = LastError();
    SetFileAttributesW(temporary.c_str(), FILE_ATTRIBUTE_NORMAL); // else a read-only one stays
    ::DeleteFileW(temporary.c_str());
    return result;
}

} // namespace

int CopyFileWithProgress(const char *source, const char *target, int fail_if_exists,
                         const CopyProgress &on_bytes)
{
    try {
        return Copy(Wide(source), target, fail_if_exists, on_bytes);
    } catch (...) { // building a name may run out of memory
        return -ENOMEM;
    }
}

} // namespace Nim::Base::FileSystem
