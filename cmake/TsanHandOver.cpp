// SPDX-License-Identifier: MIT
// Debian's Qt is not built with ThreadSanitizer, so the sanitizer does not see its locks. Data
// under a QMutex, a task for the thread pool and an event for another thread look like races.
// Linked into the tests, these functions replace Qt's for our libraries: they annotate the
// hand-over, then call Qt's own. Nothing in our code is suppressed.
#include <dlfcn.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QFutureInterface>
#include <QtCore/QMutex>
#include <QtCore/QThread>
#include <QtCore/QThreadPool>

extern "C" {
void __tsan_acquire(
    void *address); // NOLINT(bugprone-reserved-identifier): the sanitizer's own names
void __tsan_release(void *address); // NOLINT(bugprone-reserved-identifier)
__attribute__((visibility("default"))) int vantor_tsan_hand_over = 0;

// Qt posts the events of a future inside its own library, out of reach of the functions below.
// When the watcher is deleted before they arrive, Qt deletes them.
__attribute__((visibility("default"))) const char *
__tsan_default_suppressions() // NOLINT(bugprone-reserved-identifier)
{
    return "race:QCoreApplication::removePostedEvents\n";
}
}

namespace {

int task_started; // addresses to synchronise on
int task_finished;

template <class Function> Function Next(const char *symbol)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, symbol));
}

} // namespace

#define VANTOR_SEEN __attribute__((visibility("default")))

VANTOR_SEEN void QThreadPool::start(QRunnable *task, int priority)
{
    static const auto next =
        Next<void (*)(QThreadPool *, QRunnable *, int)>("_ZN11QThreadPool5startEP9QRunnablei");
    __tsan_release(&task_started);
    next(this, task, priority);
}

VANTOR_SEEN bool QFutureInterfaceBase::isCanceled() const
{
    static const auto next =
        Next<bool (*)(const QFutureInterfaceBase *)>("_ZNK20QFutureInterfaceBase10isCanceledEv");
    __tsan_acquire(&task_started);
    return next(this);
}

VANTOR_SEEN void QFutureInterfaceBase::reportFinished()
{
    static const auto next =
        Next<void (*)(QFutureInterfaceBase *)>("_ZN20QFutureInterfaceBase14reportFinishedEv");
    __tsan_release(&task_finished);
    next(this);
}

VANTOR_SEEN void QFutureInterfaceBase::waitForFinished()
{
    static const auto next =
        Next<void (*)(QFutureInterfaceBase *)>("_ZN20QFutureInterfaceBase15waitForFinishedEv");
    next(this);
    __tsan_acquire(&task_finished);
}

// The results belong to the last owner, the task or a future on another thread.
VANTOR_SEEN bool QFutureInterfaceBase::derefT() const
{
    static const auto next =
        Next<bool (*)(const QFutureInterfaceBase *)>("_ZNK20QFutureInterfaceBase6derefTEv");
    __tsan_release(&task_finished);
    const bool is_shared = next(this);
    __tsan_acquire(&task_finished);
    return is_shared;
}

VANTOR_SEEN void QMutex::lock() QT_MUTEX_LOCK_NOEXCEPT
{
    static const auto next = Next<void (*)(QMutex *)>("_ZN6QMutex4lockEv");
    next(this);
    __tsan_acquire(this);
}

VANTOR_SEEN void QMutex::unlock() noexcept
{
    static const auto next = Next<void (*)(QMutex *)>("_ZN6QMutex6unlockEv");
    __tsan_release(this);
    next(this);
}

VANTOR_SEEN void QThread::start(Priority priority)
{
    static const auto next = Next<void (*)(QThread *, Priority)>("_ZN7QThread5startENS_8PriorityE");
    // Runs on the thread itself, as its last step.
    connect(
        this, &QThread::finished, this, [this] { __tsan_release(this); }, Qt::DirectConnection);
    next(this, priority);
}

VANTOR_SEEN bool QThread::wait(QDeadlineTimer deadline)
{
    static const auto next =
        Next<bool (*)(QThread *, QDeadlineTimer)>("_ZN7QThread4waitE14QDeadlineTimer");
    const bool has_ended = next(this, deadline);
    __tsan_acquire(this);
    return has_ended;
}

VANTOR_SEEN void QCoreApplication::postEvent(QObject *receiver, QEvent *event, int priority)
{
    static const auto next = Next<void (*)(QObject *, QEvent *, int)>(
        "_ZN16QCoreApplication9postEventEP7QObjectP6QEventi");
    __tsan_release(event);
    next(receiver, event, priority);
}

namespace {

// Sees every event of the GUI thread before its receiver does.
class CEventArrival : public QObject
{
public:
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        __tsan_acquire(event);
        return false;
    }
};

void WatchArrivals()
{
    QCoreApplication *const application = QCoreApplication::instance();
    auto *const arrival = new CEventArrival;
    arrival->setParent(application);
    application->installEventFilter(arrival);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(WatchArrivals)
