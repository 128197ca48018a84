// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Result.h"

#include <string>
#include <string_view>

namespace artwork {

/// The byte with an ASCII capital made small.
[[nodiscard]] constexpr char FoldCase(char byte) {
    return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

/// The user's text (UTF-8) as the Latin-1 bytes of a record's field, `width` at most. Fails on
/// other characters and on control characters; `what` is the field's name in the failure.
[[nodiscard]] ui::Result<std::string>
FieldText(const std::string& what, std::string_view text, std::size_t width);

/// Whether a text is made of digits alone.
[[nodiscard]] bool IsNumber(std::string_view text);

/// Whether two names of sets differ in nothing but the case of ASCII letters and blanks at the right end.
[[nodiscard]] bool SameSetName(std::string_view first, std::string_view second);

/// Fails unless the text is a web address that a browser may be given.
[[nodiscard]] ui::Status CheckWebAddress(std::string_view address);

} // namespace artwork
