// SPDX-License-Identifier: MIT
#include "pages/LoginPage.h"

#include "link/ServerLink.h"
#include "pages/LockWindow.h"
#include "pages/LoginForm.h"

#include <ErrorText/ErrorText.h>
#include <ui/SecondAuthentication/LoginSetting.h>

#include <QtConcurrent/QtConcurrentRun>
#include <QtCore/QEvent>
#include <QtCore/QLocale>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeWidget>
#include <QtWidgets/QVBoxLayout>

namespace Client {
namespace {

constexpr int kMarginPx = 24;
constexpr int kGapPx = 24;
constexpr int kSpacingPx = 12;
constexpr int kSettingsWidthPx = 480;
constexpr int kSettingsHeightPx = 190;
constexpr int kNameWidthPx = 230;
constexpr int kStateWidthPx = 80;

enum Column { kName, kState, kValues };

} // namespace

CLoginPage::CLoginPage(QWidget *parent)
    : CPage(parent), form_(new CLoginForm(this, this)), side_(new QWidget(this)),
      user_(new QLabel(side_)), state_(new QLabel(side_)), settings_(new QTreeWidget(side_)),
      lock_(new QPushButton(side_))
{
    BuildSettings();
    auto *const row = new QHBoxLayout;
    row->setSpacing(kGapPx);
    row->addStretch(1);
    row->addWidget(form_, 0, Qt::AlignTop);
    row->addWidget(side_, 0, Qt::AlignTop);
    row->addStretch(1);
    auto *const page = new QVBoxLayout(this);
    page->setContentsMargins(kMarginPx, kMarginPx, kMarginPx, kMarginPx);
    page->addStretch(1);
    page->addLayout(row);
    page->addStretch(2);

    connect(lock_, &QPushButton::clicked, this, &CLoginPage::OnLock);
    connect(&watcher_, &QFutureWatcher<Outcome>::finished, this, &CLoginPage::OnSettings);
    if (CServerLink *const link = CServerLink::Current()) {
        connect(form_, &CLoginForm::SignalLoggedIn, link, &CServerLink::LogIn);
        connect(link, &CServerLink::SignalUserChanged, this, &CLoginPage::OnUserChanged);
    }
    Retranslate();
    OnUserChanged();
}

CLoginPage::~CLoginPage()
{
    watcher_.waitForFinished(); // at most the time limits of the exchange
}

void CLoginPage::BuildSettings()
{
    user_->setObjectName(QStringLiteral("LoginUser"));
    user_->setTextFormat(Qt::PlainText);
    state_->setObjectName(QStringLiteral("LoginState"));
    state_->setTextFormat(Qt::PlainText);
    settings_->setObjectName(QStringLiteral("SecuritySettings"));
    settings_->setRootIsDecorated(false);
    settings_->setSelectionMode(QAbstractItemView::NoSelection);
    settings_->setColumnCount(kValues + 1);
    settings_->setColumnWidth(kName, kNameWidthPx);
    settings_->setColumnWidth(kState, kStateWidthPx);
    settings_->header()->setStretchLastSection(true);
    settings_->setFixedSize(kSettingsWidthPx, kSettingsHeightPx);
    lock_->setObjectName(QStringLiteral("LockButton"));
    auto *const layout = new QVBoxLayout(side_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSpacingPx);
    layout->addWidget(user_);
    layout->addWidget(settings_);
    layout->addWidget(state_);
    layout->addWidget(lock_, 0, Qt::AlignLeading);
}

void CLoginPage::OnUserChanged()
{
    const CServerLink *const link = CServerLink::Current();
    const bool is_logged_in = link && !link->User().isEmpty();
    side_->setVisible(is_logged_in);
    if (!is_logged_in)
        return;
    user_->setText(tr("Logged in as %1").arg(link->User()));
    watcher_.setFuture(QtConcurrent::run([] {
        Outcome outcome;
        NimClientFrameWork::CDaxPwdResponse response;
        outcome.is_answered = Vantor::RequestLoginSetting(response, outcome.settings);
        outcome.error = response.GetVal_stru_error_info();
        return outcome;
    }));
}

void CLoginPage::OnSettings()
{
    outcome_ = watcher_.result();
    FillSettings();
}

void CLoginPage::FillSettings()
{
    settings_->clear();
    state_->setVisible(!outcome_.is_answered);
    if (!outcome_.is_answered) {
        state_->setText(ErrorText::GetErrorInfoByErrorCode(outcome_.error));
        return;
    }
    const NimClientFrameWork::LoginSettingStruct &all = outcome_.settings.Read();
    const auto add = [this](const QString &name, int enable, const QString &values) {
        // Every number but 0 means enabled, so a missing setting counts as enabled.
        new QTreeWidgetItem(settings_, {name, enable != 0 ? tr("on") : tr("off"), values});
    };
    const QLocale locale;
    const auto &ip = all.stru_ip_lock.Read();
    add(tr("Lock of an address"), ip.enum_enable,
        tr("Tries: %1, %2 min")
            .arg(locale.toString(ip.failed_count), locale.toString(ip.duration_time)));
    const auto &strength = all.stru_pwd_strength.Read();
    add(tr("Password strength"), strength.enum_enable,
        tr("level %1").arg(locale.toString(int(strength.enum_password_strength))));
    const auto &expiry = all.stru_pwd_expirty.Read();
    add(tr("Password expiry"), expiry.enum_enable, tr("after %Ln day(s)", nullptr, expiry.days));
    const auto &lock = all.stru_client_lock.Read();
    add(tr("Lock of the client"), lock.enum_enable,
        tr("after %1 min").arg(locale.toString(lock.duration_time)));
}

void CLoginPage::OnLock()
{
    const CServerLink *const link = CServerLink::Current();
    if (!link || lock_window_)
        return;
    lock_window_ = new CLockWindow(window(), link->User());
    lock_window_->Lock();
}

void CLoginPage::changeEvent(QEvent *event)
{
    CPage::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        Retranslate();
}

void CLoginPage::Retranslate()
{
    form_->SetTexts(tr("Log in"), tr("Log in"));
    if (const CServerLink *const link = CServerLink::Current())
        user_->setText(tr("Logged in as %1").arg(link->User()));
    settings_->setHeaderLabels({tr("Security setting"), tr("State"), tr("Values")});
    settings_->setAccessibleName(tr("Security settings"));
    lock_->setText(tr("Lock the client"));
    FillSettings();
}

} // namespace Client
