// SPDX-License-Identifier: MIT
#include "controller/Excel/ZipDirectory.h"

#include <QtCore/QFile>
#include <QtCore/QtEndian>

#include <algorithm>

namespace Vantor {
namespace {

constexpr qint64 kEndBytes = 22; // end of central directory, without a comment
constexpr quint32 kEndSignature = 0x06054b50;
constexpr int kEntryBytes = 46;
constexpr quint32 kEntrySignature = 0x02014b50;

template <class Integer> Integer At(const QByteArray &bytes, int offset)
{
    return qFromLittleEndian<Integer>(bytes.constData() + offset);
}

} // namespace

bool ReadZipDirectory(const std::string &path, std::vector<ZipEntry> &entries)
{
    QFile file(QFile::decodeName(path.c_str()));
    if (!file.open(QIODevice::ReadOnly) || file.size() < kEndBytes)
        return false;
    // libxlsxwriter writes no archive comment, so the end record is the last thing in the file.
    file.seek(file.size() - kEndBytes);
    const QByteArray end = file.read(kEndBytes);
    if (end.size() < kEndBytes || At<quint32>(end, 0) != kEndSignature)
        return false;
    const int count = At<quint16>(end, 10);
    const qint64 directory_size = At<quint32>(end, 12);
    if (!file.seek(At<quint32>(end, 16)))
        return false;
    const QByteArray directory = file.read(directory_size);
    int at = 0;
    for (int i = 0; i < count; ++i) {
        if (at + kEntryBytes > directory.size() || At<quint32>(directory, at) != kEntrySignature)
            return false;
        const int name_length = At<quint16>(directory, at + 28);
        const int others_length = At<quint16>(directory, at + 30) + At<quint16>(directory, at + 32);
        ZipEntry entry;
        entry.size = At<quint32>(directory, at + 24);
        entry.name = directory.mid(at + kEntryBytes, name_length).toStdString();
        entries.push_back(entry);
        at += kEntryBytes + name_length + others_length;
    }
    return at <= directory.size();
}

} // namespace Vantor
