// SPDX-License-Identifier: MIT
// Uses every singleton, leaves windows shown and ends.
#include <Ravel/ChaseDialog.h>
#include <Ravel/WaitWatcher.h>
#include <Vantor/CCSVParser>
#include <Vantor/CStyleManager>

#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>

#include <chrono>
#include <cstdio>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    auto &manager = Nim::Base::CSingleton<Vantor::CStyleManager>::Instance();
    manager.show();
    QLabel window(QStringLiteral("shown to the end"));
    window.show();
    Ravel::CChaseDialog dialog(&window, QString(), QString(), false);
    dialog.show();
    Vantor::CCSVParser parser(&window);
    Vantor::CCSVParser *const unowned = &parser;
    if (!Ravel::CUiSingleton<Ravel::CWaitWatcher>::Instance().IsWaiting()
        || unowned->parent() != &window)
        return 2;
    QTimer::singleShot(std::chrono::milliseconds(50), &application, &QCoreApplication::quit);
    const int result = QApplication::exec();
    std::puts("ending");
    return result;
}
