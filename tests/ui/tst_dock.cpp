// SPDX-License-Identifier: MIT
#include "support/TestGuard.h"
#include "ui/DockManager/DockPosition.h"

#include <Faceplate/GUIFullScreenWidget.h>
#include <Lookout/BaseWidget.h>
#include <Ravel/ShadowWidget.h>
#include <Vantor/CBaseDockFrame>
#include <Vantor/CDockManager>
#include <Vantor/CDockWidget>
#include <Vantor/CDockWidgetPosRule>

#include <QtCore/QPropertyAnimation>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCompleter>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>

#include <functional>
#include <memory>
#include <random>

using Vantor::CBaseDockFrame;
using Vantor::CDockManager;
using Vantor::CDockWidget;

Q_DECLARE_METATYPE(Vantor::DockSituation)

namespace {

CDockManager &Manager()
{
    return Ravel::CUiSingleton<CDockManager>::Instance();
}

CDockWidget *Dock()
{
    return Manager().GetDockWidget();
}

// The slide that is under way; those before it are deleted when the event loop runs.
QPropertyAnimation *Slide()
{
    const auto slides =
        Dock() ? Dock()->findChildren<QPropertyAnimation *>() : QList<QPropertyAnimation *>();
    for (QPropertyAnimation *const slide : slides) {
        if (slide->state() == QAbstractAnimation::Running)
            return slide;
    }
    return nullptr;
}

void Finish()
{
    if (QPropertyAnimation *const slide = Slide())
        slide->setCurrentTime(slide->totalDuration());
}

void Click(QWidget *widget, const QPoint &position = {3, 3})
{
    QTest::mouseClick(widget, Qt::LeftButton, {}, position);
}

void GoInactive()
{
    QApplicationStateChangeEvent inactive(Qt::ApplicationInactive);
    QCoreApplication::sendEvent(qApp, &inactive);
}

class CFrame : public CBaseDockFrame
{
public:
    using CBaseDockFrame::CBaseDockFrame;

    std::function<void()> on_hide;
    int hidden = 0;

    void OnDockHide() override
    {
        ++hidden;
        if (on_hide)
            on_hide();
        CBaseDockFrame::OnDockHide();
    }
};

class CRule : public Vantor::CDockWidgetPosRule
{
public:
    using CDockWidgetPosRule::CDockWidgetPosRule;

    int updates = 0;

    void Place(CDockWidget *dock, Vantor::CAbstractDockFrame *, QWidget *inner, int width) override
    {
        dock->setGeometry(50, 60, 0, 300);
        inner->resize(width, 300);
    }
    void UpdateOnResize(CDockWidget *) override { ++updates; }
};

} // namespace

class TestDock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard_.Begin();
        window_ = std::make_unique<QWidget>();
        window_->setObjectName("main");
        window_->setGeometry(100, 100, 900, 600);
        window_->show();
        Manager().SetMainWindow(window_.get());
        Manager().SetContentType(CDockManager::Common);
    }

    void cleanup()
    {
        window_.reset();
        QApplication::setLayoutDirection(Qt::LeftToRight);
        Faceplate::SetFullScreenModeSource(nullptr);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void theCornerFollowsFromTheSituation_data()
    {
        QTest::addColumn<Vantor::DockSituation>("situation");
        QTest::addColumn<QPoint>("expected"); // null: left alone
        const auto row = [](const char *what, Vantor::DockSituation situation, QPoint expected) {
            QTest::newRow(what) << situation << expected;
        };
        const QPoint g1(100, 50);
        const QPoint g2(1099, 749);
        constexpr auto kLeft = Qt::LeftToRight;
        constexpr auto kRight = Qt::RightToLeft;
        row("window found", {g1, g2, 400, true, 1, kLeft}, {700, 50});
        row("window found, first step of the slide", {g1, g2, 0, true, 1, kLeft}, {1100, 50});
        row("window found, text from the right", {g1, g2, 400, true, 1, kRight}, {101, 50});
        row("export, below the title bar", {g1, g2, 400, true, 2, kLeft}, {700, 91});
        row("export, text from the right", {g1, g2, 400, true, 2, kRight}, {700, 91});
        row("content of another type", {g1, g2, 400, true, 3, kLeft}, {});
        row("not looked for", {g1, g2, 400, false, 1, kLeft}, {698, 91});
        row("not looked for, text from the right", {g1, g2, 400, false, 3, kRight}, {698, 91});
        row("on a screen to the left", {{-1920, 0}, {-1, 1079}, 400, true, 1, kLeft}, {-400, 0});
        row("across two screens", {{1800, -200}, {2199, 99}, 300, false, 1, kLeft}, {1898, -159});
    }

    void theCornerFollowsFromTheSituation()
    {
        QFETCH(Vantor::DockSituation, situation);
        QFETCH(QPoint, expected);
        QCOMPARE(Vantor::DockPosition(situation).value_or(QPoint()), expected);
    }

    void aPanelSlidesInAndOut()
    {
        CFrame frame(window_.get());
        Manager().SetDockWidget(&frame, -1);
        QWidget *const inner = Dock()->findChild<QWidget *>("ptr_dock_widget");
        const int right = window_->mapToGlobal(window_->rect().bottomRight()).x() - 2;
        QVERIFY(Dock()->isVisible());
        QCOMPARE(Dock()->width(), 0);
        for (int time = 0; time < 300; time += 10) {
            Slide()->setCurrentTime(time);
            QCOMPARE(Dock()->geometry().right(), right); // stands still
            QCOMPARE(inner->size(), QSize(400, 558));    // nothing is squeezed
        }
        Finish();

        QCOMPARE(Dock()->geometry(), QRect(QPoint(right - 399, 141), QSize(400, 558)));
        QVERIFY(frame.isVisible());
        QVERIFY(frame.height() >= 540); // all the room but the spacer's
        QVERIFY(Dock()->windowFlags() & Qt::WindowStaysOnTopHint);
        QCOMPARE(Manager().GetDockWidgetHeight(), 558);
        const auto *const shadow = window_->findChild<Ravel::CShadowWidget *>();
        QVERIFY(shadow && shadow->isVisible());

        const QPoint before = window_->mapToGlobal(QPoint(0, 0));
        window_->move(150, 120); // the panel goes along
        const QPoint way = window_->mapToGlobal(QPoint(0, 0)) - before;
        QVERIFY(!way.isNull());
        QCOMPARE(Dock()->pos(), QPoint(right - 399, 141) + way);

        QTest::keyClick(Dock(), Qt::Key_Escape);
        Finish();
        QVERIFY(Dock()->isHidden() && shadow->isHidden());
        QCOMPARE(frame.parentWidget(), window_.get());
        QCOMPARE(frame.hidden, 1);
    }

    void theLogTellsEachStep()
    {
        CFrame frame(window_.get());
        Manager().SetContentType(CDockManager::Export);
        Manager().SetDockWidget(&frame, 300);
        Finish();
        Click(window_.get());
        Finish();

        const char *const geometries =
            "]DockWidget:pt_base_frame_topleft(98,98),pt_base_frame_bottonright(1001,701),"
            "pt_global_topleft(100,100),pt_global_bottonright(999,699)[";
        QStringList steps = guard_.LogLines();
        for (const char *const part :
             {"]d_ptr_->ptr_dock_widget_->SetContentType(Export);[DockManager.cpp(",
              "]d_ptr_->ptr_dock_widget_->SetDockWidget[width:300][",
              "]DockWidget:parent widget size:(900,600)[", geometries,
              "]DockWidget:d_ptr_->ptr_parent_widget_->parentWidget():,Pos(98,98)[",
              "]ShowInAnimation()[", "]CDockWidget::qApp->installEventFilter(this)[",
              "]pt_global_pos[x:103][y:103][", "]pt_global_pos[x:1][y:0][",
              "]this->geometry().contains[", "]HideInAnimation()[",
              "]qApp->removeEventFilter(this)["}) {
            while (!steps.isEmpty() && !steps.constFirst().contains(part))
                steps.removeFirst();
            QVERIFY2(!steps.isEmpty(), part); // each after the one before
        }
        QCOMPARE(guard_.LogLines().filter("UserOperate").size(), 1);
    }

    void theWindowIsLookedFor_data()
    {
        QTest::addColumn<bool>("is_plugin");
        QTest::addColumn<bool>("is_full_screen");
        QTest::addColumn<bool>("is_owned"); // the frame's window is a dialog of the one above
        QTest::addColumn<bool>("is_found");
        QTest::newRow("a plain window") << false << false << false << false;
        QTest::newRow("a plug-in's window") << true << false << false << true;
        QTest::newRow("a window that fills the screen") << false << true << false << true;
        QTest::newRow("a dialog of a plug-in's window") << true << false << true << true;
    }

    void theWindowIsLookedFor()
    {
        QFETCH(bool, is_plugin);
        QFETCH(bool, is_full_screen);
        QFETCH(bool, is_owned);
        QFETCH(bool, is_found);
        std::unique_ptr<QWidget> window;
        if (is_plugin)
            window = std::make_unique<Lookout::CBaseWidget>();
        else
            window = std::make_unique<Faceplate::CGUIFullScreenWidget>();
        Faceplate::SetFullScreenModeSource([&](const QWidget *) { return is_full_screen; });
        window->setObjectName("top");
        window->setGeometry(200, 150, 700, 500);
        window->show();
        QDialog dialog(is_owned ? window.get() : nullptr);
        dialog.setObjectName("dialog");
        CFrame frame(is_owned ? &dialog : window.get());
        frame.setObjectName("frame");

        Manager().SetDockWidget(&frame, 300, true, window_.get());
        Finish();

        const QString way = is_owned         ? "frame--dialog--top"
                            : is_full_screen ? "frame"
                                             : "frame--top";
        QCOMPARE(guard_.LogLines().filter("DockWidget:parent widgets:" + way + "[").size(), 1);
        QCOMPARE(Dock()->GetParentWidget(), is_found ? window.get() : nullptr);
        QCOMPARE(frame.window() == Dock(), is_found);
        QVERIFY(Dock()->isVisible()); // empty where nothing was found
        QCOMPARE(Dock()->parentWidget(), window_.get());
        const int beyond = is_full_screen ? 5 : 0; // counted with the window's frame of 2 pixels
        if (is_found)
            QCOMPARE(Dock()->pos(), QPoint(600 + beyond, 150));
        delete Dock();
    }

    void textFromTheRightDocksAtTheLeft()
    {
        QApplication::setLayoutDirection(Qt::RightToLeft);
        Lookout::CBaseWidget window;
        window.setGeometry(200, 150, 700, 500);
        window.show();
        CFrame frame(&window);
        Manager().SetDockWidget(&frame, 300, true);
        const QWidget *const inner = Dock()->findChild<QWidget *>("ptr_dock_widget");
        Slide()->setCurrentTime(150);
        QCOMPARE(Dock()->pos(), QPoint(201, 150));
        QCOMPARE(inner->geometry().right(), Dock()->width() - 1); // its right part comes first
        Finish();
        QCOMPARE(Dock()->geometry(), QRect(201, 150, 300, 458));
        QCOMPARE(inner->x(), 0);
        delete Dock();
    }

    void onlyClicksOutsideHide_data()
    {
        QTest::addColumn<QString>("target");
        QTest::addColumn<bool>("auto_hide");
        QTest::addColumn<bool>("hides");
        QTest::newRow("the main window") << "main" << true << true;
        QTest::newRow("a child of it") << "child" << true << true;
        QTest::newRow("another window") << "other" << true << true;
        QTest::newRow("the panel") << "frame" << true << false;
        QTest::newRow("a field of the panel") << "field" << true << false;
        QTest::newRow("a dialog of the panel") << "dialog" << true << false;
        QTest::newRow("the completions of a field") << "completions" << true << false;
        QTest::newRow("a widget of that name elsewhere") << "ptr_dock_widget" << true << false;
        QTest::newRow("outside a panel that stays") << "main" << false << false;
    }

    void onlyClicksOutsideHide()
    {
        QFETCH(QString, target);
        QFETCH(bool, auto_hide);
        QFETCH(bool, hides);
        QWidget other;
        other.setObjectName("other");
        CFrame frame(window_.get());
        frame.setObjectName("frame");
        frame.SetAutoHide(auto_hide);
        auto *const field = new QLineEdit;
        field->setObjectName("field");
        frame.SetContentWnd(field);
        QDialog dialog(field);
        dialog.setObjectName("dialog");
        auto *const completer = new QCompleter(QStringList("x"), field);
        field->setCompleter(completer);
        completer->popup()->setObjectName("completions");
        for (const char *const name : {"child", "ptr_dock_widget"})
            (new QLineEdit(window_.get()))->setObjectName(name);
        Manager().SetDockWidget(&frame, 300);
        Finish();
        const QWidgetList all = QApplication::allWidgets();
        const auto found = std::find_if(all.begin(), all.end(), [&](const QWidget *widget) {
            return widget->objectName() == target && widget->parentWidget() != Dock();
        });
        QVERIFY(found != all.end());
        // Beyond the dock, wherever the widget is; a panel lets the click through to the dock
        // itself.
        const QPoint place =
            target == "frame" ? QPoint(9, 9) : (*found)->mapFromGlobal(QPoint(110, 110));
        QMouseEvent press(QEvent::MouseButtonDblClick, place, Qt::LeftButton, Qt::LeftButton, {});

        QCoreApplication::sendEvent(*found, &press);
        QCoreApplication::sendEvent(*found, &press); // counts once

        QCOMPARE(guard_.LogLines().filter("]HideInAnimation()").size(), hides ? 1 : 0);
        Finish();
        QCOMPARE(Dock()->isHidden(), hides);
        QCOMPARE(frame.hidden, hides ? 1 : 0);
        GoInactive(); // hides in any case
        QVERIFY(Dock()->isHidden());
        QCOMPARE(guard_.LogLines().filter("app hide. add by vtq.[").size(), hides ? 0 : 1);
        guard_.AnnounceLogLines();
    }

    void aDialogOfThePanelKeepsItInTheBackground_data()
    {
        QTest::addColumn<bool>("is_own");
        QTest::newRow("the panel's dialog") << true;
        QTest::newRow("another dialog") << false;
    }

    void aDialogOfThePanelKeepsItInTheBackground()
    {
        QFETCH(bool, is_own);
        guard_.AnnounceLogLines();
        CFrame frame(window_.get());
        Manager().SetDockWidget(&frame, 300);
        Finish();
        QDialog dialog(is_own ? static_cast<QWidget *>(&frame) : window_.get());
        dialog.open();

        GoInactive();

        QCOMPARE(Dock()->isVisible(), is_own);
        QCOMPARE(
            guard_.LogLines().filter("4 ClientWarningAndMore").filter("app hide.add by").size(),
            is_own ? 0 : 1);
    }

    void aFrameComesBackAlive_data()
    {
        QTest::addColumn<QString>("owner");
        QTest::addColumn<QString>("way");
        for (const char *const owner : {"nobody", "elsewhere", "window", "page"}) {
            for (const char *const way :
                 {"hidden", "twice", "replaced", "by a rule", "dock deleted", "window deleted"})
                QTest::addRow("of %s, %s", owner, way) << owner << way;
        }
    }

    void aFrameComesBackAlive()
    {
        QFETCH(QString, owner);
        QFETCH(QString, way);
        QWidget elsewhere; // of a host that outlives the main window
        auto *const page = new QWidget(window_.get());
        QWidget *const parent = owner == "elsewhere" ? &elsewhere
                                : owner == "window"  ? window_.get()
                                : owner == "page"    ? page
                                                     : nullptr;
        const QPointer<QWidget> home = parent;
        const QPointer<CFrame> frame = new CFrame(parent);
        QWidget *const place = owner == "elsewhere" ? &elsewhere : window_.get();
        CFrame other;
        CRule rule;
        Manager().SetDockWidget(frame, 300);
        QCOMPARE(Dock()->GetParentWidget(), place);
        const QPointer<CDockWidget> first = Dock();

        if (way == "hidden")
            Dock()->hide();
        else if (way == "twice")
            Manager().SetDockWidget(frame, 200);
        else if (way == "replaced")
            Manager().SetDockWidget(&other, 200);
        else if (way == "by a rule")
            Manager().SetDockWidget(&other, QPointer<Vantor::CDockWidgetPosRule>(&rule), 200);
        else if (way == "dock deleted")
            delete Dock();
        else
            window_.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

        QVERIFY(frame);
        QCOMPARE(first.isNull(), way != "hidden" && way != "by a rule");
        if (way == "twice") {
            QVERIFY(frame->isVisible());
            QCOMPARE(Dock()->GetParentWidget(), place);
            delete Dock();
        }
        QCOMPARE(frame->parentWidget(), home.data());
        QVERIFY(frame->isHidden());
        delete frame;
    }

    void aButtonOfThePanelMayReplaceIt()
    {
        CFrame first(window_.get());
        CFrame second(window_.get());
        first.on_hide = [&] {
            guard_.AnnounceLogLines();
            Manager().SetDockWidget(&first, 200); // too late: the second one is on its way
        };
        connect(&first, &CBaseDockFrame::signalConfirm, this,
                [&] { Manager().SetDockWidget(&second, 300); });
        Manager().SetDockWidget(&first, 300);
        Finish();

        Click(first.findChild<QPushButton *>("DockSaveButton"));

        QVERIFY(second.isVisible() && first.isHidden());
        QCOMPARE(guard_.LogLines().filter("Refused").size(), 1);
        QCOMPARE(window_->findChildren<CDockWidget *>().size(), 2); // until the loop runs
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(window_->findChildren<CDockWidget *>().size(), 1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(window_->findChildren<Ravel::CShadowWidget *>().size(), 1);
        second.on_hide = [] { delete Dock(); };
        Dock()->hide();
        QVERIFY(!Dock());
    }

    void aRulePlacesThePanel()
    {
        window_.reset();
        CRule rule;
        CFrame frame;
        Manager().SetDockWidget(&frame, QPointer<Vantor::CDockWidgetPosRule>(), 250);
        Manager().SetDockWidget(&frame, QPointer<Vantor::CDockWidgetPosRule>(&rule), 250);
        QVERIFY(!Dock()); // nowhere to go
        QWidget host;
        rule.setProperty("__dock_frame_attach_to__", QVariant::fromValue<QObject *>(&host));

        Manager().SetDockWidget(&frame, QPointer<Vantor::CDockWidgetPosRule>(&rule), 250);
        const QPointer<CDockWidget> dock = Dock();
        Finish();

        QCOMPARE(Manager().GetMainWindow(), &host);
        QCOMPARE(dock->geometry(), QRect(50, 60, 250, 300));
        QVERIFY(frame.isVisible() && rule.updates > 1);
        CFrame other;
        Manager().SetDockWidget(&other, QPointer<Vantor::CDockWidgetPosRule>(&rule), -1);
        Finish();
        QCOMPARE(Dock(), dock.data()); // the same one
        QCOMPARE(dock->width(), 400);
        QVERIFY(other.isVisible() && !frame.parentWidget());
    }

    void thePanelsButtonsTell()
    {
        CBaseDockFrame frame;
        QSignalSpy confirm(&frame, &CBaseDockFrame::signalConfirm);
        QSignalSpy cancel(&frame, &CBaseDockFrame::signalCancel);
        QSignalSpy reset(&frame, &CBaseDockFrame::signalReset);
        auto *const field = new QLineEdit;
        const QPointer<QWidget> first = new QWidget;
        frame.SetContentWnd(first);
        frame.SetContentWnd(field);
        QVERIFY(first && first->parentWidget() == &frame);
        frame.show();
        frame.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&frame));
        field->setFocus();

        QTest::keyClick(field, Qt::Key_Return);
        QCOMPARE(confirm.size(), 1);
        auto *const save = frame.findChild<QPushButton *>("DockSaveButton");
        frame.SetSaveEnabeld(false);
        QTest::keyClick(field, Qt::Key_Return);
        Click(save);
        QCOMPARE(confirm.size(), 1);
        QTest::keyClick(frame.findChild<QPushButton *>("DockCancelButton"), Qt::Key_Space);
        Click(frame.findChild<QPushButton *>("DockResetButton"));
        QCOMPARE(cancel.size() * 10 + reset.size(), 11);
        frame.SetSaveBtnText("Export");
        QCOMPARE(save->text(), QString("Export"));
        frame.SetSaveBtnText({});
        QCOMPARE(save->text(), QString("Confirm"));
        frame.OnDockHide();
        frame.SetHideEmit(true);
        frame.OnDockHide();
        QCOMPARE(cancel.size(), 2);
    }

    // Whatever a host and its user do in whatever order: the frames live on, in the dock or at
    // home.
    void tenThousandRandomStepsLoseNothing()
    {
        guard_.AnnounceLogLines();
        std::mt19937 dice(20260301);
        QWidget home;
        CRule rule;
        std::vector<QPointer<CFrame>> frames;
        const auto home_of = [&](int i) {
            return i == 0 ? &home : i == 1 ? window_.get() : nullptr;
        };
        for (int i = 0; i < 4; ++i)
            frames.emplace_back(new CFrame(home_of(i)));
        frames[3]->on_hide = [&] { Manager().SetDockWidget(frames[2], 200); };
        frames[2]->SetAutoHide(false);
        for (int step = 0; step < 10000; ++step) {
            CFrame *const frame = frames[dice() % 4];
            switch (dice() % 14) {
            case 0:
            case 1:
            case 2:
                Manager().SetDockWidget(frame, int(dice() % 300) - 1, dice() % 4 == 0);
                break;
            case 3:
                Manager().SetDockWidget(frame, QPointer<Vantor::CDockWidgetPosRule>(&rule), 200);
                break;
            case 4:
                Manager().HideDockWidget();
                break;
            case 5:
                Click(window_.get());
                break;
            case 6:
                Finish();
                break;
            case 7:
                GoInactive();
                break;
            case 8:
                if (Dock())
                    dice() % 2 ? Dock()->ShowInAnimation()
                               : Dock()->SetDockWidget(frame, 100, false);
                break;
            case 9:
                if (dice() % 4 == 0)
                    delete Dock();
                break;
            case 10:
                if (dice() % 8 == 0) {
                    if (frames[1]->window() != Dock()) // else the dock keeps it
                        frames[1]->setParent(nullptr);
                    window_ = std::make_unique<QWidget>();
                    window_->resize(600, 400);
                    window_->show();
                    Manager().SetMainWindow(window_.get());
                }
                break;
            case 11:
                window_->setGeometry(int(dice() % 200), 50, 500 + int(dice() % 200), 300);
                break;
            case 12:
                Manager().SetContentType(CDockManager::ContentType(1 + dice() % 3));
                break;
            default:
                QCoreApplication::processEvents();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            }
            for (int i = 0; i < 4; ++i) {
                QVERIFY2(frames[size_t(i)], qPrintable(QString::number(step)));
                const QWidget *const parent = frames[size_t(i)]->parentWidget();
                const bool is_home = parent == home_of(i) || (i == 1 && !parent);
                QVERIFY(is_home || (Dock() && frames[size_t(i)]->window() == Dock()));
            }
        }
        frames[3]->on_hide = {};
        delete Dock();
        for (const QPointer<CFrame> &frame : frames)
            delete frame;
    }

private:
    CTestGuard guard_;
    std::unique_ptr<QWidget> window_;
};

QTEST_MAIN(TestDock)
#include "tst_dock.moc"
