// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QString>

#include <cstdio>
#include <string>

/// \brief File operations of the client. 8-bit paths are in the local encoding; all may be called
/// from any thread.
namespace Nim::Base::FileSystem {

/// \brief Create the directory \a path and its missing parents.
/// \return true when the directory exists afterwards.
VANTOR_PLATFORM_EXPORT bool MakeDir(const std::string &path);

/// \return 0 when something of that name exists, else -1.
[[nodiscard]] VANTOR_PLATFORM_EXPORT int FileExists(const char *path);

/// \brief Rename \a source; an existing file \a target is replaced at once, never seen half.
/// \return 0, or -1 and both names as they were.
VANTOR_PLATFORM_EXPORT int RenameFile(const char *source, const char *target);

/// \brief Delete a file; directories are refused.
/// \return 0, or -1.
VANTOR_PLATFORM_EXPORT int DeleteFileW(const char *path);

/// \brief Copy a regular file under a temporary name beside \a target, then give it that name.
/// \param fail_if_exists 1 refuses an existing \a target, 0 replaces it.
/// \return 0, or -1: no partial file is left and an existing \a target is as it was.
VANTOR_PLATFORM_EXPORT int CopyFileW(const char *source, const char *target, int fail_if_exists);

/// \brief Open a file so that others may read and write it meanwhile; not inherited by child
/// processes.
///
/// \param mode of C's fopen(), such as "wb" or "ab+".
/// \return the stream, which the caller closes with fclose(), or null with the cause in errno.
[[nodiscard]] VANTOR_PLATFORM_EXPORT std::FILE *OpenShared(const QString &path, const char *mode);

} // namespace Nim::Base::FileSystem
