// SPDX-License-Identifier: MIT
#include "Nim/Base/Zip.h"

#include <zip.h>

#include <algorithm>
#include <memory>

namespace Nim::Base::Zip {
namespace {

constexpr std::size_t kPieceBytes = std::size_t{64} * 1024;

// Adds the next `size` bytes to what is kept of the part.
void Keep(Part &part, const char *bytes, std::size_t size)
{
    part.size += size;
    part.head.append(bytes, std::min(size, kEndBytes - part.head.size()));
    const std::size_t last = std::min(size, kEndBytes);
    const std::size_t before = std::min(part.tail.size(), kEndBytes - last);
    part.tail.erase(0, part.tail.size() - before).append(bytes + (size - last), last);
}

bool ReadPart(zip_t *archive, zip_uint64_t index, std::vector<char> &piece, Part &part)
{
    const char *const name = zip_get_name(archive, index, ZIP_FL_ENC_RAW);
    const std::unique_ptr<zip_file_t, decltype(&zip_fclose)> file(
        zip_fopen_index(archive, index, 0), &zip_fclose);
    if (!name || !file)
        return false;
    part.name = name;
    zip_int64_t length = 0;
    while ((length = zip_fread(file.get(), piece.data(), piece.size())) > 0)
        Keep(part, piece.data(), static_cast<std::size_t>(length));
    return length == 0; // the last read compares the sum
}

} // namespace

bool ReadParts(const std::string &path, std::vector<Part> &parts)
{
    try {
        const std::unique_ptr<zip_t, decltype(&zip_discard)> archive(
            zip_open(path.c_str(), ZIP_RDONLY, nullptr), &zip_discard);
        const zip_int64_t count = archive ? zip_get_num_entries(archive.get(), 0) : 0;
        std::vector<char> piece(kPieceBytes);
        for (zip_int64_t i = 0; i < count; ++i) {
            parts.emplace_back();
            if (!ReadPart(archive.get(), static_cast<zip_uint64_t>(i), piece, parts.back()))
                return false;
        }
        return count > 0;
    } catch (...) { // memory
        return false;
    }
}

} // namespace Nim::Base::Zip
