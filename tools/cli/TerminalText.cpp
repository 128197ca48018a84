// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "cli/TerminalText.h"

#include <cstddef>
#include <cstdint>

namespace cli {

namespace {

/// A character of a text in UTF-8.
struct Character {
    std::uint32_t code = 0;
    std::size_t size = 0; ///< in bytes; 0: there is none
};

std::uint32_t ByteAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

/// How many bytes a character has that starts with this one; 0 when none does.
std::size_t SizeFrom(std::uint32_t first) {
    if (first < 0x80) {
        return 1;
    }
    if (first >= 0xC2 && first < 0xE0) {
        return 2;
    }
    if (first >= 0xE0 && first < 0xF0) {
        return 3;
    }
    return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

/// The character that a text starts with.
Character FirstOf(std::string_view text) {
    const std::uint32_t first = ByteAt(text, 0);
    const std::size_t size = SizeFrom(first);
    if (size < 2 || size > text.size()) {
        return {first, size == 1 ? size : 0};
    }
    std::uint32_t code = first & (0x7FU >> size);
    for (std::size_t at = 1; at < size; ++at) {
        const std::uint32_t byte = ByteAt(text, at);
        if ((byte & 0xC0U) != 0x80U) {
            return {};
        }
        code = (code << 6U) | (byte & 0x3FU);
    }
    const bool isTooLong = (size == 3 && code < 0x800) || (size == 4 && code < 0x10000);
    const bool isNone = (code >= 0xD800 && code < 0xE000) || code > 0x10FFFF;
    return {code, isTooLong || isNone ? 0 : size};
}

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
