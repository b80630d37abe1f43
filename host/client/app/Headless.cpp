// SPDX-License-Identifier: MIT
#include "app/Headless.h"

#include "app/Batch.h"
#include "app/Console.h"
#include "link/ServerLink.h"
#include "look/Language.h"
#include "look/Theme.h"
#include "window/MainWindow.h"
#include "window/Pages.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QEventLoop>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtGui/QPainter>
#include <QtWidgets/QDialog>

#include <chrono>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>
#include <vector>

namespace Client {
namespace {

using namespace std::chrono_literals;

constexpr QSize kWindowSizePx(1280, 800);
constexpr auto kSettleTime = 50ms; // for the first frames of the animation
constexpr int kSettleRounds = 3;
constexpr qint64 kLongestLoading_ms = 60000; // a new server fills its database first

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Headless)
};

void HandleEvents()
{
    QEventLoop loop;
    QTimer::singleShot(kSettleTime, &loop, &QEventLoop::quit);
    loop.exec();
}

// Posted events update texts, then rebuild the list, then lay it out. On a slow machine, one of
// these steps takes longer than the time of a round, so each gets its own.
void Settle()
{
    for (int round = 0; round < kSettleRounds; ++round)
        HandleEvents();
}

template <class Condition> void HandleEventsWhile(Condition is_waiting)
{
    QElapsedTimer clock;
    clock.start();
    while (is_waiting() && clock.elapsed() < kLongestLoading_ms)
        HandleEvents();
}

int SavePicture(const QPixmap &picture, const QDir &folder, const QString &name)
{
    const QString path = folder.filePath(name);
    if (!picture.save(path, "PNG")) {
        PrintError(Texts::tr("Cannot write %1.").arg(QDir::toNativeSeparators(path)));
        return kExitFileFailed;
    }
    PrintLine(Texts::tr("Wrote %1").arg(QDir::toNativeSeparators(path)));
    return kExitDone;
}

QPixmap GrabWaiting(CMainWindow &window, const QString &list_name)
{
    const std::unique_ptr<QDialog> dialog(window.NewReadingDialog(list_name));
    dialog->open();
    Settle();
    QPixmap picture = window.grab();
    QPainter painter(&picture);
    QRect place = dialog->rect();
    place.moveCenter(window.rect().center());
    painter.drawPixmap(place.topLeft(), dialog->grab());
    return picture;
}

// Pictures by their file names.
using Pictures = std::vector<std::pair<QString, QPixmap>>;

void TakeOtherPages(CMainWindow &window, const QString &name, Pictures &pictures)
{
    CPages &pages = window.Pages();
    const QString first = pages.Current();
    const QStringList names = CPages::Names();
    for (const QString &page : names) {
        if (page == first || !pages.Show(page))
            continue;
        pages.PrepareForPicture();
        Settle(); // the page may ask for its rows again, in another direction for example
        HandleEventsWhile([&pages] { return pages.IsLoading(); });
        Settle();
        pictures.emplace_back(page + QLatin1Char('-') + name, window.grab());
    }
    pages.Show(first);
}

Pictures TakePictures(CMainWindow &window, const QString &list_name, CThemeSwitch &theme,
                      CLanguageSwitch &language)
{
    Pictures pictures;
    const QString first_language = language.Current();
    for (const Language &spoken : kLanguages) {
        language.Apply(QLatin1String(spoken.code));
        for (const Theme worn : {Theme::Contrast, Theme::Dark, Theme::Light}) {
            theme.Apply(worn);
            Settle();
            const QString name =
                QStringLiteral("%1-%2.png").arg(ThemeName(worn), QLatin1String(spoken.code));
            pictures.emplace_back(QStringLiteral("client-") + name, window.grab());
            TakeOtherPages(window, name, pictures);
        }
    }
    language.Apply(QLatin1String(kLanguages[0].code));
    Settle();
    pictures.emplace_back(QStringLiteral("client-waiting.png"), GrabWaiting(window, list_name));
    language.Apply(first_language);
    return pictures;
}

// Make the folder. Returns an error text, or an empty text. QDir does not report why it failed.
QString MakeFolder(const QString &path)
{
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(path).toStdString(), error);
    if (!error)
        return {};
    return Texts::tr("Cannot make the folder %1: %2")
        .arg(QDir::toNativeSeparators(path), QString::fromLocal8Bit(error.message().c_str()));
}

} // namespace

int RunHeadless(const Options &options, const IncidentListPtr &list, CThemeSwitch &theme,
                CLanguageSwitch &language)
{
    const QString error = MakeFolder(options.out_folder);
    if (!error.isEmpty()) {
        PrintError(error);
        return kExitFileFailed;
    }
    const QDir folder(options.out_folder);
    const QTemporaryDir server_data; // of a server that is the same each time
    CServerLink link;
    CMainWindow window(theme, language);
    window.SetServerLink(link);
    link.Start(options.server, CServerLink::Users().constFirst(), server_data.path());
    window.resize(kWindowSizePx);
    window.SetList(list, options.ListName());
    window.SetFilter(options.filter);
    window.show();
    int status = kExitDone;
    for (const QString &name :
         {QStringLiteral("incidents.csv"), QStringLiteral("incidents.xlsx")}) {
        status = ExportRows(window.Rows(), folder.filePath(name));
        if (status != kExitDone)
            return status;
    }
    HandleEventsWhile([&link] { return link.IsConnecting(); });
    // All lines are printed in one language, independent of that of the pictures.
    for (const auto &[name, picture] : TakePictures(window, options.ListName(), theme, language))
        status = std::max(status, SavePicture(picture, folder, name));
    return status;
}

} // namespace Client
