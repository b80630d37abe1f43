// SPDX-License-Identifier: MIT
#include "pages/PortText.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QUrl>

namespace Client {
namespace {

QString Text(const char *text)
{
    return QCoreApplication::translate("PortText", text);
}

} // namespace

QString RefusalText(const QString &path, const QString &reason)
{
    if (path.isEmpty())
        return Text(QT_TRANSLATE_NOOP("PortText", "Choose a port or enter its path."));
    const QFileInfo file(path);
    if (path.startsWith(QLatin1Char('/')) && !file.exists())
        return Text(QT_TRANSLATE_NOOP("PortText", "There is no port %1.")).arg(path);
    if (file.exists() && !(file.isReadable() && file.isWritable()))
        return Text(QT_TRANSLATE_NOOP("PortText", "You have no permission for %1. Your user must "
                                                  "be a member of the group %2."))
            .arg(path, file.group());
    return Text(QT_TRANSLATE_NOOP("PortText", "%1 cannot be opened: %2")).arg(path, reason);
}

bool IsTcpAddress(const QString &target)
{
    if (target.startsWith(QLatin1Char('/')))
        return false;
    const QUrl url(QLatin1String("tcp://") + target);
    return !url.host().isEmpty() && url.port() > 0;
}

} // namespace Client
