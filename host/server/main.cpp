// SPDX-License-Identifier: MIT
#include "Server.h"

#include <Nim/Base/Encrypt.h>

#include <QtCore/QCommandLineParser>
#include <QtCore/QFile>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <iostream>
#include <string>

namespace {

using namespace std::chrono_literals;

constexpr int kExitFailed = 1;
constexpr int kExitBadUsage = 2;
constexpr int kLastPort = 65535;
constexpr auto kSignalLook = 50ms;

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
                            QStringLiteral("Database file, made when it is missing."),
                            QStringLiteral("FILE"), QStringLiteral("vantor-server.sqlite")};
    QCommandLineOption seed{
        QStringLiteral("seed"),
        QStringLiteral("Fill an empty database with the sample accounts and this list."),
        QStringLiteral("FILE.csv")};
    QCommandLineOption account{
        QStringLiteral("account"),
        QStringLiteral("Add this account, or give it a new password: one line of the standard "
                       "input; then exit."),
        QStringLiteral("NAME")};
    QCommandLineOption certificate{
        QStringLiteral("certificate"),
        QStringLiteral("Certificate chain (PEM); with --key, to serve HTTPS."),
        QStringLiteral("FILE")};
    QCommandLineOption key{QStringLiteral("key"),
                           QStringLiteral("Private key of the certificate (PEM)."),
                           QStringLiteral("FILE")};
};

void PrintError(const QString &text)
{
    std::fprintf(stderr, "vantor-server: %s\n", qPrintable(text));
}

// Empty, with an error printed, when it cannot be read.
std::string ReadPem(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        PrintError(QStringLiteral("Cannot read %1: %2").arg(path, file.errorString()));
        return {};
    }
    return file.readAll().toStdString();
}

int SetAccount(Server::ServerOptions options, const QString &name)
{
    Server::CServer server(std::move(options));
    QString error = server.Start();
    if (error.isEmpty()) {
        std::string password;
        std::getline(std::cin, password);
        error = server.SetAccount(name, password);
        Nim::Base::Encrypt::Wipe(password);
    }
    if (!error.isEmpty())
        PrintError(error);
    return error.isEmpty() ? 0 : kExitFailed;
}

int Serve(Server::ServerOptions options)
{
    Server::CServer server(std::move(options));
    const QString error = server.Start();
    if (!error.isEmpty()) {
        PrintError(error);
        return kExitFailed;
    }
    std::printf("listening on port %d\n", server.Port());
    std::fflush(stdout);
    for (const int signal : {SIGINT, SIGTERM})
        std::signal(signal, OnSignal);
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, qApp, [] {
        if (stop_signal != 0)
            QCoreApplication::quit();
    });
    look.start(kSignalLook);
    return QGuiApplication::exec();
}

int Run()
{
    Options names;
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Management server of the desktop client: accounts, layouts, incidents."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({names.port, names.address, names.data, names.seed, names.account,
                       names.certificate, names.key});
    parser.process(*qApp);

    Server::ServerOptions options;
    bool is_number = false;
    options.port = parser.value(names.port).toInt(&is_number);
    const bool has_tls = parser.isSet(names.certificate);
    if (!is_number || options.port < 0 || options.port > kLastPort
        || !parser.positionalArguments().isEmpty() || has_tls != parser.isSet(names.key)) {
        PrintError(QStringLiteral("wrong usage, see --help"));
        return kExitBadUsage;
    }
    options.address = parser.value(names.address).toStdString();
    options.data_path = parser.value(names.data);
    options.seed_path = parser.value(names.seed);
    if (has_tls) {
        options.certificate = ReadPem(parser.value(names.certificate));
        options.private_key = ReadPem(parser.value(names.key));
        if (options.certificate.empty() || options.private_key.empty())
            return kExitFailed;
    }
    if (parser.isSet(names.account))
        return SetAccount(std::move(options), parser.value(names.account));
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
