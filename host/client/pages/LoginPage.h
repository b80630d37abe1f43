// SPDX-License-Identifier: MIT
#pragma once

#include "pages/Page.h"

#include <Nim/Base/Error.h>
#include <Vantor/CLoginSettingStruct>

#include <QtCore/QFutureWatcher>
#include <QtCore/QPointer>

QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
class QTreeWidget;
QT_END_NAMESPACE

namespace Client {

class CLockWindow;
class CLoginForm;

/// \brief Logs a user in with name and password, shows the server's security settings then, and
/// locks the client.
class CLoginPage : public CPage
{
    Q_OBJECT

public:
    explicit CLoginPage(QWidget *parent = nullptr);
    ~CLoginPage() override;

protected:
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void OnUserChanged();
    void OnSettings();
    void OnLock();

private:
    using Settings = NimClientFrameWork::CLoginSettingStruct;

    struct Outcome
    {
        bool is_answered = true; // also before the first request
        Nim::Base::Error::ErrorCode error;
        Settings settings;
    };

    void BuildSettings();
    void Retranslate();
    void FillSettings();

    CLoginForm *const form_;
    QWidget *const side_; // visible after a login
    QLabel *const user_;
    QLabel *const state_;
    QTreeWidget *const settings_;
    QPushButton *const lock_;
    QFutureWatcher<Outcome> watcher_;
    Outcome outcome_;
    QPointer<CLockWindow> lock_window_;
};

} // namespace Client
