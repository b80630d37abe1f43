// SPDX-License-Identifier: MIT
#include "window/ProgressDialog.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QVBoxLayout>

#include <chrono>

namespace Client {
namespace {

using namespace std::chrono_literals;

constexpr int kWidthPx = 360;
constexpr auto kPatience = 300ms; // a dialog that only flashes disturbs

} // namespace

CProgressDialog::CProgressDialog(const QString &text, QWidget *parent)
    : QDialog(parent), bar_(new QProgressBar(this)), time_left_(new QLabel(this))
{
    setWindowTitle(text);
    setModal(true);
    setMinimumWidth(kWidthPx);
    bar_->setAccessibleName(text);
    time_left_->setObjectName(QStringLiteral("TimeLeft"));
    time_left_->setMinimumHeight(fontMetrics().height()); // reserve its height before it has a text
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(text, this));
    layout->addWidget(bar_);
    layout->addWidget(time_left_);
    layout->addWidget(buttons);
    since_start_.start();
    patience_.setSingleShot(true);
    connect(&patience_, &QTimer::timeout, this, &QDialog::open);
    patience_.start(kPatience);
}

void CProgressDialog::OnProgress(int done, int total)
{
    bar_->setMaximum(total); // 0: the bar only moves
    bar_->setValue(done);
    if (total == 0) {
        time_left_->setText(tr("%Ln row(s) done", nullptr, done));
        return;
    }
    if (done < total) {
        estimate_.Note(since_start_.elapsed(), double(done) / total);
        time_left_->setText(TimeLeftText(estimate_.Seconds()));
        return;
    }
    patience_.stop();
    accept();
}

} // namespace Client
