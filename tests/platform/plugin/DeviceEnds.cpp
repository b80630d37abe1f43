// SPDX-License-Identifier: MIT
// Starts the devices and ends in the order that its argument names.
#include <KeyBoard/KeyBoard.h>
#include <Vantor/CJoystickKeyboardControlManager>

#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>

#include <cstdlib>
#include <string>

using Devices = Vantor::CJoystickKeyboardControlManager;

namespace {

int Ignore(quint32, quint32, quint32, quint32, const char *, const char *, void *)
{
    return 0;
}

bool Start(QObject *parent)
{
    // False only says that there is no serial keyboard.
    return !Devices::CreateInstance(parent)->InitKeyBoard(ResourceManager::SystemConfig::kNoPort,
                                                          nullptr, nullptr, nullptr);
}

int RunInside(const std::string &order, int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    if (order == "parent")
        return Start(&application) ? 0 : 1;
    Start(nullptr);
    if (order == "exit")
        QTimer::singleShot(0, &application, [] { std::exit(0); });
    else
        QTimer::singleShot(0, &application, &QCoreApplication::quit);
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    const std::string order = argc > 1 ? argv[1] : "";
    if (order == "no application") {
        const bool starts = KeyBoard_Init(&Ignore, nullptr);
        KeyBoard_Uninit();
        return starts && KeyBoard_Init(&Ignore, nullptr) ? 0 : 1; // and leaves it running
    }
    if (order == "exit from a callback") {
        KeyBoard_SetPortListener([](const KeyBoardPortNews &) { std::exit(0); });
        KeyBoard_SetSerialPorts({QStringLiteral("/dev/ptmx")});
        KeyBoard_Init(&Ignore, nullptr);
        const KeyBoardSerialParam param{"COM1", 9600, 8, 1, 0, 0};
        KeyBoard_OpenSerialKeyBoard(1000, &param);
        return 1;
    }
    if (order == "before the application")
        Start(nullptr);
    const int result = RunInside(order, argc, argv);
    if (order == "application gone" || order == "before the application")
        Devices::DeleteInstance();
    return result;
}
