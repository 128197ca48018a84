// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Faults of the operating system in this process: the calls that touch files come by here.
namespace faults {

/// What happens at a call.
enum class Fault {
    None,
    NoSpace,     ///< it fails with ENOSPC
    InputOutput, ///< it fails with EIO
    NoAccess,    ///< it fails with EACCES
    ShortWrite,  ///< half of the bytes are read or written, and told so
    HalfWrite,   ///< half of the bytes get out, and the call fails with EIO
    Death,       ///< the process ends before it
    HalfDeath,   ///< the process ends when half of the bytes are out
    FullDisk,    ///< it and all that follow that take room fail with ENOSPC
    BrokenDisk   ///< it and all that follow fail with EIO
};

/// The exit status of a process that has met its death.
constexpr int DeathStatus = 77;

/// From now on the calls are counted, and `fault` happens at number `place` (from 1).
void Begin(Fault fault, int place);

/// No more faults. The calls that there were, in order: 'm' for one that moves bytes, 'o' for another.
std::string End();

/// Whether the fault has happened.
[[nodiscard]] bool HasHappened();

} // namespace faults
