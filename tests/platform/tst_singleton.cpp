// SPDX-License-Identifier: MIT
#include "support/Widgets.h"

#include <Nim/Base/Log.h>
#include <Nim/Base/Singleton.h>
#include <Ravel/UiSingleton.h>
#include <Ravel/WaitWatcher.h>
#include <Vantor/CStyleManager>

#include <QtCore/QLibrary>

namespace {

constexpr int kThreads = 32;

template <template <class> class Singleton> class CCounter : public Singleton<CCounter<Singleton>>
{
public:
    CCounter() { ++made; }
    static inline std::atomic<int> made{0};
    int payload = 42;
};

// All threads start at once; each must find one and the same finished object.
template <class Counter> void Race()
{
    std::atomic<bool> go{false};
    std::atomic<int> unfinished{0};
    std::vector<const Counter *> seen(kThreads, nullptr);
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&go, &unfinished, &seen, i] {
            while (!go)
                std::this_thread::yield();
            const Counter &instance = Counter::Instance();
            unfinished += instance.payload == 42 ? 0 : 1;
            seen[static_cast<size_t>(i)] = &instance;
        });
    }
    go = true;
    for (std::thread &thread : threads)
        thread.join();

    QCOMPARE(Counter::made.load(), 1);
    QCOMPARE(unfinished.load(), 0);
    QCOMPARE(std::set<const Counter *>(seen.begin(), seen.end()).size(), size_t(1));
}

QString ModuleOf(const void *symbol)
{
    Dl_info info{};
    return dladdr(symbol, &info) != 0 ? QString::fromLocal8Bit(info.dli_fname) : QString();
}

} // namespace

class TestSingleton : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void racingThreadsMakeOneInstance()
    {
        Race<CCounter<Nim::Base::CSingleton>>();
        Race<CCounter<Ravel::CUiSingleton>>();
    }

    void hostLibraryAndPluginSeeOneInstance()
    {
        QLibrary plugin(PLUGIN_PATH);
        QVERIFY2(plugin.load(), qPrintable(plugin.errorString()));
        const auto call = [&plugin](const char *name) {
            return reinterpret_cast<void *(*)()>(plugin.resolve(name))();
        };
        using Style = Nim::Base::CSingleton<Vantor::CStyleManager>;
        using Watcher = Ravel::CUiSingleton<Ravel::CWaitWatcher>;

        QCOMPARE(call("PluginStyleManager"), static_cast<void *>(&Style::Instance()));
        QCOMPARE(call("PluginWaitWatcher"), static_cast<void *>(&Watcher::Instance()));

        // Instance() is code of the library, so the library sees that instance too.
        QVERIFY(ModuleOf(reinterpret_cast<void *>(&Style::Instance)).contains("libvantor.so"));
        QVERIFY(ModuleOf(reinterpret_cast<void *>(&Watcher::Instance))
                    .contains("libvantor_platform.so"));

        call("PluginLog");
        QCOMPARE(guard_.LogLines(), QStringList("3 Clientframework from the plug-in"));
    }

    void aProgramThatUsesThemAllEndsCleanlyWithWindowsShown()
    {
        QProcess program;
        program.setProcessChannelMode(QProcess::MergedChannels);

        program.start(EXIT_PROGRAM, QStringList());

        QVERIFY(program.waitForFinished(60000));
        const QByteArray output = program.readAll();
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QVERIFY2(program.exitCode() == 0 && output.contains("ending"), output.constData());
    }

    // A slot may call exit(): the application object still exists, the window system may not.
    void atUnloadObjectsAreLeftAloneAndTheRestIsDeleted()
    {
        const std::unique_ptr<QObject> object(new QWidget);
        const QPointer<QObject> left(object.get());
        struct CPlain
        {
            bool &is_gone;
            ~CPlain() { is_gone = true; }
        };
        bool is_plain_gone = false;

        Nim::Base::ReleaseAtUnload()(object.get());
        Nim::Base::ReleaseAtUnload()(new CPlain{is_plain_gone});

        QVERIFY(left && is_plain_gone);
    }
};

QTEST_MAIN(TestSingleton)
#include "tst_singleton.moc"
