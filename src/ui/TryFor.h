// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>
#include <thread>

namespace ui {

/// How long a lock is waited for. Locks are held for moments only: a holder that needs longer hangs.
constexpr std::chrono::milliseconds LockPatience(2000);

/// For what other programs hold for moments only. Tries at once, and again after each pause until it succeeds
/// or `patience` is over; whether it has succeeded. The clock tells, since a pause may last longer than it
/// should.
template <typename Attempt>
bool TryFor(std::chrono::milliseconds patience, std::chrono::milliseconds pause, Attempt attempt) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!attempt()) {
        if (std::chrono::steady_clock::now() >= end) {
            return false;
        }
        std::this_thread::sleep_for(pause);
    }
    return true;
}

/// What is left until then; nothing when it is over.
inline std::chrono::milliseconds LeftUntil(std::chrono::steady_clock::time_point end) {
    using std::chrono::milliseconds;
    const auto left = std::chrono::duration_cast<milliseconds>(end - std::chrono::steady_clock::now());
    return std::max(left, milliseconds(0));
}

} // namespace ui
