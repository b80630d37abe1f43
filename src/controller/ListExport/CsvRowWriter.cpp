// SPDX-License-Identifier: MIT
#include "controller/CSV/CSVParser.h"
#include "controller/ListExport/RowWriter.h"

#include <Nim/Base/FileSystem.h>

#include <cerrno>

namespace Vantor {
namespace {

using Reason = ListExportResult::Reason;

class CCsvRowWriter : public CRowWriter
{
public:
    CCsvRowWriter() : parser_(nullptr) { parser_.SetRfc4180(true); }
    ~CCsvRowWriter() override
    {
        if (is_open_)
            parser_.CloseFile();
    }

    WriteFault Open(const QString &path, const ExportTitles &titles) override
    {
        is_open_ = parser_.OpenFile(path);
        if (!is_open_)
            return {Reason::WriteFailed, errno};
        parser_.AppendLine(titles.titles);
        columns_ = titles.titles.size();
        return Write();
    }

    WriteFault Append(const RowSlice &slice) override
    {
        QStringList fields;
        for (int row = 0; row < slice.rows; ++row) {
            fields.clear();
            for (int column = 0; column < columns_; ++column)
                fields.append(slice.cells.at(row * columns_ + column).toString());
            parser_.AppendLine(fields);
        }
        return Write();
    }

    WriteFault Close() override
    {
        is_open_ = false;
        parser_.CloseFile();
        return Fault();
    }

private:
    WriteFault Write()
    {
        parser_.WriteCSVFile();
        return Fault();
    }

    [[nodiscard]] WriteFault Fault() const
    {
        const int error = parser_.WriteErrno();
        if (error == 0)
            return {};
        if (Nim::Base::FileSystem::IsDiskFullError(error))
            return {Reason::DiskFull, error};
        return {error == ENOMEM ? Reason::NoMemory : Reason::WriteFailed, error};
    }

    CCSVParser parser_;
    int columns_ = 0;
    bool is_open_ = false;
};

} // namespace

std::unique_ptr<CRowWriter> MakeCsvRowWriter()
{
    return std::make_unique<CCsvRowWriter>();
}

} // namespace Vantor
