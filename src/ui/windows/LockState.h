// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

#include <array>

namespace ui::native {

/// The toggle states of the lock keys as the thread that has the keyboard sees them. Insert has one in the
/// keyboard's table alone; the others are the whole keyboard's, with their lights, and are turned by a press
/// that only this class knows of.
class LockState {
public:
    [[nodiscard]] bool isOn(LockKey key) const;

    /// Turns a lock unless it is on or off already. While its key is held down that does nothing: the key
    /// itself has turned it.
    void turn(LockKey key, bool isOn);

    /// Whether a message of a key, the one that the thread got last, is one that turn() has caused: it is for
    /// nobody. Told of every message of a key.
    bool isOwnPress(unsigned message, int virtualKey);

    /// The keyboard is another window's: presses on their way do not come here any more.
    void forget() { m_onTheirWay = {}; }

private:
    std::array<int, 4> m_onTheirWay{}; ///< presses that the thread has not got yet, by LockKey
};

/// The system's number of a lock key.
[[nodiscard]] int VirtualKeyOf(LockKey key);

} // namespace ui::native
