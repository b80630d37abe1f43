// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QRegExp>
#include <QtCore/QSet>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace Vantor {

/// \brief Which main types the field of a main-type combo box names: a list of texts with ";"
/// between them.
///
/// Each part is a regular expression in Qt's default syntax that matches anywhere in a text, so
/// "Gull" also names "Herring gull" 's "Gull" and "a(b", which is none, nothing. An empty field
/// names the texts that hold "NULL". Beyond a thousand parts they are compared whole.
class CMainTypeMatch
{
public:
    /// \param is_exact compare the parts whole, as plain texts.
    CMainTypeMatch(const QString &field, bool is_exact);

    [[nodiscard]] bool Names(const QString &main_type) const;

private:
    QSet<QString> whole_;
    QStringList pieces_;
    QRegExp expression_;
    bool is_expression_ = false;
};

} // namespace Vantor
