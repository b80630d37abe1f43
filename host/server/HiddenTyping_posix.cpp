// SPDX-License-Identifier: MIT
#include "HiddenTyping.h"

#include <termios.h>
#include <unistd.h>

#include <csignal>

namespace Server {
namespace {

constexpr int kEnds[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

termios shown{}; // what the terminal was set to

void OnEnd(int number)
{
    tcsetattr(STDIN_FILENO, TCSANOW, &shown);
    std::signal(number, SIG_DFL);
    std::raise(number);
}

} // namespace

CHiddenTyping::CHiddenTyping() : is_terminal_(tcgetattr(STDIN_FILENO, &shown) == 0)
{
    if (!is_terminal_)
        return;
    for (const int number : kEnds)
        std::signal(number, OnEnd);
    termios hidden = shown;
    hidden.c_lflag &= ~tcflag_t(ECHO);
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
}

CHiddenTyping::~CHiddenTyping()
{
    if (!is_terminal_)
        return;
    tcsetattr(STDIN_FILENO, TCSANOW, &shown);
    for (const int number : kEnds)
        std::signal(number, SIG_DFL);
}

} // namespace Server
