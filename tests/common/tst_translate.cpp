// SPDX-License-Identifier: MIT
#include "support/Test.h"

#include <common/Translate.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QTranslator>
#include <QtGui/QGuiApplication>

#include <cstring>

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

using Text = Row<QString, QString>; // key, text

struct Spoken
{
    const char *name;
    const char *locale;
    const char *language;
};

} // namespace

class TestTranslate : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void contextsAreAskedInOrder_data()
    {
        AddRows<Text>({
            {"the class's own first", "Own+SimpleMutiPageWidgetUi+Vantor",
             "Own:Own+SimpleMutiPageWidgetUi+Vantor"},
            {"then the paging bar's", "SimpleMutiPageWidgetUi+Vantor",
             "SimpleMutiPageWidgetUi:SimpleMutiPageWidgetUi+Vantor"},
            {"then the library's", "Vantor", "Vantor:Vantor"},
            {"an unknown key is its own text", "TotalNumberOf%ru", "TotalNumberOf%ru"},
            {"an empty key is an empty text", "", ""},
            {"a translator that throws knows no text", "throw", "throw"},
        });
    }

    void contextsAreAskedInOrder()
    {
        const auto &[name, key, text] = FetchRow<Text>();
        QCOMPARE(Translate(key, "Own"), text);
    }

    void anArgumentIsFilledOnlyWhereItHasAPlace()
    {
        QCOMPARE(Vantor::FillArgument("%1 of %1", "7"), QString("7 of 7"));
        QCOMPARE(Vantor::FillArgument("no place: %r", "7"), QString("no place: %r"));
        QCOMPARE(Vantor::FillArgument("%1", "%1"), QString("%1"));
    }

    void theLibraryBringsItsTexts_data()
    {
        AddRows<Spoken>({{"a country of a language", "ar_EG", "ar"},
                         {"Singapore writes simplified Chinese", "zh_SG", "zh_CN"},
                         {"Taiwan does not", "zh_TW", "en"},
                         {"a language that is not there", "fi_FI", "en"}});
    }

    void theLibraryBringsItsTexts()
    {
        const auto &row = FetchRow<Spoken>();
        QCOMPARE(Translate("Jumpxomgyeiu"), QString("Jump")); // from the start
        QGuiApplication::setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(Vantor::InstallTranslations(QLocale(row.locale)), QString(row.language));
        QCOMPARE(Translate("Jumpxomgyeiu") == "Jump", QString(row.language) == "en");
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

protected:
    void SetUp() override { QVERIFY(QCoreApplication::installTranslator(&translator_)); }
    void TearDown() override { QCoreApplication::removeTranslator(&translator_); }

private:
    CContextTranslator translator_;
};

QTEST_MAIN(TestTranslate)
#include "tst_translate.moc"
