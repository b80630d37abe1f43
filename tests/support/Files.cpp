// SPDX-License-Identifier: MIT
#include "support/Files.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QFile>

#include <cerrno>

QByteArray FileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
    constexpr int kPatience_ms = 10;
    drain_.get_future().wait();
    QByteArray all;
    bool had_writer = false;
    while (!is_over_) {
        pollfd wanted{stream_, POLLIN, 0};
        poll(&wanted, 1, kPatience_ms);
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
