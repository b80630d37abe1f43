// SPDX-License-Identifier: MIT
#include "support/Test.h"

#include <Vantor/CCustomEvent>
#include <Vantor/CEventTransMgr>
#include <Vantor/CUpdateEvent>

using namespace Vantor;

namespace {

constexpr int kThreads = 8;
constexpr int kPosts = 10000;

CEventTransMgr &Manager()
{
    return Nim::Base::CSingleton<CEventTransMgr>::Instance();
}

// Watches the manager as receivers do.
class CReceiver : public QObject
{
public:
    using Handler = std::function<bool(QEvent &)>;

    explicit CReceiver(Handler handler) : handler_(std::move(handler))
    {
        Manager().installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        return watched == &Manager() && event->type() >= QEvent::User && handler_(*event);
    }

private:
    Handler handler_;
};

} // namespace

class TestEvents : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Manager(); }

    void copiesAreIndependentAndKeepTheirType()
    {
        CCustomEvent first(1234);
        first.InsertPairData("row", 7);
        CCustomEvent copy(first);
        CCustomEvent assigned;
        assigned = first;
        first.InsertPairData("row", 8);

        for (const CCustomEvent *const event : {&copy, &assigned}) {
            QCOMPARE(int(event->type()), 1234);
            QCOMPARE(event->GetPairData("row"), QVariant(7));
        }
        QCOMPARE(int(CUpdateEvent(5).type()), 1005);
        QCOMPARE(int(CCustomEvent(70000).type()), 4464); // Qt keeps 16 bits
    }

    void lastReceiverIsFirstAndMayKeepTheEventOrThrow()
    {
        QStringList seen;
        bool keeps = false;
        const CReceiver first([&](QEvent &) {
            seen << "first";
            return false;
        });
        const CReceiver second([&](QEvent &event) {
            seen << dynamic_cast<CCustomEvent &>(event).GetPairData(1).toString();
            return keeps;
        });
        CCustomEvent event;
        event.InsertPairData(1, "second");

        QVERIFY(Manager().SendCustomEvent(&event));
        keeps = true;
        QVERIFY(Manager().SendCustomEvent(&event));

        QCOMPARE(seen, QStringList({"second", "first", "second"}));

        guard_.AnnounceLogLines();
        const CReceiver thrower([](QEvent &) -> bool { throw std::runtime_error("no room"); });
        QVERIFY(!Manager().SendCustomEvent(&event));
        QVERIFY(guard_.LogLines().constLast().contains("Stopped by an exception: no room"));
    }

    void managerOutlivesEventsThatTakeNumbersOfQt()
    {
        CCustomEvent call(QEvent::MetaCall); // the number of a class of Qt
        QVERIFY(!Manager().SendCustomEvent(&call) && !Manager().SendCustomEvent(nullptr));
        Manager().PostCustomEvent(nullptr);

        const QPointer<QObject> manager(&Manager());
        CCustomEvent event(QEvent::DeferredDelete);
        QVERIFY(Manager().SendCustomEvent(&event));
        Manager().PostCustomEvent(new CCustomEvent(QEvent::DeferredDelete));
        QCoreApplication::sendPostedEvents(&Manager(), QEvent::DeferredDelete);
        QVERIFY(manager);
    }

    void postsOfAllThreadsArriveOnceAndInOrder()
    {
        std::vector<int> next(kThreads, 0);
        bool in_order = true;
        int strays = 0;
        const CReceiver receiver([&](QEvent &event) {
            const auto *const custom = dynamic_cast<CCustomEvent *>(&event);
            const int thread = custom ? custom->GetPairData("thread").toInt() : -1;
            if (thread < 0 || QThread::currentThread() != QCoreApplication::instance()->thread())
                return ++strays > 0;
            in_order &= custom->GetPairData("number").toInt() == next[size_t(thread)]++;
            return false;
        });
        std::vector<std::thread> posters;
        for (int thread = 0; thread < kThreads; ++thread) {
            posters.emplace_back([thread] {
                for (int i = 0; i < kPosts; ++i) {
                    auto *const event = new CCustomEvent(1000 + thread);
                    event->InsertPairData("thread", thread);
                    event->InsertPairData("number", i);
                    Manager().PostCustomEvent(event);
                }
            });
        }
        for (std::thread &poster : posters)
            poster.join();
        QCoreApplication::sendPostedEvents(&Manager());

        QCOMPARE(next, std::vector<int>(kThreads, kPosts));
        QVERIFY(in_order);
        QCOMPARE(strays, 0);
    }
};

QTEST_GUILESS_MAIN(TestEvents)
#include "tst_events.moc"
