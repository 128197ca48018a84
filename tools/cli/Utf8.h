// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace cli {

/// A character of a text in UTF-8.
struct Character {
    std::uint32_t code = 0;
    std::size_t size = 0; ///< in bytes; 0: there is none
};

/// The character that a text, which is not empty, starts with.
[[nodiscard]] Character FirstOf(std::string_view text);

} // namespace cli
