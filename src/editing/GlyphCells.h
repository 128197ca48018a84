// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/GlyphCode.h"
#include "ui/qt/PictureWidget.h"

namespace editing {

/// The cells of a picture of all 256 glyphs in words. `canBePressed`: whether a press on a glyph does
/// something.
[[nodiscard]] ui::qt::PictureCells GlyphGridCells(bool canBePressed);

/// Says that the marker of a picture of all glyphs is on a glyph; 0: on none.
void SetCurrentGlyph(ui::qt::PictureWidget& grid, glyphs::GlyphCode code);

} // namespace editing
