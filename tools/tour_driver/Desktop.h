// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Picture.h"

#include <initializer_list>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

class QImage;

namespace tour {

/// Something did not happen that the tour has waited for, or is not as it should be.
class TourFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A window as the window manager knows it.
struct WindowFacts {
    unsigned long id = 0;
    std::string title;
    std::string className; ///< by which the desktop knows whose window it is
    ui::Rect frame;        ///< on the screen
};

/// What is on a display, and the keyboard and mouse before it. Places are pixels of the screen.
class Desktop {
public:
    /// The display that WAYLAND_DISPLAY names or, without that, DISPLAY; null if there is none that lets
    /// itself be driven. `classOnX`: the class name of the program's windows on an X display.
    [[nodiscard]] static std::unique_ptr<Desktop> open(const std::string& classOnX);

    Desktop() = default;
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    virtual ~Desktop() = default;

    /// What the windows of the program have as their class name.
    [[nodiscard]] virtual std::string classOfProgram() const = 0;

    /// Presses and releases a key while others are held down. Keys are key symbols.
    void press(unsigned long symbol, std::initializer_list<unsigned long> held = {});

    /// Types ASCII text on the keyboard.
    void type(std::string_view text);

    /// Types ASCII text without quotes on a keyboard whose keys bear the characters by themselves, as
    /// on-screen keyboards do, if the display lets one in.
    virtual void typeAsShown(std::string_view text) { type(text); }

    virtual void moveTo(int x, int y) = 0;
    /// `button`: 1 the left one, 2 the middle one, 3 the right one. Fails where the display does not see it.
    void click(int x, int y, unsigned button = 1);

    /// The window that has the keyboard.
    [[nodiscard]] virtual std::optional<WindowFacts> activeWindow() const = 0;

    /// Whether a menu is open; nothing where the display does not tell.
    [[nodiscard]] virtual std::optional<bool> isMenuOpen() const { return std::nullopt; }

    /// Asks the window manager to give a window the keyboard.
    virtual void activate(unsigned long window) = 0;

    /// Asks the window manager to move a window near the screen's top left corner, its frame in view.
    virtual void moveToCorner(unsigned long window) = 0;

    /// What is on the screen now.
    [[nodiscard]] virtual ui::Picture grab() const = 0;

    /// A part of the screen that holds all windows with their frames.
    [[nodiscard]] virtual ui::Rect windowsArea() const = 0;

    /// The text on the clipboard as Latin-1 bytes; nothing if there is none.
    [[nodiscard]] virtual std::optional<std::string> clipboardText() = 0;

    /// The picture on the clipboard; empty if there is none.
    [[nodiscard]] ui::Picture clipboardPicture();

protected:
    /// A key of the keyboard, and whether a symbol stands above another on it.
    struct Key {
        unsigned code = 0;
        bool isShifted = false;
    };

    [[nodiscard]] virtual Key keyOf(unsigned long symbol) const = 0;
    virtual void sendKey(unsigned code, bool isDown) = 0;
    virtual void sendButton(unsigned button, bool isDown) = 0;

    /// The picture on the clipboard as a file; nothing if there is none.
    [[nodiscard]] virtual std::optional<std::string> clipboardImage() = 0;

    [[nodiscard]] static ui::Picture pictureOf(const QImage& image);
};

} // namespace tour
