// SPDX-License-Identifier: MIT
#pragma once

#include "export/TimeLeft.h"
#include "pages/Page.h"

#include <Vantor/CCopyFileThread>

#include <QtCore/QElapsedTimer>
#include <QtCore/QPointer>

QT_BEGIN_NAMESPACE
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;
QT_END_NAMESPACE

namespace Client {

/// \brief Copies evidence files to a folder: the files, a progress row with a button that stops,
/// and in the end the result for each file. Nothing that exists is overwritten.
class CEvidencePage : public CPage
{
    Q_OBJECT

public:
    explicit CEvidencePage(QWidget *parent = nullptr);
    /// Waits for the current file.
    ~CEvidencePage() override;

    /// \brief Add files to the list. Paths that are in the list already, and paths that are no
    /// files, are left out with a message.
    void AddFiles(const QStringList &paths);
    void SetFolder(const QString &folder);

    [[nodiscard]] QStringList WorkLeft() const override; ///< Names of the files not yet begun.
    [[nodiscard]] bool IsWorking() const override { return thread_; }
    void StopWork() override { OnStop(); }
    void OnThemeChanged() override;
    void PrepareForPicture() override;

public Q_SLOTS:
    void OnCopy();
    void OnStop();

Q_SIGNALS:
    /// The copy has ended and its report is in the list.
    void SignalCopied(bool all_copied);

protected:
    void changeEvent(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private Q_SLOTS:
    void OnAdd();
    void OnRemove();
    void OnAddSamples();
    void OnBrowse();
    void OnOpenFolder();
    void OnProgress(qint64 bytes_done, qint64 bytes_total, int files_done, int files_total);
    void OnFinished(bool all_copied);

private:
    void BuildHead();
    void BuildFoot();
    void BuildEmptyList();
    void UpdateButtons();
    void Retranslate();
    void ShowProgress();
    void ShowRow(QTreeWidgetItem *item) const;
    [[nodiscard]] QString Report() const;

    QPushButton *const add_;
    QPushButton *const remove_;
    QLabel *const folder_label_;
    QLineEdit *const folder_;
    QPushButton *const browse_;
    QPushButton *const open_folder_;
    QTreeWidget *const files_;
    QWidget *const empty_; // in place of the rows
    QLabel *const empty_text_;
    QPushButton *const samples_;
    QProgressBar *const bar_;
    QLabel *const state_;
    QPushButton *const stop_;
    QPushButton *const copy_;
    QPointer<Vantor::CCopyFileThread> thread_;
    struct
    {
        QElapsedTimer since_start;
        CTimeLeft estimate;
        qint64 bytes_done = 0;
        qint64 bytes_total = 0;
        int files_done = 0;
        int files_total = 0;
        bool is_stopping = false;
    } progress_; // of the running copy
};

} // namespace Client
