// SPDX-License-Identifier: MIT
#include "KeyBoard/KeyBoard.h"

#include "KeyBoard/DefaultDriver.h"

#include <mutex>
#include <utility>

namespace {

struct Library
{
    std::mutex mutex; // one operation at a time
    KeyBoardDriver *given = nullptr;
    KeyBoardDriver *running = nullptr; // between KeyBoard_Init() and KeyBoard_Uninit()
};

Library &TheLibrary()
{
    static auto *const library = new Library; // devices may end after the static objects
    return *library;
}

} // namespace

bool KeyBoard_Init(KeyBoardCallBack callback, void *user_data)
{
    Library &library = TheLibrary();
    const std::lock_guard<std::mutex> lock(library.mutex);
    if (library.running || !callback)
        return false;
    KeyBoardDriver *const driver = library.given ? library.given : &KeyBoard::DefaultDriver();
    if (!driver->Init(callback, user_data))
        return false;
    library.running = driver;
    return true;
}

void KeyBoard_Uninit()
{
    Library &library = TheLibrary();
    const std::lock_guard<std::mutex> lock(library.mutex);
    if (KeyBoardDriver *const driver = std::exchange(library.running, nullptr))
        driver->Uninit();
}

bool KeyBoard_OpenSerialKeyBoard(quint32 id, const KeyBoardSerialParam *param)
{
    Library &library = TheLibrary();
    const std::lock_guard<std::mutex> lock(library.mutex);
    return library.running && param && param->port_name
           && library.running->OpenSerialKeyBoard(id, *param);
}

bool KeyBoard_CloseSerialKeyBoard(quint32 id)
{
    Library &library = TheLibrary();
    const std::lock_guard<std::mutex> lock(library.mutex);
    return library.running && library.running->CloseSerialKeyBoard(id);
}

void KeyBoard_SetDriver(KeyBoardDriver *driver)
{
    Library &library = TheLibrary();
    const std::lock_guard<std::mutex> lock(library.mutex);
    library.given = driver;
}

KeyBoardDriver &KeyBoard_DefaultDriver()
{
    return KeyBoard::DefaultDriver();
}

void KeyBoard_SetSerialPorts(const QStringList &paths)
{
    KeyBoard::SetSerialPorts(paths);
}

void KeyBoard_SetPortListener(std::function<void(const KeyBoardPortNews &news)> listener)
{
    KeyBoard::SetPortListener(std::move(listener));
}
