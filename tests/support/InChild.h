// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace support {

/// A process that a test has started.
using Child = std::intptr_t;

/// What EndOf() says of a process that EndByForce() has ended.
constexpr int EndedByForce = -9;

/// Starts something in a process of its own, which ends with what it returns. Where the system cannot let a
/// program go on in two processes, the new one begins the test anew: before this the test may change nothing
/// but its memory and its temporary folders, and no process before this one is started again, its exit status
/// is 0.
[[nodiscard]] Child StartChild(const std::function<int()>& run);

/// Waits for such a process; its exit status, or minus the signal that ended it.
int EndOf(Child child);

/// Runs something in a process of its own; its exit status, or minus the signal that ended it.
inline int InChild(const std::function<int()>& run) {
    return EndOf(StartChild(run));
}

/// How many processes the test has started, which need not be gone through again where it is begun anew: what
/// counts them begins with this.
[[nodiscard]] int ChildrenBefore();

/// Ends this process at once, as the system does that has none to spare.
[[noreturn]] void EndByForce();

/// What a temporary folder is called that is made now.
[[nodiscard]] std::string NextFolderName();

} // namespace support
