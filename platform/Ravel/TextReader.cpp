// SPDX-License-Identifier: MIT
#include "Ravel/TextReader.h"

#include "Ravel/TextAccess.h"

#include <algorithm>

namespace Ravel {
namespace {

constexpr size_t kRowsAtOnce = 512; // well under a millisecond, whatever is done with a row

} // namespace

CTextReader::CTextReader(std::shared_ptr<CTextAccess> access)
    : access_(std::move(access)), version_(access_->version)
{}

bool CTextReader::Read(const std::function<void(const CTextBlock &)> &visit) const
{
    for (size_t begin = 0;; begin += kRowsAtOnce) {
        const std::lock_guard lock(access_->mutex);
        if (!IsCurrent())
            return false;
        const auto &rows = *access_->rows;
        if (begin >= rows.size())
            return true;
        for (size_t row = begin; row < std::min(begin + kRowsAtOnce, rows.size()); ++row)
            visit(rows[row]->Texts());
    }
}

bool CTextReader::IsCurrent() const
{
    return access_->rows && access_->version == version_;
}

} // namespace Ravel
