// SPDX-License-Identifier: MIT
#pragma once

#include <BaseExport.h>

#include <cstddef>
#include <functional>
#include <string>

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

} // namespace Nim::Base::Zip
