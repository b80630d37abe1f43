// SPDX-License-Identifier: MIT
#pragma once

#include "Ravel/TreeViewItem.h"

#include <memory>
#include <mutex>
#include <vector>

namespace Ravel {

/// \brief What a model shares with those who read its texts on other threads.
struct CTextAccess
{
    std::mutex mutex; ///< held by the GUI thread to change texts, by other threads to read them
    const std::vector<std::unique_ptr<CTreeViewItem>> *rows = nullptr; ///< null: the model is gone
    quint64 version = 1; ///< of rows and texts; written by the GUI thread
};

} // namespace Ravel
