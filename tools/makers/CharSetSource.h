// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Picture.h"

#include <string>

namespace makers {

/// A character set as its source draws it.
struct CharSetDrawing {
    std::string name;
    std::string webAddress;
    ui::Picture artwork; ///< 128 x 128; transparent pixels are 0
};

/// Draws the character set of a source file (data/charsets/README.md describes the format). Refuses a source
/// that is wrong or incomplete.
[[nodiscard]] CharSetDrawing DrawCharSet(const std::string& file);

} // namespace makers
