// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>
#include <string_view>

/// Lists in words.
namespace games {

/// Names as people list them: "Quake, QuakeWorld and Quake2".
[[nodiscard]] std::string ListText(std::span<const std::string_view> names);

/// Numbers in ascending order likewise: "1 to 4, 7 and 9".
[[nodiscard]] std::string NumbersText(std::span<const int> numbers);

} // namespace games
