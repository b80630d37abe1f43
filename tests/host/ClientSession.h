// SPDX-License-Identifier: MIT
#pragma once

#include "app/CommandLine.h"
#include "link/ServerLink.h"
#include "look/Language.h"
#include "look/Theme.h"
#include "support/Widgets.h"
#include "window/MainWindow.h"
#include "window/Pages.h"

/// \brief A data folder for the client and the server in its process.
///
/// Filling the server's database takes seconds, so this is a member of the test class: all
/// functions of a program share the database.
class CDataHome
{
public:
    CDataHome() { qputenv("XDG_DATA_HOME", folder_.path().toLocal8Bit()); }

private:
    QTemporaryDir folder_;
};

/// \brief The client as it runs: window, theme, language, and its own server in this process.
struct ClientSession
{
    ClientSession() : window(theme, language) { window.SetServerLink(link); }

    /// \brief Start the server and log \a user in. \return false if that fails.
    [[nodiscard]] bool Start(const QString &user = Client::CServerLink::Users().constFirst())
    {
        return StartLink(link, user);
    }

    /// \brief The same for a test that needs no window.
    [[nodiscard]] static bool
    StartLink(Client::CServerLink &link,
              const QString &user = Client::CServerLink::Users().constFirst())
    {
        constexpr int kDatabaseIsFilledMs = 60000;
        link.Start(QString(), user);
        return QTest::qWaitFor([&] { return link.User() == user; }, kDatabaseIsFilledMs);
    }

    Client::CThemeSwitch theme;
    Client::CLanguageSwitch language;
    Client::CServerLink link;
    Client::CMainWindow window;
};
