// SPDX-License-Identifier: MIT
#include "LayoutStore.h"
#include "support/Test.h"

#include <Vantor/CAdaptiveColumnWidthController>
#include <Vantor/CAdaptiveColumnWidthWidget>

#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>

using Vantor::CAdaptiveColumnWidthController;
using Vantor::CAdaptiveColumnWidthWidget;

class TestAdaptiveColumnWidth : public CGuardedTest
{
    Q_OBJECT

private Q_SLOTS:
    void answersComeAsSignalsInTheOrderOfTheRequests()
    {
        CLayoutStore store;
        store.Hold();
        CAdaptiveColumnWidthController controller;
        QStringList answers;
        connect(&controller, &CAdaptiveColumnWidthController::SignalGetLayoutDataSuccess, this,
                [&](const QString &layout) { answers.append("read " + layout); });
        connect(&controller, &CAdaptiveColumnWidthController::SignalPostLayoutDataSuccess, this,
                [&](const bool &ok) { answers.append(ok ? "written" : "?"); });
        connect(&controller, &CAdaptiveColumnWidthController::SignalRequestDataFailed, this,
                [&](const int &first, const int &second, const int &get_or_post) {
                    answers.append(
                        QStringLiteral("%1 %2 %3").arg(first).arg(second).arg(get_or_post));
                });
        for (const char *const text : {"", "\xD8\xB9", "", "\xD8\xB9", ""}) // one Arabic letter
            controller.AdaptiveGetOrPostLayoutCurrentColumnState({"key", 1, text});

        store.AnswerNewest(); // its answer waits
        for (int i = 0; i < 3; ++i)
            store.AnswerNext();
        store.refusals = 1;
        store.AnswerAll();
        using BusinessCommon::CAdaptiveColumnWidthManager;
        CAdaptiveColumnWidthManager::SetHandler([](const auto &, const auto &) {}); // drops it
        controller.AdaptiveGetOrPostLayoutCurrentColumnState({"key", 1, ""});

        QTRY_COMPARE(answers, (QStringList{"read ", "written", QString::fromUtf8("read \xD8\xB9"),
                                           "2 21 1", "read ", "2 24 0"}));
    }

    void aChoiceIsEmittedOnceAndAPressElsewhereHidesIt()
    {
        QWidget window;
        window.resize(400, 300);
        QPushButton button("Width", &window);
        button.setGeometry(300, 10, 80, 30);
        CAdaptiveColumnWidthWidget widget(&window);
        widget.SetRelateWidget(&button);
        window.show();
        widget.ShowAtRelateWidget();
        auto *const mini = widget.findChild<QRadioButton *>("ptr_min_width_radio_");
        auto *const maxi = widget.findChild<QRadioButton *>("ptr_max_width_radio_");
        QSignalSpy spy(&widget, &CAdaptiveColumnWidthWidget::SignalColumnWidthStateChanged);
        const auto names = [&] {
            return mini->parentWidget()->objectName() + ' ' + maxi->parentWidget()->objectName();
        };
        const QString minimum = "ptr_min_width_checked_widget_ ptr_max_width_widget_";
        const QString maximum = "ptr_min_width_widget_ ptr_max_width_checked_widget_";
        QCOMPARE(names(), minimum);
        QTest::keyClick(maxi, Qt::Key_Space);
        QTest::keyClick(maxi, Qt::Key_Space); // a checked one stays checked
        QCOMPARE(names(), maximum);
        QTest::keyClick(mini, Qt::Key_Space);
        QCOMPARE(names(), minimum);
        widget.UpdateRaddioButtonState(5); // from code: no signal
        QCOMPARE(names(), maximum);
        QCOMPARE(spy.size(), 2);

        QTest::mouseClick(&button, Qt::LeftButton);
        QTest::mouseClick(&widget, Qt::LeftButton, {}, QPoint(2, 2));
        QVERIFY(widget.isVisible());
        QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(5, 290));
        QVERIFY(!widget.isVisible());
    }
};

QTEST_MAIN(TestAdaptiveColumnWidth)
#include "tst_adaptivecolumnwidth.moc"
