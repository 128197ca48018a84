// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace shell {

/// The stored texts of truth values and numbers. All of them are independent of the user's locale; blanks
/// around a value are ignored. Nothing is returned for a text that cannot be converted.

/// "True" or "False", in any case, or a number: 0 is false, all others are true.
[[nodiscard]] std::optional<bool> BooleanOf(std::string_view text);

/// A decimal number rounded to a whole one, halves to the even neighbour, within the 32-bit range.
[[nodiscard]] std::optional<std::int32_t> NumberOf(std::string_view text);

/// The same within the 16-bit range.
[[nodiscard]] std::optional<std::int16_t> ShortNumberOf(std::string_view text);

/// "True" or "False".
[[nodiscard]] std::string TextOf(bool value);

} // namespace shell
