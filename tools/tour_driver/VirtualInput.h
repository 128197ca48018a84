// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace tour {

/// A keyboard of the US layout and a pointer at the Wayland compositor that WAYLAND_DISPLAY names, which are
/// there for as long as this is. Every call returns when the compositor has taken it in.
class VirtualInput {
public:
    VirtualInput();
    VirtualInput(const VirtualInput&) = delete;
    VirtualInput& operator=(const VirtualInput&) = delete;
    ~VirtualInput();

    /// Whether there is such a compositor and it has let the devices in.
    [[nodiscard]] bool connected() const;

    /// A key of the layout as X key code, and whether the symbol is the upper one of the key; 0 if no key has
    /// it.
    struct Key {
        unsigned code = 0;
        bool isShifted = false;
    };

    [[nodiscard]] Key keyOf(unsigned symbol) const;

    void sendKey(unsigned code, bool isDown);

    /// `button` as in linux/input-event-codes.h.
    void sendButton(unsigned button, bool isDown);

    /// Moves the pointer to a place on a screen of this size, in whatever unit.
    void moveTo(int x, int y, int screenWidth, int screenHeight);

private:
    struct Connection;
    std::unique_ptr<Connection> m_connection;
};

} // namespace tour
