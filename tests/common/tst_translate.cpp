// SPDX-License-Identifier: MIT
#include "support/Test.h"

#include <common/Translate.h>

using Vantor::Translate;

namespace {

// Answers "<context>:<key>" for the keys that hold the context's name.
QString ContextAndKey(const char *context, const char *key)
{
    if (std::strcmp(key, "throw") == 0)
        throw std::runtime_error("broken table");
    return std::strstr(key, context) ? QString("%1:%2").arg(context, key) : QString();
}

// locale, language
const Rows<const char *, const char *> kSpokenRows = {
    {"a country of a language", "ar_EG", "ar"},
    {"Singapore writes simplified Chinese", "zh_SG", "zh_CN"},
    {"Taiwan does not", "zh_TW", "en"},
    {"a language that is not there", "fi_FI", "en"},
};

// key, text
const Rows<QString, QString> kTextRows = {
    {"the class's own first", "Own+SimpleMutiPageWidgetUi+Vantor",
     "Own:Own+SimpleMutiPageWidgetUi+Vantor"},
    {"then the paging bar's", "SimpleMutiPageWidgetUi+Vantor",
     "SimpleMutiPageWidgetUi:SimpleMutiPageWidgetUi+Vantor"},
    {"then the library's", "Vantor", "Vantor:Vantor"},
    {"an unknown key is its own text", "TotalNumberOf%ru", "TotalNumberOf%ru"},
    {"an empty key is an empty text", "", ""},
    {"a translator that throws knows no text", "throw", "throw"},
};

} // namespace

class TestTranslate : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override { QVERIFY(QCoreApplication::installTranslator(&translator_)); }
    void TearDown() override { QCoreApplication::removeTranslator(&translator_); }

    CTestTranslator translator_{ContextAndKey};

private Q_SLOTS:
    void contextsAreAskedInOrder_data() { AddRows(kTextRows); }

    void contextsAreAskedInOrder()
    {
        const auto &[name, key, text] = FetchRow(kTextRows);
        QCOMPARE(Translate(key, "Own"), text);
    }

    void anArgumentIsFilledOnlyWhereItHasAPlace()
    {
        QCOMPARE(Vantor::FillArgument("%1 of %1", "7"), QString("7 of 7"));
        QCOMPARE(Vantor::FillArgument("no place: %r", "7"), QString("no place: %r"));
        QCOMPARE(Vantor::FillArgument("%1", "%1"), QString("%1"));
    }

    void theLibraryBringsItsTexts_data() { AddRows(kSpokenRows); }

    void theLibraryBringsItsTexts()
    {
        const auto &[name, locale, language] = FetchRow(kSpokenRows);
        QCOMPARE(Translate("Jumpxomgyeiu"), QString("Jump")); // from the start
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(Vantor::InstallTranslations(QLocale(locale)), QString(language));
        QCOMPARE(Translate("Jumpxomgyeiu") == "Jump", QString(language) == "en");
        Vantor::RemoveTranslations();
        Vantor::RemoveTranslations();
        QCOMPARE(Translate("Jumpxomgyeiu"), QString("Jumpxomgyeiu"));
        QCOMPARE(Vantor::InstallTranslations(QLocale("en")), QString("en"));
        QCOMPARE(QGuiApplication::layoutDirection(), Qt::RightToLeft); // the host's stays
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
};

QTEST_MAIN(TestTranslate)
#include "tst_translate.moc"
