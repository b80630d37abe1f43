// SPDX-License-Identifier: MIT
#include "support/TestGuard.h"

#include <Vantor/CStyleManager>

#include <QtCore/QMetaProperty>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>

using Vantor::CStyleManager;

namespace {

const QStringList kProperties{"NeuColor",     "NeuColorT2",    "TextNeuColor", "TextNeuColorT2",
                              "BackColor",    "PanelColor",    "WidgetColor",  "BackColorT2",
                              "PanelColorT2", "WidgetColorT2", "BrandColor",   "InfoColor"};

QColor ToneOf(int index, int shift)
{
    return QColor(10 * index + 1, 100 + index, shift);
}

QString SheetOf(int shift)
{
    QString sheet = "Vantor--CStyleManager {";
    for (int i = 0; i < kProperties.size(); ++i)
        sheet += QString(" qproperty-%1: %2;").arg(kProperties.at(i), ToneOf(i, shift).name());
    return sheet + " }";
}

} // namespace

class TestStyleManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard_.Begin(); }

    void cleanup()
    {
        qApp->setStyleSheet(QString());
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void thePropertiesHaveTheirPlaces()
    {
        const QMetaObject &meta = CStyleManager::staticMetaObject;

        QStringList names;
        for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
            names.append(meta.property(i).name());
            QCOMPARE(meta.property(i).type(), QVariant::Color);
        }
        QCOMPARE(names, kProperties);
    }

    void eachPropertyHasAColourOfItsOwn()
    {
        CStyleManager manager;
        for (int i = 0; i < kProperties.size(); ++i) {
            QVERIFY(!manager.property(qPrintable(kProperties.at(i))).value<QColor>().isValid());
            manager.setProperty(qPrintable(kProperties.at(i)), ToneOf(i, 7));
        }

        for (int i = 0; i < kProperties.size(); ++i)
            QCOMPARE(manager.property(qPrintable(kProperties.at(i))).value<QColor>(), ToneOf(i, 7));
        QCOMPARE(manager.WidgetColorT2(),
                 ToneOf(9, 7)); // one getter stands for the pairs of table and member
    }

    void opacityGoesToTheCopyOnly_data()
    {
        QTest::addColumn<QColor>("stored");
        QTest::addColumn<float>("opacity");
        QTest::addColumn<int>("alpha");
        QTest::newRow("transparent") << QColor(1, 2, 3) << 0.0F << 0;
        QTest::newRow("half") << QColor(1, 2, 3) << 0.5F << 128;
        QTest::newRow("opaque") << QColor(1, 2, 3, 4) << 1.0F << 255;
        QTest::newRow("an invalid colour stays invalid") << QColor() << 0.5F << 128;
    }

    void opacityGoesToTheCopyOnly()
    {
        QFETCH(QColor, stored);
        QFETCH(float, opacity);
        QFETCH(int, alpha);
        CStyleManager manager;
        manager.SetNeuColor(stored);
        manager.SetNeuColorT2(stored);
        manager.SetTextNeuColor(stored);
        manager.SetTextNeuColorT2(stored);

        for (const QColor &color :
             {manager.GetNeuColor(opacity), manager.GetNeuColorT2(opacity),
              manager.GetTextNeuColor(opacity), manager.GetTextNeuColorT2(opacity)}) {
            QCOMPARE(color.alpha(), alpha);
            QCOMPARE(color.isValid(), stored.isValid());
        }

        QCOMPARE(manager.NeuColor(), stored);
        QCOMPARE(manager.TextNeuColorT2(), stored);
    }

    void anOpacityOutOfRangeIsRefused()
    {
        guard_.AnnounceWarning("QColor::setAlphaF");
        CStyleManager manager;
        manager.SetNeuColor(QColor(1, 2, 3));

        QCOMPARE(manager.GetNeuColor(1.5F).alpha(), 255);
    }

    void aSheetInForceBeforeTheFirstInstanceFillsIt()
    {
        qApp->setStyleSheet(SheetOf(40));

        const CStyleManager &manager = Nim::Base::CSingleton<CStyleManager>::Instance();

        for (int i = 0; i < kProperties.size(); ++i)
            QCOMPARE(manager.property(qPrintable(kProperties.at(i))).value<QColor>(),
                     ToneOf(i, 40));
    }

    void aSheetThatComesLaterIsFollowedWhenTheHostPolishes()
    {
        CStyleManager manager;
        qApp->setStyleSheet(SheetOf(80));
        QVERIFY(!manager.NeuColor().isValid());

        manager.style()->unpolish(&manager);
        manager.style()->polish(&manager);

        QCOMPARE(manager.NeuColor(), ToneOf(0, 80));
        QCOMPARE(manager.InfoColor(), ToneOf(11, 80));
    }

private:
    CTestGuard guard_;
};

QTEST_MAIN(TestStyleManager)
#include "tst_stylemanager.moc"
