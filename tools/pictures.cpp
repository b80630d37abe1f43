// SPDX-License-Identifier: MIT
// Takes the pictures of docs/images: tools/pictures runs it. A picture is taken by what a user
// would do: clicks and keys in the client's window. Popups and panels are windows of their own, and
// are painted over it.
#include "app/CommandLine.h"
#include "link/ServerLink.h"
#include "list/CsvFile.h"
#include "look/Language.h"
#include "look/Theme.h"
#include "window/MainWindow.h"
#include "window/Pages.h"

#include <Vantor/CBaseFileProgressBar>
#include <Vantor/CComboBoxEx>
#include <Vantor/CCustomizeColumnButton>
#include <Vantor/CFilterTreeViewEx>
#include <Vantor/CFilterWidgetEx>

#include <QtCore/QDir>
#include <QtCore/QLoggingCategory>
#include <QtCore/QTemporaryDir>
#include <QtGui/QPainter>
#include <QtTest/QTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>

#include <functional>

using namespace Client;

namespace {

Q_LOGGING_CATEGORY(log_names, "pictures")

constexpr QSize kWindowSizePx(1280, 800);
constexpr int kSettle_ms = 600; // longer than each animation
constexpr int kLongest_ms = 60000;

class CPhotographer
{
public:
    explicit CPhotographer(const QString &folder) : folder_(folder) {}

    // A new window for each picture, so that no picture depends on an earlier one.
    void Take(const QString &name, const char *page, Theme theme, const char *language,
              const std::function<void(CMainWindow &)> &prepare = {})
    {
        language_.Apply(QLatin1String(language));
        theme_.Apply(theme);
        CMainWindow window(theme_, language_);
        window.SetServerLink(link_);
        if (link_.User().isEmpty() && !link_.IsConnecting())
            link_.Start({}, CServerLink::Users().constFirst(), data_.path());
        window.resize(kWindowSizePx);
        window.SetList(ReadCsvFile(Options().ListPath()).list, QStringLiteral("incidents.csv"));
        window.show();
        window.Pages().Show(QLatin1String(page));
        window.Pages().PrepareForPicture();
        if (!QTest::qWaitFor([&] { return !link_.IsConnecting() && !window.Pages().IsLoading(); },
                             kLongest_ms))
            qFatal("%s: the page still loads", qPrintable(name));
        QTest::qWait(kSettle_ms);
        if (prepare)
            prepare(window);
        QTest::qWait(kSettle_ms);
        const QString path = folder_.filePath(name + QStringLiteral(".png"));
        if (!Grab(window).save(path))
            qFatal("cannot write %s", qPrintable(path));
        qCInfo(log_names, "%s", qPrintable(path));
    }

private:
    static QPixmap Grab(CMainWindow &window)
    {
        QPixmap picture = window.grab();
        QPainter painter(&picture);
        const auto others = QApplication::topLevelWidgets();
        for (QWidget *const other : others) {
            if (other != &window && other->isVisible())
                painter.drawPixmap(other->mapToGlobal({}) - window.mapToGlobal({}), other->grab());
        }
        return picture;
    }

    const QDir folder_;
    QTemporaryDir data_; // of the server; without columns that a user has chosen
    CServerLink link_;
    CThemeSwitch theme_;
    CLanguageSwitch language_;
};

void FilterByTypes(CMainWindow &window)
{
    auto *const filter = window.findChild<Vantor::CFilterWidgetEx *>();
    filter->SetByKeyWord(false);
    const QStringList states{QStringLiteral("Louisiana"), QStringLiteral("Ohio"),
                             QStringLiteral("Texas")};
    filter->SetSelectedMainType(states);
    filter->GetMainTypeComboBox()->CheckOutSelectedItems();
    filter->OnFilterBtnClicked();
    QTest::qWait(kSettle_ms);
    filter->GetSubTypeComboBox()->showPopup();
}

void OpenColumns(CMainWindow &window)
{
    window.findChild<Vantor::CCustomizeColumnButton *>()->click();
}

void OpenDetail(CMainWindow &window)
{
    auto *const table = window.findChild<Vantor::CFilterTreeViewEx *>();
    table->setFocus();
    table->setCurrentIndex(table->model()->index(6, 0));
    QTest::keyClick(table, Qt::Key_Return);
}

void OpenExport(CMainWindow &window)
{
    const QKeySequence keys(Qt::CTRL | Qt::ALT | Qt::Key_E);
    const auto actions = window.findChildren<QAction *>();
    for (QAction *const action : actions) {
        if (action->shortcut() == keys)
            action->trigger();
    }
}

void ShowTip(CMainWindow &window)
{
    window.findChild<Vantor::CBaseFileProgressBar *>()->ShowTip();
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc != 2)
        qFatal("usage: tools/pictures");
    CPhotographer photographer(QString::fromLocal8Bit(argv[1]));
    photographer.Take(QStringLiteral("client-light"), "list", Theme::Light, "en");
    photographer.Take(QStringLiteral("list-types"), "list", Theme::Light, "en", FilterByTypes);
    photographer.Take(QStringLiteral("list-types-dark-ar"), "list", Theme::Dark, "ar",
                      FilterByTypes);
    photographer.Take(QStringLiteral("list-server"), "server", Theme::Light, "en");
    photographer.Take(QStringLiteral("columns-light"), "list", Theme::Light, "en", OpenColumns);
    photographer.Take(QStringLiteral("columns-dark-ar"), "list", Theme::Dark, "ar", OpenColumns);
    photographer.Take(QStringLiteral("dock-detail"), "list", Theme::Light, "en", OpenDetail);
    photographer.Take(QStringLiteral("dock-export"), "list", Theme::Light, "en", OpenExport);
    photographer.Take(QStringLiteral("devices-light"), "devices", Theme::Light, "en");
    photographer.Take(QStringLiteral("timeline-light"), "timeline", Theme::Light, "en");
    photographer.Take(QStringLiteral("timeline-dark-ar"), "timeline", Theme::Dark, "ar");
    photographer.Take(QStringLiteral("timeline-tip"), "timeline", Theme::Light, "en", ShowTip);
    photographer.Take(QStringLiteral("client-contrast"), "list", Theme::Contrast, "en");
    return 0;
}
