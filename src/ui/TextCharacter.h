// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace ui {

/// A character of a text from elsewhere.
struct TextCharacter {
    char32_t code = 0;
    std::u32string parts; ///< the simpler characters that it is made of: "e" and an accent; or itself
};

} // namespace ui
