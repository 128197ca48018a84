// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tour_driver/Desktop.h"
#include "tour_driver/VirtualInput.h"

namespace tour {

/// The Wayland compositor that WAYLAND_DISPLAY names, which is sway; grim takes the pictures, wl-paste reads
/// the clipboard, wtype is the on-screen keyboard.
class WaylandDesktop : public Desktop {
public:
    WaylandDesktop();

    /// Whether there is such a compositor and it lets itself be driven.
    [[nodiscard]] bool connected() const { return m_input.connected() && m_scale > 0; }

    [[nodiscard]] std::string classOfProgram() const override { return "vtm"; }

    void typeAsShown(std::string_view text) override;
    void moveTo(int x, int y) override;
    [[nodiscard]] std::optional<WindowFacts> activeWindow() const override;
    void activate(unsigned long window) override;
    void moveToCorner(unsigned long window) override;
    [[nodiscard]] ui::Picture grab() const override;

    [[nodiscard]] ui::Rect windowsArea() const override { return m_screen; }

    [[nodiscard]] std::optional<std::string> clipboardText() override;

protected:
    [[nodiscard]] Key keyOf(unsigned long symbol) const override;
    void sendKey(unsigned code, bool isDown) override;
    void sendButton(unsigned button, bool isDown) override;
    [[nodiscard]] std::optional<std::string> clipboardImage() override;

private:
    VirtualInput m_input;
    ui::Rect m_screen;
    double m_scale = 0; ///< pixels of the screen to one of the compositor's units
};

} // namespace tour
