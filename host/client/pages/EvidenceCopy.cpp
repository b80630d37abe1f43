// SPDX-License-Identifier: MIT
// The copy of CEvidencePage: start, progress, stop and report.
#include "pages/EvidencePage.h"
#include "pages/EvidenceRow.h"

#include <QtCore/QDir>
#include <QtCore/QLocale>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QTreeWidget>

namespace Client {

void CEvidencePage::OnCopy()
{
    const QString folder = QDir::fromNativeSeparators(folder_->text().trimmed());
    if (thread_ || folder.isEmpty() || files_->topLevelItemCount() == 0)
        return;
    if (!QDir().mkpath(folder)) {
        state_->setText(tr("The folder %1 cannot be made.").arg(folder_->text()));
        return;
    }
    QStringList sources;
    QStringList targets;
    for (int row = 0; row < files_->topLevelItemCount(); ++row) {
        QTreeWidgetItem *const item = files_->topLevelItem(row);
        item->setData(kResult, kTargetRole, {});
        item->setData(kResult, kErrorRole, {});
        ShowRow(item);
        sources.append(item->data(kName, kPathRole).toString());
        targets.append(QDir(folder).filePath(item->text(kName)));
    }
    thread_ = new Vantor::CCopyFileThread;
    thread_->SetKeepExisting(true);
    thread_->SetFileInfo(sources, targets, false);
    connect(thread_.data(), &Vantor::CCopyFileThread::SendSaveProgress, this,
            &CEvidencePage::OnProgress);
    connect(thread_.data(), &Vantor::CCopyFileThread::SendSaveFinish, this,
            &CEvidencePage::OnFinished);
    progress_ = {};
    progress_.since_start.start();
    thread_->start();
    UpdateButtons();
}

void CEvidencePage::OnStop()
{
    if (!thread_)
        return;
    thread_->OnStopCopyFileThread();
    progress_.is_stopping = true;
    UpdateButtons();
    ShowProgress();
}

void CEvidencePage::OnProgress(qint64 bytes_done, qint64 bytes_total, int files_done,
                               int files_total)
{
    progress_.bytes_done = bytes_done;
    progress_.bytes_total = bytes_total;
    progress_.files_done = files_done;
    progress_.files_total = files_total;
    ShowProgress();
}

void CEvidencePage::ShowProgress()
{
    const auto &[since_start, estimate, bytes_done, bytes_total, files_done, files_total,
                 is_stopping] = progress_;
    const double share = bytes_total > 0   ? double(bytes_done) / double(bytes_total)
                         : files_total > 0 ? double(files_done) / files_total
                                           : 0;
    bar_->setValue(int(share * kBarSteps));
    progress_.estimate.Note(since_start.elapsed(), share);
    const QLocale locale;
    const QString left = share < 1 ? TimeLeftText(estimate.Seconds()) : QString();
    state_->setText(is_stopping
                        ? tr("Stopping after the current file…")
                        : tr("Files: %1 of %2, %3 of %4")
                                  .arg(locale.toString(files_done), locale.toString(files_total),
                                       locale.formattedDataSize(bytes_done),
                                       locale.formattedDataSize(bytes_total))
                              + (left.isEmpty() ? QString() : QStringLiteral(" – ") + left));
    Q_EMIT SignalWork(tr("Copying files: %1 of %2")
                          .arg(locale.toString(files_done), locale.toString(files_total)));
}

void CEvidencePage::OnFinished(bool all_copied)
{
    const QVector<Vantor::CopiedFile> results = thread_->Results();
    for (int row = 0; row < results.size() && row < files_->topLevelItemCount(); ++row) {
        QTreeWidgetItem *const item = files_->topLevelItem(row);
        item->setData(kResult, kTargetRole, results.at(row).target);
        item->setData(kResult, kErrorRole, results.at(row).error);
        ShowRow(item);
    }
    delete thread_.data(); // waits for its last steps
    const QString text = Report();
    state_->setText(text);
    UpdateButtons();
    const QPointer<CEvidencePage> self = this;
    Q_EMIT SignalMessage(text);
    Q_EMIT SignalCopied(all_copied);
    if (self)
        Q_EMIT SignalWork({}); // the window may close
}

// On the last copy; empty before the first one.
QString CEvidencePage::Report() const
{
    int total = 0;
    int arrived = 0;
    for (int row = 0; row < files_->topLevelItemCount(); ++row) {
        const QTreeWidgetItem *const item = files_->topLevelItem(row);
        const bool has_arrived = !item->data(kResult, kTargetRole).toString().isEmpty();
        arrived += has_arrived ? 1 : 0;
        total += has_arrived || !item->data(kResult, kErrorRole).toString().isEmpty() ? 1 : 0;
    }
    const QLocale locale;
    if (total == 0)
        return {};
    return arrived == total
               ? tr("All files have arrived: %1.").arg(locale.toString(total))
               : tr("Files that have arrived: %1 of %2. The others are listed with the reason.")
                     .arg(locale.toString(arrived), locale.toString(total));
}

QStringList CEvidencePage::WorkLeft() const
{
    QStringList names;
    for (int row = progress_.files_done + 1; thread_ && row < files_->topLevelItemCount(); ++row)
        names.append(files_->topLevelItem(row)->text(kName));
    return names;
}

} // namespace Client
