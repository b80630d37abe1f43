// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QMimeData>

#include <memory>

namespace Client {

/// \brief Takes what this process has copied out of the clipboard and the selection, until
/// GiveBack(). What other programs have copied stays.
class CHeldClipboard
{
public:
    CHeldClipboard();

    /// \brief Put the data back, unless another program has copied something meanwhile.
    void GiveBack();

private:
    std::unique_ptr<QMimeData> clipboard_;
    std::unique_ptr<QMimeData> selection_;
};

} // namespace Client
