// SPDX-License-Identifier: MIT
#include "LayoutStore.h"
#include "support/TestGuard.h"

#include <Vantor/CAdaptiveColumnWidthController>
#include <Vantor/CAdaptiveColumnWidthWidget>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>

using Vantor::CAdaptiveColumnWidthController;
using Vantor::CAdaptiveColumnWidthWidget;

class TestAdaptiveColumnWidth : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard_.Begin(); }

    void cleanup()
    {
        const QString fault = guard_.End();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }

    void answersComeAsSignalsInTheOrderOfTheRequests()
    {
        CLayoutStore store;
        store.Hold();
        CAdaptiveColumnWidthController controller;
        QStringList answers;
        connect(&controller, &CAdaptiveColumnWidthController::SignalGetLayoutDataSuccess, this,
                [&answers](const QString &layout) { answers.append("read " + layout); });
        connect(&controller, &CAdaptiveColumnWidthController::SignalPostLayoutDataSuccess, this,
                [&answers](const bool &ok) { answers.append(ok ? "written" : "?"); });
        connect(&controller, &CAdaptiveColumnWidthController::SignalRequestDataFailed, this,
                [&answers](const int &first, const int &second, const int &get_or_post) {
                    answers.append(
                        QStringLiteral("%1 %2 %3").arg(first).arg(second).arg(get_or_post));
                });
        BusinessCommon::AdaptiveLayout read{"key", 1, {}};
        BusinessCommon::AdaptiveLayout write{"key", 1, "\xD8\xB9"}; // one Arabic letter

        controller.AdaptiveGetOrPostLayoutCurrentColumnState(read);
        controller.AdaptiveGetOrPostLayoutCurrentColumnState(write);
        controller.AdaptiveGetOrPostLayoutCurrentColumnState(read);
        controller.AdaptiveGetOrPostLayoutCurrentColumnState(write);
        controller.AdaptiveGetOrPostLayoutCurrentColumnState(read);
        for (int i = 0; i < 3; ++i)
            store.AnswerNext();
        store.refusals = 2;
        store.AnswerAll();

        QTRY_COMPARE(answers, (QStringList{"read ", "written", QString::fromUtf8("read \xD8\xB9"),
                                           "2 21 1", "2 21 0"}));
    }

    void aChoiceIsToldOnceAndShownByTheNamesOfTheHolders()
    {
        CAdaptiveColumnWidthWidget widget;
        widget.show();
        auto *const mini = widget.findChild<QRadioButton *>("ptr_min_width_radio_");
        auto *const maxi = widget.findChild<QRadioButton *>("ptr_max_width_radio_");
        QSignalSpy spy(&widget, &CAdaptiveColumnWidthWidget::SignalColumnWidthStateChanged);
        const auto is_checked = [&](int state) {
            const QStringList names{mini->parentWidget()->objectName(),
                                    maxi->parentWidget()->objectName()};
            return mini->isChecked() == (state == 0) && maxi->isChecked() == (state == 1)
                   && names
                          == (state == 0 ? QStringList{"ptr_min_width_checked_widget_",
                                                       "ptr_max_width_widget_"}
                                         : QStringList{"ptr_min_width_widget_",
                                                       "ptr_max_width_checked_widget_"});
        };
        QVERIFY(is_checked(0));

        QTest::keyClick(maxi, Qt::Key_Space);
        QVERIFY(is_checked(1));
        QTest::keyClick(maxi, Qt::Key_Space); // a checked one stays checked
        QVERIFY(is_checked(1));
        QTest::keyClick(mini, Qt::Key_Space);
        QVERIFY(is_checked(0));
        widget.UpdateRaddioButtonState(5); // from code: nothing is told
        QVERIFY(is_checked(1));

        QCOMPARE(spy.size(), 2);
        QCOMPARE(spy.at(0).first().toInt(), 1);
        QCOMPARE(spy.at(1).first().toInt(), 0);
    }

    void aPressElsewhereHidesIt()
    {
        QWidget window;
        window.resize(400, 300);
        QPushButton button("Width", &window);
        button.setGeometry(300, 10, 80, 30);
        CAdaptiveColumnWidthWidget widget(&window);
        widget.SetRelateWidget(&button);
        window.show();
        widget.ShowAtRelateWidget();
        QVERIFY(window.rect().contains(widget.geometry()));
        QSignalSpy clicks(&button, &QPushButton::clicked);

        QTest::mouseClick(&button, Qt::LeftButton);
        QVERIFY(widget.isVisible());
        QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(2, 2));
        QVERIFY(widget.isVisible());
        QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(5, 290));
        QVERIFY(!widget.isVisible());

        QCOMPARE(clicks.size(), 1); // it takes no press away
    }

private:
    CTestGuard guard_;
};

QTEST_MAIN(TestAdaptiveColumnWidth)
#include "tst_adaptivecolumnwidth.moc"
