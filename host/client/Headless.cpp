// SPDX-License-Identifier: MIT
#include "Headless.h"

#include "Batch.h"
#include "Console.h"
#include "Language.h"
#include "MainWindow.h"
#include "Theme.h"

#include <Ravel/ChaseDialog.h>
#include <common/Translate.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QEventLoop>
#include <QtCore/QTimer>
#include <QtGui/QPainter>

#include <chrono>

namespace Client {
namespace {

using namespace std::chrono_literals;

constexpr QSize kWindowSizePx(1280, 800);
constexpr auto kSettleTime = 150ms; // for texts, layouts and the first frames of the animation

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Headless)
};

// Texts and layouts follow a switch through posted events.
void Settle()
{
    QEventLoop loop;
    QTimer::singleShot(kSettleTime, &loop, &QEventLoop::quit);
    loop.exec();
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

QPixmap GrabWaiting(CMainWindow &window)
{
    Ravel::CChaseDialog dialog(
        &window, QStringLiteral(":/Express/Public/Gif/Images/Public/Gif/Waiting_M_4.gif"),
        Vantor::Translate(QStringLiteral("Please wait")), true);
    dialog.open();
    Settle();
    QPixmap picture = window.grab();
    QPainter painter(&picture);
    QRect place = dialog.rect();
    place.moveCenter(window.rect().center());
    painter.drawPixmap(place.topLeft(), dialog.grab());
    dialog.reject();
    return picture;
}

int TakePictures(CMainWindow &window, const QDir &folder, CThemeSwitch &theme,
                 CLanguageSwitch &language)
{
    int status = kExitDone;
    for (const Language &spoken : kLanguages) {
        language.Apply(QLatin1String(spoken.code));
        for (const Theme worn : {Theme::Dark, Theme::Light}) {
            theme.Apply(worn);
            Settle();
            const QString name =
                QStringLiteral("client-%1-%2.png")
                    .arg(worn == Theme::Dark ? QStringLiteral("dark") : QStringLiteral("light"),
                         QLatin1String(spoken.code));
            status = std::max(status, SavePicture(window.grab(), folder, name));
        }
    }
    language.Apply(QLatin1String(kLanguages[0].code));
    Settle();
    const QString name = QStringLiteral("client-waiting.png");
    return std::max(status, SavePicture(GrabWaiting(window), folder, name));
}

} // namespace

int RunHeadless(const Options &options, const IncidentListPtr &list, CThemeSwitch &theme,
                CLanguageSwitch &language)
{
    const QDir folder(options.out_folder);
    if (!folder.mkpath(QStringLiteral("."))) {
        PrintError(Texts::tr("Cannot make the folder %1.")
                       .arg(QDir::toNativeSeparators(options.out_folder)));
        return kExitFileFailed;
    }
    CMainWindow window(theme, language);
    window.resize(kWindowSizePx);
    window.SetList(list, options.ListName());
    window.SetFilter(options.filter);
    window.show();
    const int status = ExportRows(window.Rows(), folder.filePath(QStringLiteral("incidents.csv")));
    if (status != kExitDone)
        return status;
    return TakePictures(window, folder, theme, language);
}

} // namespace Client
