// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace ui {

/// How a US keyboard types a symbol.
struct UsKeyPress {
    int virtualKey = 0;
    bool isShift = false;
};

/// The key of a printable ASCII character; nothing for any other symbol.
[[nodiscard]] std::optional<UsKeyPress> UsKeyOf(char32_t symbol);

} // namespace ui
