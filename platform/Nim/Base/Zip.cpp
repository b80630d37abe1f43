// SPDX-License-Identifier: MIT
#include "Nim/Base/Zip.h"

#include <zip.h>

#include <memory>
#include <vector>

namespace Nim::Base::Zip {
namespace {

constexpr std::size_t kPieceBytes = std::size_t{64} * 1024;

bool ReadPart(zip_t *archive, zip_uint64_t index, std::vector<char> &piece,
              const PartReader &reader)
{
    const char *const name = zip_get_name(archive, index, ZIP_FL_ENC_RAW);
    const std::unique_ptr<zip_file_t, decltype(&zip_fclose)> file(
        zip_fopen_index(archive, index, 0), &zip_fclose);
    if (!name || !file)
        return false;
    const std::string part = name;
    zip_int64_t length = zip_fread(file.get(), piece.data(), piece.size());
    if (length == 0)
        return reader(part, piece.data(), 0);
    while (length > 0) {
        if (!reader(part, piece.data(), static_cast<std::size_t>(length)))
            return false;
        length = zip_fread(file.get(), piece.data(), piece.size());
    }
    return length == 0; // the last read compares the sum
}

} // namespace

bool ReadParts(const std::string &path, const PartReader &reader)
{
    try {
        const std::unique_ptr<zip_t, decltype(&zip_discard)> archive(
            zip_open(path.c_str(), ZIP_RDONLY, nullptr), &zip_discard);
        const zip_int64_t count = archive ? zip_get_num_entries(archive.get(), 0) : 0;
        std::vector<char> piece(kPieceBytes);
        for (zip_int64_t i = 0; i < count; ++i) {
            if (!ReadPart(archive.get(), static_cast<zip_uint64_t>(i), piece, reader))
                return false;
        }
        return count > 0;
    } catch (...) { // memory, or what the reader threw
        return false;
    }
}

} // namespace Nim::Base::Zip
