// SPDX-License-Identifier: MIT
#include "Nim/Base/ScreenWatch.h"

#include "Nim/Base/Log.h"

#include <QtCore/QMetaObject>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

#include <utility>

namespace Nim::Base::MonitorDriveUtil {
namespace {

// Calls the callback for Qt's screens. Lives on the GUI thread; its end ends every connection.
// It has no parent, because it must not end with the application object.
class CWatcher : public QObject // clazy:exclude=ctor-missing-parent-argument
{
public:
    CWatcher(DeviceChangeCallBack callback, void *user_data)
        : callback_(callback), user_data_(user_data)
    {
        const auto screens = QGuiApplication::screens();
        for (QScreen *const screen : screens)
            Follow(screen);
        connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen *screen) {
            Follow(screen);
            Report();
        });
        connect(qGuiApp, &QGuiApplication::screenRemoved, this, &CWatcher::Report);
        connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &CWatcher::Report);
    }

private:
    void Follow(QScreen *screen)
    {
        connect(screen, &QScreen::geometryChanged, this, &CWatcher::Report);
    }

    // Later, once: a primary display that goes first gives up its rank, while Qt still lists it.
    void Report()
    {
        if (std::exchange(is_reporting_, true))
            return;
        QMetaObject::invokeMethod(
            this,
            [this] {
                is_reporting_ = false;
                callback_(QtScreens(), user_data_); // last: it may end the watch
            },
            Qt::QueuedConnection);
    }

    const DeviceChangeCallBack callback_;
    void *const user_data_;
    bool is_reporting_ = false; // a report is on its way
};

// Written and read on the GUI thread only. Left to the operating system, as every object of Qt is.
CWatcher *current_watcher = nullptr;

void Watch(DeviceChangeCallBack callback, void *user_data)
{
    delete std::exchange(current_watcher, nullptr);
    if (callback)
        current_watcher = new CWatcher(callback, user_data);
}

} // namespace

std::vector<DeviceInfoStru> QtScreens()
{
    std::vector<DeviceInfoStru> devices;
    const QScreen *const primary = QGuiApplication::primaryScreen();
    const auto screens = QGuiApplication::screens();
    for (const QScreen *const screen : screens)
        devices.push_back(
            {screen->name(), screen->geometry(), screen == primary, screen->devicePixelRatio()});
    return devices;
}

bool WatchScreens(bool enable, DeviceChangeCallBack callback, void *user_data)
{
    QObject *const application = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    if (!application) {
        Log::WriteFramed("Nim::Base::MonitorDriveUtil::SetDeviceChangeCallBack", __FILE__, __LINE__,
                         Log::kWarning, "ClientWarningAndMore",
                         "No change of the displays will be reported, because there is no "
                         "QGuiApplication yet");
        return false;
    }
    // Directly on the GUI thread, otherwise when it comes round to it.
    return QMetaObject::invokeMethod(
        application, [=] { Watch(enable ? callback : nullptr, user_data); }, Qt::AutoConnection);
}

} // namespace Nim::Base::MonitorDriveUtil
