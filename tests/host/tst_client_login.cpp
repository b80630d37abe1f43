// SPDX-License-Identifier: MIT
#include "link/ServerLink.h"
#include "pages/LockWindow.h"
#include "pages/LoginPage.h"
#include "support/TestGuard.h"

#include <server/SampleAccounts.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeWidget>

using namespace Client;

// The page and the lock over the real server, in this process.
class tst_client_login : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qputenv("XDG_DATA_HOME", folder_.path().toLocal8Bit()); }

    void init()
    {
        guard_.Begin();
        guard_.AnnounceWarnings("Could not parse stylesheet"); // of the Caps Lock tip
    }

    void cleanup()
    {
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void thePasswordOpensTheSettingsAndTheLock()
    {
        const auto &account = Server::kSampleAccounts[1];
        CServerLink link;
        QSignalSpy started(&link, &CServerLink::SignalUserChanged);
        link.Start({}, CServerLink::Users().constFirst());
        QVERIFY(started.wait(30000));
        CLoginPage page;
        page.show();
        auto *const settings = page.findChild<QTreeWidget *>("SecuritySettings");

        Type(page, account.name, "wrong");
        QVERIFY(!TipOf(page).isEmpty());
        QCOMPARE(link.User(), CServerLink::Users().constFirst());

        Type(page, account.name, account.password);
        QTRY_COMPARE(link.User(), QString(account.name));
        QTRY_COMPARE(settings->topLevelItemCount(), 4);
        QCOMPARE(settings->topLevelItem(0)->text(1), QString("on"));
        QVERIFY(settings->topLevelItem(0)->text(2).startsWith("5 tries, "));
        QCOMPARE(page.findChild<QLabel *>("LoginUser")->text(), QString("Logged in as supervisor"));
        QVERIFY(Entry(page, "ptr_base_frame_lineedit")->text().isEmpty());

        page.findChild<QPushButton *>("LockButton")->click();
        QVERIFY(!page.isVisible());
        const QPointer<CLockWindow> lock = Lock();
        QVERIFY(lock && lock->isVisible());
        QVERIFY(Entry(*lock, "ptr_user_name_edit")->isReadOnly());
        Type(*lock, nullptr, "wrong");
        QVERIFY(lock->isVisible() && !page.isVisible());
        Type(*lock, nullptr, account.password);
        QVERIFY(page.isVisible());
        QTRY_VERIFY(!lock);
    }

private:
    static QLineEdit *Entry(const QWidget &form, const char *name)
    {
        return form.findChild<QLineEdit *>(name);
    }

    static void Type(QWidget &form, const char *user, const char *password)
    {
        if (user) {
            Entry(form, "ptr_user_name_edit")->clear();
            QTest::keyClicks(Entry(form, "ptr_user_name_edit"), user);
        }
        QLineEdit *const edit = Entry(form, "ptr_base_frame_lineedit");
        edit->clear();
        QTest::keyClicks(edit, password);
        QTest::keyClick(edit, Qt::Key_Return);
    }

    static QString TipOf(const QWidget &page)
    {
        const auto *const tip = page.findChild<QLabel *>("MessageTipText");
        return tip && tip->isVisible() ? tip->text() : QString();
    }

    static CLockWindow *Lock()
    {
        const auto windows = QApplication::topLevelWidgets();
        for (QWidget *const window : windows) {
            if (auto *const lock = qobject_cast<CLockWindow *>(window))
                return lock;
        }
        return nullptr;
    }

    CTestGuard guard_;
    QTemporaryDir folder_;
};

QTEST_MAIN(tst_client_login)
#include "tst_client_login.moc"
