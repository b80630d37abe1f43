// SPDX-License-Identifier: MIT
#include "support/Test.h"

#include <Vantor/CStyleManager>

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

// The properties that differ from the sheet.
QStringList Wrong(const CStyleManager &manager, int shift)
{
    QStringList wrong;
    for (int i = 0; i < kProperties.size(); ++i) {
        if (manager.property(qPrintable(kProperties.at(i))).value<QColor>() != ToneOf(i, shift))
            wrong.append(kProperties.at(i));
    }
    return wrong;
}

using Opacity = Row<QColor, float, int>; // stored, opacity, alpha

} // namespace

class TestStyleManager : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void opacityGoesToTheCopyOnly_data()
    {
        AddRows<Opacity>({{"transparent", QColor(1, 2, 3), 0.0F, 0},
                          {"half", QColor(1, 2, 3), 0.5F, 128},
                          {"opaque", QColor(1, 2, 3, 4), 1.0F, 255},
                          {"an invalid colour stays invalid", QColor(), 0.5F, 128},
                          {"more than opaque is refused", QColor(1, 2, 3), 1.5F, 255}});
    }

    void opacityGoesToTheCopyOnly()
    {
        const auto &[name, stored, opacity, alpha] = FetchRow<Opacity>();
        guard_.AnnounceWarnings("QColor::setAlphaF");
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

    void aSheetFillsTheFirstInstanceAndIsFollowedWhenTheHostPolishes()
    {
        CStyleManager manager;
        qApp->setStyleSheet(SheetOf(40));

        QCOMPARE(Wrong(Nim::Base::CSingleton<CStyleManager>::Instance(), 40), QStringList());
        QVERIFY(!manager.NeuColor().isValid()); // it was there before the sheet
        manager.style()->unpolish(&manager);
        manager.style()->polish(&manager);
        QCOMPARE(Wrong(manager, 40), QStringList());
    }

protected:
    void TearDown() override { qApp->setStyleSheet(QString()); }
};

QTEST_MAIN(TestStyleManager)
#include "tst_stylemanager.moc"
