// SPDX-License-Identifier: MIT
#include "ExcelParts.h"

#include <QtCore/QBuffer>
#include <QtCore/QProcess>
#include <QtCore/QXmlStreamReader>
#include <QtGui/QImage>

namespace {

// "name\nbytes\n" before each part.
const char *const kDump = R"(
import sys, zipfile
with zipfile.ZipFile(sys.argv[1]) as book:
    for name in book.namelist():
        part = book.read(name)
        sys.stdout.buffer.write(b"%s\n%d\n%s" % (name.encode(), len(part), part))
)";

const char *const kCompare = R"(
import glob, os, sys, zipfile
def parts(path):
    with zipfile.ZipFile(path) as book:
        return {name: book.read(name) for name in book.namelist() if name != "docProps/core.xml"}
ours = sorted(glob.glob(os.path.join(sys.argv[1], "ours", "*.xlsx")))
for path in ours:
    a, b = parts(path), parts(os.path.join(sys.argv[1], "plain", os.path.basename(path)))
    for name in sorted(a.keys() | b.keys()):
        if a.get(name) != b.get(name):
            sys.exit(f"{os.path.basename(path)}: {name} differs\n{a.get(name)}\n{b.get(name)}")
print(f"{len(ours)} pairs are the same")
)";

QProcess &RunPython(QProcess &process, const char *script, const QString &argument)
{
    // Debian's own: a front end for several versions takes longer to start than to read a workbook.
    process.start("/usr/bin/python3", {"-c", script, argument});
    process.waitForFinished(60000);
    return process;
}

// The first part that is not well-formed XML; empty when all are.
QString DamagedPart(const Parts &parts)
{
    for (auto part = parts.cbegin(); part != parts.cend(); ++part) {
        QXmlStreamReader reader(part.value());
        while (!part.key().startsWith("xl/media/") && !reader.atEnd())
            reader.readNext();
        if (reader.hasError())
            return part.key() + ": " + reader.errorString();
    }
    return {};
}

} // namespace

Parts ReadParts(const QString &path)
{
    Parts parts;
    QProcess process;
    if (RunPython(process, kDump, path).exitCode() != 0)
        return parts;
    const QByteArray all = process.readAllStandardOutput();
    for (int at = 0; at < all.size();) {
        const int name_end = all.indexOf('\n', at);
        const int size_end = all.indexOf('\n', name_end + 1);
        const int size = all.mid(name_end + 1, size_end - name_end - 1).toInt();
        parts.insert(all.mid(at, name_end - at), all.mid(size_end + 1, size));
        at = size_end + 1 + size;
    }
    return parts;
}

Parts WrittenParts(const QString &path,
                   const std::function<void(Vantor::CExcelControllorWithC &)> &fill,
                   const std::string &name, const std::string &cache)
{
    Vantor::CExcelControllorWithC writer;
    writer.Init(path.toStdString(), cache);
    writer.AddSheetByName(name);
    fill(writer);
    writer.Close();
    const Parts parts = writer.LastCloseResult() == 0 ? ReadParts(path) : Parts();
    const QString fault =
        parts.isEmpty() ? QStringLiteral("nothing was saved") : DamagedPart(parts);
    if (fault.isEmpty())
        return parts;
    qWarning("%s", qPrintable(fault));
    return {};
}

std::shared_ptr<Vantor::Clxw_format_> AnyLook()
{
    return std::make_shared<Vantor::Clxw_format_>();
}

std::string PngBytes(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.setDotsPerMeterX(3780);
    image.setDotsPerMeterY(3780);
    image.fill(Qt::darkCyan);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data().toStdString();
}

QString ComparePairs(const QString &folder)
{
    QProcess process;
    RunPython(process, kCompare, folder);
    return QString::fromUtf8(process.readAllStandardOutput() + process.readAllStandardError())
        .trimmed();
}
