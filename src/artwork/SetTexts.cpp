// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/SetTexts.h"

#include <algorithm>

namespace artwork {

namespace {

bool IsControl(unsigned char byte) {
    return byte < 32 || (byte >= 127 && byte < 160);
}

std::string_view WithoutTrailingBlanks(std::string_view text) {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

} // namespace

ui::Result<std::string> FieldText(const std::string& what, std::string_view text, std::size_t width) {
    std::string field;
    for (std::size_t at = 0; at < text.size(); ++at) {
        auto byte = static_cast<unsigned char>(text[at]);
        // The characters of Latin-1 beyond ASCII take two bytes that start with C2 or C3.
        if (byte == 0xC2 || byte == 0xC3) {
            const auto next = at + 1 < text.size() ? static_cast<unsigned char>(text[++at]) : 0U;
            if ((next & 0xC0U) != 0x80U) {
                return ui::Failure{"the " + what + " is not UTF-8 text"};
            }
            byte = static_cast<unsigned char>(((byte & 3U) << 6U) | (next & 0x3FU));
        } else if (byte >= 128) {
            return ui::Failure{"the " + what + " holds a character that is not Latin-1"};
        }
        if (IsControl(byte)) {
            return ui::Failure{"the " + what + " holds a control character"};
        }
        field.push_back(static_cast<char>(byte));
    }
    if (field.size() > width) {
        return ui::Failure{
            "the " + what + " has " + std::to_string(field.size()) + " characters, more than " +
            std::to_string(width)};
    }
    return field;
}

bool IsNumber(std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool SameSetName(std::string_view first, std::string_view second) {
    return std::ranges::equal(
        WithoutTrailingBlanks(first), WithoutTrailingBlanks(second), {}, FoldCase, FoldCase);
}

ui::Status CheckWebAddress(std::string_view address) {
    const bool isWeb = address.starts_with("http://") || address.starts_with("https://");
    if (!isWeb || address.find(' ') != std::string_view::npos || address.ends_with("//")) {
        return ui::Failure{"the web address must start with http:// or https:// and hold no blanks"};
    }
    return {};
}

} // namespace artwork
