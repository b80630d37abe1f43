// SPDX-License-Identifier: MIT
#include "controller/Excel/WorkbookCheck.h"

#include <Nim/Base/Zip.h>

#include <xlsxwriter.h>

#include <QtCore/QXmlStreamReader>

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace Vantor {
namespace {

constexpr std::array<std::string_view, 2> kCellTags{"<sheetData>", "<sst "};
constexpr std::size_t kLongestTag = 11;

bool IsXml(const std::string &name)
{
    static constexpr std::array<std::string_view, 3> kEndings{".xml", ".rels", ".vml"};
    return std::any_of(kEndings.cbegin(), kEndings.cend(), [&name](std::string_view ending) {
        return name.size() >= ending.size()
               && name.compare(name.size() - ending.size(), ending.size(), ending) == 0;
    });
}

// Without a branch, so that the compiler takes many bytes at once.
bool HasForbidden(std::string_view bytes)
{
    unsigned found = 0;
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        found |= static_cast<unsigned>(value < 0x20) & static_cast<unsigned>(value != '\t')
                 & static_cast<unsigned>(value != '\n') & static_cast<unsigned>(value != '\r');
    }
    return found != 0;
}

// The parts of one archive as they come.
class CParts
{
public:
    explicit CParts(const std::vector<XlsxInternals::SheetRows> &rows)
    {
        for (const XlsxInternals::SheetRows &sheet : rows)
            least_[sheet.part] = sheet.bytes;
    }

    // False when the part before is not whole.
    bool Take(const std::string &name, std::string_view piece)
    {
        if (name != name_ && !EndPart())
            return false;
        if (name != name_ && IsXml(name))
            xml_ = std::make_unique<CXmlPart>();
        name_ = name;
        size_ += piece.size();
        if (xml_)
            xml_->Take(piece);
        return true;
    }

    bool EndPart()
    {
        const auto least = least_.find(name_);
        const bool is_first = name_.empty();
        const bool is_whole = is_first
                              || (size_ > 0 && (least == least_.end() || size_ >= least->second)
                                  && (!xml_ || xml_->IsWhole()));
        xml_.reset();
        size_ = 0;
        return is_whole;
    }

private:
    std::map<std::string, std::uint64_t> least_; // bytes of rows by the part's name
    std::string name_;
    std::uint64_t size_ = 0;
    std::unique_ptr<CXmlPart> xml_;
};

} // namespace

CXmlPart::CXmlPart() : reader_(std::make_unique<QXmlStreamReader>()) {}

CXmlPart::~CXmlPart() = default;

void CXmlPart::Take(std::string_view piece)
{
    if (place_ == Place::AfterCells) {
        Read(piece);
        return;
    }
    pending_.append(piece);
    if (place_ == Place::BeforeCells)
        TakeBefore();
    if (place_ == Place::InCells)
        TakeCells();
}

void CXmlPart::TakeBefore()
{
    for (const std::string_view tag : kCellTags) {
        const std::size_t at = pending_.find(tag);
        const std::size_t end = at != std::string::npos ? pending_.find('>', at) : at;
        if (at == std::string::npos)
            continue;
        if (end == std::string::npos) // the rest of the tag is in the next piece
            return;
        Read(std::string_view(pending_).substr(0, end + 1));
        pending_.erase(0, end + 1);
        cells_end_ = "</" + std::string(tag.substr(1, tag.find_first_of(" >") - 1)) + '>';
        place_ = Place::InCells;
        return;
    }
    // The last bytes may be the beginning of such a tag.
    const std::size_t known = pending_.size() - std::min(pending_.size(), kLongestTag);
    Read(std::string_view(pending_).substr(0, known));
    pending_.erase(0, known);
}

void CXmlPart::TakeCells()
{
    const std::size_t end = pending_.find(cells_end_);
    const bool is_end = end != std::string::npos;
    const std::size_t known =
        is_end ? end : pending_.size() - std::min(pending_.size(), cells_end_.size());
    has_forbidden_ = has_forbidden_ || HasForbidden(std::string_view(pending_).substr(0, known));
    pending_.erase(0, known);
    if (!is_end)
        return;
    place_ = Place::AfterCells;
    Read(pending_);
    pending_.clear();
}

void CXmlPart::Read(std::string_view bytes)
{
    reader_->addData(QByteArray(bytes.data(), static_cast<int>(bytes.size())));
    while (!reader_->atEnd())
        reader_->readNext();
}

bool CXmlPart::IsWhole()
{
    if (place_ == Place::InCells || has_forbidden_)
        return false;
    Read(std::exchange(pending_, {}));
    return !reader_->hasError();
}

int CheckWorkbook(const std::string &path, const std::vector<XlsxInternals::SheetRows> &rows)
{
    CParts parts(rows);
    bool are_whole = true;
    const bool is_sound = Nim::Base::Zip::ReadParts(
        path, [&](const std::string &name, const char *bytes, std::size_t size) {
            are_whole = parts.Take(name, std::string_view(bytes, size));
            return are_whole;
        });
    are_whole = are_whole && (!is_sound || parts.EndPart());
    if (!are_whole)
        return LXW_ERROR_CREATING_TMPFILE;
    return is_sound ? LXW_NO_ERROR : LXW_ERROR_ZIP_FILE_OPERATION;
}

} // namespace Vantor
