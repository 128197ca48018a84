// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Picture.h"

#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tour {

/// A window as the window manager knows it.
struct WindowFacts {
    unsigned long id = 0;
    std::string title;
    std::string className; ///< by which the desktop knows whose window it is
    ui::Rect frame;        ///< on the screen
};

/// The display that DISPLAY names: what is on it, and the keyboard and mouse before it.
class Desktop {
public:
    Desktop();
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    ~Desktop();

    /// Whether there is such a display and it lets itself be driven.
    [[nodiscard]] bool connected() const;

    /// Whether a window manager has taken charge: without one no window gets the keyboard.
    [[nodiscard]] bool isManaged() const;

    /// Presses and releases a key while others are held down. Keys are key symbols.
    void press(unsigned long key, std::initializer_list<unsigned long> held = {});

    /// Types ASCII text.
    void type(std::string_view text);

    void moveTo(int x, int y);
    void click(int x, int y, unsigned button = 1);

    /// The window that has the keyboard.
    [[nodiscard]] std::optional<WindowFacts> activeWindow() const;

    /// Asks the window manager to give a window the keyboard.
    void activate(unsigned long window);

    /// Asks the window manager to move a window near the screen's top left corner, its frame in view.
    void moveToCorner(unsigned long window);

    /// What is on the screen now.
    [[nodiscard]] ui::Picture grab() const;

    /// The smallest part of the screen that holds all windows with their frames.
    [[nodiscard]] ui::Rect windowsArea() const;

    /// The text on the clipboard as Latin-1 bytes; nothing if there is none.
    [[nodiscard]] std::optional<std::string> clipboardText();

private:
    struct Connection;
    std::unique_ptr<Connection> m_connection;
};

} // namespace tour
