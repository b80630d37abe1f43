// SPDX-License-Identifier: MIT
#include "app/CommandLine.h"

#include "export/ExportText.h"
#include "link/ServerLink.h"
#include "list/IncidentList.h"
#include "window/Pages.h"

#include <Vantor/CListExport>

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>

namespace Client {
namespace {

constexpr int kStatusColumn = 15; // characters

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CommandLine)
};

struct Parser
{
    Parser()
    {
        parser.setApplicationDescription(
            Texts::tr("Shows, searches and exports incident reports."));
        parser.addOptions(
            {headless, out, open, rows, filter, page, server, exported, help, version});
    }

    QCommandLineOption headless{
        QStringLiteral("headless"),
        Texts::tr("Open no window: export the list and take screenshots of it.")};
    QCommandLineOption out{QStringLiteral("out"),
                           Texts::tr("Folder that --headless writes to (default: out)."),
                           QStringLiteral("DIR")};
    QCommandLineOption open{QStringLiteral("open"),
                            Texts::tr("Show this list instead of the one included."),
                            QStringLiteral("FILE.csv")};
    QCommandLineOption rows{QStringLiteral("rows"), Texts::tr("Repeat or cut the list to N rows."),
                            QStringLiteral("N")};
    QCommandLineOption filter{QStringLiteral("filter"),
                              Texts::tr("Keep only the rows that hold this text."),
                              QStringLiteral("TEXT")};
    QCommandLineOption page{
        QStringLiteral("page"),
        Texts::tr("Begin with this page: %1.").arg(CPages::Names().join(QStringLiteral(", "))),
        QStringLiteral("NAME")};
    QCommandLineOption server{
        QStringLiteral("server"),
        Texts::tr("Use this management server, [https://]HOST:PORT, instead of one of its own."),
        QStringLiteral("ADDRESS")};
    QCommandLineOption exported{QStringLiteral("export"),
                                Texts::tr("Export the list to this .csv or .xlsx file and exit."),
                                QStringLiteral("FILE")};
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                            Texts::tr("Show this help.")};
    QCommandLineOption version{{QStringLiteral("v"), QStringLiteral("version")},
                               Texts::tr("Show the version.")};
    QCommandLineParser parser;
};

QString FindUsageError(const Parser &line)
{
    const QCommandLineParser &parser = line.parser;
    if (!parser.positionalArguments().isEmpty())
        return Texts::tr("Unexpected argument “%1”.")
            .arg(parser.positionalArguments().constFirst());
    for (const QCommandLineOption *option : {&line.open, &line.out, &line.exported}) {
        if (parser.isSet(*option) && parser.value(*option).isEmpty())
            return Texts::tr("--%1 needs a name.").arg(option->names().constFirst());
    }
    if (parser.isSet(line.server) && !CServerLink::IsAddress(parser.value(line.server)))
        return Texts::tr("--server takes [https://]HOST:PORT, not “%1”.")
            .arg(parser.value(line.server));
    if (parser.isSet(line.headless) && parser.isSet(line.exported))
        return Texts::tr("--headless and --export cannot be used together.");
    if (parser.isSet(line.page) && !CPages::Names().contains(parser.value(line.page)))
        return Texts::tr("There is no page “%1”, only: %2.")
            .arg(parser.value(line.page), CPages::Names().join(QStringLiteral(", ")));
    if (parser.isSet(line.exported)
        && Vantor::CListExport::FormatOf(parser.value(line.exported))
               == Vantor::CListExport::Format::BySuffix)
        return UnknownFormatText(parser.value(line.exported));
    return {};
}

// Qt writes the path that the program was started with.
QString HelpText(const QCommandLineParser &parser)
{
    const QString path = QCoreApplication::arguments().constFirst();
    QString help = parser.helpText();
    if (const int at = help.indexOf(path); at >= 0)
        help.replace(at, path.size(), QCoreApplication::applicationName());
    const QLatin1String indent("  ");
    const QPair<const char *, QString> statuses[] = {
        {"0", Texts::tr("All is done.")},
        {"1", Texts::tr("A file could not be read or written.")},
        {"2", Texts::tr("The options are wrong.")},
        {"129, 130, 143", Texts::tr("SIGHUP, SIGINT or SIGTERM ended an export.")},
    };
    help += QLatin1Char('\n') + Texts::tr("Exit status:") + QLatin1Char('\n');
    for (const auto &[status, text] : statuses)
        help += indent + QString::fromLatin1(status).leftJustified(kStatusColumn) + text
                + QLatin1Char('\n');
    return help;
}

QString ReadRows(const Parser &line, int &rows)
{
    if (!line.parser.isSet(line.rows))
        return {};
    const QString text = line.parser.value(line.rows);
    bool is_number = false;
    const int number = text.toInt(&is_number);
    if (!is_number || number < 1 || number > kMaximumRows)
        return Texts::tr("--rows takes a whole number from 1 to %1, not “%2”.")
            .arg(QLocale().toString(kMaximumRows), text);
    rows = number;
    return {};
}

} // namespace

QString Options::ListPath() const
{
    return open_path.isEmpty() ? QStringLiteral(":/Client/Data/incidents.csv") : open_path;
}

QString Options::ListName() const
{
    return QFileInfo(ListPath()).fileName();
}

bool WantsWindow(const QStringList &arguments)
{
    Parser line;
    line.parser.parse(arguments); // errors are reported later, when an application object exists
    for (const QCommandLineOption *option :
         {&line.headless, &line.exported, &line.help, &line.version}) {
        if (line.parser.isSet(*option))
            return false;
    }
    return true;
}

CommandLine ReadCommandLine(const QStringList &arguments)
{
    Parser line;
    CommandLine result;
    if (!line.parser.parse(arguments)) {
        result.error = line.parser.errorText();
        return result;
    }
    if (line.parser.isSet(line.help)) {
        result.output = HelpText(line.parser);
        return result;
    }
    if (line.parser.isSet(line.version)) {
        result.output = QCoreApplication::applicationName() + QLatin1Char(' ')
                        + QCoreApplication::applicationVersion() + QLatin1Char('\n');
        return result;
    }
    Options &options = result.options;
    result.error = FindUsageError(line);
    if (result.error.isEmpty())
        result.error = ReadRows(line, options.rows);
    options.is_headless = line.parser.isSet(line.headless);
    options.open_path = line.parser.value(line.open);
    options.export_path = line.parser.value(line.exported);
    options.filter = line.parser.value(line.filter);
    options.server = line.parser.value(line.server);
    options.page = line.parser.value(line.page);
    if (line.parser.isSet(line.out))
        options.out_folder = line.parser.value(line.out);
    return result;
}

} // namespace Client
