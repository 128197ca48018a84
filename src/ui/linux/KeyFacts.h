// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/KeyStroke.h"

class QKeyEvent;

namespace ui::native {

/// What the toolkit says about a key press.
struct KeyFacts {
    int key = 0;           ///< Qt::Key
    unsigned scanCode = 0; ///< X key code; 0: an event that no keyboard made
    unsigned symbol = 0;   ///< X key symbol; 0: not known
    bool shift = false;
    bool ctrl = false;
    bool alt = false;
    bool meta = false;  ///< the desktop's key (Super)
    bool altGr = false; ///< the third level of the layout
    bool capsLock = false;
    bool keypad = false; ///< the toolkit says that it is a key of the number pad
    bool autoRepeat = false;
};

/// Which key of the editor's key map a press counts as.
[[nodiscard]] KeyStroke TranslateKey(const KeyFacts& facts);

[[nodiscard]] KeyFacts FactsOf(const QKeyEvent& event);

} // namespace ui::native
