// SPDX-License-Identifier: MIT
#include "WorkbookReader.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QProcess>

QJsonObject ReadWorkbook(const QString &path)
{
    QProcess python;
    python.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    python.start(QStringLiteral("python3"), {QStringLiteral(READ_XLSX), path});
    if (!python.waitForFinished() || python.exitCode() != 0)
        return {};
    return QJsonDocument::fromJson(python.readAllStandardOutput()).object();
}

QJsonObject Sheet(const QJsonObject &workbook, int index)
{
    return workbook.value(QStringLiteral("sheets")).toArray().at(index).toObject();
}

QStringList Cells(const QJsonObject &sheet, int row)
{
    QStringList cells;
    const QJsonArray values = sheet.value(QStringLiteral("rows")).toArray().at(row).toArray();
    for (const auto &value : values)
        cells.append(value.isDouble() ? QString::number(value.toDouble(), 'g', 15)
                                      : value.toString());
    return cells;
}
