// SPDX-License-Identifier: MIT
#include "common/CopyFileThread.h"

#include "common/CopyNames.h"
#include "common/ForwardEvents.h"
#include "common/Guard.h"

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
    QVector<CopiedFile> vec_results_; // written by the copying thread, read when it has told
};

namespace {

namespace FileSystem = Nim::Base::FileSystem;

constexpr int kPathBytes = 260; // the longest path that hosts' file systems are promised
constexpr int kTellEvery_ms = 50;

// Tells bytes and files, not so often that the receiver's queue fills.
class CProgressTeller
{
public:
    CProgressTeller(CCopyFileThread &thread, const QStringList &sources)
        : thread_(thread), files_total_(sources.size())
    {
        for (const QString &source : sources)
            sizes_.append(source.contains(QChar(0)) ? 0 : QFileInfo(source).size());
        for (const qint64 size : qAsConst(sizes_))
            bytes_total_ += size;
        Tell();
    }

    void OnBytes(qint64 bytes)
    {
        bytes_of_file_ += bytes;
        TellSometimes();
    }

    void OnFile()
    {
        bytes_done_ += sizes_.at(files_done_);
        ++files_done_;
        bytes_of_file_ = 0;
        if (files_done_ == files_total_)
            Tell();
        else
            TellSometimes();
    }

private:
    void TellSometimes()
    {
        if (since_last_.elapsed() >= kTellEvery_ms)
            Tell();
    }

    void Tell()
    {
        since_last_.start();
        Q_EMIT thread_.SendSaveProgress(std::min(bytes_done_ + bytes_of_file_, bytes_total_),
                                        bytes_total_, files_done_, files_total_);
    }

    CCopyFileThread &thread_;
    QVector<qint64> sizes_;
    qint64 bytes_done_ = 0;
    qint64 bytes_of_file_ = 0;
    qint64 bytes_total_ = 0;
    int files_done_ = 0;
    const int files_total_;
    QElapsedTimer since_last_;
};

// The bytes of a path, or why there are none.
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
    // A "?" in place of a character, or a zero byte that ends it early, would be another file.
    if (bytes.contains('\0') || Ravel::ConvertToUnicode(bytes) != path)
        return {{}, -EILSEQ};
    return {bytes, 0};
}

// One run over the files of a job.
class CCopyJob
{
public:
    CCopyJob(const CCopyFileThreadPtr &data, CProgressTeller &teller)
        : b_flag_(data.b_flag_), b_keep_existing_(data.b_keep_existing_),
          on_bytes_([&teller](std::int64_t bytes) { teller.OnBytes(bytes); })
    {}

    // \return 0 and the name it was written under, or a negative errno.
    int Copy(const QString &source, const QString &destination, QByteArray &written)
    {
        if (source.contains(QChar(0))) // QFileInfo would warn
            return -EILSEQ;
        if (!QFileInfo::exists(source))
            return -ENOENT;
        const LocalPath from = ToLocal(source);
        const LocalPath to = ToLocal(destination);
        if (from.error != 0 || to.error != 0)
            return from.error != 0 ? from.error : to.error;
        written = to.bytes;
        if (from.bytes == to.bytes)
            return FileSystem::RenameFile(from.bytes.constData(), to.bytes.constData()) < 0 ? -EIO
                                                                                            : 0;
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
        // From where the last search in this run ended: many sources for one name would otherwise
        // ask for every number again.
        int &number = next_numbers_[name.stem + '\0' + name.extension];
        while (number < INT_MAX) {
            target = NumberedName(name, ++number);
            if (FileSystem::FileExists(target.constData()) == 0)
                continue;
            // Exclusive whatever the flag is: somebody else may have found the same name free.
            const int result = CopyFile(source, target, 1);
            if (result == 0)
                return result;
            if (result != -EEXIST) {
                --number; // this name is still free
                return result;
            }
        }
        return -EEXIST;
    }

    int CopyToKeptName(const QByteArray &source, const QByteArray &target)
    {
        if (FileSystem::IsSameFile(source.constData(), target.constData()))
            return -EEXIST; // another spelling or a link: deleting it would delete the source
        if (!b_flag_)
            static_cast<void>(FileSystem::DeleteFileW(target.constData()));
        return CopyFile(source, target, b_flag_ ? 0 : 1);
    }

    int CopyFile(const QByteArray &source, const QByteArray &target, int fail_if_exists)
    {
        return FileSystem::CopyFileWithProgress(source.constData(), target.constData(),
                                                fail_if_exists, on_bytes_);
    }

    const bool b_flag_;
    const bool b_keep_existing_;
    const FileSystem::CopyProgress on_bytes_;
    QHash<QByteArray, int> next_numbers_; // the last number that was given to stem and extension
};

QString ErrorText(int result)
{
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
        CProgressTeller teller(*this, sources);
        CCopyJob job(*d_ptr_, teller);
        results.reserve(sources.size());
        for (int i = 0; i < sources.size() && !d_ptr_->b_stop_; ++i) {
            QByteArray written;
            const int result = job.Copy(sources.at(i), destinations.at(i), written);
            if (result < 0)
                results.append({sources.at(i), {}, ErrorText(result)});
            else
                results.append({sources.at(i), Ravel::ConvertToUnicode(written), {}});
            teller.OnFile();
        }
    });
    // What a stop left out, or an exception of a slot.
    while (results.size() < sources.size())
        results.append({sources.at(results.size()), {}, ErrorText(-ECANCELED)});
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
