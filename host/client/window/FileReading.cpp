// SPDX-License-Identifier: MIT
#include "window/FileReading.h"

#include <QtConcurrent/QtConcurrentRun>
#include <QtCore/QTimer>
#include <QtWidgets/QDialog>

#include <chrono>

namespace Client {
namespace {

using namespace std::chrono_literals;

constexpr auto kPatience = 200ms; // a small file needs no dialog

} // namespace

CFileReading::CFileReading(const QString &path, char separator, QDialog *dialog, QObject *parent)
    : QObject(parent), dialog_(dialog), is_cancelled_(std::make_shared<std::atomic<bool>>(false))
{
    connect(dialog, &QDialog::rejected, this, &CFileReading::Cancel);
    QTimer::singleShot(kPatience, dialog, &QDialog::open);
    connect(&watcher_, &QFutureWatcher<ReadResult>::finished, this, &CFileReading::OnFinished);
    watcher_.setFuture(QtConcurrent::run([path, separator, is_cancelled = is_cancelled_] {
        return ReadCsvFile(
            path, [&](qint64, qint64) { return !*is_cancelled; }, separator);
    }));
}

CFileReading::~CFileReading()
{
    Cancel();
    delete dialog_.data();
}

void CFileReading::Cancel()
{
    *is_cancelled_ = true;
}

void CFileReading::OnFinished()
{
    delete dialog_.data();
    Q_EMIT SignalFinished(watcher_.result());
}

} // namespace Client
