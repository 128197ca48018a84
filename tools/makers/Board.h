// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "makers/Backdrop.h"
#include "ui/Picture.h"

#include <string>
#include <vector>

namespace makers {

/// Size of the picture as it is drawn: half the finished picture.
constexpr int BoardWidth = 320;
constexpr int BoardHeight = 240;

/// Side of a glyph as it is drawn.
constexpr int BoardGlyph = 8;
constexpr int NameGlyphs = 15;

/// A line of glyphs. Places are in drawn pixels.
struct BoardText {
    int x = 0;
    int y = 0;
    std::vector<int> glyphs;
    int scale = 1;
};

/// A player's line.
struct BoardRow {
    int x = 0;
    int y = 0;
    std::string frags;
    ui::Pixel upperDye = 0;
    ui::Pixel lowerDye = 0;
    bool strip = false; ///< the name's place stays empty
    std::vector<int> name;
};

/// What stands on the board.
struct Board {
    ui::Rect panel;
    std::vector<BoardText> texts;
    std::vector<BoardRow> rows;
};

/// Reads the source of the board (data/screenshot/scene.txt describes it). Refuses a wrong one.
[[nodiscard]] Board ReadBoard(const std::string& file);

/// Darkens what lies under the board's panel.
void ShadePanel(const Board& board, LightPicture& picture);

/// Draws the board in glyphs of the artwork (128 x 128; transparent pixels are 0).
void DrawBoard(const Board& board, const ui::Picture& artwork, ui::Picture& picture);

} // namespace makers
