// SPDX-License-Identifier: MIT
#include "ClientSession.h"
#include "window/ProgressDialog.h"
#include "window/WindowActions.h"

#include <Vantor/CFilterTreeViewEx>
#include <Vantor/CListExport>
#include <Vantor/CMutiPageWidgetEx>

#include <QtWidgets/QMenuBar>
#include <QtWidgets/QToolButton>

using namespace Client;

namespace {

QVector<QRect> IconPlaces(const QLineEdit &field)
{
    QVector<QRect> places;
    const auto buttons = field.findChildren<QToolButton *>();
    for (const QToolButton *const button : buttons)
        places.append(button->geometry());
    return places;
}

bool HasArabic(const QString &text)
{
    return std::any_of(text.begin(), text.end(),
                       [](QChar c) { return c.script() == QChar::Script_Arabic; });
}

// The clear button of a field fades. Qt never frees the animation of a button that is deleted
// earlier when no event loop runs any more.
bool HasFaded(const QLineEdit &field)
{
    const auto buttons = field.findChildren<QToolButton *>();
    return std::any_of(buttons.cbegin(), buttons.cend(), [&field](const QToolButton *button) {
        const double wanted = field.text().isEmpty() ? 0 : 1;
        return button->defaultAction()
               && button->defaultAction()->objectName() == "_q_qlineeditclearaction"
               && qFuzzyCompare(button->property("opacity").toDouble() + 1, wanted + 1);
    });
}

struct Bench
{
    Bench()
    {
        theme.Apply(Theme::Light);
        language.Apply("en");
        window = std::make_unique<CMainWindow>(theme, language);
        window->SetList(ReadCsvFile(Options().ListPath()).list, "incidents.csv");
        window->show();
        total = Child<QLabel>("TotalLabel");
    }

    template <class Type> [[nodiscard]] Type *Child(const QString &name = {}) const
    {
        return window->findChild<Type *>(name);
    }
    // The list is rebuilt when the reading direction changes.
    [[nodiscard]] Vantor::CFilterTreeViewEx *Table() const
    {
        return Child<Vantor::CFilterTreeViewEx>();
    }
    [[nodiscard]] QLineEdit *Search() const { return Child<QLineEdit>("pKeyWordEdit"); }
    [[nodiscard]] QString Message() const { return window->statusBar()->currentMessage(); }

    CThemeSwitch theme;
    CLanguageSwitch language;
    std::unique_ptr<CMainWindow> window;
    QLabel *total = nullptr;
};

} // namespace

class TestClientWindow : public CGuardedTest
{
    Q_OBJECT

    void SetUp() override
    {
        bench_ = std::make_unique<Bench>();
        QVERIFY(bench_->Table() && bench_->Search() && bench_->total);
        QVERIFY(QTest::qWaitForWindowActive(bench_->window.get()));
    }

    void TearDown() override
    {
        QTRY_VERIFY(HasFaded(*bench_->Search()));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        bench_.reset();
        qApp->setLayoutDirection(Qt::LeftToRight);
    }

    QString ProposedName() const
    {
        bench_->window->activateWindow();
        if (!QTest::qWaitForWindowActive(bench_->window.get()))
            return {};
        QTest::keyClick(bench_->window.get(), Qt::Key_E, Qt::ControlModifier);
        const auto *const dialog = bench_->Child<QFileDialog>();
        return dialog ? dialog->findChild<QLineEdit *>("fileNameEdit")->text() : QString();
    }

    std::unique_ptr<Bench> bench_;

private Q_SLOTS:
    void searchFollowsTheKeys()
    {
        bench_->Table()->setCurrentIndex(bench_->Table()->model()->index(3, 2));
        const QString place = bench_->Table()->currentIndex().data().toString();
        bench_->Table()->setFocus();

        QTest::keyClick(bench_->window.get(), Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(QApplication::focusWidget(), "Herring gull");

        QCOMPARE(bench_->total->text(), QString("52 of 10,000"));
        QCOMPARE(bench_->window->Rows().rows.size(), 52);
        QVERIFY(!bench_->Table()->currentIndex().isValid());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        QCOMPARE(bench_->Search()->text(), QString());
        QCOMPARE(bench_->total->text(), QString("10,000 of 10,000"));

        bench_->Table()->setCurrentIndex(bench_->Table()->model()->index(3, 2));
        bench_->Search()->setText(place);
        QCOMPARE(bench_->Table()->currentIndex().data().toString(), place);
        QVERIFY(bench_->Table()->currentIndex().row() < 3);
    }

    void exportKeysWorkWhileSearching()
    {
        const QMap<int, QString> endings{{Qt::ControlModifier, "csv"},
                                         {Qt::ControlModifier | Qt::ShiftModifier, "xlsx"}};
        for (auto ending = endings.begin(); ending != endings.end(); ++ending) {
            bench_->window->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(bench_->window.get()));
            bench_->Search()->setFocus();
            QTest::keyClick(bench_->Search(), Qt::Key_E, Qt::KeyboardModifiers(ending.key()));
            const std::unique_ptr<QFileDialog> dialog(bench_->Child<QFileDialog>());
            QVERIFY(dialog && dialog->isVisible());
            QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
            QCOMPARE(dialog->defaultSuffix(), ending.value());
        }
    }

    void languageChangesInTheOpenWindow()
    {
        const auto first_menu = [this] {
            return bench_->window->menuBar()->actions().constFirst()->text();
        };
        QCOMPARE(first_menu(), QString("&File"));

        bench_->language.Apply("ar");

        QTRY_COMPARE(first_menu(), QString("ملف (&F)"));
        QTRY_COMPARE(bench_->total->text(), QString("١٠٬٠٠٠ من ١٠٬٠٠٠"));
        QCOMPARE(bench_->window->layoutDirection(), Qt::RightToLeft);
        QCOMPARE(bench_->window->style()->styleHint(QStyle::SH_UnderlineShortcut), 0);
        auto *const actions = bench_->Child<CWindowActions>();
        for (int id = 0; id < CWindowActions::kActionCount; ++id)
            QVERIFY2(HasArabic(actions->Action(CWindowActions::Id(id))->text()),
                     qPrintable(QString::number(id)));

        // A text in another direction leaves the icons of the field where they are.
        QTRY_COMPARE(bench_->Search()->layoutDirection(), Qt::RightToLeft);
        const QVector<QRect> places = IconPlaces(*bench_->Search());
        QCOMPARE(places.size(), 2);
        QTest::keyClicks(bench_->Search(), "gull");
        QCOMPARE(bench_->Search()->layoutDirection(), Qt::RightToLeft);
        QCOMPARE(IconPlaces(*bench_->Search()), places);

        bench_->language.Apply("en");
        QTRY_COMPARE(first_menu(), QString("&File"));
        QTRY_COMPARE(bench_->Search()->layoutDirection(), Qt::LeftToRight);
    }

    void openedFileIsShown()
    {
        const QString path = folder_.Put("own.csv", "letter\nB\nA\n");
        bench_->Search()->setText("gull");
        QSignalSpy idle(bench_->window.get(), &CMainWindow::SignalIdle);

        bench_->window->OpenFile(path);
        QVERIFY(!bench_->window->close()); // while it reads

        QVERIFY(idle.wait());
        QCOMPARE(bench_->Table()->model()->rowCount(), 2);
        QCOMPARE(bench_->Table()->model()->index(0, 0).data().toString(), QString("B"));
        QVERIFY(bench_->window->windowTitle().contains("own.csv"));

        bench_->window->OpenFile(folder_.Path("missing.csv"));
        QVERIFY(idle.wait());
        auto *const box = bench_->Child<QMessageBox>();
        QVERIFY(box && box->isVisible() && box->text().contains("missing.csv"));
        QCOMPARE(bench_->window->Rows().rows.size(), 2); // the list before
    }

    void exportsAreCancelledByTheDialogAndAtTheEnd()
    {
        bench_->window->SetList(bench_->window->Rows().list->Resized(500000), "long");
        QSignalSpy idle(bench_->window.get(), &CMainWindow::SignalIdle);
        QSignalSpy stopped(bench_->window.get(), &CMainWindow::SignalStopped);
        bench_->window->ExportTo(folder_.Path("cancelled.xlsx"));
        auto *const dialog = bench_->Child<CProgressDialog>();
        QTRY_VERIFY(dialog->isVisible());
        QVERIFY(!bench_->window->close() && bench_->window->isVisible());
        QTRY_VERIFY(dialog->findChild<QLabel *>("TimeLeft")->text().endsWith(" left"));

        QTest::keyClick(dialog, Qt::Key_Escape);

        QTRY_COMPARE(idle.size(), 1);
        QCOMPARE(bench_->Message(), QString("Export cancelled"));
        bench_->window->ExportTo(folder_.Path("stopped.csv"));
        bench_->window->Stop(143);
        QCOMPARE(stopped.count(), 0);
        QVERIFY(stopped.wait(30000));
        QCOMPARE(stopped.constFirst().constFirst().toInt(), 143);
        QCOMPARE(folder_.Files(), QStringList());
    }

    void failedExportIsProposedAgain()
    {
        folder_.PutFolder("place/list.csv"); // in place of the file
        QSignalSpy idle(bench_->window.get(), &CMainWindow::SignalIdle);
        bench_->window->ExportTo(folder_.Path("out.xyz")); // no format of ours
        QVERIFY(bench_->Child<QMessageBox>()->text().contains(".csv"));
        delete bench_->Child<QMessageBox>();

        bench_->window->ExportTo(folder_.Path("place/list.csv"));

        QVERIFY(idle.wait());
        delete bench_->Child<QMessageBox>();
        QCOMPARE(ProposedName(), QString("list.csv"));
        QCOMPARE(bench_->Child<QFileDialog>()->directory().path(), folder_.Path("place"));
        delete bench_->Child<QFileDialog>();

        bench_->window->statusBar()->showMessage("about the list before");
        bench_->window->SetList(bench_->window->Rows().list, "gates.2024.txt");
        QCOMPARE(bench_->Message(), QString());
        QCOMPARE(ProposedName(), QString("gates.2024.csv"));
    }

    void editMenuCopiesFromTheFocus()
    {
        auto *const actions = bench_->Child<CWindowActions>();
        QAction *const copy = actions->Action(CWindowActions::kCopy);
        QAction *const select_all = actions->Action(CWindowActions::kSelectAll);
        bench_->Search()->setText("gull");
        bench_->Search()->setFocus();

        select_all->trigger();
        copy->trigger();

        QCOMPARE(QGuiApplication::clipboard()->text(), QString("gull"));
        bench_->Table()->setFocus();
        bench_->Table()->setCurrentIndex(bench_->Table()->model()->index(2, 1));
        copy->trigger();
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 bench_->Table()->currentIndex().data().toString());
        Q_EMIT actions->SignalEditMenuOpens();
        QVERIFY(copy->isEnabled() && !select_all->isEnabled());
    }

    void keysReachEveryPage()
    {
        guard_.AnnounceWarnings("Could not parse stylesheet"); // of the login page
        CPages &pages = bench_->window->Pages();
        const QStringList names = CPages::Names();
        for (int i = names.size(); i-- > 0;) {
            QTest::keyClick(bench_->window.get(), Qt::Key(Qt::Key_1 + i), Qt::ControlModifier);
            QCOMPARE(pages.Current(), names.at(i));
        }
        QVERIFY(!pages.Show("no such page") && pages.Show(names.constLast()));
        QTest::keyClick(bench_->window.get(), Qt::Key_F, Qt::ControlModifier);
        QCOMPARE(pages.Current(), names.constFirst());
        QVERIFY(bench_->Search()->hasFocus());
    }

    void typesAreFilteredByTheButton()
    {
        auto *const list = bench_->Child<Vantor::CMutiPageWidgetEx>();
        QTest::mouseClick(bench_->Child<QWidget>("pKeyWordCheckBtn"), Qt::LeftButton, {}, {8, 8});
        list->SetSelectedMainType({"Texas"});
        list->SetSelectedSubType({"HOUSTON-HOBBY"});

        bench_->Child<QAbstractButton>("pFilterBtn")->click();

        const IncidentRows rows = bench_->window->Rows();
        QVERIFY(!rows.rows.isEmpty() && rows.rows.size() < 10000);
        for (const int row : rows.rows)
            QCOMPARE(rows.list->Text(row, 0), QString("HOUSTON-HOBBY"));
        QCOMPARE(rows.filter, QString("Texas / HOUSTON-HOBBY"));
        bench_->Child<QAbstractButton>("pClearBtn")->click();
        QCOMPARE(bench_->window->Rows().rows.size(), 10000);
        QCOMPARE(bench_->window->Rows().filter, QString());
    }
};

QTEST_MAIN(TestClientWindow)
#include "tst_client_window.moc"
