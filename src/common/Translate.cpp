// SPDX-License-Identifier: MIT
#include "common/Translate.h"

#include <QtCore/QCoreApplication>

namespace Vantor {

QString Translate(const QString &key, const char *context)
{
    if (key.isEmpty())
        return {};
    const QByteArray source = key.toUtf8();
    for (const char *const place : {context, "SimpleMutiPageWidgetUi", "Vantor"}) {
        if (!place)
            continue;
        try {
            QString text = QCoreApplication::translate(place, source.constData());
            if (text != key)
                return text;
        } catch (...) { // a host's translator threw: ask the next context
        }
    }
    return key;
}

QString FillArgument(const QString &text, const QString &argument)
{
    QString filled = text;
    return filled.replace(QLatin1String("%1"), argument);
}

} // namespace Vantor
