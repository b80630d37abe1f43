// SPDX-License-Identifier: MIT
#include "Nim/Base/FileSystem.h"

#include "Nim/Base/FileSystem_p.h"
#include "Nim/Base/Guid.h"

#include <filesystem>
#include <system_error>

namespace Nim::Base::FileSystem {

namespace fs = std::filesystem;

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
        return error ? -1 : 0;
    } catch (...) {
        return -1;
    }
}

int DeleteFileW(const char *path)
{
    try {
        std::error_code error;
        if (fs::is_directory(fs::symlink_status(path, error)))
            return -1;
        return fs::remove(path, error) ? 0 : -1;
    } catch (...) {
        return -1;
    }
}

int CopyFileW(const char *source, const char *target, int fail_if_exists)
{
    try {
        std::error_code error;
        if (!fs::is_regular_file(source, error) || fs::is_directory(target, error))
            return -1;
        const std::string temporary = std::string(target) + "." + Guid::Create() + ".part";
        bool done = fs::copy_file(source, temporary, error);
        if (done && fail_if_exists != 0)
            done = RenameWithoutReplacing(temporary.c_str(), target);
        else if (done)
            done = RenameFile(temporary.c_str(), target) == 0;
        if (!done)
            fs::remove(temporary, error);
        return done ? 0 : -1;
    } catch (...) {
        return -1;
    }
}

} // namespace Nim::Base::FileSystem
