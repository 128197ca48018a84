// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Change.h"

#include <cstdint>

/// Name animations: their names and ticks, their script file, the wizard and the preview.
namespace animation {

using editing::AnimationDocument;
using editing::Change;

/// Exchanges the glyphs of two rows (1 to 90). Ticks belong to row numbers and stay.
void SwapNames(AnimationDocument& animation, int first, int second);

/// Copies the glyphs of row `from` over row `to` (1 to 90). Ticks stay.
void CopyName(AnimationDocument& animation, int from, int to);

/// Sets the ticks of one row (1 to 90).
void SetTicks(AnimationDocument& animation, int name, std::int16_t count);

/// Sets the ticks of every row in use; those of the other rows stay.
void SetAllTicks(AnimationDocument& animation, std::int16_t count);

/// Sets how many names are in use, 15 to 90. The current name stays within them.
void SetNameCount(AnimationDocument& animation, int count);

/// The name list's operations on the current name. Each does nothing where the list ends.

/// Puts a blank name in front of the current one: it and all after it move down by a row, and one more name
/// is in use. With 90 names in use nothing happens.
Change InsertName(AnimationDocument& animation);

/// Removes the current name: the names after it move up by a row and the last row becomes blank. One name
/// less is in use, but never fewer than 15. The cursor goes to position 1.
Change DeleteName(AnimationDocument& animation);

/// Swaps the current name with the one before or after it; the cursor follows it.
Change MoveNameUp(AnimationDocument& animation);
Change MoveNameDown(AnimationDocument& animation);

} // namespace animation
