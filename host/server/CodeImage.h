// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace Server {

/// \brief \a code as a picture that people read and simple programs do not, PNG. Any thread, while
/// there is a QGuiApplication.
[[nodiscard]] QByteArray DrawCode(const QString &code);

} // namespace Server
