// SPDX-License-Identifier: MIT
#pragma once

#include "pages/Page.h"

#include <Vantor/CLoginSettingStruct>

#include <QtCore/QFutureWatcher>

QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
class QTreeWidget;
QT_END_NAMESPACE

namespace Client {

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
        bool is_answered = false;
        QString error;
        Settings settings;
    };

    void BuildSettings();
    void Retranslate();
    void FillSettings();

    CLoginForm *const form_;
    QWidget *const side_; // what is there once somebody is logged in
    QLabel *const user_;
    QLabel *const state_;
    QTreeWidget *const settings_;
    QPushButton *const lock_;
    QFutureWatcher<Outcome> watcher_;
    Outcome outcome_;
};

} // namespace Client
