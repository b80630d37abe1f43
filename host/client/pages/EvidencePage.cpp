// SPDX-License-Identifier: MIT
#include "pages/EvidencePage.h"

#include "look/Language.h"
#include "look/Theme.h"
#include "pages/EvidenceRow.h"
#include "pages/SampleEvidence.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QEvent>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QMimeData>
#include <QtCore/QStandardPaths>
#include <QtCore/QUrl>
#include <QtGui/QDesktopServices>
#include <QtGui/QDragEnterEvent>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QVBoxLayout>

namespace Client {
namespace {

constexpr int kMarginPx = 16;
constexpr int kGapPx = 12;
constexpr int kNameWidthPx = 320;
constexpr char kPictureFolder[] = "/media/evidence/2026-11";

QIcon ResultIcon(bool has_arrived)
{
    return CThemeSwitch::Icon(has_arrived ? QStringLiteral("result-done")
                                          : QStringLiteral("result-failed"));
}

} // namespace

CEvidencePage::CEvidencePage(QWidget *parent)
    : CPage(parent), add_(new QPushButton(this)), remove_(new QPushButton(this)),
      folder_label_(new QLabel(this)), folder_(new QLineEdit(this)), browse_(new QPushButton(this)),
      open_folder_(new QPushButton(this)), files_(new QTreeWidget(this)),
      empty_(new QWidget(files_->viewport())), empty_text_(new QLabel(empty_)),
      samples_(new QPushButton(empty_)), bar_(new QProgressBar(this)), state_(new QLabel(this)),
      stop_(new QPushButton(this)), copy_(new QPushButton(this))
{
    setAcceptDrops(true);
    auto *const page = new QVBoxLayout(this);
    page->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
    page->setSpacing(kGapPx);
    BuildHead();
    page->addWidget(files_, 1);
    BuildFoot();
    SetFolder(QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation))
                  .filePath(QStringLiteral("Evidence")));
    Retranslate();
    UpdateButtons();
}

CEvidencePage::~CEvidencePage()
{
    if (thread_)
        thread_->disconnect(this);
    delete thread_.data();
}

void CEvidencePage::BuildHead()
{
    folder_label_->setBuddy(folder_);
    folder_->setObjectName(QStringLiteral("EvidenceFolder"));
    auto *const head = new QHBoxLayout;
    head->setSpacing(kGapPx);
    head->addWidget(add_);
    head->addWidget(remove_);
    head->addSpacing(kGapPx);
    head->addWidget(folder_label_);
    head->addWidget(folder_, 1);
    head->addWidget(browse_);
    head->addWidget(open_folder_);
    static_cast<QVBoxLayout *>(layout())->addLayout(head);

    files_->setObjectName(QStringLiteral("EvidenceFiles"));
    files_->setColumnCount(3);
    files_->setRootIsDecorated(false);
    files_->setUniformRowHeights(true);
    files_->setAlternatingRowColors(true);
    files_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    files_->header()->setStretchLastSection(true);
    files_->setColumnWidth(kName, kNameWidthPx);
    BuildEmptyList();

    connect(add_, &QPushButton::clicked, this, &CEvidencePage::OnAdd);
    connect(remove_, &QPushButton::clicked, this, &CEvidencePage::OnRemove);
    connect(browse_, &QPushButton::clicked, this, &CEvidencePage::OnBrowse);
    connect(open_folder_, &QPushButton::clicked, this, &CEvidencePage::OnOpenFolder);
    connect(folder_, &QLineEdit::textChanged, this, &CEvidencePage::UpdateButtons);
    connect(files_, &QTreeWidget::itemSelectionChanged, this, &CEvidencePage::UpdateButtons);
}

void CEvidencePage::BuildEmptyList()
{
    empty_text_->setObjectName(QStringLiteral("NothingFound"));
    empty_text_->setAlignment(Qt::AlignCenter);
    empty_text_->setWordWrap(true);
    samples_->setObjectName(QStringLiteral("EvidenceSamples"));
    (new QVBoxLayout(files_->viewport()))->addWidget(empty_);
    auto *const layout = new QVBoxLayout(empty_);
    layout->setSpacing(kGapPx);
    layout->addStretch();
    layout->addWidget(empty_text_);
    layout->addWidget(samples_, 0, Qt::AlignHCenter);
    layout->addStretch();
    connect(samples_, &QPushButton::clicked, this, &CEvidencePage::OnAddSamples);
}

void CEvidencePage::BuildFoot()
{
    bar_->setObjectName(QStringLiteral("EvidenceProgress"));
    bar_->setMaximum(kBarSteps);
    bar_->setTextVisible(false);
    state_->setObjectName(QStringLiteral("EvidenceState"));
    state_->setWordWrap(true);
    stop_->setObjectName(QStringLiteral("EvidenceStop"));
    copy_->setObjectName(QStringLiteral("EvidenceCopy"));
    copy_->setDefault(true);
    auto *const foot = new QHBoxLayout;
    foot->setSpacing(kGapPx);
    auto *const progress = new QVBoxLayout;
    progress->addWidget(bar_);
    progress->addWidget(state_);
    foot->addLayout(progress, 1);
    foot->addWidget(stop_);
    foot->addWidget(copy_);
    static_cast<QVBoxLayout *>(layout())->addLayout(foot);
    connect(copy_, &QPushButton::clicked, this, &CEvidencePage::OnCopy);
    connect(stop_, &QPushButton::clicked, this, &CEvidencePage::OnStop);
}

void CEvidencePage::AddFiles(const QStringList &paths)
{
    if (thread_)
        return;
    QSet<QString> known;
    for (int row = 0; row < files_->topLevelItemCount(); ++row)
        known.insert(files_->topLevelItem(row)->data(kName, kPathRole).toString());
    int left_out = 0;
    for (const QString &path : paths) {
        const QFileInfo file(path);
        const QString absolute = file.absoluteFilePath();
        if (!file.isFile())
            ++left_out;
        if (!file.isFile() || known.contains(absolute))
            continue;
        known.insert(absolute);
        auto *const item = new QTreeWidgetItem(files_);
        item->setText(kName, file.fileName());
        item->setToolTip(kName, QDir::toNativeSeparators(absolute));
        item->setData(kName, kPathRole, absolute);
        item->setData(kSize, kBytesRole, file.size());
        item->setTextAlignment(kSize, Qt::AlignRight | Qt::AlignVCenter);
        ShowRow(item);
    }
    state_->setText(left_out > 0
                        ? tr("%Ln of them are not files and were left out.", nullptr, left_out)
                        : QString());
    UpdateButtons();
}

void CEvidencePage::SetFolder(const QString &folder)
{
    folder_->setText(QDir::toNativeSeparators(folder));
}

void CEvidencePage::OnAdd()
{
    auto *const dialog = new QFileDialog(this, tr("Add evidence files"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    connect(dialog, &QFileDialog::filesSelected, this, &CEvidencePage::AddFiles);
    dialog->open();
}

void CEvidencePage::OnRemove()
{
    qDeleteAll(files_->selectedItems());
    UpdateButtons();
}

void CEvidencePage::OnAddSamples()
{
    const QString home = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    const QStringList samples = MakeSampleEvidence(QDir(home).filePath(QStringLiteral("samples")));
    AddFiles(samples);
    if (samples.isEmpty())
        state_->setText(tr("The folder %1 cannot be made.").arg(QDir::toNativeSeparators(home)));
}

void CEvidencePage::OnOpenFolder()
{
    const QString folder = QDir::fromNativeSeparators(folder_->text().trimmed());
    if (!QFileInfo(folder).isDir() || !QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
        state_->setText(tr("The folder %1 cannot be opened.").arg(folder_->text()));
}

void CEvidencePage::OnBrowse()
{
    auto *const dialog = new QFileDialog(this, tr("Copy to"), folder_->text());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    connect(dialog, &QFileDialog::fileSelected, this, &CEvidencePage::SetFolder);
    dialog->open();
}

// The texts of a row in the present language.
void CEvidencePage::ShowRow(QTreeWidgetItem *item) const
{
    item->setText(kSize, QLocale().formattedDataSize(item->data(kSize, kBytesRole).toLongLong()));
    const QString target = item->data(kResult, kTargetRole).toString();
    const QString error = item->data(kResult, kErrorRole).toString();
    const bool has_arrived = !target.isEmpty();
    const bool has_result = has_arrived || !error.isEmpty();
    item->setText(kResult, has_arrived
                               ? tr("Copied as %1").arg(Isolated(QFileInfo(target).fileName()))
                           : has_result ? tr("Not copied: %1").arg(Isolated(error))
                                        : QString());
    item->setIcon(kResult, has_result ? ResultIcon(has_arrived) : QIcon());
    item->setToolTip(kResult, has_arrived ? QDir::toNativeSeparators(target) : error);
}

void CEvidencePage::UpdateButtons()
{
    const bool is_running = thread_;
    const bool has_files = files_->topLevelItemCount() > 0;
    add_->setEnabled(!is_running);
    remove_->setEnabled(!is_running && !files_->selectedItems().isEmpty());
    folder_->setEnabled(!is_running);
    browse_->setEnabled(!is_running);
    open_folder_->setEnabled(!folder_->text().trimmed().isEmpty());
    copy_->setEnabled(!is_running && has_files && !folder_->text().trimmed().isEmpty());
    stop_->setEnabled(is_running && !progress_.is_stopping);
    bar_->setEnabled(is_running);
    if (!is_running)
        bar_->setValue(0);
    empty_->setVisible(!has_files);
}

void CEvidencePage::Retranslate()
{
    add_->setText(tr("&Add files…"));
    remove_->setText(tr("&Remove"));
    folder_label_->setText(tr("Copy &to"));
    browse_->setText(tr("&Browse…"));
    open_folder_->setText(tr("&Open folder"));
    samples_->setText(tr("Add &samples"));
    copy_->setText(tr("&Copy"));
    stop_->setText(tr("&Stop"));
    bar_->setAccessibleName(tr("Progress of the copy"));
    files_->setAccessibleName(tr("Evidence files"));
    files_->setHeaderLabels({tr("File"), tr("Size"), tr("Result")});
    files_->headerItem()->setTextAlignment(kSize, Qt::AlignRight | Qt::AlignVCenter);
    empty_text_->setText(tr("Add files, or drop them here"));
    for (int row = 0; row < files_->topLevelItemCount(); ++row)
        ShowRow(files_->topLevelItem(row));
    if (thread_)
        ShowProgress();
    else
        state_->setText(Report());
}

void CEvidencePage::changeEvent(QEvent *event)
{
    CPage::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

void CEvidencePage::dragEnterEvent(QDragEnterEvent *event)
{
    if (event->mimeData()->hasUrls() && !thread_)
        event->acceptProposedAction();
}

void CEvidencePage::dropEvent(QDropEvent *event)
{
    QStringList paths;
    const auto urls = event->mimeData()->urls();
    for (const QUrl &url : urls)
        paths.append(url.toLocalFile());
    AddFiles(paths);
    event->acceptProposedAction();
}

void CEvidencePage::PrepareForPicture()
{
    OnAddSamples();
    folder_->setText(QLatin1String(kPictureFolder)); // no path of this machine
}

void CEvidencePage::OnThemeChanged()
{
    open_folder_->setIcon(CThemeSwitch::Icon(QStringLiteral("open")));
}

} // namespace Client
