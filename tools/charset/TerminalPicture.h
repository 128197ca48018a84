// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Picture.h"

#include <string>

namespace charset {

/// A picture for a terminal of 24-bit colours: two rows of pixels a line, in half blocks. A picture wider
/// than `columns` (at least 8) is cut into bands of whole glyphs, one below the other with an empty line
/// between.
[[nodiscard]] std::string TerminalPicture(const ui::Picture& picture, int columns);

} // namespace charset
