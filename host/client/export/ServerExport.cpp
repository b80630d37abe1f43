// SPDX-License-Identifier: MIT
#include "export/ServerExport.h"

#include "export/XlsxLook.h"

#include <BusinessCommon/NetStop.h>
#include <Vantor/CListExport>
#include <Vantor/CRowStream>

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>

#include <chrono>
#include <future>
#include <stdexcept>
#include <thread>
#include <utility>

namespace Client {
namespace {

using namespace std::chrono_literals;
using BusinessCommon::CNetStop;

constexpr int kTries = 4; // of a page
constexpr auto kPause = 500ms;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ServerExport)
};

[[noreturn]] void Fail(const QString &text)
{
    throw std::runtime_error(text.toStdString());
}

// Used by the worker alone, except for the state shared with its stopper.
class CServerRows : public Vantor::CRowStream
{
public:
    CServerRows(PageRequest request, const ServerPage &page, std::shared_ptr<CNetStop> stop)
        : titles_(page.titles), total_(page.is_total_exact ? page.total : 0),
          is_total_sure_(page.is_total_exact && !page.moment.isEmpty()), stop_(std::move(stop)),
          request_(std::move(request))
    {
        request_.page = 1;
        request_.rows_per_page = kMostRowsPerPage;
        request_.after.clear();
    }
    // Stop first, because the future of the next page waits in its destructor.
    ~CServerRows() override { stop_->Stop(); }
    CServerRows(const CServerRows &) = delete;
    CServerRows &operator=(const CServerRows &) = delete;

    int RowCount() const override { return total_; }
    int ColumnCount() const override { return titles_.size(); }
    QString Title(int column) const override { return titles_.at(column); }
    QVariant Cell(int row, int column) const override
    {
        return CellValue(page_.rows.at(row - first_row_).value(column));
    }

    bool HasRow(int row) const override
    {
        if (row < first_row_ + page_.rows.size())
            return true;
        if (row > 0 && IsLast())
            return IsComplete(row);
        Fetch();
        first_row_ = row;
        return !page_.rows.isEmpty() || IsComplete(row);
    }

private:
    [[nodiscard]] bool IsLast() const
    {
        // A server that gives no place of the next page is asked by page numbers, until a page is
        // not full.
        return page_.next.isEmpty()
               && (!page_.moment.isEmpty() || page_.rows.size() < kMostRowsPerPage);
    }

    // Returns false or throws, because a list that breaks off must not pass for a whole one.
    [[nodiscard]] bool IsComplete(int rows) const
    {
        if (is_total_sure_ && rows != total_)
            Fail(Texts::tr("Rows that the server sent: %1 of %2.")
                     .arg(QLocale().toString(rows), QLocale().toString(total_)));
        return false;
    }

    void Fetch() const
    {
        ServerPage page = next_.valid() ? next_.get() : FetchPatiently(request_, *stop_);
        if (page.error != PageError::None)
            Fail(PageErrorText(page));
        if (page.titles != titles_)
            Fail(Texts::tr("The columns of the server's list have changed."));
        page_ = std::move(page);
        ++request_.page;
        request_.after = page_.next;
        if (!page_.moment.isEmpty())
            request_.moment = page_.moment;
        // The server works on the next page while this one is written.
        if (!IsLast())
            next_ = std::async(std::launch::async, [request = request_, stop = stop_] {
                return FetchPatiently(request, *stop);
            });
    }

    static ServerPage FetchPatiently(const PageRequest &request, const CNetStop &stop)
    {
        ServerPage page = FetchPage(request, stop);
        for (int tries = 1; tries < kTries && IsWorthAnotherTry(page, stop); ++tries) {
            std::this_thread::sleep_for(kPause);
            page = FetchPage(request, stop);
        }
        return page;
    }

    static bool IsWorthAnotherTry(const ServerPage &page, const CNetStop &stop)
    {
        return !stop.IsStopped()
               && (page.error == PageError::NoReply || page.error == PageError::Busy
                   || page.error == PageError::Unfinished);
    }

    const QStringList titles_;
    const int total_; // 0: not known
    const bool is_total_sure_;
    const std::shared_ptr<CNetStop> stop_;
    mutable PageRequest request_; // of the next page
    mutable ServerPage page_;
    mutable int first_row_ = 0; // of page_
    mutable std::future<ServerPage> next_;
};

// Deleted with the export; ends its worker's wait for the server.
class CStopper : public QObject
{
public:
    CStopper(std::shared_ptr<CNetStop> stop, QObject *job) : QObject(job), stop_(std::move(stop)) {}
    ~CStopper() override { stop_->Stop(); }
    CStopper(const CStopper &) = delete;
    CStopper &operator=(const CStopper &) = delete;

private:
    const std::shared_ptr<CNetStop> stop_;
};

} // namespace

void SetServerRows(Vantor::CListExport &job, const PageRequest &request, const ServerPage &page)
{
    const auto stop = std::make_shared<CNetStop>();
    new CStopper(stop, &job);
    job.SetSource(std::make_shared<CServerRows>(request, page, stop));
    job.SetLook(ListLook(XlsxLook()));
}

} // namespace Client
