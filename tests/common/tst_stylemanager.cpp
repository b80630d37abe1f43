// SPDX-License-Identifier: MIT
#include "support/Widgets.h"

#include <Vantor/CStyleManager>

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

// stored, opacity, alpha
const Rows<QColor, float, int> kOpacityRows = {
    {"transparent", QColor(50, 40, 30), 0.0F, 0},
    {"half", QColor(50, 40, 30), 0.5F, 128},
    {"opaque", QColor(50, 40, 30, 4), 1.0F, 255},
    {"an invalid colour stays invalid", QColor(), 0.5F, 128},
    {"more than opaque is refused", QColor(50, 40, 30), 1.5F, 255},
};

} // namespace

class TestStyleManager : public CGuardedTest
{
    Q_OBJECT

    void TearDown() override { qApp->setStyleSheet(QString()); }

private Q_SLOTS:
    void opacityGoesToTheCopyOnly_data() { AddRows(kOpacityRows); }

    void opacityGoesToTheCopyOnly()
    {
        const auto &[name, stored, opacity, alpha] = FetchRow(kOpacityRows);
        guard_.AnnounceWarnings("QColor::setAlphaF");
        CStyleManager manager;
        manager.SetNeuColor(stored);
        manager.SetNeuColorT2(stored.lighter(150));
        manager.SetTextNeuColor(stored.lighter(200));
        manager.SetTextNeuColorT2(stored.lighter(250));

        int shade = 0;
        for (const QColor &color :
             {manager.GetNeuColor(opacity), manager.GetNeuColorT2(opacity),
              manager.GetTextNeuColor(opacity), manager.GetTextNeuColorT2(opacity)}) {
            QCOMPARE(color.alpha(), alpha);
            QCOMPARE(color.isValid(), stored.isValid());
            QCOMPARE(color.lightness(), stored.lighter(100 + 50 * shade++).lightness());
        }
        QCOMPARE(manager.NeuColor(), stored);
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

    // Themes and widgets of clients name these paths.
    void eachPathHoldsAPictureInTwoSizes()
    {
        const std::pair<QString, QSize> pictures[] = {
            {":/Ovrin/Tree/Images/Public/Control/Tree/HomePage", {16, 16}},
            {":/Ovrin/Tree/Images/Public/Control/Tree/LastPage", {16, 16}},
            {":/Ovrin/Tree/Images/Public/Control/Tree/NextPage", {16, 16}},
            {":/Ovrin/Tree/Images/Public/Control/Tree/PreviousPage", {16, 16}},
            {":/Ovrin/Icon/Images/Public/Icon/SepHide", {64, 10}},
            {":/Ovrin/Icon/Images/Public/Icon/SepShow", {64, 10}}};
        for (const auto &[path, size] : pictures) {
            QCOMPARE(QImage(path + ".png").size(), size);
            QCOMPARE(QImage(path + "@2x.png").size(), size * 2);
        }
    }
};

QTEST_MAIN(TestStyleManager)
#include "tst_stylemanager.moc"
