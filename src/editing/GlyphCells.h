// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/GlyphCode.h"
#include "ui/qt/PictureWidget.h"

#include <functional>

namespace editing {

/// What is told of a glyph in a tooltip, a line each.
using GlyphText = std::function<QString(glyphs::GlyphCode)>;

/// The cells of a picture of all 256 glyphs in words. `canBePressed`: whether a press on a glyph does
/// something. Without a `glyphText` no glyph has a tooltip.
[[nodiscard]] ui::qt::PictureCells GlyphGridCells(bool canBePressed, GlyphText glyphText = {});

/// The glyph of a cell (1-based) of such a picture.
[[nodiscard]] glyphs::GlyphCode GridGlyph(int row, int column);

/// The part of such a picture that is a glyph.
[[nodiscard]] ui::Rect GridCell(glyphs::GlyphCode code);

/// Says that the marker of a picture of all glyphs is on a glyph; 0: on none.
void SetCurrentGlyph(ui::qt::PictureWidget& grid, glyphs::GlyphCode code);

} // namespace editing
