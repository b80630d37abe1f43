// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>

#include <QtCore/QString>

#include <cstdint>
#include <cstdio>
#include <functional>
#include <string>

/// \brief File operations of the client. 8-bit paths are in the local encoding; all may be called
/// from any thread.
namespace Nim::Base::FileSystem {

/// \brief Create the directory \a path and its missing parents.
/// \return true when the directory exists afterwards.
VANTOR_BASE_EXPORT bool MakeDir(const std::string &path);

/// \return 0 when something of that name exists, else -1.
[[nodiscard]] VANTOR_BASE_EXPORT int FileExists(const char *path);

/// \brief Rename \a source; an existing file \a target is replaced at once, never seen half.
/// \return 0, or -1 with the reason in errno, and both names as they were.
VANTOR_BASE_EXPORT int RenameFile(const char *source, const char *target);

/// \brief Whether the errno \a error says that there is no room, on the disk or in the user's
/// quota.
[[nodiscard]] VANTOR_BASE_EXPORT bool IsDiskFullError(int error);

/// \brief Delete a file; directories are refused.
/// \return 0, or -1 with the reason in errno.
VANTOR_BASE_EXPORT int DeleteFileW(const char *path);

/// \brief Receives the number of bytes copied since the last call, on the copying thread.
using CopyProgress = std::function<void(std::int64_t bytes)>;

/// \brief Copy a regular file with its times and its permissions (without the set-id bits).
///
/// The bytes go through the kernel (copy_file_range(2): file systems that can share blocks do) into
/// a file that has no name yet, or a temporary one ".<GUID>.part" beside \a target where the file
/// system needs one; it gets the name \a target when it is whole. A source that grows meanwhile is
/// copied up to the size it had, one that shrinks up to its new end. Times and permissions that the
/// target's file system cannot hold are left out. Nothing is synced to the disk.
///
/// \param fail_if_exists 1 refuses an existing \a target; looking and naming are one step, so of
///                       several that copy to one name exactly one succeeds. 0 replaces it at once.
/// \return 0, or a negative errno: no partial file is left and an existing \a target is as it was.
///         -EEXIST is the refusal, -EISDIR a directory as the source, -EINVAL a source that is no
///         regular file.
VANTOR_BASE_EXPORT int CopyFileW(const char *source, const char *target, int fail_if_exists);

/// \brief The same, with a call of \a on_bytes every few megabytes; it must not throw and may be
/// empty.
VANTOR_BASE_EXPORT int CopyFileWithProgress(const char *source, const char *target,
                                            int fail_if_exists, const CopyProgress &on_bytes);

/// \brief Whether both names lead to one file: other spellings, hard and symbolic links.
/// \return false also when one of them is missing.
[[nodiscard]] VANTOR_BASE_EXPORT bool IsSameFile(const char *one, const char *other);

/// \brief Open a file so that others may read and write it meanwhile; not inherited by child
/// processes.
///
/// \param mode of C's fopen(), such as "wb" or "ab+".
/// \return the stream, which the caller closes with fclose(), or null with the cause in errno.
[[nodiscard]] VANTOR_BASE_EXPORT std::FILE *OpenShared(const QString &path, const char *mode);

/// \brief A stream that reads from \a file and seeks in it. fclose() on it closes \a file too and
/// sets \a is_closed, so that a foreign library can be watched.
///
/// \return the stream, or null where the system has no such streams; \a file is then untouched.
[[nodiscard]] VANTOR_BASE_EXPORT std::FILE *WatchClosing(std::FILE *file, bool *is_closed);

} // namespace Nim::Base::FileSystem
