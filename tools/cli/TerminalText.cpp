// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "cli/TerminalText.h"

#include "cli/Utf8.h"

#include <cstdint>

namespace cli {

namespace {

/// Whether a terminal does anything else with a character than to show it.
bool IsActedOn(std::uint32_t code) {
    const bool isControl = code < 0x20 || (code >= 0x7F && code < 0xA0);
    const bool isLineEnd = code == 0x2028 || code == 0x2029;
    const bool turnsDirection = code == 0x061C || code == 0x200E || code == 0x200F ||
                                (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
    return isControl || isLineEnd || turnsDirection;
}

} // namespace

std::string TerminalText(std::string_view text) {
    std::string shown;
    while (!text.empty()) {
        const Character character = FirstOf(text);
        if (character.size == 0 || IsActedOn(character.code)) {
            shown += '?';
            text.remove_prefix(character.size == 0 ? 1 : character.size);
        } else {
            shown += text.substr(0, character.size);
            text.remove_prefix(character.size);
        }
    }
    return shown;
}

} // namespace cli
