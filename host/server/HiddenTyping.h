// SPDX-License-Identifier: MIT
#pragma once

namespace Server {

/// \brief While it exists, the terminal that is the standard input does not show what is typed. It
/// does so again when a signal ends the program.
///
/// Does nothing where the standard input is no terminal. One object at a time.
class CHiddenTyping
{
public:
    CHiddenTyping();
    ~CHiddenTyping();
    CHiddenTyping(const CHiddenTyping &) = delete;
    CHiddenTyping &operator=(const CHiddenTyping &) = delete;

    /// \brief Whether the standard input is a terminal.
    [[nodiscard]] bool IsTerminal() const { return is_terminal_; }

private:
    const bool is_terminal_;
};

} // namespace Server
