// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "cli/Utf8.h"

namespace cli {

namespace {

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

} // namespace

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

} // namespace cli
