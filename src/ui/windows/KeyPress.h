// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/KeyStroke.h"

namespace ui::native {

/// What the system says about a key press.
struct KeyPress {
    int virtualKey = 0;      ///< as the message has it
    unsigned scanCode = 0;   ///< without the bit of extended keys
    bool isExtended = false; ///< a key that the first keyboards had in another place
    bool shift = false;
    bool ctrl = false;
    bool alt = false;
    bool altGr = false; ///< the third level of the layout; the system has Ctrl and Alt held then
    bool meta = false;  ///< the key with the system's logo
    bool isRepeat = false;
    char32_t typed = 0;  ///< the character that the key types; 0: none, or not asked for
    bool isDead = false; ///< whether that waits for the next key
};

/// Whether a key types a character, so that on some layout it is a dead one.
[[nodiscard]] bool MayBeDead(int virtualKey);

/// Fills in what the key types with what is held now, a dead key as if nothing followed. The system goes on
/// as if nobody had asked.
void AskWhatIsTyped(KeyPress& press);

/// Which key of the editor's key map a press counts as: the system's numbers are the key map's. Only what
/// AltGr types, a dead key, and keys that no US keyboard has count as the US key that types the same.
[[nodiscard]] KeyStroke TranslateKey(const KeyPress& press);

} // namespace ui::native
