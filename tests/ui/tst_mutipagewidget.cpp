// SPDX-License-Identifier: MIT
#include "support/Widgets.h"

#include <Ravel/TreeViewItem.h>
#include <Ravel/TreeViewModel.h>
#include <Vantor/CFilterTreeViewEx>
#include <Vantor/CFilterWidgetEx>
#include <Vantor/CMutiPageWidget>
#include <Vantor/CMutiPageWidgetEx>
#include <common/Translate.h>

#include <QtGui/QCursor>

using Vantor::CMutiPageWidget;

namespace {

constexpr char kNothingFound[] = "ThereIsNoMatchedResultFound"; // no translator is installed

QList<Ravel::CTreeViewItem *> Items(int count)
{
    QList<Ravel::CTreeViewItem *> items;
    for (int i = 0; i < count; ++i)
        items.append(new Ravel::CTreeViewItem({QString::number(i)}));
    return items;
}

// typed, page (afterwards, from page 2 of 3), signalled
const Rows<QString, int, int> kJumpRows = {
    {"another page", "3", 3, 1},
    {"this page", "2", 2, 0},
    {"nothing", "", 2, 0},
    {"a page too many, which can be typed", "9", 2, 0},
    {"zero", "0", 2, 0},
    {"a minus, which cannot be typed", "-1", 1, 1},
    {"a leading zero", "03", 3, 1},
    {"with a separator, which cannot be typed", "0,3", 3, 1},
};

const QString kAllButtons = "home previous next last";

// per_page, records, page, total, enabled
const Rows<int, int, int, QString, QString> kDeliveryRows = {
    {"no record", 100, 0, 0, "/1", ""},
    {"a full page", 100, 100, 1, "/1", ""},
    {"one more", 100, 101, 1, "/2", "next last"},
    {"in the middle", 100, 250, 2, "/3", kAllButtons},
    {"at the end", 100, 250, 3, "/3", "home previous"},
    {"numbers below zero", 100, -7, -3, "/1", ""},
    {"a hundred thousand pages", 1, 100000, 2, "/100000", kAllButtons},
    {"no record, a row a page", 1, 0, 1, "/1", ""},
};

} // namespace

class TestMutiPageWidget : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        Vantor::RemoveTranslations(); // the keys
        NewPage(Qt::LeftToRight);
    }

    void TearDown() override
    {
        page_.reset();
        model_.reset();
        QApplication::setLayoutDirection(Qt::LeftToRight);
    }

    void NewPage(Qt::LayoutDirection direction)
    {
        page_ = std::make_unique<CMutiPageWidget>();
        page_->setLayoutDirection(direction);
        model_ = std::make_unique<Ravel::CTreeViewModel>();
        model_->SetHorizontalHeaderLabels({"Number", "Type"});
    }

    // A hundred rows a page, total known.
    void ShowLocal(int rows)
    {
        page_->SetPageSeen(true);
        page_->SetFilterEnabled(true);
        page_->SetModel(model_.get());
        page_->GetItemPerPageComboBox()->setCurrentIndex(1);
        QList<Ravel::CTreeViewItem *> items = Items(rows);
        page_->AddTopLevelItems(items);
    }

    [[nodiscard]] QPushButton *Button(const char *name) const
    {
        return page_->findChild<QPushButton *>(QStringLiteral("ptr_%1_btn_").arg(name));
    }
    [[nodiscard]] QLineEdit *Edit() const
    {
        return page_->findChild<QLineEdit *>("ptr_cur_page_edit_");
    }
    [[nodiscard]] QString Label(const char *name) const
    {
        return page_->findChild<QLabel *>(name)->text();
    }
    [[nodiscard]] QString FirstCell() const
    {
        return page_->GetTreeView()->model()->index(0, 0).data().toString();
    }

    // The buttons that are, out of home, previous, next and last.
    [[nodiscard]] QString Enabled() const
    {
        QStringList names;
        for (const char *const name : {"home", "previous", "next", "last"}) {
            if (Button(name)->isEnabled())
                names.append(name);
        }
        return names.join(' ');
    }

    std::unique_ptr<Ravel::CTreeViewModel> model_;
    std::unique_ptr<CMutiPageWidget> page_;

private Q_SLOTS:
    void serverPagesAreCountedAndEnableTheBar_data() { AddRows(kDeliveryRows); }

    void serverPagesAreCountedAndEnableTheBar()
    {
        const auto [name, per_page, records, page, total, enabled] = FetchRow(kDeliveryRows);
        page_->SetFilterEnabled(false);
        page_->SetPageSeen(true);
        page_->GetTreeView()->SetTreeViewItemPerPage(per_page);

        page_->OnUpdatePageInfo(records, page);

        QCOMPARE(Label("ptr_total_page_"), total);
        QCOMPARE(Enabled(), enabled);
        QCOMPARE(Edit()->text(), QString::number(std::max(1, page)));
        QCOMPARE(page_->TopLevelItemCount(), std::max(0, records));
        QCOMPARE(Edit()->width() > 40, records == 100000); // for six digits
    }

    void localPagesFollowTheButtonsAndTheKeys()
    {
        ShowLocal(250);
        QSignalSpy changed(page_.get(), &CMutiPageWidget::SignalPageChanged);
        QCOMPARE(Enabled(), QString("next last"));

        QTest::mouseClick(Button("next"), Qt::LeftButton);
        QCOMPARE(FirstCell(), QString("100"));
        QCOMPARE(Enabled(), QString("home previous next last"));
        Button("last")->setFocus();
        QTest::keyClick(Button("last"), Qt::Key_Return);
        QCOMPARE(FirstCell(), QString("200"));
        QCOMPARE(Enabled(), QString("home previous"));
        QTest::mouseClick(Button("previous"), Qt::LeftButton);
        QTest::mouseClick(Button("home"), Qt::LeftButton);
        QCOMPARE(FirstCell(), QString("0"));
        page_->show();
        QVERIFY(QTest::qWaitForWindowActive(page_.get()));
        page_->GetTreeView()->setFocus();
        QTest::keyClick(page_->GetTreeView(), Qt::Key_PageUp, Qt::ControlModifier); // no such page
        QTest::keyClick(page_->GetTreeView(), Qt::Key_PageDown, Qt::ControlModifier);
        QCOMPARE(FirstCell(), QString("100"));
        Edit()->setFocus();
        QTest::keyClick(Edit(), Qt::Key_PageUp, Qt::ControlModifier);
        QCOMPARE(FirstCell(), QString("0"));
        QCOMPARE(changed.count(), 6);
        QCOMPARE(Label("ptr_total_records_"), QString("Total  250"));

        page_->SetRecordsVisible(true);
        page_->GetItemPerPageComboBox()->setCurrentIndex(2);
        QCOMPARE(Label("ptr_total_page_"), QString("/2"));
        QCOMPARE(Label("ptr_total_records_"), QString("TheTotalNumberOf%ruHYFtyFtVv"));
    }

    void jumpGoesWhereThereIsAPage_data() { AddRows(kJumpRows); }

    void jumpGoesWhereThereIsAPage()
    {
        const auto [name, typed, page, signalled] = FetchRow(kJumpRows);
        ShowLocal(250);
        QTest::mouseClick(Button("next"), Qt::LeftButton);
        QSignalSpy changed(page_.get(), &CMutiPageWidget::SignalPageChanged);
        Edit()->clear();
        QTest::keyClicks(Edit(), typed);

        QTest::mouseClick(Button("jump"), Qt::LeftButton);

        QCOMPARE(page_->GetCurrentPage(), page);
        QCOMPARE(changed.count(), signalled);
        QCOMPARE(FirstCell(), QString::number((page - 1) * 100));
        QCOMPARE(Edit()->text().toInt(), page);
    }

    void typedPageIsKeptOnlyOnTheWayToAButton()
    {
        ShowLocal(250);
        page_->show();
        QVERIFY(QTest::qWaitForWindowExposed(page_.get()));
        const QPoint to_jump = Button("jump")->mapToGlobal(Button("jump")->rect().bottomRight());
        const auto leave = [this] {
            QFocusEvent out(QEvent::FocusOut, Qt::MouseFocusReason);
            QCoreApplication::sendEvent(Edit(), &out);
        };

        Edit()->setText("3");
        QCursor::setPos(to_jump);
        leave();
        QCOMPARE(Edit()->text(), QString("3"));
        Button("jump")->hide();
        leave();
        QCOMPARE(Edit()->text(), QString("1"));
    }

    void openEndedNextFollowsTheLastDelivery()
    {
        page_->SetModel(model_.get());
        page_->SetFilterEnabled(false);
        page_->GetTreeView()->SetTreeViewItemPerPage(100);
        for (const int delivered : {100, 99, 0}) {
            QSignalSpy error(page_.get(), &CMutiPageWidget::SignalErrorInfo);
            QList<Ravel::CTreeViewItem *> items = Items(delivered);

            page_->OnUpdatePageInfo(0, 2);
            page_->AddTopLevelItems(items);

            QCOMPARE(Button("next")->isEnabled(), delivered == 100);
            QVERIFY(Button("previous")->isEnabled());
            QCOMPARE(error.value(0), delivered ? QVariantList() : QVariantList{kNothingFound});
        }
    }

    void knownTotalLeavesNextToTheRowsUnlessToldOtherwise()
    {
        ShowLocal(100); // a full page, the last one
        QCOMPARE(Enabled(), QString("next"));
        QList<Ravel::CTreeViewItem *> few = Items(1);

        page_->AddTopLevelItems(few);

        QCOMPARE(Enabled(), QString("last"));
        page_->SetNextByTotal(true);
        page_->InitTreeView();
        QList<Ravel::CTreeViewItem *> full = Items(100);
        page_->AddTopLevelItems(full);
        QCOMPARE(Enabled(), QString());
        few = Items(1);
        page_->AddTopLevelItems(few);
        QCOMPARE(Enabled(), QString("next last"));
        page_->ClearAllItems();
        QCOMPARE(Enabled(), QString());
        QCOMPARE(Label("ptr_total_page_"), QString("/1"));
    }

    void mirroredBarHasItsOwnNamesAndLabel()
    {
        QApplication::setLayoutDirection(Qt::RightToLeft);
        NewPage(Qt::RightToLeft);

        ShowLocal(250);

        QCOMPARE(Label("ptr_total_page_"), QString("3\\"));
        for (const char *const name : {"home", "previous", "next", "last"})
            QVERIFY(Button(("arbaric_" + QByteArray(name)).constData()) && !Button(name));
        page_->SetPageSeen(false);
        page_->GetTreeView()->SetTreeViewItemPerPage(50);
        QCOMPARE(Label("ptr_total_page_"), QString("3\\")); // the count that is stored
        page_->SetPageSeen(true);
        Button("arbaric_next")->click();
        QCOMPARE(Label("ptr_total_page_"), QString("5\\"));
    }

    void currentRowMovesWithinThePage()
    {
        page_->MoveFromTheCurrentRow(1); // before there is a model
        ShowLocal(250);
        page_->SetCurrentIndex(page_->GetTreeView()->model()->index(98, 0));
        page_->MoveFromTheCurrentRow(1);
        QCOMPARE(page_->GetSelectedRows().first().data().toString(), QString("99"));
        page_->MoveFromTheCurrentRow(1);
        page_->MoveFromTheCurrentRow(INT_MAX);
        page_->MoveFromTheCurrentRow(-100);
        QCOMPARE(page_->GetSelectedRows().first().row(), 99);
    }

    void slotMayClearTheListWhileThePageTurns()
    {
        ShowLocal(250);
        connect(page_.get(), &CMutiPageWidget::SignalPageChanged, page_.get(),
                &CMutiPageWidget::ClearAllItems);

        QTest::mouseClick(Button("next"), Qt::LeftButton);

        QCOMPARE(page_->GetCurrentPage(), 1);
        QCOMPARE(Enabled(), QString());
        QCOMPARE(page_->TopLevelItemCount(), 0);
    }

    void filterBarUnfoldsAndFiltersTheList()
    {
        Vantor::CMutiPageWidgetEx whole;
        auto *const button = whole.findChild<QPushButton *>("pShowHideBtn");
        whole.GetMutiPageWidget()->SetModel(model_.get());
        whole.SetModel(model_.get());
        QList<Ravel::CTreeViewItem *> items = Items(250);
        whole.GetMutiPageWidget()->AddTopLevelItems(items);
        QSignalSpy clear(&whole, &Vantor::CMutiPageWidgetEx::SignalClearFilter);
        QVERIFY(whole.GetFilterWidget()->isHidden() && whole.IsFilterWidgetShow());
        QVERIFY(button->styleSheet().contains("SepShow.png"));

        button->click();
        QVERIFY(!whole.GetFilterWidget()->isHidden());
        QVERIFY(button->styleSheet().contains("SepHide.png"));
        whole.SetKeyWord(" 24 ");
        whole.GetFilterWidget()->OnFilterBtnClicked();
        QCOMPARE(whole.TopLevelItemCount(), 13); // 24, 124, 224, 240 to 249
        whole.findChild<QPushButton *>("pClearBtn")->click();
        QCOMPARE(clear.count(), 1);
        QCOMPARE(whole.GetKeyWord(), QString());
        button->click();
        whole.SetFilterWidgetShow(true);
        QVERIFY(button->styleSheet().contains("SepShow.png")); // as the last click left it
        whole.SetFilterWidgetShow(false);
        QVERIFY(!whole.IsFilterWidgetShow() && whole.GetFilterWidget()->isHidden());
    }
};

QTEST_MAIN(TestMutiPageWidget)
#include "tst_mutipagewidget.moc"
