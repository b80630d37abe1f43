// SPDX-License-Identifier: MIT
#include "pages/DevicesPage.h"
#include "pages/PtzView.h"
#include "support/TestGuard.h"

#include <QtTest/QTest>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>

using namespace Client;

class tst_client_devices : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard_.Begin(); }

    void cleanup()
    {
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void aimStaysWhereACameraCanLook_data()
    {
        QTest::addColumn<int>("operation");
        QTest::addColumn<double>("pan");
        QTest::addColumn<double>("tilt");
        QTest::addColumn<double>("zoom");
        QTest::newRow("right, past the whole circle") << 103 << 240.0 << 0.0 << 1.0;
        QTest::newRow("left, past zero") << 102 << 120.0 << 0.0 << 1.0;
        QTest::newRow("up, to the limit") << 100 << 0.0 << 30.0 << 1.0;
        QTest::newRow("down and right") << 109 << 240.0 << -30.0 << 1.0;
        QTest::newRow("in, to the limit") << 104 << 0.0 << 0.0 << 8.0;
        QTest::newRow("out, from the widest") << 105 << 0.0 << 0.0 << 1.0;
        QTest::newRow("what moves nothing") << 112 << 0.0 << 0.0 << 1.0;
    }

    void aimStaysWhereACameraCanLook()
    {
        QFETCH(const int, operation);
        const CameraAim aim = Moved({}, operation, 63, 10);
        QTEST(aim.pan, "pan");
        QTEST(aim.tilt, "tilt");
        QTEST(aim.zoom, "zoom");
    }

    void keysOnTheScreenMoveThePictureUntilTheyAreLetGo()
    {
        CDevicesPage page;
        page.show();
        QVERIFY(QTest::qWaitForWindowExposed(&page));
        auto *const view = page.findChild<CPtzView *>();
        auto *const right = page.findChild<QPushButton *>("ScreenKey5204");
        auto *const commands = page.findChild<QListWidget *>("DeviceCommands");

        QTest::mousePress(right, Qt::LeftButton);
        QTRY_VERIFY(view->Aim().pan > 0);
        QTest::mouseRelease(right, Qt::LeftButton);
        QTRY_COMPARE(commands->count(), 2);
        const CameraAim stopped = view->Aim();
        view->Control(103, false, 63);
        view->Control(124, false, 0); // a selection on the way
        QTRY_VERIFY(view->Aim().pan > stopped.pan + 0.1);
        view->Control(103, true, 0);
        const CameraAim selected = view->Aim();
        QTest::mouseClick(page.findChild<QPushButton *>("ScreenKey5102"), Qt::LeftButton);
        QTest::mouseClick(page.findChild<QPushButton *>("ScreenKey5210"), Qt::LeftButton);
        QTRY_COMPARE(commands->count(), 4);

        QCOMPARE(view->Aim().pan, selected.pan);
        QCOMPARE(commands->item(3)->text(), QString("103 at speed 24 – windows"));
        QCOMPARE(commands->item(2)->text(), QString("stop of 103 – windows"));
        QCOMPARE(commands->item(1)->text(), QString("104 at speed 0 – camera"));
    }

private:
    CTestGuard guard_;
};

QTEST_MAIN(tst_client_devices)
#include "tst_client_devices.moc"
