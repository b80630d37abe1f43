// SPDX-License-Identifier: MIT
#include "Audit.h"
#include "HiddenTyping.h"
#include "Server.h"

#include <sys/stat.h>
#include <unistd.h>

#include <QtCore/QCommandLineParser>
#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <thread>

namespace {

using namespace std::chrono_literals;

constexpr int kExitFailed = 1;
constexpr int kExitBadUsage = 2;
constexpr int kLastPort = 65535;
constexpr auto kSignalLook = 50ms;
constexpr std::chrono::seconds kGrace{5};
constexpr char kDataName[] = "vantor-server.sqlite";

volatile std::sig_atomic_t stop_signal = 0;

void OnSignal(int signal)
{
    stop_signal = signal;
}

struct Options
{
    QCommandLineOption port{QStringLiteral("port"),
                            QStringLiteral("Port to listen on (default: 0, any that is free)."),
                            QStringLiteral("N"), QStringLiteral("0")};
    QCommandLineOption address{
        QStringLiteral("address"),
        QStringLiteral("Address to listen on (default: 127.0.0.1, this machine only)."),
        QStringLiteral("IP"), QStringLiteral("127.0.0.1")};
    QCommandLineOption data{QStringLiteral("data"),
                            QStringLiteral("Database file, made when it is missing, or the folder "
                                           "of vantor-server.sqlite."),
                            QStringLiteral("FILE|DIR"), QLatin1String(kDataName)};
    QCommandLineOption database{
        QStringLiteral("database"),
        QStringLiteral(
            "The same, or a database of PostgreSQL: postgresql://user@host:port/name. The "
            "password comes from the variable PGPASSWORD or from ~/.pgpass."),
        QStringLiteral("FILE|DIR|URL")};
    QCommandLineOption copy{
        QStringLiteral("copy"),
        QStringLiteral("Copy the database FROM into the empty one TO, all or nothing; then exit.")};
    QCommandLineOption seed{
        QStringLiteral("seed"),
        QStringLiteral("Fill an empty database with the sample accounts and this list."),
        QStringLiteral("FILE.csv")};
    QCommandLineOption rows{
        QStringLiteral("rows"),
        QStringLiteral(
            "With --seed: so many incidents, which vary those of the file. Loading that was "
            "broken off goes on where it was."),
        QStringLiteral("N")};
    QCommandLineOption account{
        QStringLiteral("account"),
        QStringLiteral("Add this account, or give it a new password: a terminal asks for it, else "
                       "it is one line of the standard input. Then exit; no port is opened."),
        QStringLiteral("NAME")};
    QCommandLineOption certificate{
        QStringLiteral("certificate"),
        QStringLiteral("Certificate chain (PEM); with --key, to serve HTTPS."),
        QStringLiteral("FILE")};
    QCommandLineOption key{QStringLiteral("key"),
                           QStringLiteral("Private key of the certificate (PEM)."),
                           QStringLiteral("FILE")};
    QCommandLineOption proxy{
        QStringLiteral("proxy"),
        QStringLiteral("Trust this proxy to name its clients in X-Forwarded-For; may be repeated."),
        QStringLiteral("IP")};
    QCommandLineOption plain{
        QStringLiteral("plain-http"),
        QStringLiteral("Serve other machines without a certificate. Passwords can then be read on "
                       "the way.")};
    QCommandLineOption samples{
        QStringLiteral("sample-accounts"),
        QStringLiteral("Let other machines use the sample accounts, whose passwords are public.")};
};

void PrintError(const QString &text)
{
    std::fprintf(stderr, "vantor-server: %s\n", qPrintable(text));
}

// One line that is written over.
void PrintProgress(const char *what, qint64 done, qint64 total)
{
    std::fprintf(stderr, "\r%s: %lld of %lld\x1b[K%s", what, static_cast<long long>(done),
                 static_cast<long long>(total), done == total ? "\n" : "");
}

// Programs of a session that the journal listens to inherit the variable, also where their standard
// error goes to a terminal or a file; so it names the stream it means.
bool IsJournal()
{
    struct stat status
    {
    };
    return fstat(STDERR_FILENO, &status) == 0
           && qgetenv("JOURNAL_STREAM")
                  == QByteArray::number(quint64(status.st_dev)) + ':'
                         + QByteArray::number(quint64(status.st_ino));
}

// One line of the audit log. The journal takes the priority from the line and adds the time.
void WriteAudit(Server::AuditLevel level, const std::string &line)
{
    static const bool is_journal = IsJournal();
    if (is_journal)
        std::fprintf(stderr, "<%d>%s\n", int(level), line.c_str());
    else
        std::fprintf(stderr, "%s %s\n",
                     qPrintable(QDateTime::currentDateTimeUtc().toString(Qt::ISODate)),
                     line.c_str());
}

// Empty, with an error printed, if there is nothing to read.
std::string ReadPem(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        PrintError(QStringLiteral("Cannot read %1: %2").arg(path, file.errorString()));
        return {};
    }
    std::string text = file.readAll().toStdString();
    if (text.empty())
        PrintError(QStringLiteral("%1 is empty.").arg(path));
    return text;
}

// The file in a folder, where a folder is named.
QString PathOf(const QString &database)
{
    return QFileInfo(database).isDir() ? QDir(database).filePath(QLatin1String(kDataName))
                                       : database;
}

// A line of the standard input; a terminal asks for it.
Nim::Base::SecretText ReadPassword(const Server::CHiddenTyping &typing, const char *question)
{
    if (typing.IsTerminal())
        std::fprintf(stderr, "%s: ", question);
    std::string line;
    std::getline(std::cin, line);
    if (typing.IsTerminal())
        std::fputc('\n', stderr);
    if (!line.empty() && line.back() == '\r') // of a file with lines of Windows
        line.pop_back();
    Nim::Base::SecretText password(line);
    Nim::Base::Encrypt::Wipe(line);
    return password;
}

int SetAccount(const QString &database, const QString &name)
{
    const Server::CHiddenTyping typing;
    const Nim::Base::SecretText password = ReadPassword(typing, "Password");
    if (typing.IsTerminal() && ReadPassword(typing, "The same again") != password) {
        PrintError(QStringLiteral("The passwords differ."));
        return kExitFailed;
    }
    const QString error = Server::SetAccount(database, name, password);
    if (!error.isEmpty()) {
        PrintError(error);
        return kExitFailed;
    }
    Server::CAudit(WriteAudit)
        .Write(Server::kAuditNotice, "account-changed", {{"user", name.toStdString()}});
    return 0;
}

int Copy(const QStringList &databases)
{
    const QString error = Server::CopyDatabase(
        PathOf(databases.constFirst()), PathOf(databases.constLast()),
        [](const QString &table, qint64 rows) {
            std::printf("%s: %lld\n", qPrintable(table), static_cast<long long>(rows));
            std::fflush(stdout);
        });
    if (error.isEmpty())
        return 0;
    PrintError(error);
    return kExitFailed;
}

int Serve(Server::ServerOptions options)
{
#ifdef SIGHUP
    std::signal(SIGHUP, SIG_IGN); // a terminal that closes, or an unwary reload, changes nothing
#endif
    for (const int signal : {SIGINT, SIGTERM})
        std::signal(signal, OnSignal);
    Server::CServer server(std::move(options));
    const QString error = server.Start();
    if (!error.isEmpty()) {
        PrintError(error);
        return kExitFailed;
    }
    std::printf("listening on port %d\n", server.Port());
    std::fflush(stdout);
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, qApp, [] {
        if (stop_signal != 0)
            QCoreApplication::quit();
    });
    look.start(kSignalLook);
    const int status = QGuiApplication::exec();
    // A thread may wait for a database that hangs. What it has confirmed is stored.
    std::thread([] {
        std::this_thread::sleep_for(kGrace);
        std::_Exit(kExitFailed);
    }).detach();
    return status;
}

// 0, or the exit status, with an error printed.
int ReadOptions(const QCommandLineParser &parser, const Options &names,
                Server::ServerOptions &options)
{
    bool is_number = false;
    options.port = parser.value(names.port).toInt(&is_number);
    const bool has_tls = parser.isSet(names.certificate);
    const int databases = parser.isSet(names.copy) ? 2 : 0;
    if (!is_number || options.port < 0 || options.port > kLastPort
        || parser.positionalArguments().size() != databases
        || (parser.isSet(names.data) && parser.isSet(names.database))
        || has_tls != parser.isSet(names.key)) {
        PrintError(QStringLiteral("wrong usage, see --help"));
        return kExitBadUsage;
    }
    options.address = parser.value(names.address).toStdString();
    options.database =
        PathOf(parser.value(parser.isSet(names.database) ? names.database : names.data));
    const QStringList proxies = parser.values(names.proxy);
    for (const QString &proxy : proxies)
        options.proxies.push_back(proxy.toStdString());
    options.is_plain_allowed = parser.isSet(names.plain);
    options.are_samples_allowed = parser.isSet(names.samples);
    options.audit = WriteAudit;
    options.seed_path = parser.value(names.seed);
    options.seed_rows = parser.value(names.rows).toLongLong();
    if (parser.isSet(names.rows) && (options.seed_rows < 1 || options.seed_path.isEmpty())) {
        PrintError(QStringLiteral("--rows needs --seed, and is at least 1"));
        return kExitBadUsage;
    }
    if (isatty(STDERR_FILENO) != 0)
        options.progress = PrintProgress;
    if (has_tls) {
        options.certificate = ReadPem(parser.value(names.certificate));
        options.private_key = ReadPem(parser.value(names.key));
        if (options.certificate.empty() || options.private_key.empty())
            return kExitFailed;
    }
    return 0;
}

QString HelpText(const QCommandLineParser &parser)
{
    // Qt writes the path that the program was started with.
    const QString path = QCoreApplication::arguments().constFirst();
    QString help = parser.helpText();
    if (const int at = help.indexOf(path); at >= 0)
        help.replace(at, path.size(), QCoreApplication::applicationName());
    return help
           + QStringLiteral("\nExit status:\n"
                            "  0  It was ended by SIGINT or SIGTERM, or has done what was asked.\n"
                            "  1  It could not start, or a file or the database failed.\n"
                            "  2  The options are wrong.\n");
}

int Run()
{
    Options names;
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Management server of the desktop client: accounts, layouts, incidents."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show this help."));
    parser.addVersionOption();
    parser.addOptions({help, names.port, names.address, names.data, names.database, names.copy,
                       names.seed, names.rows, names.account, names.certificate, names.key,
                       names.proxy, names.plain, names.samples});
    parser.addPositionalArgument(QStringLiteral("FROM TO"), QStringLiteral("With --copy."),
                                 QStringLiteral("[FROM TO]"));
    parser.process(*qApp);
    if (parser.isSet(help)) {
        std::fputs(qPrintable(HelpText(parser)), stdout);
        return 0;
    }

    Server::ServerOptions options;
    const int status = ReadOptions(parser, names, options);
    if (status != 0)
        return status;
    if (parser.isSet(names.copy))
        return Copy(parser.positionalArguments());
    if (parser.isSet(names.account))
        return SetAccount(options.database, parser.value(names.account));
    return Serve(std::move(options));
}

} // namespace

int main(int argc, char **argv)
{
    // It draws, but it has no window.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("vantor-server"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VANTOR_SERVER_VERSION));
    return Run();
}
