// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

/// What the toolkit's numbers of keys (Qt::Key) are in the editor's key map.
namespace ui::qt {

/// The key of the key map that has this name on every keyboard; 0 for any other.
[[nodiscard]] int NamedVirtualKey(int key);

/// The symbol that a dead key stands for when nothing follows it; 0 when there is none on a US keyboard.
[[nodiscard]] int DeadKeyBase(int key);

/// A key of the number pad that Num Lock changes.
struct PadKey {
    int digit;    ///< with Num Lock
    int movement; ///< without
};

/// The key with that number; 10: the decimal sign's.
[[nodiscard]] PadKey NumberedPadKey(int number);

/// The pad key that a press on the number pad is, by what the press means.
[[nodiscard]] std::optional<PadKey> PadKeyOf(int key);

/// The keys of the pad that Num Lock leaves alone; 0 for any other.
[[nodiscard]] int PadOperator(int key);

} // namespace ui::qt
