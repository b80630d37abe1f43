// SPDX-License-Identifier: MIT
#include "app/Batch.h"
#include "app/CommandLine.h"
#include "app/Console.h"
#include "app/Display.h"
#include "app/Headless.h"
#include "app/StopSignals.h"
#include "link/ServerLink.h"
#include "look/Language.h"
#include "look/Theme.h"
#include "window/MainWindow.h"
#include "window/Pages.h"

#include <QtCore/QLoggingCategory>
#include <QtCore/QSettings>
#include <QtGui/QIcon>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>

#include <csignal>

namespace {

using namespace Client;

constexpr QSize kFirstSizePx(1280, 800);

bool ChooseWindow(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return WantsWindow(arguments) && HasDisplay();
}

void PrepareBatch()
{
    // The user gets one sentence about an error, but no messages of libraries and of the offscreen
    // platform. QT_LOGGING_RULES turns the other log lines on.
    QLoggingCategory::setFilterRules(
        QStringLiteral("ClientWarningAndMore.info=false\nClientWarningAndMore.warning=false\n"
                       "UserOperate.info=false\ndefault.warning=false"));
}

void IgnoreFileSizeSignal()
{
#ifdef SIGXFSZ
    // A limit on file sizes is then a failed write, as on a full disk, and leaves no partial file.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}

int RunWindow(const Options &options, const ReadResult &loaded, CThemeSwitch &theme,
              CLanguageSwitch &language, QSettings &settings)
{
    CServerLink link;
    CMainWindow window(theme, language);
    window.SetServerLink(link);
    const QString user = QStringLiteral("user");
    link.Start(options.server, settings.value(user, CServerLink::Users().constFirst()).toString());
    if (!window.restoreGeometry(settings.value(QStringLiteral("geometry")).toByteArray()))
        window.resize(kFirstSizePx.boundedTo(window.screen()->availableSize()));
    window.SetList(loaded.list, options.ListName());
    window.SetFilter(options.filter);
    if (!options.page.isEmpty())
        window.Pages().Show(options.page);
    window.show();
    if (!loaded.warning.isEmpty())
        window.ShowError(loaded.warning);
    const CStopSignals stop_signals;
    QObject::connect(&stop_signals, &CStopSignals::SignalStop, &window, &CMainWindow::Stop);
    QObject::connect(&window, &CMainWindow::SignalStopped, &QCoreApplication::exit);
    const int status = QApplication::exec();
    settings.setValue(QStringLiteral("geometry"), window.saveGeometry());
    settings.setValue(QStringLiteral("theme"), ThemeName(theme.Current()));
    settings.setValue(QStringLiteral("language"), language.Current());
    if (!link.User().isEmpty())
        settings.setValue(user, link.User());
    return status;
}

int Run(bool has_window)
{
    QSettings settings;
    const auto setting = [&settings, has_window](const QString &name, const QString &otherwise) {
        return has_window ? settings.value(name, otherwise).toString() : otherwise;
    };
    CLanguageSwitch language;
    language.Apply(setting(QStringLiteral("language"), CLanguageSwitch::SystemCode()));
    const CommandLine line = ReadCommandLine(QApplication::arguments());
    if (!line.error.isEmpty()) {
        PrintError(line.error);
        return kExitBadUsage;
    }
    if (!line.output.isEmpty()) {
        PrintLine(line.output.trimmed());
        return kExitDone;
    }
    const ReadResult loaded = LoadList(line.options);
    if (!loaded.list)
        return kExitFileFailed;

    CThemeSwitch theme;
    theme.Apply(ThemeOf(setting(QStringLiteral("theme"), {})));
    if (has_window)
        return RunWindow(line.options, loaded, theme, language, settings);
    if (!line.options.export_path.isEmpty())
        return RunExport(line.options, loaded.list);
    return RunHeadless(line.options, loaded.list, theme, language);
}

} // namespace

int main(int argc, char **argv)
{
    IgnoreFileSizeSignal();
    const bool has_window = ChooseWindow(argc, argv);
    if (!has_window) {
        PrepareBatch();
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Vantor"));
    QApplication::setApplicationName(QStringLiteral("vantor-client"));
    QApplication::setApplicationVersion(QStringLiteral(VANTOR_CLIENT_VERSION));
    // Wayland takes the window's icon from the desktop file of that name, X11 from the window.
    QApplication::setDesktopFileName(QStringLiteral("org.vantor.Client"));
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/Client/Icons/vantor-client.svg")));
    return Run(has_window);
}
