// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"

#include <string>
#include <string_view>

namespace support {

/// A name of these glyphs, blank behind them; throws when they are more than a name holds.
[[nodiscard]] inline editing::NameDocument Name(std::string_view glyphs) {
    editing::NameDocument name;
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        name.cells.at(i) = static_cast<unsigned char>(glyphs[i]);
    }
    return name;
}

/// All cells of a name, one character each.
[[nodiscard]] inline std::string Cells(const editing::NameDocument& name) {
    std::string text;
    for (const auto code : name.cells) {
        text += static_cast<char>(code);
    }
    return text;
}

} // namespace support
