// SPDX-License-Identifier: MIT
#include "Nim/Base/Zip.h"

#include <unzip.h>

#include <algorithm>
#include <memory>

namespace Nim::Base::Zip {
namespace {

constexpr std::size_t kPieceBytes = std::size_t{64} * 1024;

bool ReadName(unzFile archive, std::string &name)
{
    unz_file_info64 info{};
    if (unzGetCurrentFileInfo64(archive, &info, nullptr, 0, nullptr, 0, nullptr, 0) != UNZ_OK)
        return false;
    name.resize(info.size_filename);
    return unzGetCurrentFileInfo64(archive, &info, name.data(), info.size_filename, nullptr, 0,
                                   nullptr, 0)
           == UNZ_OK;
}

// Adds the next `size` bytes to what is kept of the part.
void Keep(Part &part, const char *bytes, std::size_t size)
{
    part.size += size;
    part.head.append(bytes, std::min(size, kEndBytes - part.head.size()));
    const std::size_t last = std::min(size, kEndBytes);
    const std::size_t before = std::min(part.tail.size(), kEndBytes - last);
    part.tail.erase(0, part.tail.size() - before).append(bytes + (size - last), last);
}

bool ReadPart(unzFile archive, std::vector<char> &piece, Part &part)
{
    if (!ReadName(archive, part.name) || unzOpenCurrentFile(archive) != UNZ_OK)
        return false;
    int length = 0;
    do {
        length = unzReadCurrentFile(archive, piece.data(), static_cast<unsigned>(piece.size()));
        if (length > 0)
            Keep(part, piece.data(), static_cast<std::size_t>(length));
    } while (length > 0);
    // Closing is what compares the sum.
    return unzCloseCurrentFile(archive) == UNZ_OK && length == 0;
}

} // namespace

bool ReadParts(const std::string &path, std::vector<Part> &parts)
{
    try {
        const std::unique_ptr<void, decltype(&unzClose)> archive(unzOpen64(path.c_str()),
                                                                 &unzClose);
        if (!archive)
            return false;
        std::vector<char> piece(kPieceBytes);
        int step = unzGoToFirstFile(archive.get());
        for (; step == UNZ_OK; step = unzGoToNextFile(archive.get())) {
            parts.emplace_back();
            if (!ReadPart(archive.get(), piece, parts.back()))
                return false;
        }
        return step == UNZ_END_OF_LIST_OF_FILE && !parts.empty();
    } catch (...) { // memory
        return false;
    }
}

} // namespace Nim::Base::Zip
