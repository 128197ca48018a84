// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/KeyTranslation.h"

#include "ui/UsKeyboard.h"
#include "ui/linux/KeyFacts.h"
#include "ui/linux/X11Keyboard.h"
#include "ui/qt/KeyNames.h"

#include <QKeyEvent>
#include <array>
#include <optional>
#include <string_view>

// X11's headers define names as macros that the toolkit's headers use, so they come last.
#include <X11/X.h>
#include <X11/keysym.h>

namespace ui::native {

using qt::DeadKeyBase;
using qt::NamedVirtualKey;
using qt::PadKey;
using qt::PadKeyOf;
using qt::PadOperator;

namespace {

constexpr unsigned FirstNamedSymbol = 0xFF00; ///< of the keys that have a name and no character
constexpr unsigned LastNamedSymbol = 0xFFFF;
constexpr unsigned FirstPadSymbol = XK_KP_Space; ///< the pad's lie among them
constexpr unsigned LastPadSymbol = XK_KP_Equal;
constexpr unsigned PadDecimalScanCode = 91;
// The window system's modifier for AltGr, which some versions of the toolkit do not tell of.
constexpr unsigned AltGrMask = Mod5Mask;

constexpr unsigned F13ScanCode = 191;
constexpr unsigned F16ScanCode = 194;

/// What the keys of an unbroken range of scan codes type on a US keyboard without Shift.
struct UsRow {
    unsigned firstScanCode;
    std::string_view symbols;
};

constexpr std::array<UsRow, 5> UsRows = {{
    {10, "1234567890-="},
    {24, "qwertyuiop[]"},
    {38, "asdfghjkl;'"},
    {49, "`"},
    {51, "\\zxcvbnm,./"},
}};

/// The pad key that a press at this scan code is, whatever symbol the layout gives it.
std::optional<PadKey> PadKeyAt(unsigned scanCode) {
    constexpr unsigned First = 79;
    constexpr std::array<int, 13> Indexes = {7, 8, 9, -1, 4, 5, 6, -1, 1, 2, 3, 0, 10};
    if (scanCode < First || scanCode >= First + Indexes.size() || Indexes[scanCode - First] < 0) {
        return {};
    }
    return qt::NumberedPadKey(Indexes[scanCode - First]);
}

/// Whether a symbol is a printable ASCII character, which has the same number.
bool IsAscii(unsigned symbol) {
    return symbol >= ' ' && symbol <= '~';
}

/// Whether a symbol says by itself which key it is, so that the place of the key has nothing to add: on a
/// virtual keyboard a key may lie anywhere.
bool IsTelling(unsigned symbol) {
    return IsAscii(symbol) || (symbol >= FirstNamedSymbol && symbol <= LastNamedSymbol);
}

bool IsLetter(int key) {
    return key >= Qt::Key_A && key <= Qt::Key_Z;
}

bool IsCharacter(int key) {
    return key > Qt::Key_Space && key < Qt::Key_Escape;
}

/// Fills in the key that a symbol of the US keyboard is typed with; false for any other symbol.
bool TranslateUsSymbol(int symbol, bool isReal, KeyStroke& press) {
    const auto key = UsKeyOf(static_cast<char32_t>(symbol));
    if (!key) {
        return false;
    }
    press.virtualKey = key->virtualKey;
    if (isReal) {
        press.isShift = key->isShift;
    }
    return true;
}

/// The key at a place of the keyboard, as a US keyboard has it; 0 when it types no character there.
int VirtualKeyAt(unsigned scanCode) {
    for (const UsRow& row : UsRows) {
        if (scanCode < row.firstScanCode || scanCode >= row.firstScanCode + row.symbols.size()) {
            continue;
        }
        const char symbol = row.symbols[scanCode - row.firstScanCode];
        if (symbol >= 'a' && symbol <= 'z') {
            return symbol - 'a' + 'A';
        }
        KeyStroke press;
        TranslateUsSymbol(symbol, false, press);
        return press.virtualKey;
    }
    return 0;
}

/// The key of the digit row at a place of the keyboard; 0 at any other place.
int DigitAt(unsigned scanCode) {
    const int key = VirtualKeyAt(scanCode);
    return key >= KeyDigit0 && key <= KeyDigit9 ? key : 0;
}

bool IsOnPad(const KeyFacts& facts) {
    if (facts.keypad || (facts.symbol >= FirstPadSymbol && facts.symbol <= LastPadSymbol)) {
        return true;
    }
    const bool isDecimalSign = facts.symbol == '.' || facts.symbol == ',';
    return PadKeyAt(facts.scanCode) &&
           (!IsTelling(facts.symbol) || (isDecimalSign && facts.scanCode == PadDecimalScanCode));
}

/// The key that a press on the number pad is.
int TranslatePadKey(const KeyFacts& facts) {
    auto pad = PadKeyOf(facts.key);
    if (!pad) {
        if (const int operatorKey = PadOperator(facts.key); operatorKey != 0) {
            return operatorKey;
        }
        pad = PadKeyAt(facts.scanCode);
    }
    if (!pad) {
        return NamedVirtualKey(facts.key);
    }
    return IsCharacter(facts.key) ? pad->digit : pad->movement;
}

/// Whether AltGr turns the key into something that a US keyboard types: an ASCII character, or a dead key
/// that stands for one.
bool IsTypedWithAltGr(const KeyFacts& facts) {
    const unsigned shown = facts.symbol != 0 ? facts.symbol : static_cast<unsigned>(facts.key);
    return !facts.alt && (IsAscii(shown) || DeadKeyBase(facts.key) != 0);
}

} // namespace

KeyStroke TranslateKey(const KeyFacts& facts) {
    KeyStroke press;
    press.isShift = facts.shift;
    press.isCtrl = facts.ctrl;
    press.isAlt = facts.alt;
    press.isRepeat = facts.autoRepeat;
    if (facts.meta || (facts.altGr && !IsTypedWithAltGr(facts))) {
        return press;
    }
    const bool isReal = facts.scanCode != 0;
    if (IsOnPad(facts)) {
        press.isOnNumberPad = true;
        press.virtualKey = TranslatePadKey(facts);
        return press;
    }
    if (facts.symbol == XK_Break) {
        press.virtualKey = NamedVirtualKey(Qt::Key_Cancel);
        return press;
    }
    if (IsLetter(facts.key)) {
        press.virtualKey = facts.key;
        if (isReal && facts.symbol >= 'A' && facts.symbol <= 'Z' && !facts.capsLock) {
            // Virtual keyboards have separate keys for capitals.
            press.isShift = true;
        }
        return press;
    }
    if (facts.scanCode >= F13ScanCode && facts.scanCode <= F16ScanCode && !IsTelling(facts.symbol)) {
        // The usual layouts put tool and launch keys in the place of these four.
        press.virtualKey = KeyF13 + static_cast<int>(facts.scanCode - F13ScanCode);
        return press;
    }
    if (facts.alt && DigitAt(facts.scanCode) != 0) {
        // Alt with a digit is a command: some layouts type digits only with Shift, which would be another
        // command.
        press.virtualKey = DigitAt(facts.scanCode);
        return press;
    }
    if (facts.key == Qt::Key_nobreakspace) {
        // Some layouts type this blank with the space bar.
        press.virtualKey = NamedVirtualKey(Qt::Key_Space);
        return press;
    }
    if (IsCharacter(facts.key)) {
        if (!TranslateUsSymbol(facts.key, isReal, press)) {
            press.virtualKey = VirtualKeyAt(facts.scanCode);
        }
        return press;
    }
    if (const int base = DeadKeyBase(facts.key); base != 0) {
        TranslateUsSymbol(base, isReal, press);
        return press;
    }
    press.virtualKey = NamedVirtualKey(facts.key);
    if (facts.key == Qt::Key_Backtab && isReal) {
        press.isShift = true;
    }
    return press;
}

KeyFacts FactsOf(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers();
    const unsigned nativeHeld = event.nativeModifiers();
    KeyFacts facts;
    facts.key = event.key();
    facts.scanCode = event.nativeScanCode();
    facts.symbol = event.nativeVirtualKey();
    facts.shift = held.testFlag(Qt::ShiftModifier);
    facts.ctrl = held.testFlag(Qt::ControlModifier);
    facts.alt = held.testFlag(Qt::AltModifier);
    facts.meta = held.testFlag(Qt::MetaModifier);
    facts.altGr = held.testFlag(Qt::GroupSwitchModifier) || (nativeHeld & AltGrMask) != 0;
    facts.capsLock = (nativeHeld & LockMask) != 0;
    facts.keypad = held.testFlag(Qt::KeypadModifier);
    facts.autoRepeat = event.isAutoRepeat();
    return facts;
}

} // namespace ui::native

namespace ui::qt {

KeyStroke TranslateKey(const QKeyEvent& event) {
    return native::TranslateKey(native::FactsOf(event));
}

void DropFalseReleases() {
    if (const auto keyboard = native::X11Keyboard::Connect()) {
        keyboard->dropFalseReleases();
    }
}

void HearEveryKey(QWidget& /*window*/) {
    // Desktops keep no key of a window's for menus.
}

} // namespace ui::qt
