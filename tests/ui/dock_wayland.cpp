// SPDX-License-Identifier: MIT
// A dock on Wayland, where windows cannot be placed: it has to be a raised child of its window, at
// the place that the rules give it there. tools/check runs this in a headless compositor.
#include "DockTest.h"
#include "support/Widgets.h"

#include <QtWidgets/QMainWindow>

using Vantor::CBaseDockFrame;

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
        CRule rule;
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

        Manager().SetDockWidget(&frame, RulePointer(&rule), 250);
        QTRY_COMPARE(Dock()->width(), 250);
        QCOMPARE(Dock()->geometry(), QRect(50, 60, 250, 300));
        QTest::keyClick(Dock(), Qt::Key_Escape);
        QTRY_VERIFY(Dock()->isHidden());
    }
};

QTEST_MAIN(TestDockWayland)
#include "dock_wayland.moc"
