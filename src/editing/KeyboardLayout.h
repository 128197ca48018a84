// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace editing {

/// What a key of the drawn keyboard is there for.
enum class DrawnKeyUse {
    Mapped, ///< it has a row in the key map
    Shift,  ///< it chooses what the others type with Shift
    Ctrl,   ///< with Ctrl
    None,   ///< it only keeps its place
};

/// A key of the drawn keyboard. Places and sizes are in quarters of a letter's key.
struct DrawnKey {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    std::string_view cap; ///< what stands on it, ASCII
    DrawnKeyUse use = DrawnKeyUse::None;
    std::size_t key = 0; ///< row of the key map, of a mapped one
};

constexpr int KeyQuarters = 4; ///< side of a letter's key

/// A US keyboard with a number pad, row by row: every key of the key map once.
[[nodiscard]] const std::vector<DrawnKey>& KeyboardKeys();

/// The right and lower ends of the keyboard, in quarters.
[[nodiscard]] int KeyboardWidth();
[[nodiscard]] int KeyboardHeight();

/// The place of a row of the key map among KeyboardKeys().
[[nodiscard]] std::size_t DrawnKeyOf(std::size_t key);

/// The nearest key of the key map from a place among KeyboardKeys(), `columns` or `rows` (-1, 0, 1) away;
/// nothing at the edge.
[[nodiscard]] std::optional<std::size_t> KeyTowards(std::size_t place, int columns, int rows);

} // namespace editing
