// SPDX-License-Identifier: MIT
#include "ProgressDialog.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QVBoxLayout>

#include <chrono>

namespace Client {
namespace {

using namespace std::chrono_literals;

constexpr int kWidthPx = 360;
constexpr auto kPatience = 300ms; // a dialog that flashes by only disturbs

} // namespace

CProgressDialog::CProgressDialog(const QString &text, QWidget *parent)
    : QDialog(parent), bar_(new QProgressBar(this))
{
    setWindowTitle(text);
    setModal(true);
    setMinimumWidth(kWidthPx);
    bar_->setAccessibleName(text);
    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(text, this));
    layout->addWidget(bar_);
    layout->addWidget(buttons);
    patience_.setSingleShot(true);
    connect(&patience_, &QTimer::timeout, this, &QDialog::open);
    patience_.start(kPatience);
}

void CProgressDialog::OnProgress(int done, int total)
{
    bar_->setMaximum(total);
    bar_->setValue(done);
    if (done < total)
        return;
    patience_.stop();
    accept();
}

} // namespace Client
