// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/UsKeyboard.h"

#include "ui/KeyStroke.h"

#include <algorithm>
#include <array>

namespace ui {

namespace {

/// A key of the US keyboard and what it types there without and with Shift.
struct UsKey {
    char plain;
    char shifted;
    int virtualKey;
};

constexpr std::array<UsKey, 21> UsKeys = {{
    {'1', '!', 49},
    {'2', '@', 50},
    {'3', '#', 51},
    {'4', '$', 52},
    {'5', '%', 53},
    {'6', '^', 54},
    {'7', '&', 55},
    {'8', '*', 56},
    {'9', '(', 57},
    {'0', ')', 48},
    {'-', '_', KeyMinus},
    {'=', '+', KeyEquals},
    {'[', '{', KeyOpenBracket},
    {']', '}', KeyCloseBracket},
    {';', ':', KeySemicolon},
    {'\'', '"', KeyApostrophe},
    {'`', '~', KeyBackquote},
    {'\\', '|', KeyBackslash},
    {',', '<', KeyComma},
    {'.', '>', KeyPeriod},
    {'/', '?', KeySlash},
}};

} // namespace

std::optional<UsKeyPress> UsKeyOf(char32_t symbol) {
    if (symbol == ' ') {
        return UsKeyPress{KeySpace, false};
    }
    if (symbol >= 'a' && symbol <= 'z') {
        return UsKeyPress{static_cast<int>(symbol - 'a') + KeyA, false};
    }
    if (symbol >= 'A' && symbol <= 'Z') {
        return UsKeyPress{static_cast<int>(symbol - 'A') + KeyA, true};
    }
    for (const UsKey& key : UsKeys) {
        if (symbol == static_cast<char32_t>(key.plain) || symbol == static_cast<char32_t>(key.shifted)) {
            return UsKeyPress{key.virtualKey, symbol == static_cast<char32_t>(key.shifted)};
        }
    }
    return {};
}

} // namespace ui
