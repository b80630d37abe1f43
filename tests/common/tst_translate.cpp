// SPDX-License-Identifier: MIT
#include "support/TestGuard.h"

#include <common/Translate.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QTranslator>
#include <QtTest/QTest>

#include <atomic>
#include <cstring>
#include <stdexcept>
#include <thread>
#include <vector>

using Vantor::Translate;

namespace {

// Answers "<context>:<key>" for the keys that hold the context's name.
class CContextTranslator : public QTranslator
{
public:
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        if (std::strcmp(source, "throw") == 0)
            throw std::runtime_error("broken table");
        return std::strstr(source, context) ? QString("%1:%2").arg(context, source) : QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class TestTranslate : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard_.Begin();
        QVERIFY(QCoreApplication::installTranslator(&translator_));
    }

    void cleanup()
    {
        QCoreApplication::removeTranslator(&translator_);
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void contextsAreAskedInOrder_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("text");
        QTest::newRow("the class's own first") << "Own+SimpleMutiPageWidgetUi+Vantor"
                                               << "Own:Own+SimpleMutiPageWidgetUi+Vantor";
        QTest::newRow("then the paging bar's")
            << "SimpleMutiPageWidgetUi+Vantor"
            << "SimpleMutiPageWidgetUi:SimpleMutiPageWidgetUi+Vantor";
        QTest::newRow("then the library's") << "Vantor"
                                            << "Vantor:Vantor";
        QTest::newRow("an unknown key stays itself") << "TheTotalNumberOf%ruHYFtyFtVv"
                                                     << "TheTotalNumberOf%ruHYFtyFtVv";
        QTest::newRow("an empty key is an empty text") << ""
                                                       << "";
        QTest::newRow("a translator that throws knows nothing") << "throw"
                                                                << "throw";
    }

    void contextsAreAskedInOrder()
    {
        QFETCH(QString, key);
        QFETCH(QString, text);

        QCOMPARE(Translate(key, "Own"), text);
    }

    void anArgumentIsFilledOnlyWhereItHasAPlace()
    {
        QCOMPARE(Vantor::FillArgument("%1 of %1", "7"), QString("7 of 7"));
        QCOMPARE(Vantor::FillArgument("no place: %r", "7"), QString("no place: %r"));
        QCOMPARE(Vantor::FillArgument("%1", "%1"), QString("%1"));
    }

    void threadsMayTranslateWhileTheLanguageChanges()
    {
        std::atomic<bool> is_over{false};
        std::atomic<int> wrong{0};
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&is_over, &wrong] {
                while (!is_over) {
                    const QString text = Translate("Vantor");
                    wrong += text == "Vantor" || text == "Vantor:Vantor" ? 0 : 1;
                }
            });
        }
        for (int change = 0; change < 200; ++change) {
            QCoreApplication::removeTranslator(&translator_);
            QCoreApplication::installTranslator(&translator_);
        }
        is_over = true;
        for (std::thread &thread : threads)
            thread.join();

        QCOMPARE(wrong.load(), 0);
    }

private:
    CTestGuard guard_;
    CContextTranslator translator_;
};

QTEST_GUILESS_MAIN(TestTranslate)
#include "tst_translate.moc"
