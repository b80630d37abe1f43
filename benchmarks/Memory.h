// SPDX-License-Identifier: MIT
#pragma once

#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <string>

/// Measures what an operation adds to the peak of resident memory, in KiB.
namespace Memory {

inline long StatusKb(const std::string &field)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind(field, 0) == 0)
            return std::strtol(line.c_str() + field.size() + 1, nullptr, 10);
    }
    return 0;
}

/// \brief Run \a operation and give what the peak rose by.
template <class Operation> long AddedKb(Operation &&operation)
{
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << "5"; // sets the peak back to now
    const long before = StatusKb("VmRSS");
    operation();
    return StatusKb("VmHWM") - before;
}

/// \brief The same in a child process, so that nothing of an earlier run is left for it to reuse.
/// \return -1 when the child did not get to its end.
template <class Operation> long AddedKbApart(Operation &&operation)
{
    int ends[2];
    if (pipe(ends) != 0)
        return -1;
    const pid_t child = fork();
    if (child == 0) {
        const long added = AddedKb(operation);
        _exit(write(ends[1], &added, sizeof added) == sizeof added ? 0 : 1);
    }
    close(ends[1]);
    long added = -1;
    const bool is_read = read(ends[0], &added, sizeof added) == sizeof added;
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return is_read ? added : -1;
}

} // namespace Memory
