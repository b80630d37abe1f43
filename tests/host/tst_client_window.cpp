// SPDX-License-Identifier: MIT
#include "app/CommandLine.h"
#include "export/ListExport.h"
#include "look/Language.h"
#include "look/Theme.h"
#include "support/Files.h"
#include "support/TestGuard.h"
#include "window/MainWindow.h"
#include "window/Pages.h"
#include "window/ProgressDialog.h"
#include "window/WindowActions.h"

#include <Vantor/CFilterProxyModelEx>
#include <Vantor/CFilterTreeViewEx>
#include <Vantor/CMutiPageWidgetEx>
#include <Vantor/CStyleManager>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtGui/QClipboard>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolButton>

using namespace Client;

#include <algorithm>

namespace {

QVector<QColor> ThemeColours()
{
    const auto &manager = Nim::Base::CSingleton<Vantor::CStyleManager>::Instance();
    const QMetaObject *const meta = manager.metaObject();
    QVector<QColor> colours;
    for (int i = meta->propertyOffset(); i < meta->propertyCount(); ++i)
        colours.append(meta->property(i).read(&manager).value<QColor>());
    return colours;
}

QVector<QRect> IconPlaces(const QLineEdit &field)
{
    QVector<QRect> places;
    const auto buttons = field.findChildren<QToolButton *>();
    for (const QToolButton *const button : buttons)
        places.append(button->geometry());
    return places;
}

} // namespace

class tst_client_window : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void eachThemeFillsTheTwelveColoursAnew();
    void searchFollowsTheKeys();
    void exportKeysWorkWhileSearching_data();
    void exportKeysWorkWhileSearching();
    void selectedIncidentStaysSelectedWhileItIsShown();
    void languageSwitchTurnsTheOpenWindow();
    void countsFollowTheLanguage_data();
    void countsFollowTheLanguage();
    void openedFileIsShown();
    void unreadableFileLeavesTheListAndTellsWhy();
    void windowStaysOpenUntilTheExportIsDone();
    void workbookIsExportedBehindADialogThatCancels();
    void exportOfAnotherKindIsRefusedWithAMessage();
    void stopCancelsTheExportFirst();
    void failedExportIsProposedAgain();
    void nextListBringsItsOwnNameAndNoOldMessage();
    void latinTextLeavesTheIconsOfAnArabicFieldWhereTheyAre();
    void editMenuCopiesWhereTheKeysGo();
    void keysReachEveryPage();
    void typesAreFilteredByTheButton();
    void keysTurnPagesAndLeaveThemWhole();

private:
    struct Bench;

    [[nodiscard]] QFileDialog *OpenExportDialog() const;

    CTestGuard guard_;
    QTemporaryDir folder_;
    std::unique_ptr<Bench> bench_;
};

struct tst_client_window::Bench
{
    Bench()
    {
        theme.Apply(Theme::Light);
        language.Apply(QStringLiteral("en"));
        window = std::make_unique<CMainWindow>(theme, language);
        window->SetList(ReadCsvFile(Options().ListPath()).list, QStringLiteral("incidents.csv"));
        window->show();
        total = window->findChild<QLabel *>(QStringLiteral("TotalLabel"));
    }

    // The list is built anew when the reading direction turns.
    [[nodiscard]] Vantor::CFilterTreeViewEx *Table() const
    {
        return window->findChild<Vantor::CFilterTreeViewEx *>();
    }
    [[nodiscard]] QLineEdit *Search() const
    {
        return window->findChild<QLineEdit *>(QStringLiteral("pKeyWordEdit"));
    }

    CThemeSwitch theme;
    CLanguageSwitch language;
    std::unique_ptr<CMainWindow> window;
    QLabel *total = nullptr;
};

QFileDialog *tst_client_window::OpenExportDialog() const
{
    bench_->window->activateWindow();
    if (!QTest::qWaitForWindowActive(bench_->window.get()))
        return nullptr;
    QTest::keyClick(bench_->window.get(), Qt::Key_E, Qt::ControlModifier);
    return bench_->window->findChild<QFileDialog *>();
}

void tst_client_window::init()
{
    bench_ = std::make_unique<Bench>();
    QVERIFY(bench_->Table() && bench_->Search() && bench_->total);
    QVERIFY(QTest::qWaitForWindowActive(bench_->window.get()));
    guard_.Begin();
}

void tst_client_window::cleanup()
{
    // The clear button of the search field fades; an animation whose button goes before its end is
    // never freed by Qt when no event loop runs any more.
    const auto has_faded = [this] {
        const auto buttons = bench_->Search()->findChildren<QToolButton *>();
        const bool is_empty = bench_->Search()->text().isEmpty();
        return std::any_of(buttons.cbegin(), buttons.cend(), [is_empty](const QToolButton *button) {
            const bool clears = button->defaultAction()
                                && button->defaultAction()->objectName()
                                       == QLatin1String("_q_qlineeditclearaction");
            return clears
                   && qFuzzyCompare(button->property("opacity").toDouble() + 1,
                                    is_empty ? 1.0 : 2.0);
        });
    };
    QTRY_VERIFY(has_faded());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    bench_.reset();
    qApp->setLayoutDirection(Qt::LeftToRight);
    const QString fault = guard_.End();
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
}

void tst_client_window::eachThemeFillsTheTwelveColoursAnew()
{
    const QVector<QColor> light = ThemeColours();

    bench_->theme.Apply(Theme::Dark);

    const QVector<QColor> dark = ThemeColours();
    QCOMPARE(light.size(), 12);
    QCOMPARE(dark.size(), 12);
    for (int i = 0; i < light.size(); ++i) {
        QVERIFY2(light.at(i).isValid() && dark.at(i).isValid(), qPrintable(QString::number(i)));
        QVERIFY2(light.at(i) != dark.at(i), qPrintable(QString::number(i)));
    }
}

void tst_client_window::searchFollowsTheKeys()
{
    bench_->Table()->setFocus();

    QTest::keyClick(bench_->window.get(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Herring gull"));

    QCOMPARE(bench_->total->text(), QStringLiteral("52 of 10,000"));
    QCOMPARE(bench_->window->Rows().rows.size(), 52);

    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);

    QCOMPARE(bench_->Search()->text(), QString());
    QCOMPARE(bench_->total->text(), QStringLiteral("10,000 of 10,000"));
}

void tst_client_window::exportKeysWorkWhileSearching_data()
{
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<QString>("ending");
    QTest::newRow("CSV") << Qt::KeyboardModifiers(Qt::ControlModifier) << QStringLiteral("csv");
    QTest::newRow("XLSX") << (Qt::ControlModifier | Qt::ShiftModifier) << QStringLiteral("xlsx");
}

void tst_client_window::exportKeysWorkWhileSearching()
{
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(QString, ending);
    bench_->Search()->setFocus();

    QTest::keyClick(bench_->Search(), Qt::Key_E, modifiers);

    auto *const dialog = bench_->window->findChild<QFileDialog *>();
    QVERIFY(dialog && dialog->isVisible());
    QCOMPARE(dialog->acceptMode(), QFileDialog::AcceptSave);
    QCOMPARE(dialog->defaultSuffix(), ending);
}

void tst_client_window::selectedIncidentStaysSelectedWhileItIsShown()
{
    QAbstractItemModel *const model = bench_->Table()->model();
    const QModelIndex fourth = model->index(3, 2); // the airport
    bench_->Table()->setCurrentIndex(fourth);
    const QString place = fourth.data().toString();

    bench_->Search()->setText(place);

    QCOMPARE(bench_->Table()->currentIndex().data().toString(), place);
    QVERIFY(bench_->Table()->currentIndex().row() < 3);

    bench_->Search()->setText(QStringLiteral("no incident holds this"));

    QVERIFY(!bench_->Table()->currentIndex().isValid());
}

void tst_client_window::languageSwitchTurnsTheOpenWindow()
{
    QMenuBar *const bar = bench_->window->menuBar();
    QCOMPARE(bar->actions().constFirst()->text(), QStringLiteral("&File"));

    bench_->language.Apply(QStringLiteral("ar"));

    QTRY_COMPARE(bar->actions().constFirst()->text(), QStringLiteral("&ملف"));
    QTRY_COMPARE(bench_->total->text(), QStringLiteral("١٠٬٠٠٠ من ١٠٬٠٠٠"));
    QCOMPARE(bench_->window->layoutDirection(), Qt::RightToLeft);
    QCOMPARE(QCoreApplication::translate("Vantor", "Please wait"), QStringLiteral("يرجى الانتظار"));

    bench_->language.Apply(QStringLiteral("en"));

    QTRY_COMPARE(bar->actions().constFirst()->text(), QStringLiteral("&File"));
    QCOMPARE(bench_->window->layoutDirection(), Qt::LeftToRight);
}

void tst_client_window::countsFollowTheLanguage_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("rows");
    QTest::addColumn<QString>("text");
    const auto add = [](const char *name, const char *language, int rows, const char16_t *text) {
        QTest::newRow(name) << QString::fromLatin1(language) << rows << QString::fromUtf16(text);
    };
    add("English, one", "en", 1, u"1 incident exported to f");
    add("English, many", "en", 10000, u"10,000 incidents exported to f");
    add("Arabic, none", "ar", 0, u"لم يُصدَّر أي حادث إلى \u200Ef");
    add("Arabic, one", "ar", 1, u"صُدِّر حادث واحد إلى \u200Ef");
    add("Arabic, two", "ar", 2, u"صُدِّر حادثان إلى \u200Ef");
    add("Arabic, a few", "ar", 3, u"صُدِّرت ٣ حوادث إلى \u200Ef");
    add("Arabic, many", "ar", 11, u"صُدِّر ١١ حادثًا إلى \u200Ef");
    add("Arabic, hundreds", "ar", 100, u"صُدِّر ١٠٠ حادث إلى \u200Ef");
}

void tst_client_window::countsFollowTheLanguage()
{
    QFETCH(QString, language);
    QFETCH(int, rows);
    QFETCH(QString, text);
    bench_->language.Apply(language);
    ExportResult result;
    result.rows = rows;
    result.path = QStringLiteral("f");

    QCOMPARE(ExportedText(result), text);
}

void tst_client_window::openedFileIsShown()
{
    const QString path = folder_.filePath(QStringLiteral("own.csv"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("letter\nB\nA\n");
    file.close();
    bench_->Search()->setText(QStringLiteral("gull"));
    QSignalSpy idle(bench_->window.get(), &CMainWindow::SignalIdle);

    bench_->window->OpenFile(path);

    QVERIFY(idle.wait());
    QCOMPARE(bench_->Table()->model()->rowCount(), 2);
    QCOMPARE(bench_->Table()->model()->index(0, 0).data().toString(), QStringLiteral("B"));
    QVERIFY(bench_->window->windowTitle().contains(QStringLiteral("own.csv")));
}

void tst_client_window::unreadableFileLeavesTheListAndTellsWhy()
{
    QSignalSpy idle(bench_->window.get(), &CMainWindow::SignalIdle);

    bench_->window->OpenFile(folder_.filePath(QStringLiteral("missing.csv")));

    QVERIFY(idle.wait());
    auto *const box = bench_->window->findChild<QMessageBox *>();
    QVERIFY(box && box->isVisible());
    QVERIFY2(box->text().contains(QStringLiteral("missing.csv")), qPrintable(box->text()));
    QCOMPARE(bench_->window->Rows().rows.size(), 10000);
}

void tst_client_window::windowStaysOpenUntilTheExportIsDone()
{
    const QString path = folder_.filePath(QStringLiteral("out.csv"));
    QSignalSpy idle(bench_->window.get(), &CMainWindow::SignalIdle);
    bench_->window->ExportTo(path);

    QVERIFY(!bench_->window->close());

    QVERIFY(bench_->window->isVisible());
    QVERIFY(idle.wait(30000));
    QVERIFY(FileBytes(path).count('\n') == 10001);
    QVERIFY(bench_->window->statusBar()->currentMessage().startsWith(
        QStringLiteral("10,000 incidents exported")));
    QVERIFY(bench_->window->close());
}

void tst_client_window::workbookIsExportedBehindADialogThatCancels()
{
    const QString path = folder_.filePath(QStringLiteral("cancelled.xlsx"));
    const IncidentListPtr list = ReadCsvFile(Options().ListPath()).list;
    bench_->window->SetList(list->Resized(500000), QStringLiteral("long"));
    QSignalSpy idle(bench_->window.get(), &CMainWindow::SignalIdle);
    bench_->window->ExportTo(path);
    auto *const dialog = bench_->window->findChild<CProgressDialog *>();
    QVERIFY(dialog != nullptr);
    auto *const time_left = dialog->findChild<QLabel *>(QStringLiteral("TimeLeft"));
    QVERIFY(time_left != nullptr);
    QTRY_VERIFY(dialog->isVisible());
    QTRY_VERIFY(time_left->text().endsWith(QStringLiteral(" left")));

    QTest::keyClick(dialog, Qt::Key_Escape);

    QTRY_COMPARE(idle.size(), 1);
    QCOMPARE(bench_->window->statusBar()->currentMessage(), QStringLiteral("Export cancelled"));
    QVERIFY(!QFile::exists(path));
}

void tst_client_window::exportOfAnotherKindIsRefusedWithAMessage()
{
    const QString path = folder_.filePath(QStringLiteral("out.xyz"));

    bench_->window->ExportTo(path);

    auto *const box = bench_->window->findChild<QMessageBox *>();
    QVERIFY(box != nullptr);
    QVERIFY(box->isVisible());
    QVERIFY(box->text().contains(QStringLiteral(".csv")));
    QVERIFY(!QFile::exists(path));
}

void tst_client_window::stopCancelsTheExportFirst()
{
    const QString path = folder_.filePath(QStringLiteral("stopped.csv"));
    QSignalSpy stopped(bench_->window.get(), &CMainWindow::SignalStopped);
    bench_->window->ExportTo(path);

    bench_->window->Stop(143);

    QCOMPARE(stopped.count(), 0);
    QVERIFY(stopped.wait(30000));
    QCOMPARE(stopped.constFirst().constFirst().toInt(), 143);
    QVERIFY(!QFile::exists(path));
    QCOMPARE(bench_->window->statusBar()->currentMessage(), QStringLiteral("Export cancelled"));
}

void tst_client_window::failedExportIsProposedAgain()
{
    const QString folder = folder_.filePath(QStringLiteral("place"));
    QVERIFY(QDir().mkpath(folder + QStringLiteral("/list.csv")));
    QSignalSpy idle(bench_->window.get(), &CMainWindow::SignalIdle);

    bench_->window->ExportTo(folder + QStringLiteral("/list.csv")); // is a folder

    QVERIFY(idle.wait());
    delete bench_->window->findChild<QMessageBox *>();
    QFileDialog *const dialog = OpenExportDialog();
    QVERIFY(dialog);
    QCOMPARE(dialog->directory().path(), folder);
    QCOMPARE(dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->text(),
             QStringLiteral("list.csv"));
}

void tst_client_window::nextListBringsItsOwnNameAndNoOldMessage()
{
    bench_->window->statusBar()->showMessage(QStringLiteral("of the list before"));

    bench_->window->SetList(bench_->window->Rows().list, QStringLiteral("gates.2024.txt"));

    QCOMPARE(bench_->window->statusBar()->currentMessage(), QString());
    QFileDialog *const dialog = OpenExportDialog();
    QVERIFY(dialog);
    QCOMPARE(dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->text(),
             QStringLiteral("gates.2024.csv"));
}

void tst_client_window::latinTextLeavesTheIconsOfAnArabicFieldWhereTheyAre()
{
    bench_->language.Apply(QStringLiteral("ar"));
    QTRY_COMPARE(bench_->Search()->layoutDirection(), Qt::RightToLeft);
    const QVector<QRect> places = IconPlaces(*bench_->Search());
    QCOMPARE(places.size(), 2);

    QTest::keyClick(bench_->window.get(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(bench_->Search(), QStringLiteral("gull"));

    QCOMPARE(bench_->Search()->layoutDirection(), Qt::RightToLeft);
    QCOMPARE(IconPlaces(*bench_->Search()), places);
    bench_->language.Apply(QStringLiteral("en"));
    QTRY_COMPARE(bench_->Search()->layoutDirection(), Qt::LeftToRight);
}

void tst_client_window::editMenuCopiesWhereTheKeysGo()
{
    auto *const actions = bench_->window->findChild<CWindowActions *>();
    bench_->Search()->setText(QStringLiteral("gull"));
    bench_->Search()->setFocus();

    actions->SelectAll()->trigger();
    actions->Copy()->trigger();

    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("gull"));

    bench_->Table()->setFocus();
    bench_->Table()->setCurrentIndex(bench_->Table()->model()->index(2, 1));
    actions->Copy()->trigger();

    QCOMPARE(QGuiApplication::clipboard()->text(),
             bench_->Table()->currentIndex().data().toString());
    Q_EMIT actions->SignalEditMenuOpens();
    QVERIFY(actions->Copy()->isEnabled());
    QVERIFY(!actions->SelectAll()->isEnabled());
}

void tst_client_window::keysReachEveryPage()
{
    guard_.AnnounceWarnings(QStringLiteral("Could not parse stylesheet")); // of the login page
    CPages &pages = bench_->window->Pages();
    const QStringList names = CPages::Names();
    for (int i = names.size(); i-- > 0;) {
        QTest::keyClick(bench_->window.get(), Qt::Key(Qt::Key_1 + i), Qt::ControlModifier);
        QCOMPARE(pages.Current(), names.at(i));
    }
    QVERIFY(!pages.Show(QStringLiteral("none such")));
    QVERIFY(pages.Show(names.constLast()));
    QTest::keyClick(bench_->window.get(), Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(pages.Current(), names.constFirst());
    QVERIFY(bench_->Search()->hasFocus());
}

void tst_client_window::typesAreFilteredByTheButton()
{
    auto *const list = bench_->window->findChild<Vantor::CMutiPageWidgetEx *>();
    QTest::mouseClick(bench_->window->findChild<QWidget *>(QStringLiteral("pKeyWordCheckBtn")),
                      Qt::LeftButton, {}, {8, 8});
    list->SetSelectedMainType({QStringLiteral("Texas")});
    list->SetSelectedSubType({QStringLiteral("HOUSTON-HOBBY")});

    bench_->window->findChild<QPushButton *>(QStringLiteral("pFilterBtn"))->click();

    const IncidentRows rows = bench_->window->Rows();
    QVERIFY(rows.rows.size() > 0 && rows.rows.size() < 10000);
    for (const int row : rows.rows)
        QCOMPARE(rows.list->Text(row, 0), QStringLiteral("HOUSTON-HOBBY"));
    QCOMPARE(rows.filter, QStringLiteral("Texas / HOUSTON-HOBBY"));

    bench_->window->findChild<QPushButton *>(QStringLiteral("pClearBtn"))->click();
    QCOMPARE(bench_->window->Rows().rows.size(), 10000);
    QCOMPARE(bench_->window->Rows().filter, QString());
}

void tst_client_window::keysTurnPagesAndLeaveThemWhole()
{
    Vantor::CFilterTreeViewEx *const table = bench_->Table();
    const auto first = [table] { return table->model()->index(0, 0).data().toString(); };
    table->setFocus();
    table->setCurrentIndex(table->model()->index(0, 0));
    const QString of_first_page = first();

    QTest::keyClick(table, Qt::Key_PageDown);
    QCOMPARE(first(), of_first_page);
    QVERIFY(table->currentIndex().row() > 0);
    QTest::keyClick(table, Qt::Key_PageDown, Qt::ControlModifier);
    QCOMPARE(table->GetBackupModel()->index(table->GetItemsPerPage(), 0).data().toString(),
             first());
    table->header()->setSortIndicator(13, Qt::DescendingOrder); // knots
    QCOMPARE(table->model()->index(0, 13).data().toString(), QStringLiteral("350"));
}

QTEST_MAIN(tst_client_window)
#include "tst_client_window.moc"
