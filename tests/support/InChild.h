// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>
#include <functional>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace support {

/// Starts something in a process of its own, which ends with what it returns.
inline pid_t StartChild(const std::function<int()>& run) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(run());
    }
    return child;
}

/// Waits for such a process; its exit status, or minus the signal that ended it.
inline int EndOf(pid_t child) {
    int status = 0;
    pid_t ended = -1;
    do {
        // The end of another process interrupts the wait since the toolkit has started one.
        ended = ::waitpid(child, &status, 0);
    } while (ended == -1 && errno == EINTR);
    EXPECT_EQ(child, ended);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

/// Runs something in a process of its own; its exit status, or minus the signal that ended it.
inline int InChild(const std::function<int()>& run) {
    return EndOf(StartChild(run));
}

} // namespace support
