// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>

#include <string>

namespace Nim::Base {

/// \brief A file that gets its name when it is whole, or not at all.
///
/// It is written under a temporary name ".<GUID>.part" in the folder of the target and renamed when
/// it is complete. Until then an earlier file stays as it is. A symbolic link keeps pointing where
/// it does: the file behind it is replaced. Nothing is synced to the disk. Paths are in the local
/// encoding. One thread at a time.
class VANTOR_BASE_EXPORT CWholeFile
{
public:
    /// Why nothing can be written to a target.
    enum class Obstacle {
        None,
        NoFolder,       ///< Its folder is missing.
        DeadLink,       ///< It is a link that leads nowhere or in a ring.
        Folder,         ///< It is a folder.
        Device,         ///< It is a device, a pipe or a socket.
        WriteProtected, ///< The earlier file may not be written.
        FolderRefuses   ///< Its folder takes no new file; Errno() says why.
    };

    CWholeFile() = default;
    ~CWholeFile(); ///< Discards a file that was not committed.
    CWholeFile(const CWholeFile &) = delete;
    CWholeFile &operator=(const CWholeFile &) = delete;

    /// \brief Make the temporary file for \a path, empty and with the permissions of the earlier
    /// file. Discards a file that was begun before.
    [[nodiscard]] Obstacle Begin(const std::string &path);
    /// \return where to write until Commit(); empty before Begin() and after the end.
    [[nodiscard]] const std::string &TemporaryPath() const { return temporary_; }
    /// \return the file that is replaced in the end: the path given, its links followed.
    [[nodiscard]] const std::string &Target() const { return target_; }
    /// \brief Whether there is less than 64 KiB left beside the target. Meaningful while the
    /// temporary file is there.
    [[nodiscard]] bool IsDiskFull() const;
    /// \brief Give the temporary file, closed by now, its name; an earlier file is replaced at
    /// once. \return false when that fails (Errno() says why): both files are then as they were.
    [[nodiscard]] bool Commit();
    /// \brief Remove the temporary file, unless it has its name already.
    void Discard();
    /// \return errno of the last step that failed, else 0.
    [[nodiscard]] int Errno() const { return errno_; }

private:
    std::string target_;
    std::string temporary_;
    int errno_ = 0;
};

} // namespace Nim::Base
