// SPDX-License-Identifier: MIT
#include "export/CsvExport.h"

#include <Vantor/CCSVParser>

#include <QtCore/QAbstractTableModel>
#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

namespace Client {
namespace {

// A few of the rows, as the model the library's writers take.
class CSlice : public QAbstractTableModel // clazy:exclude=ctor-missing-parent-argument
{
public:
    CSlice(const IncidentRows &rows, int begin, int end) : rows_(rows), begin_(begin), end_(end) {}

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : end_ - begin_;
    }
    int columnCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : rows_.list->ColumnCount();
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        return rows_.list->Text(rows_.rows.at(begin_ + index.row()), index.column());
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (role != Qt::DisplayRole || orientation != Qt::Horizontal)
            return {};
        return rows_.list->Title(section);
    }

private:
    const IncidentRows &rows_;
    const int begin_;
    const int end_;
};

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

    bool Open(const QString &path, const IncidentRows &rows) override
    {
        rows_ = rows;
        is_open_ = parser_->OpenFile(path);
        return is_open_;
    }
    void Append(int begin, int end) override
    {
        CSlice slice(rows_, begin, end);
        parser_->PrepareSourceData(&slice); // which takes the titles from the first one
    }
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
    IncidentRows rows_;
    bool is_open_ = false;
};

} // namespace

std::unique_ptr<CRowWriter> MakeCsvWriter(QWidget *window)
{
    return std::make_unique<CCsvWriter>(window);
}

} // namespace Client
