// SPDX-License-Identifier: MIT
#include "Nim/Base/WholeFile.h"

#include "Nim/Base/FileSystem.h"
#include "Nim/Base/FileSystem_p.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace Nim::Base {
namespace {

namespace fs = std::filesystem;

constexpr int kMaxLinks = 40;                           // as many as the system follows
constexpr std::uintmax_t kFullDiskBytes = 64ULL * 1024; // less is as good as full

// Step by step, because a link to a file that does not exist yet counts, and ".." behind a folder
// that is missing does not. False where the links form a ring.
bool FollowLinks(fs::path &path)
{
    for (int i = 0; i < kMaxLinks; ++i) {
        std::error_code error;
        if (!fs::is_symlink(fs::symlink_status(path, error)))
            return true;
        path = path.parent_path() / fs::read_symlink(path, error); // an absolute one replaces it
        if (error)
            return false;
    }
    return false;
}

CWholeFile::Obstacle ObstacleOf(const fs::path &target)
{
    std::error_code error;
    if (!fs::is_directory(FileSystem::FolderOf(target.string().c_str()), error))
        return CWholeFile::Obstacle::NoFolder;
    const fs::file_status status = fs::status(target, error);
    if (fs::is_directory(status))
        return CWholeFile::Obstacle::Folder;
    if (fs::exists(status) && !fs::is_regular_file(status))
        return CWholeFile::Obstacle::Device;
    return fs::exists(status) && !FileSystem::IsWritable(target.string().c_str())
               ? CWholeFile::Obstacle::WriteProtected
               : CWholeFile::Obstacle::None;
}

} // namespace

CWholeFile::~CWholeFile()
{
    Discard();
}

CWholeFile::Obstacle CWholeFile::Begin(const std::string &path)
{
    Discard();
    errno_ = 0;
    fs::path target(path);
    const bool is_found = !path.empty() && FollowLinks(target);
    target_ = target.string();
    if (!is_found)
        return path.empty() ? Obstacle::NoFolder : Obstacle::DeadLink;
    const Obstacle obstacle = ObstacleOf(target);
    if (obstacle != Obstacle::None)
        return obstacle;
    const std::string temporary = FileSystem::TemporaryNameBeside(target_.c_str());
    errno_ = FileSystem::CreateLike(temporary.c_str(), target_.c_str());
    if (errno_ != 0)
        return Obstacle::FolderRefuses;
    temporary_ = temporary;
    return Obstacle::None;
}

bool CWholeFile::IsDiskFull() const
{
    std::error_code error;
    const fs::space_info space = fs::space(FileSystem::FolderOf(target_.c_str()), error);
    return !error && space.available < kFullDiskBytes;
}

bool CWholeFile::Commit()
{
    if (temporary_.empty())
        return false;
    std::error_code error;
    fs::rename(temporary_, target_, error);
    errno_ = error.value();
    if (error)
        return false;
    temporary_.clear();
    return true;
}

void CWholeFile::Discard()
{
    std::error_code error;
    if (!temporary_.empty())
        fs::remove(temporary_, error);
    temporary_.clear();
}

} // namespace Nim::Base
