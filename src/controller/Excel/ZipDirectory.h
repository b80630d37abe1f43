// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Vantor {

// One file of a ZIP archive.
struct ZipEntry
{
    std::string name;
    std::uint64_t size = 0; // uncompressed; kZip64Size when a ZIP64 field holds it
};

constexpr std::uint64_t kZip64Size = 0xFFFFFFFF;

// Reads the central directory of the archive `path` (APPNOTE 6.3, section 4.3.12).
// Returns false when there is none or it is damaged.
bool ReadZipDirectory(const std::string &path, std::vector<ZipEntry> &entries);

} // namespace Vantor
