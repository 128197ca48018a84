// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/KeyStroke.h"

#include <span>
#include <string>
#include <string_view>

namespace shell {

/// What can be done with Alt and a key in the main window. Keys without Alt belong to typing, and the letters
/// of the menus (E, F, H, O, T, V) to the menus.
enum class AltCommand {
    PlaceFavourite,
    ChangeFavourite,
    PlaceFrequent,
    CountFrequent,
    PickGlyph,
    PlaceRightGlyph,
    ChangeRightGlyph,
    FindGlyph,
    OpenNameTicks,
    OpenAllTicks,
    MoreNames,
    FewerNames,
    ShowReadNames,
    RestoreWork,
    DiscardWork,
    GoToLoss,
    ViewLineUp,
    ViewLineDown,
    ViewPageUp,
    ViewPageDown,
};

/// One key that does something with Alt.
struct AltKey {
    /// Which state of Shift it wants.
    enum class Shift { Up, Down, Either };

    int virtualKey;
    Shift shift;
    AltCommand command;
    int index;                ///< of the favourite or frequent glyph, from 0
    std::string_view keys;    ///< as people read it: "Alt+1"; empty for a second way to press the same
    std::string_view control; ///< objectName of the control that does the same; may be empty
};

[[nodiscard]] std::span<const AltKey> AltKeys();

/// The row of a key stroke; null when it has none.
[[nodiscard]] const AltKey* FindAltKey(const ui::KeyStroke& stroke);

/// The keys of a control as people read them, the main one first: "Alt+1, Alt+Shift+1". Empty when it has
/// none.
[[nodiscard]] std::string AltKeysOf(std::string_view control);

} // namespace shell
