// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QKeyEvent>
#include <QWidget>
#include <array>
#include <memory>
#include <vector>

/// Keys of a real keyboard, as far as an X server can tell.
class X11Input {
public:
    /// Whether the server takes such input; without it a test is to be skipped.
    [[nodiscard]] static bool IsAvailable();

    static void press(unsigned scanCode);
    static void release(unsigned scanCode);
    static void click(unsigned scanCode);

    /// Chooses the keyboard's layout, as in "de"; false when the tool fails.
    [[nodiscard]] static bool chooseLayout(const QString& layout, const QString& variant = {});

    /// The symbols of a key: alone, with Shift, with AltGr, with both; 0 where there is none.
    using Levels = std::array<unsigned, 4>;

    /// The chosen layout, by scan code.
    [[nodiscard]] static std::array<Levels, 256> layout();

    /// Gives a key one symbol, as virtual keyboards do to type what the layout has not.
    static void setSymbol(unsigned scanCode, unsigned symbol);

    /// Turns locks as another program would that has no key pressed.
    static void lockAsAnotherProgram(unsigned modifiers, bool on);

    /// Takes the focus from every window.
    static void dropFocus();

    static void giveFocus(const QWidget& window);
};

/// Notes the key presses that reach a widget.
class KeyRecorder final : public QObject {
public:
    explicit KeyRecorder(QWidget& widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) {
            return false;
        }
        const auto* key = static_cast<QKeyEvent*>(event);
        (event->type() == QEvent::KeyPress ? presses : releases).emplace_back(key->clone());
        return true;
    }

    std::vector<std::unique_ptr<QKeyEvent>> presses;
    std::vector<std::unique_ptr<QKeyEvent>> releases;
};
