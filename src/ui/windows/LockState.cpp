// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/windows/LockState.h"

#include <windows.h>

namespace ui::native {

namespace {

/// Goes with the presses that this program makes.
constexpr ULONG_PTR Mark = 0x56544D4C;

constexpr SHORT IsHeld = static_cast<SHORT>(0x8000);
constexpr BYTE ToggleBit = 1;

constexpr std::array<int, 4> Keys{VK_SCROLL, VK_INSERT, VK_CAPITAL, VK_NUMLOCK};

std::size_t IndexOf(LockKey key) {
    return static_cast<std::size_t>(key);
}

/// Sets the state in the keyboard's table of this thread.
void SetInTable(int virtualKey, bool isOn) {
    std::array<BYTE, 256> table{};
    // Only this call brings the table up to date.
    ::GetKeyState(virtualKey);
    if (::GetKeyboardState(table.data()) != FALSE) {
        BYTE& state = table.at(static_cast<std::size_t>(virtualKey));
        state = static_cast<BYTE>(isOn ? state | ToggleBit : state & ~ToggleBit);
        ::SetKeyboardState(table.data());
    }
}

void Press(int virtualKey) {
    std::array<INPUT, 2> inputs{};
    for (INPUT& input : inputs) {
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = static_cast<WORD>(virtualKey);
        input.ki.wScan = static_cast<WORD>(::MapVirtualKeyW(static_cast<UINT>(virtualKey), MAPVK_VK_TO_VSC));
        input.ki.dwFlags = virtualKey == VK_NUMLOCK ? KEYEVENTF_EXTENDEDKEY : 0;
        input.ki.dwExtraInfo = Mark;
    }
    inputs[1].ki.dwFlags |= KEYEVENTF_KEYUP;
    ::SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

} // namespace

int VirtualKeyOf(LockKey key) {
    return Keys.at(IndexOf(key));
}

bool LockState::isOn(LockKey key) const {
    const bool isOnNow = (::GetKeyState(VirtualKeyOf(key)) & ToggleBit) != 0;
    return isOnNow != (m_onTheirWay.at(IndexOf(key)) % 2 != 0);
}

void LockState::turn(LockKey key, bool isOn) {
    const int virtualKey = VirtualKeyOf(key);
    if (key == LockKey::Insert) {
        SetInTable(virtualKey, isOn);
        return;
    }
    if (this->isOn(key) != isOn && (::GetAsyncKeyState(virtualKey) & IsHeld) == 0) {
        Press(virtualKey);
        ++m_onTheirWay.at(IndexOf(key));
    }
}

bool LockState::isOwnPress(unsigned message, int virtualKey) {
    const bool isPress = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
    if ((!isPress && message != WM_KEYUP && message != WM_SYSKEYUP) ||
        static_cast<ULONG_PTR>(::GetMessageExtraInfo()) != Mark) {
        return false;
    }
    for (std::size_t i = 0; isPress && i < Keys.size(); ++i) {
        if (Keys.at(i) == virtualKey && m_onTheirWay.at(i) > 0) {
            --m_onTheirWay.at(i);
        }
    }
    return true;
}

} // namespace ui::native
