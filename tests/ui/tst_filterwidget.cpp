// SPDX-License-Identifier: MIT
#include "support/Widgets.h"

#include <Ravel/TreeViewItem.h>
#include <Ravel/TreeViewModel.h>
#include <Vantor/CComboBoxEx>
#include <Vantor/CComboBoxModel>
#include <Vantor/CFilterWidgetEx>

using Ravel::CTreeViewItem;
using namespace Vantor;

// main, is_exact, field, subs
const Rows<QStringList, bool, QString, QString> kMainTypesRows = {
    {"one", {"Bat"}, false, "Bat", "All|Red bat"},
    {"a part of another name", {"Bird"}, false, "Bird", "All|crow|Gull"},
    {"two", {"Bat", "Bird"}, false, "Bat;Bird", "All|crow|Gull|Red bat"},
    {"none", {}, false, "", ""},
    {"blank", {""}, false, "Blank", "All|unknown"},
    {"a text that is no plain expression", {"Bird (big)"}, false, "Bird (big)", ""},
    {"the same as it is", {"Bird (big)"}, true, "Bird (big)", "All|Gull"},
};

class TestFilterWidget : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        model_ = std::make_unique<Ravel::CTreeViewModel>();
        model_->SetHorizontalHeaderLabels({"Time", "Kind", "Species"});
        Add({{"1", "Bird", "Gull"},
             {"2", "Bird", "crow"},
             {"3", "Bat", "Red bat"},
             {"4", "Bird (big)", "Gull"},
             {"5", "", "unknown"}});
        bar_ = std::make_unique<CFilterWidgetEx>();
        bar_->SetRelatedIndex(1, 2);
        bar_->SetModel(model_.get());
        bar_->AddTopLevelItems();
    }

    void TearDown() override
    {
        bar_.reset();
        model_.reset();
    }

    void Add(const QList<QStringList> &rows)
    {
        QList<CTreeViewItem *> items;
        for (const QStringList &row : rows)
            items.append(new CTreeViewItem(row));
        QVERIFY(model_->InsertTopLevelItems(model_->rowCount(), items));
    }

    static QString Rows(const CComboBoxEx *combo)
    {
        QStringList rows;
        for (int i = 0; i < combo->count(); ++i)
            rows.append(combo->itemText(i));
        return rows.join('|');
    }

    std::unique_ptr<Ravel::CTreeViewModel> model_;
    std::unique_ptr<CFilterWidgetEx> bar_;

private Q_SLOTS:
    void subTypesFollowTheMainTypes_data() { AddRows(kMainTypesRows); }

    void subTypesFollowTheMainTypes()
    {
        const auto &[name, main, is_exact, field, subs] = FetchRow(kMainTypesRows);
        if (is_exact)
            bar_->GetSubTypeComboBox()->SetMainTypes(bar_->GetMainTypeComboBox());

        bar_->SetSelectedMainType(main);

        QCOMPARE(bar_->GetSelectedMainType(), main);
        QCOMPARE(bar_->GetMainTypeComboBox()->currentText(), field);
        QCOMPARE(Rows(bar_->GetSubTypeComboBox()), subs);
        bar_->OnClearFilter();
        QCOMPARE(Rows(bar_->GetSubTypeComboBox()),
                 is_exact ? QString("All|crow|Gull|Red bat|unknown") : QString());
    }

    void newRowsBringTheirTypesTickedAndKeepWhatIsUnticked()
    {
        CComboBoxEx &sub = *bar_->GetSubTypeComboBox();
        sub.SetMainTypes(bar_->GetMainTypeComboBox());
        bar_->SetSelectedSubType({"Gull", "crow"});

        Add({{"6", "Bird", "Stork"}, {"7", "All", "Auk"}});
        bar_->AddTopLevelItems();

        QCOMPARE(bar_->GetSelectedSubType(), QStringList({"Auk", "crow", "Gull", "Stork"}));
        bar_->SetSelectedMainType({"All"}); // a type, not everything
        QCOMPARE(Rows(&sub), QString("All|Auk"));
        QVERIFY(model_->setData(model_->index(6, 2), "Kea"));
        bar_->AddTopLevelItems();
        QCOMPARE(Rows(&sub), QString("All|Kea"));
        QSignalSpy changed(sub.model(), &QAbstractItemModel::dataChanged);
        QEvent language(QEvent::LanguageChange);
        QCoreApplication::sendEvent(&sub, &language);
        QVERIFY(!changed.isEmpty()); // "All" is in another language
        QVERIFY(model_->removeRows(5, 2));
        bar_->AddTopLevelItems();
        QVERIFY(!Rows(bar_->GetMainTypeComboBox()).contains("All|All"));
        QCOMPARE(bar_->GetSelectedSubType(), QStringList({"crow", "Gull"}));
        bar_->OnClearFilter();
        QCOMPARE(bar_->GetSelectedSubType().size(), 4);
        bar_->ClearAllItems();
        QCOMPARE(Rows(&sub), QString());
        QCOMPARE(sub.currentText(), QString());
    }

    void aClickOnTheFieldOpensTheListForGood()
    {
        bar_->SetByKeyWord(true);
        bar_->SetByKeyWord(false);
        bar_->show();
        QVERIFY(QTest::qWaitForWindowExposed(bar_.get()));
        CComboBoxEx &combo = *bar_->GetMainTypeComboBox();
        const QPoint field = combo.lineEdit()->mapTo(bar_.get(), combo.lineEdit()->rect().center());

        QTest::mousePress(bar_->windowHandle(), Qt::LeftButton, {}, field);
        QVERIFY(combo.view()->isVisible());
        QTest::mouseRelease(bar_->windowHandle(), Qt::LeftButton, {}, field);
        QCoreApplication::processEvents();

        QVERIFY(combo.view()->isVisible());
        combo.hidePopup();
    }

    void boxOfAllTicksWhatIsShown()
    {
        std::vector<QString> texts{"a", "b", "c"};
        Vantor::CComboBoxModel items;
        const QAbstractItemModelTester tester(
            &items, QAbstractItemModelTester::FailureReportingMode::QtTest);
        items.ConstructModel(texts);
        const QModelIndex all = items.index(0);

        items.SetShown({1, 1, 0});
        QVERIFY(items.setData(all, Qt::Unchecked, Qt::CheckStateRole));
        QCOMPARE(items.TickedTexts(), QStringList("c"));
        QCOMPARE(all.data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
        QVERIFY(items.setData(items.index(2), Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(all.data(Qt::CheckStateRole).toInt(), int(Qt::PartiallyChecked));
        QVERIFY(items.setData(all, Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(items.TickedTexts().size(), 3);
    }

    void filterButtonAsksForWhatIsChosen()
    {
        QSignalSpy keyword(bar_.get(), &CFilterWidgetEx::SignalFilterWithKeyWord);
        QSignalSpy types(bar_.get(), &CFilterWidgetEx::SignalFilterWithKeyWords);
        auto *const edit = bar_->findChild<QLineEdit *>("pKeyWordEdit");
        QVERIFY(!edit->isEnabled());

        bar_->findChild<QPushButton *>("pFilterBtn")->click();
        QCOMPARE(types.count(), 1);
        bar_->findChild<QCheckBox *>("pKeyWordCheckBtn")->click();
        QVERIFY(edit->isEnabled() && bar_->IsKeyWord());
        QCOMPARE(bar_->findChild<QLabel *>("pSubTypeLabel")->text(), QString("Species:"));
        QTest::keyClicks(edit, " two words ");
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(keyword.count(), 1);
        QCOMPARE(keyword.first().first().toString(), QString("two words"));
        QCOMPARE(types.count(), 1);
    }

    void aHundredThousandTypesStayOneFieldAndOnePopup()
    {
        QList<CTreeViewItem *> items;
        for (int i = 0; i < 100000; ++i)
            items.append(new CTreeViewItem({"t", "k", QStringLiteral("type %1").arg(i)}));
        QVERIFY(model_->InsertTopLevelItems(0, items));
        bar_->AddTopLevelItems();
        CComboBoxEx &combo = *bar_->GetSubTypeComboBox();
        combo.SetMainTypes(bar_->GetMainTypeComboBox());
        QSignalSpy field(&combo, &QComboBox::editTextChanged);

        combo.model()->setData(combo.model()->index(1, 0), Qt::Unchecked, Qt::CheckStateRole);

        QCOMPARE(combo.GetSelectedStringItems().size(), 100003);
        QVERIFY(field.first().first().toString().size() > 1000000);
        QVERIFY(combo.currentText().size() < 2000);
    }
};

QTEST_MAIN(TestFilterWidget)
#include "tst_filterwidget.moc"
