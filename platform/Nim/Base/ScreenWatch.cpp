// SPDX-License-Identifier: MIT
#include "Nim/Base/ScreenWatch.h"

#include <QtCore/QMetaObject>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>

namespace Nim::Base::MonitorDriveUtil {
namespace {

struct Watcher
{
    QObject *context = nullptr; // lives on the GUI thread; its end ends every connection
};

// Written and read on the GUI thread only. Left to the operating system, as every object of Qt is.
Watcher &CurrentWatcher()
{
    static auto *const watcher = new Watcher;
    return *watcher;
}

void Watch(DeviceChangeCallBack callback, void *user_data)
{
    Watcher &watcher = CurrentWatcher();
    delete watcher.context;
    watcher.context = nullptr;
    if (!callback)
        return;
    auto *const context = new QObject;
    watcher.context = context;
    const auto tell = [callback, user_data] { callback(PresentScreens(), user_data); };
    const auto follow = [context, tell](QScreen *screen) {
        QObject::connect(screen, &QScreen::geometryChanged, context, tell);
    };
    const auto screens = QGuiApplication::screens();
    for (QScreen *const screen : screens)
        follow(screen);
    QObject::connect(qGuiApp, &QGuiApplication::screenAdded, context,
                     [follow, tell](QScreen *screen) {
                         follow(screen);
                         tell();
                     });
    QObject::connect(qGuiApp, &QGuiApplication::screenRemoved, context, tell);
    QObject::connect(qGuiApp, &QGuiApplication::primaryScreenChanged, context, tell);
}

} // namespace

std::vector<DeviceInfoStru> PresentScreens()
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
    if (!application)
        return false;
    // Directly on the GUI thread, otherwise when it comes round to it.
    return QMetaObject::invokeMethod(
        application, [=] { Watch(enable ? callback : nullptr, user_data); }, Qt::AutoConnection);
}

} // namespace Nim::Base::MonitorDriveUtil
