// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/windows/KeyPress.h"

#include "ui/UsKeyboard.h"

#include <array>
#include <windows.h>

namespace ui::native {

namespace {

/// The symbol of a US keyboard that a dead key stands for when nothing follows it.
char32_t BaseOfDeadKey(char32_t accent) {
    switch (accent) {
    case 0xB4:
        return U'\'';
    case 0xA8:
        return U'"';
    default:
        return accent; // ^, ` and ~ are themselves
    }
}

/// The keys of the number pad that are no others'.
bool IsPadKey(int virtualKey) {
    return virtualKey >= VK_NUMPAD0 && virtualKey <= VK_DIVIDE;
}

/// Whether a key lies on the number pad: of the keys that are there twice, those of the pad came first, and
/// of Enter the other one.
bool IsOnPad(const KeyPress& press) {
    switch (press.virtualKey) {
    case VK_RETURN:
        return press.isExtended;
    case VK_INSERT:
    case VK_DELETE:
    case VK_HOME:
    case VK_END:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
    case VK_CLEAR:
        return !press.isExtended;
    default:
        return IsPadKey(press.virtualKey);
    }
}

/// The keys that a US keyboard has and the key map may hold.
bool IsUsKey(int virtualKey) {
    switch (virtualKey) {
    case VK_CANCEL:
    case VK_BACK:
    case VK_TAB:
    case VK_CLEAR:
    case VK_RETURN:
    case VK_SHIFT:
    case VK_CONTROL:
    case VK_MENU:
    case VK_PAUSE:
    case VK_CAPITAL:
    case VK_ESCAPE:
    case VK_SPACE:
    case VK_INSERT:
    case VK_DELETE:
    case VK_APPS:
    case VK_NUMLOCK:
    case VK_SCROLL:
        return true;
    default:
        return (virtualKey >= VK_PRIOR && virtualKey <= VK_DOWN) ||
               (virtualKey >= KeyDigit0 && virtualKey <= KeyDigit9) ||
               (virtualKey >= KeyA && virtualKey <= KeyZ) || IsPadKey(virtualKey) ||
               (virtualKey >= VK_F1 && virtualKey <= VK_F24) ||
               (virtualKey >= VK_OEM_1 && virtualKey <= VK_OEM_3) ||
               (virtualKey >= VK_OEM_4 && virtualKey <= VK_OEM_7);
    }
}

} // namespace

bool MayBeDead(int virtualKey) {
    return virtualKey >= VK_OEM_1 && virtualKey <= VK_OEM_102;
}

void AskWhatIsTyped(KeyPress& press) {
    std::array<BYTE, 256> held{};
    std::array<wchar_t, 8> typed{};
    constexpr UINT LeaveTheStateAlone = 4;
    if (::GetKeyboardState(held.data()) == FALSE) {
        return;
    }
    const int count = ::ToUnicodeEx(
        static_cast<UINT>(press.virtualKey), press.scanCode, held.data(), typed.data(),
        static_cast<int>(typed.size()), LeaveTheStateAlone, ::GetKeyboardLayout(0));
    press.isDead = count < 0;
    if (press.isDead || count == 1) {
        const char32_t symbol = static_cast<char16_t>(typed[0]);
        press.typed = press.isDead ? BaseOfDeadKey(symbol) : symbol;
    }
}

KeyStroke TranslateKey(const KeyPress& press) {
    KeyStroke stroke;
    stroke.isShift = press.shift;
    stroke.isCtrl = press.ctrl && !press.altGr;
    stroke.isAlt = press.alt && !press.altGr;
    stroke.isRepeat = press.isRepeat;
    if (press.meta) {
        return stroke;
    }
    if (IsOnPad(press)) {
        stroke.isOnNumberPad = true;
        stroke.virtualKey = press.virtualKey;
        return stroke;
    }
    if (!press.altGr && !press.isDead && IsUsKey(press.virtualKey)) {
        stroke.virtualKey = press.virtualKey;
        return stroke;
    }
    if (const auto key = UsKeyOf(press.typed)) {
        stroke.virtualKey = key->virtualKey;
        stroke.isShift = key->isShift;
    }
    return stroke;
}

} // namespace ui::native
