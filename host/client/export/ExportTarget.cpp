// SPDX-License-Identifier: MIT
#include "export/ExportTarget.h"

#include <Nim/Base/FileSystem.h>
#include <Nim/Base/Guid.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace Client {
namespace {

constexpr int kMaximumLinks = 40; // as many as the system follows

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ExportTarget)
};

QString Shown(const QString &path)
{
    return QDir::toNativeSeparators(path);
}

QString FollowLinks(const QString &path)
{
    QString real = path;
    for (int i = 0; i < kMaximumLinks && QFileInfo(real).isSymLink(); ++i)
        real = QFileInfo(real).symLinkTarget();
    return real;
}

} // namespace

CExportTarget::~CExportTarget()
{
    Discard();
}

bool CExportTarget::Open(const QString &path)
{
    target_ = FollowLinks(path);
    return CheckTarget() && MakeTemporary();
}

bool CExportTarget::Commit()
{
    const QByteArray source = QFile::encodeName(temporary_);
    const QByteArray target = QFile::encodeName(target_);
    if (Nim::Base::FileSystem::RenameFile(source.constData(), target.constData()) != 0)
        return Fail(Texts::tr("Cannot replace %1.").arg(Shown(target_)));
    temporary_.clear();
    return true;
}

void CExportTarget::Discard()
{
    if (!temporary_.isEmpty())
        QFile::remove(temporary_);
    temporary_.clear();
}

bool CExportTarget::Fail(const QString &error)
{
    error_ = error;
    return false;
}

bool CExportTarget::CheckTarget()
{
    const QFileInfo file(target_);
    const QString folder = file.absolutePath();
    if (!QFileInfo(folder).isDir())
        return Fail(Texts::tr("The folder %1 does not exist.").arg(Shown(folder)));
    if (file.isSymLink())
        return Fail(Texts::tr("%1 is a link that leads nowhere.").arg(Shown(target_)));
    if (file.isDir())
        return Fail(Texts::tr("%1 is a folder.").arg(Shown(target_)));
    if (file.exists() && !file.isFile())
        return Fail(Texts::tr("%1 is a device, not a file.").arg(Shown(target_)));
    if (file.exists() && !file.isWritable())
        return Fail(Texts::tr("%1 is write-protected.").arg(Shown(target_)));
    return true;
}

bool CExportTarget::MakeTemporary()
{
    const QFileInfo target(target_);
    const QString folder = target.absolutePath();
    const QString name =
        QStringLiteral(".vantor-") + QString::fromStdString(Nim::Base::GuidUtil::CreateGuid());
    const QString path = QDir(folder).filePath(name + QStringLiteral(".part"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        return Fail(
            Texts::tr("Cannot write to the folder %1: %2").arg(Shown(folder), file.errorString()));
    temporary_ = path;
    // A list that its owner keeps from others must not become public by being exported again.
    if (target.exists())
        file.setPermissions(target.permissions());
    return true;
}

} // namespace Client
