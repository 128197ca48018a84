// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/windows/WideText.h"

#include <cstdint>
#include <optional>

namespace ui::native {

namespace {

constexpr wchar_t Replacement = 0xFFFD;
constexpr std::uint32_t FirstHigh = 0xD800;
constexpr std::uint32_t FirstLow = 0xDC00;
constexpr std::uint32_t AfterLow = 0xE000;
constexpr std::uint32_t FirstPair = 0x10000;

bool IsHigh(std::uint32_t code) {
    return code >= FirstHigh && code < FirstLow;
}

bool IsLow(std::uint32_t code) {
    return code >= FirstLow && code < AfterLow;
}

void AddNarrow(std::string& text, std::uint32_t code) {
    const auto byte = [&text](std::uint32_t value) {
        text += static_cast<char>(static_cast<unsigned char>(value));
    };
    if (code < 0x80) {
        byte(code);
        return;
    }
    if (code < 0x800) {
        byte(0xC0 | code >> 6U);
    } else if (code < FirstPair) {
        byte(0xE0 | code >> 12U);
        byte(0x80 | (code >> 6U & 0x3FU));
    } else {
        byte(0xF0 | code >> 18U);
        byte(0x80 | (code >> 12U & 0x3FU));
        byte(0x80 | (code >> 6U & 0x3FU));
    }
    byte(0x80 | (code & 0x3FU));
}

struct Decoded {
    std::uint32_t code;
    std::size_t size; ///< in bytes
};

/// The character that a text, which is not empty, starts with.
std::optional<Decoded> FirstCharacter(std::string_view text) {
    const auto byteAt = [text](std::size_t place) {
        return std::uint32_t{static_cast<unsigned char>(text[place])};
    };
    const std::uint32_t first = byteAt(0);
    if (first < 0x80) {
        return Decoded{first, 1};
    }
    const std::size_t size = first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : first < 0xF5 ? 4 : 0;
    if (size == 0 || size > text.size()) {
        return {};
    }
    std::uint32_t code = first & (0x7FU >> size);
    for (std::size_t place = 1; place < size; ++place) {
        if ((byteAt(place) & 0xC0U) != 0x80U) {
            return {};
        }
        code = code << 6U | (byteAt(place) & 0x3FU);
    }
    const bool isTooLong = (size == 3 && code < 0x800) || (size == 4 && code < FirstPair);
    return isTooLong || code > 0x10FFFF ? std::nullopt : std::optional(Decoded{code, size});
}

} // namespace

std::string NarrowText(std::wstring_view text) {
    std::string narrow;
    narrow.reserve(text.size());
    for (std::size_t place = 0; place < text.size(); ++place) {
        std::uint32_t code = text[place];
        if (IsHigh(code) && place + 1 < text.size() && IsLow(text[place + 1])) {
            ++place;
            code = FirstPair + ((code - FirstHigh) << 10U) + (text[place] - FirstLow);
        }
        AddNarrow(narrow, code);
    }
    return narrow;
}

std::wstring WideText(std::string_view text) {
    std::wstring wide;
    wide.reserve(text.size());
    while (!text.empty()) {
        const auto decoded = FirstCharacter(text);
        if (!decoded) {
            wide += Replacement;
        } else if (decoded->code < FirstPair) {
            wide += static_cast<wchar_t>(decoded->code);
        } else {
            wide += static_cast<wchar_t>(FirstHigh + ((decoded->code - FirstPair) >> 10U));
            wide += static_cast<wchar_t>(FirstLow + (decoded->code & 0x3FFU));
        }
        text.remove_prefix(decoded ? decoded->size : 1);
    }
    return wide;
}

} // namespace ui::native
