// SPDX-License-Identifier: MIT
#include "Nim/Base/Zip.h"

#include <zip.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <utility>

namespace Nim::Base::Zip {
namespace {

constexpr std::size_t kPieceBytes = std::size_t{64} * 1024;

using Archive = std::unique_ptr<zip_t, decltype(&zip_discard)>;
using PackedFile = std::unique_ptr<zip_file_t, decltype(&zip_fclose)>;

Archive Open(const std::string &path, int flags)
{
    return {zip_open(path.c_str(), flags, nullptr), &zip_discard};
}

bool ReadPart(zip_t *archive, zip_uint64_t index, std::vector<char> &piece,
              const PartReader &reader)
{
    const char *const name = zip_get_name(archive, index, ZIP_FL_ENC_RAW);
    const PackedFile file(zip_fopen_index(archive, index, 0), &zip_fclose);
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

// A part as libzip packs it again: read from the earlier archive, and changed on the way.
class CChangedPart
{
public:
    CChangedPart(zip_t *earlier, const PartChange &change) : earlier_(earlier), change_(change)
    {
        zip_stat_init(&stat_);
        is_there_ = zip_stat(earlier, change.part.c_str(), 0, &stat_) == 0;
        for (const auto &[old_text, new_text] : change.texts)
            stat_.size += new_text.size() - old_text.size(); // wraps and comes back
    }

    [[nodiscard]] bool IsThere() const { return is_there_; }
    [[nodiscard]] const zip_stat_t &Stat() const { return stat_; }

    bool Open()
    {
        file_.reset(zip_fopen(earlier_, change_.part.c_str(), 0));
        DropReady();
        pending_.clear();
        changed_ = 0;
        return file_ != nullptr;
    }
    void Close() { file_.reset(); }

    // Bytes read; -1 on a failure.
    zip_int64_t Read(char *bytes, std::size_t length)
    {
        while (ready_.empty() && file_) {
            if (!ReadOn())
                return -1;
        }
        const std::size_t taken = ready_.copy(bytes, length, taken_);
        taken_ += taken;
        if (taken_ == ready_.size())
            DropReady();
        return static_cast<zip_int64_t>(taken);
    }

private:
    bool ReadOn()
    {
        const std::size_t before = pending_.size();
        pending_.resize(before + kPieceBytes);
        const zip_int64_t length = zip_fread(file_.get(), &pending_[before], kPieceBytes);
        pending_.resize(before + static_cast<std::size_t>(std::max<zip_int64_t>(length, 0)));
        while (changed_ < change_.texts.size() && Change(change_.texts[changed_]))
            ++changed_;
        const bool is_done = changed_ == change_.texts.size();
        // The last bytes may be the beginning of the next text.
        const std::size_t kept =
            is_done ? 0 : std::min(pending_.size(), change_.texts[changed_].first.size() - 1);
        Pass(pending_.size() - kept);
        if (length <= 0)
            file_.reset();
        return length > 0 || (length == 0 && is_done);
    }

    bool Change(const std::pair<std::string, std::string> &texts)
    {
        const std::size_t at = pending_.find(texts.first);
        if (at == std::string::npos)
            return false;
        Pass(at);
        pending_.erase(0, texts.first.size());
        ready_ += texts.second;
        return true;
    }

    void DropReady()
    {
        ready_.clear();
        taken_ = 0;
    }

    void Pass(std::size_t length)
    {
        ready_.append(pending_, 0, length);
        pending_.erase(0, length);
    }

    zip_t *const earlier_;
    const PartChange &change_;
    zip_stat_t stat_{};
    bool is_there_ = false;
    PackedFile file_{nullptr, &zip_fclose};
    std::string pending_; // bytes that are not decided on yet
    std::string ready_;
    std::size_t taken_ = 0;   // bytes of ready_ that libzip has
    std::size_t changed_ = 0; // texts
};

// What libzip asks of the source of a part. libzip is C: no exception may pass through it.
zip_int64_t Answer(void *source, void *data, zip_uint64_t length, zip_source_cmd_t command)
{
    auto *const part = static_cast<CChangedPart *>(source);
    try {
        switch (command) {
        case ZIP_SOURCE_SUPPORTS:
            return zip_source_make_command_bitmap(ZIP_SOURCE_OPEN, ZIP_SOURCE_READ,
                                                  ZIP_SOURCE_CLOSE, ZIP_SOURCE_STAT,
                                                  ZIP_SOURCE_ERROR, ZIP_SOURCE_FREE, -1);
        case ZIP_SOURCE_OPEN:
            return part->Open() ? 0 : -1;
        case ZIP_SOURCE_READ:
            return part->Read(static_cast<char *>(data), static_cast<std::size_t>(length));
        case ZIP_SOURCE_CLOSE:
            part->Close();
            return 0;
        case ZIP_SOURCE_STAT: {
            zip_stat_t stat;
            zip_stat_init(&stat);
            stat.size = part->Stat().size;
            stat.mtime = part->Stat().mtime;
            stat.valid = ZIP_STAT_SIZE | ZIP_STAT_MTIME;
            std::memcpy(data, &stat, sizeof stat);
            return sizeof stat;
        }
        case ZIP_SOURCE_ERROR: {
            const int error[] = {ZIP_ER_READ, EIO};
            std::memcpy(data, error, sizeof error);
            return sizeof error;
        }
        case ZIP_SOURCE_FREE: // the caller of libzip owns it
            return 0;
        default:
            return -1;
        }
    } catch (...) {
        return -1;
    }
}

bool Replace(zip_t *archive, CChangedPart &part, const std::string &name)
{
    const zip_int64_t index = zip_name_locate(archive, name.c_str(), 0);
    zip_source_t *const source =
        index >= 0 && part.IsThere() ? zip_source_function(archive, &Answer, &part) : nullptr;
    if (!source)
        return false;
    const bool is_replaced =
        zip_file_replace(archive, static_cast<zip_uint64_t>(index), source, 0) == 0;
    if (!is_replaced)
        zip_source_free(source);
    return is_replaced;
}

} // namespace

bool ReadParts(const std::string &path, const PartReader &reader)
{
    try {
        const Archive archive = Open(path, ZIP_RDONLY);
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

int ChangeParts(const std::string &path, const std::vector<PartChange> &changes)
{
    try {
        const Archive earlier = Open(path, ZIP_RDONLY);
        std::vector<std::unique_ptr<CChangedPart>> parts; // outlive the archive that reads them
        Archive archive = Open(path, 0);
        if (!earlier || !archive)
            return EIO;
        for (const PartChange &change : changes) {
            parts.push_back(std::make_unique<CChangedPart>(earlier.get(), change));
            if (!Replace(archive.get(), *parts.back(), change.part))
                return EIO;
        }
        if (zip_close(archive.get()) == 0) {
            static_cast<void>(archive.release()); // closed is freed
            return 0;
        }
        const int error = zip_error_code_system(zip_get_error(archive.get()));
        return error != 0 ? error : EIO;
    } catch (...) {
        return ENOMEM;
    }
}

} // namespace Nim::Base::Zip
