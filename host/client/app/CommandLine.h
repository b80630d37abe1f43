// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace Client {

/// \brief The options of the command line.
struct Options
{
    bool is_headless = false;
    QString open_path;   ///< empty: the list inside the program
    QString export_path; ///< not empty: export and exit
    QString out_folder = QStringLiteral("out");
    QString filter;
    QString server; ///< empty: the server inside the client
    QString page;   ///< empty: the list
    int rows = 0;   ///< 0: as many as the list has

    /// \brief The file that holds the list: the user's or the one in the program.
    [[nodiscard]] QString ListPath() const;
    /// \brief Its name without folders.
    [[nodiscard]] QString ListName() const;
};

/// \brief The parsed command line: options, a text to print, or an error.
struct CommandLine
{
    Options options;
    QString output; ///< not empty: print it and exit, the user asked for help or the version
    QString error;  ///< not empty: the usage is wrong
};

/// \brief Whether \a arguments ask for a window, asked before there is an application object.
[[nodiscard]] bool WantsWindow(const QStringList &arguments);

/// \brief Read \a arguments, the program's name first. Needs the application object for its help.
[[nodiscard]] CommandLine ReadCommandLine(const QStringList &arguments);

} // namespace Client
