// SPDX-License-Identifier: MIT
#include "CsvExport.h"

#include <Vantor/CCSVParser>

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace Client {
namespace {

class CCsvWriter : public CRowWriter
{
public:
    explicit CCsvWriter(QWidget *window) : parser_(new Vantor::CCSVParser(window))
    {
        parser_->SetRfc4180(true);
    }
    ~CCsvWriter() override
    {
        if (parser_ && is_open_)
            parser_->CloseFile();
        delete parser_;
    }

    bool Open(const QString &path) override
    {
        is_open_ = parser_->OpenFile(path);
        return is_open_;
    }
    void Collect(QAbstractItemModel &rows) override { parser_->PrepareSourceData(&rows); }
    void Write() override { parser_->WriteCSVFileWithChase(); }
    bool Close() override
    {
        if (!parser_) // gone with its window while the event loop ran
            return false;
        parser_->CloseFile();
        is_open_ = false;
        return !parser_->HasWriteError();
    }
    QString Reason() const override { return parser_ ? parser_->WriteErrorText() : QString(); }

private:
    QPointer<Vantor::CCSVParser> parser_;
    bool is_open_ = false;
};

} // namespace

std::unique_ptr<CRowWriter> MakeCsvWriter(QWidget *window)
{
    return std::make_unique<CCsvWriter>(window);
}

} // namespace Client
