// SPDX-License-Identifier: MIT
#pragma once

#include "link/ServerPages.h"

namespace Vantor {
class CListExport;
}

namespace Client {

/// \brief Let \a job export the whole list that \a page is a page of, page by page from the server.
///
/// Memory stays flat, whatever the list's length. Rows are those of the page's moment. A server
/// that goes away is asked a few times more; then the export ends without a file.
/// \param request what \a page is the answer to.
void SetServerRows(Vantor::CListExport &job, const PageRequest &request, const ServerPage &page);

} // namespace Client
