// SPDX-License-Identifier: MIT
// Docks among real windows, on an X display; DOCK_WINDOW_MANAGER names the window manager;
// empty: without one. xdotool moves the pointer and presses the keys, as a user does.
#include "DockTest.h"
#include "support/Widgets.h"
#include "ui/DockManager/DockPosition.h"

#include <Lookout/BaseWidget.h>

using namespace Vantor;

namespace {

constexpr char kStranger[] = "--stranger"; // shows a window of another application

bool XDoTool(const QStringList &arguments)
{
    QProcess tool;
    tool.start("xdotool", arguments);
    while (!tool.waitForFinished(10) && tool.state() != QProcess::NotRunning)
        QCoreApplication::processEvents(); // it may wait for an answer of this program
    return tool.exitCode() == 0;
}

QPoint CentreOf(const QWidget &widget)
{
    return widget.mapToGlobal(widget.rect().center());
}

} // namespace

class TestDockDisplay : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        guard_.AnnounceLogLines();
        guard_.AnnounceWarnings("XCB error"); // about windows that are gone meanwhile
        // Qt's own: X tells that a window is shown after Qt has hidden it again.
        guard_.AnnounceWarnings("setNetWmStateOnUnmappedWindow() called on mapped window");
        window_ = std::make_unique<Lookout::CBaseWidget>();
        window_->setWindowTitle("main");
        window_->setGeometry(150, 150, 800, 600);
        window_->show();
        QVERIFY(QTest::qWaitForWindowExposed(window_.get()));
        if (HasManager()) // it puts its frame around the window some time later
            QTRY_VERIFY(window_->frameGeometry() != window_->geometry());
        QVERIFY(XDoTool({"windowfocus", "--sync", WindowId()}));
        QTRY_VERIFY(window_->isActiveWindow());
        Manager().SetMainWindow(window_.get());
        Manager().SetContentType(CDockManager::Common);
        frame_ = new CBaseDockFrame(window_.get());
    }

    void TearDown() override
    {
        stranger_.kill();
        stranger_.waitForFinished();
        window_.reset();
        QApplication::setLayoutDirection(Qt::LeftToRight);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    [[nodiscard]] bool HasManager() const { return window_manager_.state() == QProcess::Running; }
    [[nodiscard]] QString WindowId() const { return QString::number(window_->winId()); }

    void Show()
    {
        Manager().SetDockWidget(frame_, 300);
        QTRY_VERIFY(!guard_.LogLines().filter("installEventFilter").isEmpty());
        QTRY_COMPARE(Dock()->width(), 300); // the window system has to follow
    }

    void StartStranger()
    {
        stranger_.start(QCoreApplication::applicationFilePath(), QStringList(kStranger));
        QVERIFY(stranger_.waitForReadyRead());
        stranger_id_ = QString::fromLatin1(stranger_.readLine()).trimmed();
    }

    static QPoint DropDownBesidePanel(QComboBox &combo)
    {
        combo.showPopup();
        QWidget *const list = combo.view()->window();
        if (!QTest::qWaitForWindowExposed(list))
            qFatal("no list");
        list->move(Dock()->x() - list->width() - 20, Dock()->y());
        QTest::qWait(50);
        return CentreOf(*combo.view());
    }

    // In one of four ways: as a plain panel, as common content or an export of a window that is
    // looked for, and with a rule.
    void ShowAnywhere(CBaseDockFrame *frame, unsigned way)
    {
        asked_ = {};
        asked_.is_parent_found = way == 1 || way == 2;
        asked_.content_type = way == 2 ? CDockManager::Export : CDockManager::Common;
        asked_.direction = QApplication::layoutDirection();
        Manager().SetContentType(CDockManager::ContentType(asked_.content_type));
        if (way == 3)
            Manager().SetDockWidget(frame, RulePointer(&rule_), 200);
        else
            Manager().SetDockWidget(frame, 300, asked_.is_parent_found);
    }

    // Hidden, or with its frame, beside its window and where the rules want it.
    [[nodiscard]] bool IsInPlace()
    {
        if (!Dock() || !Dock()->isVisible())
            return true;
        asked_.top_left = window_->mapToGlobal({0, 0});
        asked_.bottom_right = window_->mapToGlobal(window_->rect().bottomRight());
        asked_.width = Dock()->width();
        const QPoint wanted =
            Dock()->GetParentWidget() ? *Vantor::DockPosition(asked_) : rule_.place;
        // A window manager lets no dialog leave the screen.
        const bool is_free =
            !HasManager() || window_->screen()->geometry().contains({wanted, Dock()->size()});
        return window_->isVisible() && !window_->isMinimized()
               && (Dock()->pos() == wanted || !is_free) && Dock()->findChild<CBaseDockFrame *>();
    }

    [[nodiscard]] QString Describe(int step, size_t kind) const
    {
        QString text;
        QDebug(&text) << step << kind << (Dock() ? Dock()->geometry() : QRect())
                      << window_->geometry() << window_->windowState();
        return text;
    }

    QProcess window_manager_;
    QProcess stranger_;
    QString stranger_id_;
    CRule rule_;
    Vantor::DockSituation asked_; // of the panel that was shown last
    std::unique_ptr<QWidget> window_;
    QPointer<CBaseDockFrame> frame_;

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

    void aRealClickOutsideSlidesItOut_data()
    {
        AddRows<Row<bool>>({{"window", true},
                            {"other", true},
                            {"panel", false},
                            {"dialog", false},
                            {"list", false},
                            {"title", false}}); // the window manager takes that click
    }

    void aRealClickOutsideSlidesItOut()
    {
        const auto [name, hides] = FetchRow<Row<bool>>();
        const QString target = name;
        if (target == "title" && !HasManager())
            return; // there is no title bar
        QWidget other;
        other.setGeometry(1000, 700, 150, 150);
        auto *const combo = new QComboBox;
        combo->addItems(QStringList{"one", "two", "three"});
        frame_->SetContentWnd(combo);
        QDialog dialog(frame_);
        dialog.setGeometry(20, 700, 100, 100);
        Show();
        for (QWidget *const window : {&other, static_cast<QWidget *>(&dialog)}) {
            window->show();
            QVERIFY(QTest::qWaitForWindowExposed(window));
        }
        QPoint place = window_->mapToGlobal(QPoint(200, 300));
        if (target == "other" || target == "dialog")
            place = CentreOf(target == "other" ? other : dialog);
        else if (target == "panel")
            place = CentreOf(*Dock());
        else if (target == "title")
            place = window_->frameGeometry().topLeft() + QPoint(200, 5);
        else if (target == "list")
            place = DropDownBesidePanel(*combo);

        QVERIFY(XDoTool({"mousemove", QString::number(place.x()), QString::number(place.y())}));
        QVERIFY(XDoTool({"click", "1", "key", "--clearmodifiers", "F7"}));
        QTest::qWait(20); // a click on a title bar does not reach us, so its end cannot be awaited

        QCOMPARE(guard_.LogLines().filter("]HideInAnimation()").size(), hides ? 1 : 0);
        QTRY_COMPARE(Dock()->isHidden(), hides);
    }

    void anotherApplicationTakesItAway()
    {
        StartStranger();
        for (const int count : {1, 2}) {
            if (count == 1)
                Show();
            else
                Manager().SetDockWidget(frame_, 300); // it is still sliding
            QTRY_VERIFY(Dock()->isActiveWindow());
            QVERIFY(XDoTool({"windowfocus", stranger_id_}));
            QTRY_VERIFY(Dock()->isHidden());
            QCOMPARE(frame_->parentWidget(), window_.get());
            QCOMPARE(guard_.LogLines().filter("app hide. add by vtq.").size(), count);
        }
    }

    void thePanelIsInPlaceAfterEachRandomStep_data()
    {
        AddRows<Row<Qt::LayoutDirection>>(
            {{"text from the left", Qt::LeftToRight}, {"text from the right", Qt::RightToLeft}});
    }

    void thePanelIsInPlaceAfterEachRandomStep()
    {
        QApplication::setLayoutDirection(std::get<1>(FetchRow<Row<Qt::LayoutDirection>>()));
        StartStranger();
        std::mt19937 dice(20260302);
        CBaseDockFrame second(window_.get());
        const std::vector<std::function<void()>> steps{
            [&] { window_->move(int(dice() % 300), int(dice() % 200)); },
            [&] { window_->resize(500 + int(dice() % 300), 300 + int(dice() % 200)); },
            [&] { dice() % 2 ? window_->showMaximized() : window_->showNormal(); },
            [&] { dice() % 2 ? window_->showMinimized() : window_->showNormal(); },
            [&] { dice() % 2 ? window_->hide() : void(window_->close()); },
            [&] { window_->showNormal(); },
            [&] {
                XDoTool({"windowfocus", dice() % 2 ? stranger_id_ : WindowId()});
            },
            [&] { Manager().HideDockWidget(); },
            [&] { ShowAnywhere(dice() % 2 ? frame_.data() : &second, dice() % 4); },
            [&] { ShowAnywhere(dice() % 2 ? frame_.data() : &second, dice() % 4); },
        };
        const int count = qMax(60, qEnvironmentVariableIntValue("DOCK_STEPS"));
        for (int step = 0; step < count; ++step) {
            const size_t kind = dice() % steps.size();
            steps[kind]();
            QVERIFY(window_->isVisible() || !Dock() || !Dock()->isVisible());
            for (const int wait_ms : {0, int(dice() % 50)}) { // the next may come in a slide
                QTest::qWait(wait_ms);
                QTRY_VERIFY2(IsInPlace(), qPrintable(Describe(step, kind)));
            }
        }
    }
};

int main(int argc, char **argv)
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:"); // libdbus leaks the address it finds
    QApplication application(argc, argv);
    if (QCoreApplication::arguments().contains(kStranger)) {
        QWidget window;
        window.setGeometry(20, 20, 100, 100);
        window.show();
        printf("%llu\n", static_cast<unsigned long long>(window.winId()));
        fflush(stdout);
        return QApplication::exec();
    }
    QApplication::setQuitOnLastWindowClosed(false);
    QTEST_SET_MAIN_SOURCE_PATH
    TestDockDisplay test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_dock_display.moc"
