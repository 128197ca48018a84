// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/InChild.h"

#include "ui/Files.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace support {

static_assert(EndedByForce == -SIGKILL);

Child StartChild(const std::function<int()>& run) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(run());
    }
    return child;
}

int EndOf(Child child) {
    int status = 0;
    pid_t ended = -1;
    do {
        // The end of another process interrupts the wait since the toolkit has started one.
        ended = ::waitpid(static_cast<pid_t>(child), &status, 0);
    } while (ended == -1 && errno == EINTR);
    EXPECT_EQ(child, ended);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

int ChildrenBefore() {
    return 0;
}

void EndByForce() {
    (void)::raise(SIGKILL);
    std::abort();
}

std::string NextFolderName() {
    return "vtm-test-" + ui::RandomName();
}

} // namespace support
