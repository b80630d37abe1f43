// SPDX-License-Identifier: MIT
#include "BusinessCommon/ApplicationEnd.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QMetaObject>

#include <array>
#include <deque>
#include <mutex>
#include <utility>

namespace BusinessCommon {
namespace {

constexpr size_t kSteps = 2;

enum class Phase { None, Running, Ending };

struct Application
{
    std::mutex mutex;
    Phase phase = Phase::None;                // under the mutex, as are the tasks
    std::deque<std::function<void()>> tasks;  // for the GUI thread
    std::array<void (*)(), kSteps> actions{}; // by step; may be null
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

void Take(EndStep step)
{
    Application &application = CurrentApplication();
    void (*action)() = nullptr;
    {
        const std::lock_guard<std::mutex> lock(application.mutex);
        action = application.actions.at(static_cast<size_t>(step));
    }
    if (action)
        action();
}

void OnApplicationEnds()
{
    Take(EndStep::FinishWrites);
    SetPhase(Phase::Ending);
    Take(EndStep::BreakOff);
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

void AtApplicationEnd(EndStep step, void (*action)())
{
    Application &application = CurrentApplication();
    const std::lock_guard<std::mutex> lock(application.mutex);
    application.actions.at(static_cast<size_t>(step)) = action;
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
