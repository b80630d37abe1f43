// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QRegExp>
#include <QtCore/QSet>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace Vantor {

/// \brief Decides which main types are meant, by the field of a main-type combo box or by a list.
///
/// The field is a list of texts with ";" between them. Each part is a regular expression in Qt's
/// default syntax that matches anywhere: "Gull" names every type whose text contains it. A part
/// that is no valid expression, such as "a(b", names nothing. An empty field names the types that
/// contain "NULL". Beyond a thousand parts they are compared whole.
class CMainTypeMatch
{
public:
    explicit CMainTypeMatch(const QString &field);
    /// \param types  each is compared whole.
    explicit CMainTypeMatch(const QStringList &types);

    [[nodiscard]] bool Names(const QString &main_type) const;

private:
    QSet<QString> whole_;
    QStringList pieces_;
    QRegExp expression_;
    bool is_expression_ = false;
};

} // namespace Vantor
