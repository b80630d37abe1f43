// SPDX-License-Identifier: MIT
#include "controller/Excel/SheetStreams.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <xlsxwriter.h>

namespace Vantor {
namespace {

bool IsSameFile(int one, int other)
{
    struct stat first = {};
    struct stat second = {};
    return fstat(one, &first) == 0 && fstat(other, &second) == 0 && first.st_dev == second.st_dev
           && first.st_ino == second.st_ino;
}

} // namespace

CSheetStreams::CSheetStreams(lxw_workbook *workbook)
{
    const lxw_worksheet *sheet = nullptr;
    STAILQ_FOREACH(sheet, workbook->worksheets, list_pointers)
    {
        if (!sheet->optimize_tmpfile)
            continue;
        const int descriptor = fileno(sheet->optimize_tmpfile);
        streams_.push_back(
            {sheet->optimize_tmpfile, descriptor, fcntl(descriptor, F_DUPFD_CLOEXEC, 0)});
    }
}

CSheetStreams::~CSheetStreams()
{
    for (const Stream &stream : streams_) {
        if (stream.copy < 0)
            continue;
        if (IsSameFile(stream.descriptor, stream.copy))
            std::fclose(stream.file);
        close(stream.copy);
    }
}

} // namespace Vantor
