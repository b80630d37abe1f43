// SPDX-License-Identifier: MIT
#include "controller/Excel/ExcelPicture.h"

#include <QtCore/QFile>

#include <cstring>

namespace Vantor {
namespace {

constexpr std::size_t kPngHeaderBytes = 33; // signature and the whole IHDR chunk
constexpr std::size_t kPngWidthAt = 16;
constexpr std::size_t kBmpHeaderBytes = 26;
constexpr std::size_t kBmpWidthAt = 18;
constexpr std::size_t kGifHeaderBytes = 10;
constexpr std::size_t kGifWidthAt = 6;
constexpr std::size_t kJpegLeastBytes = 20;

bool BeginsWith(const unsigned char *bytes, std::size_t size, const char *text, std::size_t length)
{
    return size >= length && std::memcmp(bytes, text, length) == 0;
}

bool HasAnyBit(const unsigned char *bytes, std::size_t length)
{
    for (std::size_t i = 0; i < length; ++i) {
        if (bytes[i] != 0)
            return true;
    }
    return false;
}

// Two sizes of `length` bytes each, width first; the order of their bytes does not matter for zero.
bool HasSize(const unsigned char *bytes, std::size_t length)
{
    return HasAnyBit(bytes, length) && HasAnyBit(bytes + length, length);
}

} // namespace

bool IsPicture(const unsigned char *bytes, std::size_t size)
{
    if (!bytes)
        return false;
    if (BeginsWith(bytes, size, "\x89PNG\r\n\x1A\n", 8))
        return size >= kPngHeaderBytes && HasSize(bytes + kPngWidthAt, 4);
    if (BeginsWith(bytes, size, "BM", 2))
        return size >= kBmpHeaderBytes && HasSize(bytes + kBmpWidthAt, 4);
    if (BeginsWith(bytes, size, "GIF8", 4))
        return size >= kGifHeaderBytes && HasSize(bytes + kGifWidthAt, 2);
    return BeginsWith(bytes, size, "\xFF\xD8\xFF", 3) && size >= kJpegLeastBytes;
}

bool ReadPictureFile(const std::string &path, std::string &bytes)
{
    QFile file(QFile::decodeName(path.c_str()));
    if (path.empty() || !file.open(QIODevice::ReadOnly))
        return false;
    bytes = file.readAll().toStdString();
    return file.error() == QFileDevice::NoError;
}

} // namespace Vantor
