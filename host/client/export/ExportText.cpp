// SPDX-License-Identifier: MIT
#include "export/ExportText.h"

#include <Vantor/CListExport>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QStringList>

namespace Client {
namespace {

using Vantor::ListExportResult;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ExportText)
};

QString Shown(const QString &path)
{
    return QDir::toNativeSeparators(path);
}

QString WriteFailedText(const ListExportResult &result)
{
    const QString path = Shown(result.path);
    if (result.system_text.isEmpty())
        return Texts::tr("Writing failed on the way. %1 was not written.").arg(path);
    return Texts::tr("Writing failed: %1. %2 was not written.").arg(result.system_text, path);
}

QString UnreadText(const ListExportResult &result)
{
    const QString path = Shown(result.path);
    if (result.reason == ListExportResult::Reason::ListFailed && !result.system_text.isEmpty())
        return Texts::tr("%1 %2 was not written.").arg(result.system_text, path);
    return Texts::tr("The list could not be read to its end. %1 was not written.").arg(path);
}

QString FailureText(const ListExportResult &result)
{
    using Reason = ListExportResult::Reason;
    const QString path = Shown(result.path);
    const QString folder = Shown(QFileInfo(result.path).absolutePath());
    switch (result.reason) {
    case Reason::UnknownFormat:
        return UnknownFormatText(result.path);
    case Reason::NoColumns:
        return Texts::tr("There is no column to export.");
    case Reason::NoFolder:
        return Texts::tr("The folder %1 does not exist.").arg(folder);
    case Reason::DeadLink:
        return Texts::tr("%1 is a link that leads nowhere.").arg(path);
    case Reason::Folder:
        return Texts::tr("%1 is a folder.").arg(path);
    case Reason::Device:
        return Texts::tr("%1 is a device, not a file.").arg(path);
    case Reason::WriteProtected:
        return Texts::tr("%1 is write-protected.").arg(path);
    case Reason::FolderRefuses:
        return Texts::tr("Cannot write to the folder %1: %2").arg(folder, result.system_text);
    case Reason::DiskFull:
        return Texts::tr("The disk is full. %1 was not written.").arg(path);
    case Reason::TemporaryDiskFull:
        return Texts::tr(
                   "There is not enough room for temporary files in %1. Nothing was exported.")
            .arg(Shown(QDir::tempPath()));
    case Reason::NoMemory:
        return Texts::tr("There is not enough memory for this export.");
    case Reason::ListFailed:
    case Reason::ListChanged:
        return UnreadText(result);
    case Reason::None:
    case Reason::WriteFailed:
        break;
    }
    return WriteFailedText(result);
}

} // namespace

QString ExportText(const ListExportResult &result)
{
    switch (result.end) {
    case ListExportResult::End::Done:
        return Texts::tr("%Ln incident(s) exported to %1", nullptr, result.rows)
            .arg(Shown(result.path));
    case ListExportResult::End::Cancelled:
        return {};
    case ListExportResult::End::Failed:
        break;
    }
    return FailureText(result);
}

QString LossText(const ListExportResult &result)
{
    const Vantor::ExcelCloseNotes &notes = result.notes;
    QStringList losses;
    if (notes.texts_cut > 0)
        losses.append(Texts::tr("%Ln cell(s) cut to 32,767 characters", nullptr, notes.texts_cut));
    if (notes.texts_replaced > 0)
        losses.append(
            Texts::tr("%Ln cell(s) with replaced characters", nullptr, notes.texts_replaced));
    if (notes.links_as_text > 0)
        losses.append(Texts::tr("%Ln link(s) as plain text", nullptr, notes.links_as_text));
    if (losses.isEmpty() && notes.IsEmpty())
        return {};
    if (losses.isEmpty())
        losses.append(Texts::tr("looks and pictures"));
    return Texts::tr("%1 is not in every cell as the list has it: %2.")
        .arg(Shown(result.path), losses.join(QStringLiteral(", ")));
}

QString UnknownFormatText(const QString &path)
{
    return Texts::tr("Cannot export to “%1”: the name must end with %2.")
        .arg(Shown(path), Vantor::CListExport::Suffixes().join(QStringLiteral(", ")));
}

} // namespace Client
