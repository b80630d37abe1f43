// SPDX-License-Identifier: MIT
#include "support/Files.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <cerrno>

QByteArray FileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList FileNames(const QString &path)
{
    return QDir(path).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

QString CTestFolder::Path(const QString &name) const
{
    if (!folder_)
        folder_ = std::make_unique<QTemporaryDir>();
    if (!folder_->isValid())
        qFatal("cannot make a temporary folder");
    return name.isEmpty() ? folder_->path() : folder_->filePath(name);
}

QString CTestFolder::Put(const QString &name, const QByteArray &bytes) const
{
    QFile file(Path(name));
    QDir().mkpath(QFileInfo(file).path());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(file.fileName()));
    return file.fileName();
}

QString CTestFolder::PutFolder(const QString &name) const
{
    if (!QDir().mkpath(Path(name)))
        qFatal("cannot make the folder %s", qPrintable(name));
    return Path(name);
}

QStringList CTestFolder::Files(const QString &name) const
{
    return FileNames(Path(name));
}

QByteArray CTestFolder::Bytes(const QString &name) const
{
    return FileBytes(Path(name));
}

CPipe::CPipe(bool is_open)
{
    const QByteArray name = QFile::encodeName(Path());
    if (mkfifo(name.constData(), 0600) != 0)
        qFatal("cannot make a pipe");
    stream_ = open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    reader_ = std::async(std::launch::async, [this] { return Read(); });
    if (is_open)
        Drain();
}

CPipe::~CPipe()
{
    Drain();
    is_over_ = true;
    if (reader_.valid())
        reader_.wait();
    close(stream_);
}

QString CPipe::Path() const
{
    return folder_.filePath(QStringLiteral("pipe"));
}

void CPipe::Drain()
{
    if (!is_draining_.exchange(true))
        drain_.set_value();
}

QByteArray CPipe::Bytes()
{
    if (reader_.valid())
        bytes_ = reader_.get();
    return bytes_;
}

QByteArray CPipe::Read()
{
    constexpr int kPatienceMs = 10;
    drain_.get_future().wait();
    QByteArray all;
    bool had_writer = false;
    while (!is_over_) {
        pollfd wanted{stream_, POLLIN, 0};
        poll(&wanted, 1, kPatienceMs);
        char block[65536];
        const ssize_t count = read(stream_, block, sizeof block);
        if (count > 0)
            all.append(block, static_cast<int>(count));
        else if (count == 0 && had_writer)
            break; // the last writer has closed
        had_writer = had_writer || count > 0 || (count < 0 && errno == EAGAIN);
    }
    return all;
}
