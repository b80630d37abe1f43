// SPDX-License-Identifier: MIT
#include "DockTest.h"
#include "support/Widgets.h"
#include "ui/DockManager/DockPosition.h"

#include <Faceplate/GUIFullScreenWidget.h>
#include <Lookout/BaseWidget.h>
#include <Ravel/ShadowWidget.h>

#include <QtCore/QPropertyAnimation>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QShortcut>

#include <initializer_list>

using namespace Vantor;

namespace {

// The slide that is running; Qt deletes those before it when the event loop runs.
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

void RunDeferredDeletes()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
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

    std::function<void()> on_hide = [] {};
    int hidden = 0;

    void OnDockHide() override
    {
        ++hidden;
        on_hide();
        CBaseDockFrame::OnDockHide();
    }
};

// trace (that the log shows), is_found
const Rows<QString, bool> kTraceRows = {
    {"a plain window", "frame--top", false},
    {"a plug-in's window", "frame--plugin", true},
    {"a window that fills the screen", "frame", true},
    {"a dialog of a plug-in's window", "frame--dialog--plugin", true},
};

// clicked, auto_hide, hides
const Rows<const char *, bool, bool> kTargetRows = {
    {"the window", "main", true, true},
    {"a menu of the window", "stranger", true, true},
    {"the panel itself", "frame", true, false},
    {"a menu without parent that the panel opened", "menu", true, false},
    {"a widget elsewhere", "ptr_dock_widget", true, false},
    {"outside a panel that stays", "main", false, false},
};

const QPoint kTopLeft(100, 50);
const QPoint kBottomRight(1099, 749);
constexpr auto kLeft = Qt::LeftToRight;
constexpr auto kRight = Qt::RightToLeft;

// situation, expected (null: the dock is left alone)
const Rows<Vantor::DockSituation, QPoint> kCornerRows = {
    {"window found", {kTopLeft, kBottomRight, 400, true, 1, kLeft}, {700, 50}},
    {"window found, first step of the slide",
     {kTopLeft, kBottomRight, 0, true, 1, kLeft},
     {1100, 50}},
    {"window found, text from the right",
     {kTopLeft, kBottomRight, 400, true, 1, kRight},
     {101, 50}},
    {"export, below the title bar", {kTopLeft, kBottomRight, 400, true, 2, kLeft}, {700, 91}},
    {"content of another type", {kTopLeft, kBottomRight, 400, true, 3, kLeft}, {}},
    {"not looked for", {kTopLeft, kBottomRight, 400, false, 1, kLeft}, {698, 91}},
    {"not looked for, from the right", {kTopLeft, kBottomRight, 400, false, 3, kRight}, {698, 91}},
    {"at the left", {{-1920, 0}, {-1, 1079}, 400, true, 1, kLeft}, {-400, 0}},
};

} // namespace

class TestDock : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        window_ = std::make_unique<QWidget>();
        window_->setObjectName("main");
        window_->setGeometry(100, 100, 900, 600);
        window_->show();
        Manager().SetMainWindow(window_.get());
        Manager().SetContentType(CDockManager::Common);
    }

    void TearDown() override
    {
        window_.reset();
        QApplication::setLayoutDirection(Qt::LeftToRight);
        Faceplate::SetFullScreenModeSource(nullptr);
        RunDeferredDeletes();
    }

    std::unique_ptr<QWidget> window_;
    CRule rule_;

private Q_SLOTS:
    void theCornerFollowsFromTheSituation_data() { AddRows(kCornerRows); }

    void theCornerFollowsFromTheSituation()
    {
        const auto &[name, situation, expected] = FetchRow(kCornerRows);
        QCOMPARE(Vantor::DockPosition(situation).value_or(QPoint()), expected);
    }

    void aPanelSlidesInAndOut()
    {
        CFrame frame(window_.get());
        Manager().SetDockWidget(&frame, -1);
        const QWidget *const inner = Dock()->findChild<QWidget *>("ptr_dock_widget");
        const int right = window_->mapToGlobal(window_->rect().bottomRight()).x() - 2;
        QCOMPARE(Dock()->windowFlags(),
                 Qt::WindowFlags(Qt::FramelessWindowHint | Qt::Dialog | Qt::WindowStaysOnTopHint));
        for (int time = 0; time < 300; time += 10) {
            Slide()->setCurrentTime(time);
            QCOMPARE(Dock()->geometry().right(), right);
            QCOMPARE(inner->size(), QSize(400, 558)); // nothing is squeezed
            Click(window_.get());                     // too early to count
        }
        Finish();

        QCOMPARE(Dock()->geometry(), QRect(QPoint(right - 399, 141), QSize(400, 558)));
        QVERIFY(frame.height() >= 540); // all the room but the spacer's
        QTRY_COMPARE(QApplication::focusWidget(), Dock());
        const auto *const shadow = window_->findChild<Ravel::CShadowWidget *>();
        QVERIFY(shadow && shadow->isVisible());
        QTest::keyClick(Dock(), Qt::Key_Escape, Qt::ControlModifier);
        QVERIFY(!Slide());
        QTest::keyClick(Dock(), Qt::Key_Escape);
        QVERIFY(Slide() && Dock()->isVisible());
        Finish();
        QVERIFY(Dock()->isHidden() && shadow->isHidden());
    }

    void theWindowIsLookedFor_data() { AddRows(kTraceRows); }

    void theWindowIsLookedFor()
    {
        const auto &[name, trace, is_found] = FetchRow(kTraceRows);
        Lookout::CBaseWidget plugin;
        Faceplate::CGUIFullScreenWidget full;
        Faceplate::SetFullScreenModeSource(
            [is_full = trace == "frame"](const QWidget *) { return is_full; });
        QWidget *const top = trace.endsWith("plugin") ? static_cast<QWidget *>(&plugin) : &full;
        top->setObjectName(trace.section("--", -1));
        top->setGeometry(200, 150, 700, 500);
        top->show();
        QDialog dialog(top);
        dialog.setObjectName("dialog");
        CFrame frame(trace.contains("dialog") ? &dialog : top);
        frame.setObjectName("frame");

        Manager().SetDockWidget(&frame, 300, true, window_.get());
        Finish();

        QCOMPARE(guard_.LogLines().filter("DockWidget:parent widgets:" + trace + "[").size(), 1);
        QCOMPARE(Dock()->GetParentWidget(), is_found ? top : nullptr);
        QCOMPARE(frame.window() == Dock(), is_found);
        QVERIFY(Dock()->isVisible() && Dock()->parentWidget() == window_.get()); // even if empty
        // A window that fills the screen is measured with the frame around it.
        const int beyond = top->frameGeometry().width() - top->width() + 1;
        if (is_found)
            QCOMPARE(Dock()->pos(), QPoint(trace == "frame" ? 600 + beyond : 600, 150));
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

    void onlyClicksOutsideHide_data() { AddRows(kTargetRows); }

    void onlyClicksOutsideHide()
    {
        const auto &[name, clicked, auto_hide, hides] = FetchRow(kTargetRows);
        CFrame frame(window_.get());
        frame.setObjectName("frame");
        frame.SetAutoHide(auto_hide);
        QWidget elsewhere;
        elsewhere.setObjectName("ptr_dock_widget");
        Manager().SetDockWidget(&frame, 300);
        Finish();
        QMenu stranger;
        stranger.setObjectName("stranger");
        QMenu menu;
        menu.setObjectName("menu");
        for (QMenu *const opened : {&stranger, &menu}) {
            QWidget *const opener = opened == &menu ? Dock() : window_.get();
            opener->activateWindow();
            QTRY_VERIFY(opener->isActiveWindow());
            opened->popup({100, 100});
            opened->hide();
        }
        QWidget *target = nullptr;
        for (QWidget *const widget :
             std::initializer_list<QWidget *>{window_.get(), &stranger, &menu, &frame, &elsewhere})
            target = widget->objectName() == clicked ? widget : target;
        // A point beyond the dock, wherever the widget is.
        QMouseEvent press(QEvent::MouseButtonDblClick, target->mapFromGlobal(QPoint(110, 110)),
                          Qt::LeftButton, Qt::LeftButton, {});

        QCoreApplication::sendEvent(target, &press);
        QCoreApplication::sendEvent(target, &press); // counts once

        QCOMPARE(guard_.LogLines().filter("]HideInAnimation()").size(), hides ? 1 : 0);
        Finish();
        QCOMPARE(frame.hidden, hides ? 1 : 0);
        GoInactive(); // hides in any case
        QVERIFY(Dock()->isHidden());
        QCOMPARE(guard_.LogLines().filter("app hide. add by vtq.[").size(), hides ? 0 : 1);
        guard_.AnnounceLogLines();
    }

    void aDialogOfThePanelKeepsItInTheBackground_data()
    {
        AddRows<Row<>>({{"frame"}, {"main"}, {"none"}});
    }

    void aDialogOfThePanelKeepsItInTheBackground()
    {
        const QString owner = QTest::currentDataTag();
        guard_.AnnounceLogLines();
        CFrame frame(window_.get());
        Manager().SetDockWidget(&frame, 300);
        Finish();
        QTRY_COMPARE(QApplication::focusWidget(), Dock());
        QDialog dialog(owner == "none"   ? nullptr // the panel opened it
                       : owner == "main" ? window_.get()
                                         : &frame);
        dialog.setModal(true);
        dialog.show();
        GoInactive();
        QCOMPARE(Dock()->isVisible(), owner != "main");
        QCOMPARE(guard_.LogLines().filter("app hide.add by vtq.").size(), owner == "main" ? 1 : 0);
    }

    void aModalDialogOwnsTheDockOfItsFrame()
    {
        CFrame frame(window_.get());
        Manager().SetDockWidget(&frame, RulePointer(&rule_), 200);
        QDialog dialog(window_.get());
        dialog.setModal(true);
        dialog.resize(400, 400);
        dialog.show();
        CFrame inside(&dialog);
        Manager().SetDockWidget(&inside, RulePointer(&rule_), 200);
        QCOMPARE(Dock()->parentWidget(), &dialog);
        Manager().SetDockWidget(&inside, 200);
        Finish();
        QCoreApplication::processEvents(); // lays out the panel
        QSignalSpy confirmed(&inside, &CBaseDockFrame::signalConfirm);
        const auto *const button = inside.findChild<QPushButton *>("DockSaveButton");
        QTest::mouseClick(Dock()->windowHandle(), Qt::LeftButton, {},
                          button->mapTo(Dock(), {5, 5}));
        QCOMPARE(confirmed.size(), 1);
    }

    void thePanelGoesAndComesWithItsWindow()
    {
        CFrame frame(window_.get());
        Manager().SetDockWidget(&frame, RulePointer(&rule_), 300);
        for (const auto go : {&QWidget::hide, &QWidget::showMinimized}) {
            (window_.get()->*go)(); // in the slide, then in place
            QVERIFY(!Dock()->isVisible() && frame.window() == Dock() && frame.hidden == 0);
            GoInactive(); // as every platform reports when the last window is gone
            window_->showNormal();
            QTRY_VERIFY(Dock()->isVisible() && frame.isVisible());
            QCOMPARE(Dock()->geometry(), QRect(50, 60, 300, 300));
        }
        window_->hide();
        Manager().HideDockWidget(); // without a slide
        QCOMPARE(frame.hidden, 1);
        Manager().SetDockWidget(&frame, 300);
        QVERIFY(!Dock()->isVisible());
        window_->show();
        QTRY_VERIFY(Dock()->isVisible());
        Click(window_.get());
        QVERIFY(Slide()); // clicks outside count again
        window_->hide();
        window_->show();
        Manager().SetDockWidget(&frame, RulePointer(&rule_), 300);
        QCoreApplication::processEvents();
        QVERIFY(Dock()->isVisible() && frame.window() == Dock());
        Finish();
        Manager().HideDockWidget(); // it is leaving, so it does not come back
        window_->hide();
        window_->show();
        QTRY_VERIFY(frame.parentWidget() == window_.get() && Dock()->isHidden());
    }

    void unusedKeysAreTheWindows()
    {
        QAction action;
        action.setShortcut(Qt::CTRL | Qt::Key_J);
        action.setEnabled(false);
        window_->addAction(&action);
        QShortcut shortcut(Qt::CTRL | Qt::Key_F, window_.get());
        QSignalSpy triggered(&action, &QAction::triggered);
        QSignalSpy activated(&shortcut, &QShortcut::activated);
        CFrame frame(window_.get());
        auto *const field = new QLineEdit;
        frame.SetContentWnd(field);
        Manager().SetDockWidget(&frame, 300);
        Finish();
        QTRY_VERIFY(Dock()->isActiveWindow());

        QTest::keyClick(field, Qt::Key_J, Qt::ControlModifier); // disabled
        action.setEnabled(true);
        connect(&action, &QAction::triggered, this, [] { delete Dock(); });
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier); // the field's own
        QTest::keyClick(field, Qt::Key_F, Qt::ControlModifier);
        QTRY_VERIFY(window_->isActiveWindow());
        QTest::keyClick(Dock(), Qt::Key_J, Qt::ControlModifier);
        QCOMPARE(triggered.size() * 10 + activated.size(), 11);
        QVERIFY(!Dock());
    }

    void aFrameLivesAsLongAsItsParent_data()
    {
        QTest::addColumn<QString>("owner");
        QTest::addColumn<QString>("way");
        for (const char *const owner : {"no parent", "elsewhere", "window", "page"}) {
            for (const char *const way :
                 {"hidden", "twice", "replaced", "dock deleted", "window deleted", "home deleted",
                  "dock deleted by the dying window", "taken by another dock"})
                QTest::addRow("of %s, %s", owner, way) << owner << way;
        }
    }

    void aFrameLivesAsLongAsItsParent()
    {
        QFETCH(QString, owner);
        QFETCH(QString, way);
        const QPointer<QWidget> elsewhere = new QWidget; // of a host that outlives the main window
        const QPointer<QWidget> home = owner == "elsewhere" ? elsewhere.data()
                                       : owner == "window"  ? window_.get()
                                       : owner == "page"    ? new QWidget(window_.get())
                                                            : nullptr;
        const QPointer<CFrame> frame = new CFrame(home);
        if (!home)
            frame->setWindowFlags(Qt::Tool);
        CFrame other;
        Manager().SetDockWidget(frame, 300);
        QCOMPARE(Dock()->GetParentWidget(),
                 owner == "elsewhere" ? elsewhere.data() : window_.get());

        connect(window_.get(), &QObject::destroyed, this,
                [way] { way.endsWith("dying window") ? delete Dock() : void(); });
        CDockWidget another;

        if (way == "hidden")
            Dock()->hide();
        else if (way == "taken by another dock")
            another.SetDockWidget(frame, 100, false);
        else if (way == "twice" || way == "replaced")
            Manager().SetDockWidget(way == "twice" ? frame.data() : &other, 200);
        else if (way == "dock deleted")
            delete Dock();
        else if (way == "home deleted" && owner != "window")
            delete home.data();
        else
            window_.reset();
        QCoreApplication::processEvents();
        RunDeferredDeletes();

        QCOMPARE(frame.isNull(), owner != "no parent" && home.isNull());
        if (frame.isNull())
            QVERIFY(!Dock() || Dock()->isHidden()); // never an empty panel
        else if (frame->window() == &another)
            QVERIFY(Dock()->isHidden());
        else if (frame->window() == Dock())
            QVERIFY(frame->isVisible());
        else
            QVERIFY(frame->isHidden() && frame->parentWidget() == home
                    && (home || frame->windowType() == Qt::Tool));
        delete Dock();
        delete frame;
        delete elsewhere;
    }

    void aButtonOfThePanelMayReplaceIt()
    {
        CFrame first(window_.get());
        CFrame second(window_.get());
        first.on_hide = [&] {
            guard_.AnnounceLogLines();
            Manager().SetDockWidget(&first, 200); // refused: the second one is being shown
        };
        connect(&first, &CBaseDockFrame::signalConfirm, this,
                [&] { Manager().SetDockWidget(&second, 300); });
        Manager().SetDockWidget(&first, 300);
        Finish();

        Click(first.findChild<QPushButton *>("DockSaveButton"));

        QVERIFY(second.isVisible() && first.isHidden());
        window_->findChildren<CDockWidget *>().constFirst()->SetDockWidget(&first, 100, false);
        QCOMPARE(first.parentWidget(), window_.get()); // a retired dock takes no frame
        QCOMPARE(guard_.LogLines().filter("Refused").size(), 1);
        RunDeferredDeletes();
        RunDeferredDeletes();
        QCOMPARE(window_->findChildren<Ravel::CShadowWidget *>().size(), 1);
        second.on_hide = [] { delete Dock(); };
        Dock()->hide();
        QVERIFY(!Dock());
    }

    void aRulePlacesThePanel()
    {
        window_.reset();
        CFrame frame;
        Manager().SetDockWidget(&frame, RulePointer(&rule_), 250);
        QVERIFY(!Dock()); // there is no window
        QWidget host;
        rule_.setProperty("__dock_frame_attach_to__", QVariant::fromValue<QObject *>(&host));
        Manager().SetDockWidget(&frame, RulePointer(&rule_), 250);
        const QPointer<CDockWidget> dock = Dock();
        Finish();
        QCOMPARE(Manager().GetMainWindow(), &host);
        QCOMPARE(dock->geometry(), QRect(50, 60, 250, 300));
        QVERIFY(frame.isVisible() && rule_.updates > 1);
        CFrame other;
        Manager().SetDockWidget(&other, RulePointer(&rule_), -1);
        Finish();
        QCOMPARE(Dock(), dock.data()); // the same one
        QCOMPARE(dock->width(), 400);
        dock->hide();
        dock->SetDockWidget(&other, 100, false);
        QVERIFY(dock->pos() != QPoint(50, 60)); // the rule is forgotten
        const int updates = rule_.updates;
        dock->ShowInAnimation();
        Finish();
        QCOMPARE(rule_.updates, updates);
    }

    void thePanelsButtonsEmitAndTabEndsAtThem()
    {
        CBaseDockFrame frame;
        QSignalSpy confirm(&frame, &CBaseDockFrame::signalConfirm);
        QSignalSpy cancel(&frame, &CBaseDockFrame::signalCancel);
        QSignalSpy reset(&frame, &CBaseDockFrame::signalReset);
        auto *const content = new QWidget;
        auto *const field = new QLineEdit(content);
        const QPointer<QWidget> first = new QWidget;
        frame.SetContentWnd(first);
        frame.SetContentWnd(content);
        QVERIFY(first);
        frame.show();
        frame.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&frame));
        field->setFocus();
        (new QLineEdit(content))->show();
        QString order;
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            order += QApplication::focusWidget()->objectName() + ' ';
        }
        QCOMPARE(order, QString(" DockResetButton DockCancelButton DockSaveButton "));

        QTest::keyClick(field, Qt::Key_Return);
        frame.SetSaveEnabeld(false);
        QTest::keyClick(field, Qt::Key_Return);
        frame.findChild<QPushButton *>("DockCancelButton")->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        Click(frame.findChild<QPushButton *>("DockResetButton"));
        frame.OnDockHide();
        frame.SetHideEmit(true);
        frame.OnDockHide();
        QCOMPARE(confirm.size() * 100 + cancel.size() * 10 + reset.size(), 121);
    }

    // Whatever hosts and users do in whatever order: a frame is in the dock or at home, and only
    // its parent takes it along.
    void tenThousandRandomStepsLoseNothing()
    {
        guard_.AnnounceLogLines();
        std::mt19937 dice(20260301);
        QWidget home;
        const std::array<QPointer<CFrame>, 4> frames{new CFrame(&home), new CFrame(&home),
                                                     new CFrame, new CFrame};
        QPointer<CFrame> mortal;
        frames[3]->on_hide = [&] { Manager().SetDockWidget(frames[2], 200); };
        frames[2]->SetAutoHide(false);
        const std::vector<std::function<void(CFrame *)>> steps{
            [&](CFrame *frame) {
                Manager().SetDockWidget(frame, int(dice() % 300) - 1, dice() % 4 == 0);
            },
            [&](CFrame *frame) { Manager().SetDockWidget(frame, 200); },
            [&](CFrame *frame) { Manager().SetDockWidget(frame, RulePointer(&rule_), 200); },
            [](CFrame *) { Manager().HideDockWidget(); },
            [&](CFrame *) { Click(window_.get()); },
            [](CFrame *) { Finish(); },
            [](CFrame *) { GoInactive(); },
            [](CFrame *) { Dock() ? Dock()->ShowInAnimation() : void(); },
            [](CFrame *frame) { Dock() ? Dock()->SetDockWidget(frame, 100, false) : void(); },
            [&](CFrame *) { dice() % 4 == 0 ? delete Dock() : void(); },
            [&](CFrame *) { window_->setVisible(dice() % 2 == 0); },
            [&](CFrame *) { window_->setGeometry(int(dice() % 200), 50, 500, 300); },
            [&](CFrame *) { Manager().SetContentType(CDockManager::ContentType(1 + dice() % 3)); },
            [&](CFrame *) {
                if (!mortal)
                    mortal = new CFrame(new QWidget(window_.get()));
                Manager().SetDockWidget(mortal, 200);
            },
            [&](CFrame *) {
                if (dice() % 8 != 0)
                    return;
                window_.reset();
                QVERIFY(!mortal);
                SetUp();
            },
            [](CFrame *) {
                QCoreApplication::processEvents();
                RunDeferredDeletes();
            }};
        for (int step = 0; step < 10000; ++step) {
            steps[dice() % steps.size()](frames[dice() % 4]);
            for (size_t i = 0; i < frames.size(); ++i) {
                QVERIFY2(frames[i], qPrintable(QString::number(step)));
                QVERIFY(frames[i]->parentWidget() == (i < 2 ? &home : nullptr)
                        || (Dock() && frames[i]->window() == Dock()));
            }
            QVERIFY(!Dock() || !Dock()->isVisible() || window_->isVisible()
                    || Dock()->GetParentWidget() != window_.get());
        }
        frames[3]->on_hide = [] {};
        delete Dock();
        delete frames[2];
        delete frames[3];
    }
};

QTEST_MAIN(TestDock)
#include "tst_dock.moc"
