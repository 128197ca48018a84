// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tour_driver/Desktop.h"

namespace tour {

/// The X display that DISPLAY names.
class X11Desktop : public Desktop {
public:
    explicit X11Desktop(std::string classOfProgram);
    ~X11Desktop() override;

    /// Whether there is such a display and it lets itself be driven.
    [[nodiscard]] bool connected() const;

    [[nodiscard]] std::string classOfProgram() const override { return m_class; }

    void moveTo(int x, int y) override;
    [[nodiscard]] std::optional<WindowFacts> activeWindow() const override;
    [[nodiscard]] std::optional<bool> isMenuOpen() const override;
    void activate(unsigned long window) override;
    void moveToCorner(unsigned long window) override;
    [[nodiscard]] ui::Picture grab() const override;
    [[nodiscard]] ui::Rect windowsArea() const override;
    [[nodiscard]] std::optional<std::string> clipboardText() override;

protected:
    [[nodiscard]] Key keyOf(unsigned long symbol) const override;
    void sendKey(unsigned code, bool isDown) override;
    void sendButton(unsigned button, bool isDown) override;
    [[nodiscard]] std::optional<std::string> clipboardImage() override;

private:
    struct Connection;
    std::unique_ptr<Connection> m_connection;
    std::string m_class;
};

} // namespace tour
