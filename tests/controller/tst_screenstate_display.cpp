// SPDX-License-Identifier: MIT
#include "support/Widgets.h"

#include <Nim/Base/MonitorDriveUtil.h>

namespace MonitorDriveUtil = Nim::Base::MonitorDriveUtil;

// Runs on an X display of its own, whose size it changes.
class tst_screenstate_display : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void displayThatChangesItsSizeIsReportedUntilItIsNotWatched()
    {
        std::vector<MonitorDriveUtil::DeviceInfoStru> seen;
        QVERIFY(MonitorDriveUtil::SetDeviceChangeCallBack(
            true,
            [](std::vector<MonitorDriveUtil::DeviceInfoStru> devices, void *user_data) {
                *static_cast<decltype(seen) *>(user_data) = std::move(devices);
            },
            &seen));
        QVERIFY(QGuiApplication::primaryScreen()->size() != QSize(800, 600));

        QCOMPARE(QProcess::execute("xrandr", {"-s", "800x600"}), 0);

        QTRY_VERIFY(seen.size() == 1 && seen.front().geometry.size() == QSize(800, 600));
        QVERIFY(seen.front().is_primary);
        QCOMPARE(seen.front().name, QGuiApplication::primaryScreen()->name());

        QVERIFY(MonitorDriveUtil::SetDeviceChangeCallBack(false, nullptr, nullptr));
        seen.clear();
        QCOMPARE(QProcess::execute("xrandr", {"-s", "640x480"}), 0);
        QTRY_COMPARE(QGuiApplication::primaryScreen()->size(), QSize(640, 480));
        QVERIFY(seen.empty());
    }
};

QTEST_MAIN(tst_screenstate_display)
#include "tst_screenstate_display.moc"
