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
QT_END_NAMESPACE

namespace Client {

/// \brief Copies evidence files to a folder: the files, a progress row with a button that stops,
/// and what became of each file in the end. Nothing that exists is overwritten.
class CEvidencePage : public CPage
{
    Q_OBJECT

public:
    explicit CEvidencePage(QWidget *parent = nullptr);
    /// Waits for the file that is being copied.
    ~CEvidencePage() override;

    /// \brief Add files to the list; what is there already and what is no file is left out.
    void AddFiles(const QStringList &paths);
    void SetFolder(const QString &folder);

    void PrepareForPicture() override;

public Q_SLOTS:
    void OnCopy();
    void OnStop();

Q_SIGNALS:
    /// The copy has ended and its report stands in the list.
    void SignalCopied(bool all_copied);

protected:
    void changeEvent(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private Q_SLOTS:
    void OnAdd();
    void OnRemove();
    void OnBrowse();
    void OnProgress(qint64 bytes_done, qint64 bytes_total, int files_done, int files_total);
    void OnFinished(bool all_copied, const QStringList &failed);

private:
    void BuildHead();
    void BuildFoot();
    void UpdateButtons();
    void Retranslate();
    void ShowResults();

    QPushButton *const add_;
    QPushButton *const remove_;
    QLabel *const folder_label_;
    QLineEdit *const folder_;
    QPushButton *const browse_;
    QTreeWidget *const files_;
    QLabel *const empty_;
    QProgressBar *const bar_;
    QLabel *const state_;
    QPushButton *const stop_;
    QPushButton *const copy_;
    QPointer<Vantor::CCopyFileThread> thread_;
    QElapsedTimer since_start_;
    CTimeLeft estimate_;
};

} // namespace Client
