// SPDX-License-Identifier: MIT
#include <Vantor/CCSVParser>

#include <QtTest/QTest>

class TestSeparator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theLocalesDecimalPointDecides()
    {
        const QString expected = qEnvironmentVariable("EXPECTED_SEPARATOR");
        QVERIFY(!expected.isEmpty());

        QCOMPARE(Vantor::GetLocalListSperator(), expected);
    }
};

QTEST_GUILESS_MAIN(TestSeparator)
#include "tst_separator.moc"
