// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>

#include <cstdint>
#include <string>
#include <vector>

/// \brief ZIP archives (APPNOTE 6.3, ZIP64 too). May be called from any thread.
namespace Nim::Base::Zip {

/// How much of either end of a part is kept, in bytes.
constexpr std::size_t kEndBytes = 512;

/// One file of an archive.
struct Part
{
    std::string name;
    std::uint64_t size = 0; ///< Unpacked bytes.
    std::string head;       ///< Its first kEndBytes bytes; all of a smaller part.
    std::string tail;       ///< Its last kEndBytes bytes; all of a smaller part.
};

/// \brief Unpack every part of the archive \a path, check it against its sum and keep both ends of
/// it: memory stays flat whatever the sizes.
///
/// \param path in the local encoding.
/// \return false when the file cannot be read, is no archive, is empty, or any part is damaged.
[[nodiscard]] VANTOR_BASE_EXPORT bool ReadParts(const std::string &path, std::vector<Part> &parts);

} // namespace Nim::Base::Zip
