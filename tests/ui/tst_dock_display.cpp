// SPDX-License-Identifier: MIT
// Docks among real windows, on an X display of its own; DOCK_WINDOW_MANAGER names the window
// manager, empty for none. The pointer and the keys are moved from outside, as a user does.
#include "support/TestGuard.h"

#include <Faceplate/GUIFullScreenWidget.h>
#include <Vantor/CBaseDockFrame>
#include <Vantor/CDockManager>
#include <Vantor/CDockWidget>

#include <QtCore/QProcess>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLabel>

#include <memory>

using Vantor::CBaseDockFrame;
using Vantor::CDockManager;
using Vantor::CDockWidget;

namespace {

constexpr char kStranger[] = "--stranger"; // shows a window of another application

CDockManager &Manager()
{
    return Ravel::CUiSingleton<CDockManager>::Instance();
}

CDockWidget *Dock()
{
    return Manager().GetDockWidget();
}

bool XDoTool(const QStringList &arguments)
{
    QProcess tool;
    tool.start("xdotool", arguments);
    while (!tool.waitForFinished(10) && tool.state() != QProcess::NotRunning)
        QCoreApplication::processEvents(); // what it waits for may come from us
    return tool.exitCode() == 0;
}

void ClickAt(const QPoint &place)
{
    QVERIFY(XDoTool(
        {"mousemove", QString::number(place.x()), QString::number(place.y()), "click", "1"}));
    QTest::qWait(50); // until the server has handed it round, also to nobody
}

QPoint CentreOf(const QWidget &widget)
{
    return widget.mapToGlobal(widget.rect().center());
}

// Notes where the right edge is at each step.
class CEdgeWatch : public QObject
{
public:
    QSet<int> edges;
    int steps = 0;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *const dock = qobject_cast<CDockWidget *>(watched);
        // The server's reports of steps that are past come in between.
        if (dock && dock->width() > 0 && event->type() == QEvent::Move && !event->spontaneous()) {
            edges.insert(dock->geometry().right());
            ++steps;
        }
        return false;
    }
};

} // namespace

class TestDockDisplay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        const QString manager = qEnvironmentVariable("DOCK_WINDOW_MANAGER");
        if (manager.isEmpty())
            return;
        window_manager_.start(manager, QStringList());
        QTRY_VERIFY(XDoTool({"get_num_desktops"}));
    }

    void cleanupTestCase()
    {
        window_manager_.terminate();
        if (HasManager())
            QVERIFY(window_manager_.waitForFinished());
    }

    void init()
    {
        guard_.Begin();
        guard_.AnnounceLogLines();
        window_ = std::make_unique<QWidget>();
        window_->setWindowTitle("main");
        window_->setGeometry(150, 150, 800, 600);
        child_ = new QLabel("child", window_.get());
        child_->setGeometry(20, 20, 100, 50);
        window_->show();
        QVERIFY(QTest::qWaitForWindowExposed(window_.get()));
        if (HasManager()) // it puts its frame around the window some time later
            QTRY_VERIFY(window_->frameGeometry() != window_->geometry());
        QVERIFY(XDoTool({"windowfocus", "--sync", QString::number(window_->winId())}));
        QTRY_VERIFY(window_->isActiveWindow());
        Manager().SetMainWindow(window_.get());
        frame_ = new CBaseDockFrame(window_.get());
    }

    void cleanup()
    {
        Faceplate::SetFullScreenModeSource(nullptr);
        delete Dock();
        delete frame_;
        window_.reset();
        QApplication::setLayoutDirection(Qt::LeftToRight);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void theEdgeStandsStillAndThePanelFollows()
    {
        CEdgeWatch watch;
        qApp->installEventFilter(&watch);
        Show();

        QVERIFY(watch.steps > 3);
        QCOMPARE(watch.edges.size(), 1);
        const int right = window_->mapToGlobal(window_->rect().bottomRight()).x() - 2;
        QCOMPARE(Dock()->geometry(),
                 QRect(right - 299, window_->mapToGlobal({0, 0}).y() + 41, 300, 558));
        QTRY_VERIFY(Dock()->isActiveWindow());

        window_->move(window_->pos() + QPoint(40, 30));
        QTRY_COMPARE(Dock()->geometry().right(), right + 40);
        window_->resize(700, 600);
        QTRY_COMPARE(Dock()->geometry().right(), right - 60);

        QVERIFY(XDoTool({"key", "Escape"}));
        QTRY_VERIFY(Dock()->isHidden());
        QCOMPARE(frame_->parentWidget(), window_.get());
    }

    void aRealClickOutsideSlidesItOut_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<bool>("hides");
        QTest::newRow("a child of the window") << "child" << true;
        QTest::newRow("the window") << "window" << true;
        QTest::newRow("another window") << "other" << true;
        QTest::newRow("the panel") << "panel" << false;
        QTest::newRow("a dialog of the panel") << "dialog" << false;
        QTest::newRow("a list that drops down beyond the panel") << "list" << false;
        QTest::newRow("the title bar") << "title" << false; // the window manager's alone
    }

    void aRealClickOutsideSlidesItOut()
    {
        QFETCH(QString, target);
        QFETCH(bool, hides);
        if (target == "title" && !HasManager())
            return; // there is none
        QWidget other;
        other.setGeometry(1000, 700, 150, 150);
        auto *const combo = new QComboBox;
        for (int i = 0; i < 40; ++i)
            combo->addItem("a text that makes the list wider than the panel, by far, by far");
        combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        frame_->SetContentWnd(combo);
        QDialog dialog(frame_);
        dialog.setGeometry(20, 700, 100, 100);
        Show();
        for (QWidget *const window : {&other, static_cast<QWidget *>(&dialog)}) {
            window->show();
            QVERIFY(QTest::qWaitForWindowExposed(window));
        }

        if (target == "child")
            ClickAt(CentreOf(*child_));
        else if (target == "window")
            ClickAt(window_->mapToGlobal(QPoint(200, 300)));
        else if (target == "other")
            ClickAt(CentreOf(other));
        else if (target == "panel")
            ClickAt(CentreOf(*Dock()));
        else if (target == "dialog")
            ClickAt(CentreOf(dialog));
        else if (target == "title")
            ClickAt(window_->frameGeometry().topLeft() + QPoint(200, 5));
        else
            ClickInList(*combo);

        const bool is_going = guard_.LogLines().filter("]HideInAnimation()").size() == 1;
        QCOMPARE(is_going, hides);
        if (hides)
            QTRY_VERIFY(Dock()->isHidden());
        else
            QVERIFY(frame_->isVisible());
    }

    void anotherApplicationTakesItAway()
    {
        QProcess stranger;
        stranger.start(QCoreApplication::applicationFilePath(), QStringList(kStranger));
        QVERIFY(stranger.waitForReadyRead());
        const QString id = QString::fromLatin1(stranger.readLine()).trimmed();
        Show();

        QVERIFY(XDoTool({"windowfocus", id}));

        QTRY_VERIFY(Dock()->isHidden());
        QCOMPARE(frame_->parentWidget(), window_.get());
        QCOMPARE(guard_.LogLines().filter("app hide. add by vtq.").size(), 1);
        stranger.kill();
        QVERIFY(stranger.waitForFinished());
    }

    void minimisingLosesNothing()
    {
        if (!HasManager())
            return; // nobody minimises
        Show();
        QVERIFY(XDoTool({"windowminimize", QString::number(window_->winId())}));
        QTRY_VERIFY(window_->isMinimized());
        window_->showNormal();
        QTRY_VERIFY(!window_->isMinimized() && window_->isVisible());

        // Gone with the application, or back with its window: never an empty panel.
        QTRY_COMPARE(Dock()->isVisible(), frame_->window() == Dock());
        Show();
        QVERIFY(frame_->isVisible());
    }

    void aWindowThatFillsTheScreenHasItAtItsEdge()
    {
        Faceplate::CGUIFullScreenWidget live;
        live.setGeometry(300, 300, 400, 300);
        live.show();
        QVERIFY(QTest::qWaitForWindowExposed(&live));
        const QSize screen = live.screen()->size();
        live.SetFullScreenMode(true);
        if (!HasManager()) { // nobody else does it
            live.setGeometry(QRect(QPoint(), screen));
            Faceplate::SetFullScreenModeSource([](const QWidget *) { return true; });
        }
        QTRY_COMPARE(live.size(), screen);
        CBaseDockFrame frame(&live);

        Manager().SetDockWidget(&frame, 300, true);

        QTRY_COMPARE(Dock()->width(), 300);
        QCOMPARE(Dock()->GetParentWidget(), &live);
        QCOMPARE(Dock()->pos(), QPoint(screen.width() - 299, 0));
        delete Dock();
    }

private:
    [[nodiscard]] bool HasManager() const { return window_manager_.state() == QProcess::Running; }

    void Show()
    {
        Manager().SetDockWidget(frame_, 300);
        QTRY_COMPARE(Dock()->width(), 300);
        QTRY_COMPARE(guard_.LogLines().filter("installEventFilter").isEmpty(), false);
    }

    void ClickInList(QComboBox &combo)
    {
        combo.showPopup();
        QWidget *const list = combo.view()->window();
        QVERIFY(QTest::qWaitForWindowExposed(list));
        list->move(Dock()->x() - list->width() - 20, Dock()->y());
        QTest::qWait(50);
        ClickAt(CentreOf(*combo.view()));
    }

    CTestGuard guard_;
    QProcess window_manager_;
    std::unique_ptr<QWidget> window_;
    QLabel *child_ = nullptr;
    QPointer<CBaseDockFrame> frame_;
};

int main(int argc, char **argv)
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:"); // libdbus leaks what it looks for
    QApplication application(argc, argv);
    if (QCoreApplication::arguments().contains(kStranger)) {
        QWidget window;
        window.setGeometry(20, 20, 100, 100);
        window.show();
        printf("%llu\n", static_cast<unsigned long long>(window.winId()));
        fflush(stdout);
        return QApplication::exec();
    }
    QTEST_SET_MAIN_SOURCE_PATH
    TestDockDisplay test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_dock_display.moc"
