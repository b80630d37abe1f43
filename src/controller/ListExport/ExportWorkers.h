// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QtGlobal>

QT_BEGIN_NAMESPACE
class QThreadPool;
QT_END_NAMESPACE

namespace Vantor {

/// \brief The threads that write exports.
///
/// Never destroyed: a worker may outlive its CListExport. The process waits for it at its end, so
/// that no temporary files stay.
QThreadPool &ExportWorkers();

} // namespace Vantor
