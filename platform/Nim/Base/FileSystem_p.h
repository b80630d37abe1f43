// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace Nim::Base::FileSystem {

// Gives `source` the name `target`, or returns false if that name is taken. At every moment one of
// the names exists.
bool RenameWithoutReplacing(const char *source, const char *target);

#ifdef _WIN32
constexpr char kSeparators[] = "/\\";
#else
constexpr char kSeparators[] = "/";
#endif

// The folder of the file `target`, which need not exist yet.
std::string FolderOf(const char *target);

// Whether the existing file `path` may be written by this process.
bool IsWritable(const char *path);

// Creates the empty file `path`, which must not exist yet, with the permissions of `model` if that
// is there. 0, or errno.
int CreateLike(const char *path, const char *model);

// A name in that folder that no other copy has. May throw std::bad_alloc.
std::string TemporaryNameBeside(const char *target);

} // namespace Nim::Base::FileSystem
