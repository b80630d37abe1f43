// SPDX-License-Identifier: MIT
#include "common/CopyFileThread.h"

#include "common/CopyNames.h"
#include "common/ForwardEvents.h"
#include "common/Guard.h"
#include "common/Translate.h"

#include <Nim/Base/FileSystem.h>
#include <Ravel/TextCodec.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstring>

namespace Vantor {

struct CCopyFileThreadPtr
{
    QStringList list_sources_;
    QStringList list_destinations_;
    bool b_flag_ = false;
    bool b_keep_existing_ = false;
    std::atomic<bool> b_stop_{false}; // set by any thread, read by the copying one
    QVector<CopiedFile> vec_results_; // written by the copying thread, read after SendSaveFinish()
};

namespace {

namespace FileSystem = Nim::Base::FileSystem;

constexpr int kPathBytes = 260; // the longest path that the file systems of hosts are promised
constexpr int kProgressEveryMs = 50;
// Several threads that copy to one name take it from one another. A platform that reports a free
// name as taken must not keep a file going round for ever.
constexpr int kMostLostNames = 100;

// Emits the progress of a job, not so often that the receiver's queue fills.
class CProgress
{
public:
    CProgress(CCopyFileThread &thread, int files_total) : thread_(thread), files_total_(files_total)
    {
        Emit();
    }

    // Asking for the sizes of many files takes a while, so a stop counts here too.
    void Measure(const QStringList &sources, const std::atomic<bool> &is_stopped)
    {
        for (const QString &source : sources) {
            if (is_stopped)
                return;
            sizes_.append(source.contains(QChar(0)) ? 0 : QFileInfo(source).size());
            bytes_total_ += sizes_.constLast();
            EmitSometimes();
        }
        Emit();
    }

    void OnBytes(qint64 bytes)
    {
        bytes_of_file_ += bytes;
        EmitSometimes();
    }

    void OnFile()
    {
        bytes_done_ += sizes_.at(files_done_);
        ++files_done_;
        bytes_of_file_ = 0;
        if (files_done_ == files_total_)
            Emit();
        else
            EmitSometimes();
    }

private:
    void EmitSometimes()
    {
        if (since_last_.elapsed() >= kProgressEveryMs)
            Emit();
    }

    void Emit()
    {
        since_last_.start();
        // A file that has grown since it was measured counts as large as it was.
        const qint64 of_file =
            files_done_ < sizes_.size() ? std::min(bytes_of_file_, sizes_.at(files_done_)) : 0;
        Q_EMIT thread_.SendSaveProgress(bytes_done_ + of_file, bytes_total_, files_done_,
                                        files_total_);
    }

    CCopyFileThread &thread_;
    QVector<qint64> sizes_;
    qint64 bytes_done_ = 0;    // of the files that are done
    qint64 bytes_of_file_ = 0; // of the one being copied
    qint64 bytes_total_ = 0;
    int files_done_ = 0;
    const int files_total_;
    QElapsedTimer since_last_;
};

// A path in the local encoding, or the reason why it cannot be given.
struct LocalPath
{
    QByteArray bytes;
    int error = 0; // negative errno
};

LocalPath ToLocal(const QString &path)
{
    QByteArray bytes = Ravel::ConvertFromUnicode(path);
    if (bytes.size() > kPathBytes)
        return {{}, -ENAMETOOLONG};
    // A "?" in place of a character, or a zero byte that ends the path early, would name another
    // file.
    if (bytes.contains('\0') || Ravel::ConvertToUnicode(bytes) != path)
        return {{}, -EILSEQ};
    return {bytes, 0};
}

// One run over the files of a job.
class CCopyJob
{
public:
    CCopyJob(const CCopyFileThreadPtr &data, CProgress &progress)
        : b_flag_(data.b_flag_), b_keep_existing_(data.b_keep_existing_),
          on_bytes_([&progress](std::int64_t bytes) { progress.OnBytes(bytes); })
    {}

    // \return 0 and the name it was written under, or a negative errno.
    int Copy(const QString &source, const QString &destination, QByteArray &written)
    {
        if (source.contains(QChar(0))) // QFileInfo would warn
            return -EILSEQ;
        if (!QFileInfo::exists(source) || destination.isEmpty())
            return -ENOENT;
        const LocalPath from = ToLocal(source);
        const LocalPath to = ToLocal(destination);
        if (from.error != 0 || to.error != 0)
            return from.error != 0 ? from.error : to.error;
        written = to.bytes;
        if (from.bytes == to.bytes)
            return Result(FileSystem::RenameFile(from.bytes.constData(), to.bytes.constData()));
        const CopyName name = b_keep_existing_ ? SplitKeepingAll(to.bytes) : SplitClassic(to.bytes);
        return name.is_numbered ? CopyToFreeName(from.bytes, name, written)
                                : CopyToKeptName(from.bytes, to.bytes);
    }

private:
    int CopyToFreeName(const QByteArray &source, const CopyName &name, QByteArray &target)
    {
        if (FileSystem::FileExists(target.constData()) != 0) {
            const int result = CopyFile(source, target, 1);
            if (result != -EEXIST)
                return result;
        }
        // Begin where the last search of this run ended, because many sources for one name would
        // ask for every number again.
        int &number = next_numbers_[name.stem + '\0' + name.extension];
        for (int lost_names = 0; lost_names < kMostLostNames && number < INT_MAX;) {
            target = NumberedName(name, ++number);
            if (FileSystem::FileExists(target.constData()) == 0)
                continue;
            // Exclusive whatever the flag is: another thread may have found the same name free.
            const int result = CopyFile(source, target, 1);
            if (result == 0)
                return result;
            if (result != -EEXIST) {
                --number; // this name is still free
                return result;
            }
            ++lost_names;
        }
        return -EEXIST;
    }

    int CopyToKeptName(const QByteArray &source, const QByteArray &target)
    {
        if (FileSystem::IsSameFile(source.constData(), target.constData()))
            return -EEXIST; // another spelling or a link: deleting it would delete the source
        if (b_flag_)
            return CopyFile(source, target, 0);
        const int deleted = Result(FileSystem::DeleteFileW(target.constData()));
        const int result = CopyFile(source, target, 1);
        // An old file that could not be deleted is in the way, so the reason is why it could not.
        return result == -EEXIST && deleted != 0 && deleted != -ENOENT ? deleted : result;
    }

    // Of the base library's operations, which leave the reason in errno.
    static int Result(int result) { return result >= 0 ? 0 : errno != 0 ? -errno : -EIO; }

    int CopyFile(const QByteArray &source, const QByteArray &target, int fail_if_exists)
    {
        return FileSystem::CopyFileWithProgress(source.constData(), target.constData(),
                                                fail_if_exists, on_bytes_);
    }

    const bool b_flag_;
    const bool b_keep_existing_;
    const FileSystem::CopyProgress on_bytes_;
    QHash<QByteArray, int> next_numbers_; // the last number tried, by stem and extension
};

QString ErrorText(int result, const QString &source = {})
{
    if (result == -EINVAL && !source.isEmpty() && !QFileInfo(source).isFile())
        return Translate(QStringLiteral("Not a regular file"));
    return QString::fromLocal8Bit(std::strerror(-result));
}

} // namespace

CCopyFileThread::CCopyFileThread() : d_ptr_(std::make_shared<CCopyFileThreadPtr>()) {}

CCopyFileThread::~CCopyFileThread()
{
    OnStopCopyFileThread();
    wait();
}

void CCopyFileThread::SetFileInfo(const QStringList &sources, const QStringList &destinations,
                                  bool flag)
{
    d_ptr_->list_sources_.clear();
    d_ptr_->list_destinations_.clear();
    d_ptr_->b_flag_ = flag;
    if (sources.size() != destinations.size())
        return;
    d_ptr_->list_sources_ = sources;
    d_ptr_->list_destinations_ = destinations;
}

void CCopyFileThread::SetKeepExisting(bool on)
{
    d_ptr_->b_keep_existing_ = on;
}

bool CCopyFileThread::IsKeepExisting() const
{
    return d_ptr_->b_keep_existing_;
}

QVector<CopiedFile> CCopyFileThread::Results() const
{
    return d_ptr_->vec_results_;
}

void CCopyFileThread::run()
{
    static constexpr char kFunction[] = "Vantor::CCopyFileThread::run";
    const QStringList sources = d_ptr_->list_sources_;
    const QStringList destinations = d_ptr_->list_destinations_;
    QVector<CopiedFile> &results = d_ptr_->vec_results_;
    results.clear();
    RunGuarded(kFunction, [&] {
        CProgress progress(*this, sources.size());
        progress.Measure(sources, d_ptr_->b_stop_);
        CCopyJob job(*d_ptr_, progress);
        results.reserve(sources.size());
        for (int i = 0; i < sources.size() && !d_ptr_->b_stop_; ++i) {
            QByteArray written;
            const int result = job.Copy(sources.at(i), destinations.at(i), written);
            if (result < 0)
                results.append({sources.at(i), {}, ErrorText(result, sources.at(i))});
            else
                results.append({sources.at(i), Ravel::ConvertToUnicode(written), {}});
            progress.OnFile();
        }
    });
    // The files that a stop left out, or an exception of a slot.
    const QString left_out = ErrorText(-ECANCELED);
    while (results.size() < sources.size())
        results.append({sources.at(results.size()), {}, left_out});
    QStringList failed;
    for (const CopiedFile &file : qAsConst(results)) {
        if (!file.error.isEmpty())
            failed.append(file.source);
    }
    Q_EMIT SendSaveFinish(failed.isEmpty(), failed);
}

VANTOR_FORWARD_EVENTS(CCopyFileThread, QThread)

void CCopyFileThread::OnStopCopyFileThread() // clazy:exclude=thread-with-slots
{
    d_ptr_->b_stop_ = true;
}

} // namespace Vantor
