// SPDX-License-Identifier: MIT
#include "export/ExportFormat.h"

#include "export/CsvExport.h"
#include "export/XlsxExport.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QStringList>

#include <iterator>

namespace Client {
namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ExportFormat)
};

constexpr ExportFormat kFormats[] = {
    {".csv", WriterThread::Gui, MakeCsvWriter},
    {".xlsx", WriterThread::Worker, MakeXlsxWriter},
};

} // namespace

const ExportFormat *FindExportFormat(const QString &path)
{
    for (const ExportFormat &format : kFormats) {
        if (path.endsWith(QLatin1String(format.ending), Qt::CaseInsensitive))
            return &format;
    }
    return nullptr;
}

QString UnknownFormatText(const QString &path)
{
    QStringList endings;
    for (const ExportFormat &format : kFormats)
        endings.append(QLatin1String(format.ending));
    return Texts::tr("Cannot export to “%1”: the name must end with %2.")
        .arg(QDir::toNativeSeparators(path), endings.join(QStringLiteral(", ")));
}

} // namespace Client
