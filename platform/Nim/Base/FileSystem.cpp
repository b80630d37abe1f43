// SPDX-License-Identifier: MIT
#include "Nim/Base/FileSystem.h"

#include "Nim/Base/FileSystem_p.h"
#include "Nim/Base/Guid.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace Nim::Base::FileSystem {

namespace fs = std::filesystem;

namespace {

// 0, or -1 with the reason in errno.
int Report(const std::error_code &error)
{
    if (!error)
        return 0;
    errno = error.default_error_condition().value(); // on Windows the code is the system's own
    return -1;
}

} // namespace

bool MakeDir(const std::string &path)
{
    try {
        std::error_code error;
        fs::create_directories(path, error);
        return fs::is_directory(path, error);
    } catch (...) { // building the path may run out of memory
        return false;
    }
}

int FileExists(const char *path)
{
    try {
        std::error_code error;
        return fs::exists(fs::symlink_status(path, error)) ? 0 : -1;
    } catch (...) {
        return -1;
    }
}

int RenameFile(const char *source, const char *target)
{
    try {
        std::error_code error;
        fs::rename(source, target, error);
        return Report(error);
    } catch (...) {
        return -1;
    }
}

bool IsDiskFullError(int error)
{
#ifdef EDQUOT // Windows has no name for it
    if (error == EDQUOT)
        return true;
#endif
    return error == ENOSPC;
}

int DeleteFileW(const char *path)
{
    try {
        std::error_code error;
        if (fs::is_directory(fs::symlink_status(path, error)))
            return Report(std::make_error_code(std::errc::is_a_directory));
        if (!fs::remove(path, error) && !error)
            error = std::make_error_code(std::errc::no_such_file_or_directory);
        return Report(error);
    } catch (...) {
        return -1;
    }
}

int CopyFileW(const char *source, const char *target, int fail_if_exists)
{
    return CopyFileWithProgress(source, target, fail_if_exists, {});
}

bool IsSameFile(const char *one, const char *other)
{
    try {
        std::error_code error;
        return fs::equivalent(one, other, error);
    } catch (...) {
        return false;
    }
}

std::string TemporaryNameBeside(const char *target)
{
    // Not longer than a GUID, because the length of file names is limited.
    return FolderOf(target) + "/." + GuidUtil::CreateGuid() + ".part";
}

std::string FolderOf(const char *target)
{
    const std::string path = target;
    const auto slash = path.find_last_of(kSeparators);
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? path.substr(0, 1) : path.substr(0, slash);
}

} // namespace Nim::Base::FileSystem
