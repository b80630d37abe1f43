// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QStringList>

namespace Client {

/// \brief Evidence to try the copying with: six pictures (JPEG) and a clip (Motion JPEG: JPEG
/// pictures one after another) of an invented gate, drawn by this function.
///
/// \param folder is made if it is missing; files that are there already are not drawn again.
/// \return the paths of the files, without those that could not be written.
[[nodiscard]] QStringList MakeSampleEvidence(const QString &folder);

} // namespace Client
