// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

namespace ui {

/// The keys of a US keyboard, by the numbers that the key map counts them by. Letters and digits have the
/// numbers of their capital letters and characters, from KeyA and KeyDigit0 on; so have the digits of the
/// number pad from KeyPad0 on and the function keys from KeyF1 on.
enum VirtualKey : int {
    KeyNone = 0, ///< a key that the program leaves to the desktop
    KeyCancel = 3,
    KeyBackspace = 8,
    KeyTab = 9,
    KeyClear = 12,
    KeyEnter = 13,
    KeyShift = 16,
    KeyCtrl = 17,
    KeyAlt = 18,
    KeyPause = 19,
    KeyCapsLock = 20,
    KeyEscape = 27,
    KeySpace = 32,
    KeyPageUp = 33,
    KeyPageDown = 34,
    KeyEnd = 35,
    KeyHome = 36,
    KeyLeft = 37,
    KeyUp = 38,
    KeyRight = 39,
    KeyDown = 40,
    KeyInsert = 45,
    KeyDelete = 46,
    KeyDigit0 = 48,
    KeyDigit9 = 57,
    KeyA = 65,
    KeyZ = 90,
    KeyMenu = 93,
    KeyPad0 = 96,
    KeyPad9 = 105,
    KeyPadMultiply = 106,
    KeyPadAdd = 107,
    KeyPadSubtract = 109,
    KeyPadDecimal = 110,
    KeyPadDivide = 111,
    KeyF1 = 112,
    KeyF13 = 124,
    KeyF16 = 127,
    KeyF24 = 135,
    KeyNumLock = 144,
    KeyScrollLock = 145,
    KeySemicolon = 186,
    KeyEquals = 187,
    KeyComma = 188,
    KeyMinus = 189,
    KeyPeriod = 190,
    KeySlash = 191,
    KeyBackquote = 192,
    KeyOpenBracket = 219,
    KeyBackslash = 220,
    KeyCloseBracket = 221,
    KeyApostrophe = 222,
};

/// One press of a key, or one repeat of a key that is held down.
struct KeyStroke {
    int virtualKey = KeyNone; ///< on the number pad: what the keyboard's Num Lock made of it
    bool isShift = false;     ///< off the number pad: what the typed symbol needs on a US keyboard
    bool isCtrl = false;
    bool isAlt = false;
    bool isOnNumberPad = false; ///< Enter and the operators included
    bool isRepeat = false;

    friend bool operator==(const KeyStroke&, const KeyStroke&) = default;
};

} // namespace ui
