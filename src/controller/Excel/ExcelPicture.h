// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>

namespace Vantor {

// Whether `bytes` begin like a picture that libxlsxwriter embeds (PNG, JPEG, BMP, GIF) and name a
// size of 1 to 65,535 pixels a side: it takes a truncated one for whole.
bool IsPicture(const unsigned char *bytes, std::size_t size);

// The whole file in `bytes`; false when it cannot be read.
bool ReadPictureFile(const std::string &path, std::string &bytes);

} // namespace Vantor
