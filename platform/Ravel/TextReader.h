// SPDX-License-Identifier: MIT
#pragma once

#include <PlatformExport.h>

#include <QtCore/QtGlobal>

#include <functional>
#include <memory>

namespace Ravel {

class CTextBlock;
struct CTextAccess;

/// \brief Reads the texts of a CTreeViewModel on another thread, as they are when it is made.
///
/// It reads in short pieces, and a change of the model waits for no more than one of them. Copies
/// may be used on any thread, also after the model is gone.
class VANTOR_PLATFORM_EXPORT CTextReader
{
public:
    /// \brief Call \a visit with the texts of each top-level row, in order.
    /// \return false when rows or texts have changed since, or the model is gone. The texts read
    /// so far must then be dropped.
    bool Read(const std::function<void(const CTextBlock &)> &visit) const;

    /// \brief Whether rows and texts are still those that Read() reads. GUI thread only.
    [[nodiscard]] bool IsCurrent() const;

private:
    friend class CTreeViewModel;
    explicit CTextReader(std::shared_ptr<CTextAccess> access);

    std::shared_ptr<CTextAccess> access_;
    quint64 version_;
};

} // namespace Ravel
