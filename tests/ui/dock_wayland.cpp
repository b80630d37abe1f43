// SPDX-License-Identifier: MIT
// A dock on Wayland, where windows cannot be placed: it has to be a raised child of its window, at
// the place that the rules give it there. tools/check runs this in a headless compositor.
#include "DockTest.h"
#include "support/Widgets.h"

#include <Vantor/CDockWidgetPosRule>

#include <QtWidgets/QMainWindow>

using Vantor::CBaseDockFrame;

namespace {

struct CWindowRule : Vantor::CDockWidgetPosRule
{
    QWidget *window = nullptr;

    void Place(Vantor::CDockWidget *dock, Vantor::CAbstractDockFrame *, QWidget *inner,
               int width) override
    {
        dock->setGeometry(QRect(window->mapToGlobal({30, 40}), QSize(0, 200)));
        inner->resize(width, 200);
    }
};

} // namespace

class TestDockWayland : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void thePanelIsARaisedChildOfItsWindow()
    {
        guard_.AnnounceLogLines();
        guard_.AnnounceWarnings({}); // the platform's own
        QVERIFY(QGuiApplication::platformName().startsWith("wayland"));
        QMainWindow window;
        window.resize(800, 600);
        window.setCentralWidget(new QLineEdit);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        Manager().SetMainWindow(&window);
        CBaseDockFrame frame(&window);
        CWindowRule rule;
        rule.window = &window;

        Manager().SetDockWidget(&frame, 300);
        QTRY_COMPARE(Dock()->width(), 300);
        const QRect place(800 - 1 - 300 - 1, 41, 300, 558);
        QCOMPARE(Dock()->geometry(), place);
        QVERIFY(!Dock()->isWindow() && Dock()->parentWidget() == &window);
        QCOMPARE(window.childAt(place.center())->window(), &window);
        QVERIFY(Dock()->isAncestorOf(window.childAt(place.center())));
        window.resize(700, 600);
        QTRY_COMPARE(Dock()->geometry(), place.translated(-100, 0));
        window.hide();
        QVERIFY(!Dock()->isVisible() && frame.window() == &window);
        window.show();
        QVERIFY(Dock()->isVisible() && frame.isVisible());
        QTest::mouseClick(window.centralWidget(), Qt::LeftButton);
        QTRY_VERIFY(Dock()->isHidden());
        QCOMPARE(frame.parentWidget(), &window);

        Manager().SetDockWidget(&frame, QPointer<Vantor::CDockWidgetPosRule>(&rule), 250);
        QTRY_COMPARE(Dock()->width(), 250);
        QCOMPARE(Dock()->geometry(), QRect(30, 40, 250, 200));
        QTest::keyClick(Dock(), Qt::Key_Escape);
        QTRY_VERIFY(Dock()->isHidden());
    }
};

QTEST_MAIN(TestDockWayland)
#include "dock_wayland.moc"
