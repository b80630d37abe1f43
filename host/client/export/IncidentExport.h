// SPDX-License-Identifier: MIT
#pragma once

#include "list/IncidentList.h"

namespace Vantor {
class CListExport;
}

namespace Client {

/// \brief Let \a job export \a rows, which may change meanwhile: the job has a snapshot. A workbook
/// gets the client's look and a last sheet that sums up.
void SetIncidents(Vantor::CListExport &job, const IncidentRows &rows);

} // namespace Client
