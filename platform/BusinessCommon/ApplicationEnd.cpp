// SPDX-License-Identifier: MIT
#include "BusinessCommon/ApplicationEnd.h"

#include "BusinessCommon/AdaptiveColumnWidthManager.h"
#include "BusinessCommon/NetCommManager.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMetaObject>

#include <deque>
#include <mutex>
#include <utility>

namespace BusinessCommon {
namespace {

constexpr int kFinishTime_ms = 800;

enum class Phase { None, Running, Ending };

struct Application
{
    std::mutex mutex;
    Phase phase = Phase::None;               // under the mutex, as are the tasks
    std::deque<std::function<void()>> tasks; // for the GUI thread
};

Application &CurrentApplication()
{
    static auto *const application = new Application; // threads may post until the process ends
    return *application;
}

void SetPhase(Phase phase)
{
    Application &application = CurrentApplication();
    std::deque<std::function<void()>> dropped; // after the lock: they may hold anything
    const std::lock_guard<std::mutex> lock(application.mutex);
    application.phase = phase;
    if (phase != Phase::Running)
        dropped.swap(application.tasks);
}

void OnApplicationEnds()
{
    CAdaptiveColumnWidthManager::FinishWrites(kFinishTime_ms);
    SetPhase(Phase::Ending);
    CNetCommManager::Abort();
    QObject::connect(QCoreApplication::instance(), &QObject::destroyed,
                     [] { SetPhase(Phase::None); });
}

void RunTasks()
{
    Application &application = CurrentApplication();
    std::deque<std::function<void()>> tasks;
    {
        const std::lock_guard<std::mutex> lock(application.mutex);
        tasks.swap(application.tasks);
    }
    for (const auto &task : tasks)
        task();
}

} // namespace

void WatchApplicationEnd()
{
    Application &application = CurrentApplication();
    const std::lock_guard<std::mutex> lock(application.mutex);
    if (application.phase != Phase::None || !QCoreApplication::instance())
        return;
    application.phase = Phase::Running;
    qAddPostRoutine(OnApplicationEnds);
}

void PostToGui(std::function<void()> task)
{
    Application &application = CurrentApplication();
    const std::lock_guard<std::mutex> lock(application.mutex);
    if (application.phase != Phase::Running)
        return;
    application.tasks.push_back(std::move(task));
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [] { RunTasks(); }, Qt::QueuedConnection);
}

} // namespace BusinessCommon
