// SPDX-License-Identifier: MIT
// The login and the lock over the real server, among real windows with a window manager.
#include "ClientSession.h"
#include "pages/LockWindow.h"
#include "pages/LoginPage.h"
#include "server/ServerHarness.h"
#include "window/DetailPanel.h"
#include "window/Panels.h"

#include <server/SampleAccounts.h>

using namespace Client;

namespace {

const Server::SampleAccount &account = Server::kSampleAccounts[1];
constexpr QRgb kSecret = qRgb(255, 0, 255);

QWidget *FindWindow(const char *name)
{
    const auto windows = QApplication::topLevelWidgets();
    for (QWidget *const window : windows) {
        if (window->objectName() == QLatin1String(name))
            return window;
    }
    return nullptr;
}

bool IsSecretOnDisplay()
{
    QCoreApplication::processEvents();
    const QImage all = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    for (int y = 0; y < all.height(); ++y) {
        for (int x = 0; x < all.width(); ++x) {
            if (all.pixel(x, y) == kSecret)
                return true;
        }
    }
    return false;
}

void Type(const char *text, int key = Qt::Key_Return)
{
    for (int round = 0; round < 3; ++round) // until then, the form drops keys
        QCoreApplication::processEvents();
    for (const char *c = text; *c; ++c)
        QTest::keyClick(QApplication::focusWidget(), *c);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key(key));
    QTest::qWait(1); // the answer arrives
}

QString Focus()
{
    return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
}

} // namespace

class TestClientLogin : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        guard_.AnnounceWarnings("Could not parse stylesheet"); // of the Caps Lock tip
        guard_.AnnounceWarnings("XCB error"); // Qt may focus what the manager has not mapped yet
        guard_.AnnounceLogLines();
    }

    void Start(CServerLink &link, const QString &user)
    {
        server_ = std::make_unique<CTestServer>();
        QCOMPARE(server_->Start(), QString());
        link.Start(QString("127.0.0.1:%1").arg(server_->Port()), user);
        QTRY_COMPARE(link.User(), user);
    }

    std::unique_ptr<CTestServer> server_;
    QProcess manager_;

private Q_SLOTS:
    void initTestCase()
    {
        manager_.start("openbox", QStringList());
        QVERIFY(manager_.waitForStarted());
    }

    void cleanupTestCase()
    {
        manager_.terminate();
        QVERIFY(manager_.waitForFinished());
    }

    void theFocusIsWhereTheNextKeyBelongs()
    {
        CServerLink link;
        Start(link, account.name);
        QSignalSpy changed(&link, &CServerLink::SignalUserChanged);
        CLoginPage page;
        auto *const code = page.findChild<QLineEdit *>("ptr_verify_edit");
        page.show();
        page.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&page));
        page.findChild<QLineEdit *>("ptr_user_name_edit")->setFocus();

        Type(account.name);
        QCOMPARE(Focus(), QString("ptr_base_frame_lineedit")); // it is empty
        Type("wrong");
        QCOMPARE(Focus(), QString("ptr_base_frame_lineedit"));
        Type("wrong"); // which replaces the one before
        QTRY_VERIFY(code->isVisible());
        QCOMPARE(Focus(), QString("ptr_base_frame_lineedit"));
        Type(account.password);
        QCOMPARE(Focus(), QString("ptr_verify_edit"));
        Type("nope");
        QTRY_VERIFY(code->text().isEmpty());
        QCOMPARE(Focus(), QString("ptr_verify_edit"));
        Type("W7kx", Qt::Key_Tab);
        QCOMPARE(Focus(), QString("LoginButton"));
        Type(" ");

        QTRY_COMPARE(changed.size(), 1);
        auto *const settings = page.findChild<QTreeWidget *>("SecuritySettings");
        QTRY_COMPARE(settings->topLevelItemCount(), 4);
        QVERIFY(settings->topLevelItem(0)->text(2).startsWith("Tries: 5, "));
        auto *const password = page.findChild<QLineEdit *>("ptr_base_frame_lineedit");
        QVERIFY(password->text().isEmpty());
        password->setText("secret");
        page.hide(); // for another page
        QVERIFY(password->text().isEmpty());
    }

    void theLockHidesEverything()
    {
        ClientSession session;
        session.theme.Apply(Theme::Light);
        Start(session.link, account.name);
        QVERIFY(session.window.Pages().Show("login"));
        session.window.setStyleSheet("* { background-color: #ff00ff }");
        session.window.resize(700, 500); // the window manager chooses the place
        session.window.show();
        session.window.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&session.window));
        QStandardItemModel model(1, 1);
        session.window.findChild<CPanels *>()->ShowDetails(model.index(0, 0));
        QToolTip::showText({200, 200}, "An incident", &session.window);
        session.window.ExportTo("name.unknown"); // a message
        auto *const exporting = new QFileDialog(&session.window, "incidents.csv");
        exporting->setAttribute(Qt::WA_DeleteOnClose);
        exporting->open();
        QSignalSpy finished(exporting, &QDialog::finished);
        QGuiApplication::clipboard()->setText("An incident");
        QTRY_VERIFY(IsSecretOnDisplay());
        QTRY_VERIFY(exporting->windowHandle()->isExposed());
        QTRY_VERIFY(session.window.findChild<CDetailPanel *>()->isHidden());
        const QPoint places[] = {session.window.pos(), exporting->pos()};

        session.window.findChild<QPushButton *>("LockButton")->click();

        const QPointer<QWidget> lock = FindWindow("LockWindow");
        QVERIFY(QTest::qWaitForWindowActive(lock) && !IsSecretOnDisplay());
        QVERIFY(QGuiApplication::clipboard()->text().isEmpty());
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (const QWidget *const window : windows)
            QCOMPARE(window->isVisible(), window == lock);
        QCOMPARE(lock->windowTitle(), QString("Locked"));
        session.window.ExportTo("name.unknown"); // a message while it is locked
        QVERIFY(!IsSecretOnDisplay());
        QCOMPARE(QGuiApplication::modalWindow(),
                 lock->windowHandle()); // the message blocks nothing
        Type("wrong");
        QVERIFY(lock && Focus() == "ptr_base_frame_lineedit" && !IsSecretOnDisplay());
        Type(account.password);

        QTRY_VERIFY(!lock);
        QTRY_VERIFY(session.window.isVisible() && exporting->isVisible() && IsSecretOnDisplay());
        QTRY_COMPARE(session.window.pos(), places[0]);
        QCOMPARE(exporting->pos(), places[1]);
        QTRY_VERIFY(qobject_cast<QDialog *>(QApplication::activeWindow()));
        QVERIFY(finished.isEmpty());
        QCOMPARE(session.window.findChildren<QMessageBox *>().size(), 2);
        const QList<QDialog *> dialogs = session.window.findChildren<QDialog *>();
        for (QDialog *const dialog : dialogs)
            dialog->close();
        QTRY_VERIFY(session.window.findChild<CDetailPanel *>()->isVisible());
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("An incident"));
        session.window.close();
    }
};

QTEST_MAIN(TestClientLogin)
#include "tst_client_login.moc"
