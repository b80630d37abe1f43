// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>

#include <cstddef>
#include <functional>
#include <string>
#include <utility>
#include <vector>

/// \brief ZIP archives (APPNOTE 6.3, ZIP64 too). May be called from any thread.
namespace Nim::Base::Zip {

/// \brief Receives the unpacked bytes of the part \a name, piece by piece; for a part without bytes
/// it is called once with \a size 0. Returns false to stop.
using PartReader =
    std::function<bool(const std::string &name, const char *bytes, std::size_t size)>;

/// \brief Unpack every part of the archive \a path in its order and check it against its sum.
/// Memory stays flat whatever the sizes.
///
/// \param path in the local encoding.
/// \return false if the file cannot be read, is not an archive or is empty, if a part is damaged,
/// or if \a reader returned false or threw.
[[nodiscard]] VANTOR_BASE_EXPORT bool ReadParts(const std::string &path, const PartReader &reader);

/// \brief Texts of one part, and what takes the place of each: the first one that is found, then
/// the next one behind it.
struct PartChange
{
    std::string part;                                       ///< its name in the archive
    std::vector<std::pair<std::string, std::string>> texts; ///< old text (not empty), new text
};

/// \brief Pack the parts named in \a changes again, changed; the others stay as they are packed.
///
/// The archive is written anew beside \a path and takes its name when it is whole; until then, and
/// after a failure, the earlier one is there. Memory stays flat whatever the sizes of the parts.
///
/// \param path in the local encoding.
/// \return 0 for success; else errno, such as ENOSPC, as far as it is known, or EIO, also when a part
/// or an old text is not there.
[[nodiscard]] VANTOR_BASE_EXPORT int ChangeParts(const std::string &path,
                                                 const std::vector<PartChange> &changes);

} // namespace Nim::Base::Zip
