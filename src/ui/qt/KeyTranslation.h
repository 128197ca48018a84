// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

class QKeyEvent;

namespace ui::qt {

/// What the toolkit says about a key press.
struct KeyFacts {
    int key = 0;           ///< Qt::Key
    unsigned scanCode = 0; ///< X key code; 0: an event that no keyboard made
    unsigned symbol = 0;   ///< X key symbol; 0: not known
    bool shift = false;
    bool ctrl = false;
    bool alt = false;
    bool meta = false;        ///< the desktop's key (Super)
    bool groupSwitch = false; ///< AltGr
    bool keypad = false;      ///< the toolkit says that it is a key of the number pad
    bool autoRepeat = false;
};

/// What the digit keys of the number pad are.
enum class NumberPad {
    AsReported, ///< as the keyboard's own Num Lock has it
    Digits,
    Navigation,
};

/// A key press as the editor's key map knows it.
struct VirtualKeyPress {
    int virtualKey = 0; ///< Windows virtual-key code; 0: a key that does nothing here
    bool shift = false; ///< what the typed symbol needs on a US keyboard, whatever was held down
    bool ctrl = false;
    bool alt = false;
    bool isAutoRepeat = false;
    bool isPadKey = false; ///< a key of the number pad, Enter included

    friend bool operator==(const VirtualKeyPress&, const VirtualKeyPress&) = default;
};

/// Which key of the editor's key map a press counts as.
[[nodiscard]] VirtualKeyPress TranslateKey(const KeyFacts& facts, NumberPad pad);

[[nodiscard]] KeyFacts FactsOf(const QKeyEvent& event);

[[nodiscard]] inline VirtualKeyPress TranslateKey(const QKeyEvent& event, NumberPad pad) {
    return TranslateKey(FactsOf(event), pad);
}

} // namespace ui::qt
