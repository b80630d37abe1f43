// SPDX-License-Identifier: MIT
#include "HiddenTyping.h"

#include <windows.h>

namespace Server {
namespace {

DWORD shown = 0; // what the console was set to

} // namespace

// A console shows typing again in the program that reads from it next.
CHiddenTyping::CHiddenTyping()
    : is_terminal_(GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &shown) != 0)
{
    if (is_terminal_)
        SetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), shown & ~DWORD(ENABLE_ECHO_INPUT));
}

CHiddenTyping::~CHiddenTyping()
{
    if (is_terminal_)
        SetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), shown);
}

} // namespace Server
