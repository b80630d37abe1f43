// SPDX-License-Identifier: MIT
#include "Nim/Base/FileSystem.h"
#include "Nim/Base/FileSystem_p.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace Nim::Base::FileSystem {

namespace fs = std::filesystem;

int CopyFileWithProgress(const char *source, const char *target, int fail_if_exists,
                         const CopyProgress &on_bytes)
{
    try {
        std::error_code error;
        if (!fs::is_regular_file(source, error))
            return fs::exists(source, error) ? -EINVAL : -ENOENT;
        if (fail_if_exists != 0 && FileExists(target) == 0)
            return -EEXIST;
        const std::string temporary = TemporaryNameBeside(target);
        int result = fs::copy_file(source, temporary, error) ? 0 : -EIO;
        const auto size = result == 0 ? fs::file_size(temporary, error) : 0;
        if (result == 0 && fail_if_exists != 0)
            result = RenameWithoutReplacing(temporary.c_str(), target) ? 0 : -EEXIST;
        else if (result == 0)
            result = RenameFile(temporary.c_str(), target) == 0 ? 0 : -EACCES;
        if (result != 0)
            fs::remove(temporary, error);
        else if (on_bytes)
            on_bytes(static_cast<std::int64_t>(size));
        return result;
    } catch (...) {
        return -ENOMEM;
    }
}

} // namespace Nim::Base::FileSystem
