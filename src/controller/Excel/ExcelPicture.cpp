// SPDX-License-Identifier: MIT
#include "controller/Excel/ExcelPicture.h"

#include <cstdint>
#include <cstring>
#include <fstream>
#include <vector>

namespace Vantor {
namespace {

constexpr std::size_t kPngHeaderBytes = 33; // signature and the whole IHDR chunk
constexpr std::size_t kPngWidthAt = 16;
constexpr std::size_t kBmpHeaderBytes = 26;
constexpr std::size_t kBmpWidthAt = 18;
constexpr std::size_t kGifHeaderBytes = 10;
constexpr std::size_t kGifWidthAt = 6;
constexpr std::size_t kJpegLeastBytes = 20;
constexpr std::size_t kPieceBytes = std::size_t{64} * 1024;
constexpr std::uint64_t kMaxSide = 65535; // pixels

enum class Order { HighFirst, LowFirst };

bool BeginsWith(const unsigned char *bytes, std::size_t size, const char *text, std::size_t length)
{
    return size >= length && std::memcmp(bytes, text, length) == 0;
}

// Whether two sizes of `length` bytes each, width first, are above 0 and what a picture can have.
bool HasSize(const unsigned char *bytes, std::size_t length, Order order)
{
    const auto size_at = [length, order](const unsigned char *from) {
        std::uint64_t size = 0;
        for (std::size_t i = 0; i < length; ++i)
            size = size << 8 | from[order == Order::HighFirst ? i : length - 1 - i];
        return size;
    };
    const std::uint64_t width = size_at(bytes);
    const std::uint64_t height = size_at(bytes + length);
    return width > 0 && width <= kMaxSide && height > 0 && height <= kMaxSide;
}

} // namespace

bool IsPicture(const unsigned char *bytes, std::size_t size)
{
    if (!bytes)
        return false;
    if (BeginsWith(bytes, size, "\x89PNG\r\n\x1A\n", 8))
        return size >= kPngHeaderBytes && HasSize(bytes + kPngWidthAt, 4, Order::HighFirst);
    if (BeginsWith(bytes, size, "BM", 2))
        return size >= kBmpHeaderBytes && HasSize(bytes + kBmpWidthAt, 4, Order::LowFirst);
    if (BeginsWith(bytes, size, "GIF8", 4))
        return size >= kGifHeaderBytes && HasSize(bytes + kGifWidthAt, 2, Order::LowFirst);
    return BeginsWith(bytes, size, "\xFF\xD8\xFF", 3) && size >= kJpegLeastBytes;
}

bool ReadPictureFile(const std::string &path, std::string &bytes)
{
    std::ifstream file(path, std::ios::binary);
    std::vector<char> piece(kPieceBytes);
    while (file) {
        file.read(piece.data(), static_cast<std::streamsize>(piece.size()));
        bytes.append(piece.data(), static_cast<std::size_t>(file.gcount()));
    }
    return file.eof(); // else it was not opened, or reading failed
}

} // namespace Vantor
