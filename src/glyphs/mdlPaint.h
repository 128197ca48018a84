// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/GlyphCode.h"
#include "glyphs/mdlData.h"
#include "ui/Picture.h"
#include "ui/Platform.h"

#include <array>
#include <functional>
#include <span>
#include <string_view>

namespace glyphs {

/// Side of a glyph cell in every picture that is shown, in pixels.
constexpr int CellSide = 16;
/// Side of a pixel of the artwork in those pictures.
constexpr int CellBlock = CellSide / ArtworkCell;
constexpr int TwipsPerPixel = 15;
constexpr int TwipsPerCell = TwipsPerPixel * CellSide;

/// Side of the glyph atlas and of the glyph grid, in pixels: 16 x 16 cells, code c at column c mod 16, row c
/// div 16.
constexpr int AtlasSide = 16 * CellSide;

/// One block copy of pixels, clipped to both pictures.
void BlitCells(
    ui::Picture& destination, int x, int y, int width, int height, const ui::Picture& source, int sourceX,
    int sourceY);

/// One block copy stretched from `from` of the source to `to` of the destination, nearest neighbour. Both
/// rectangles lie inside their pictures.
void StretchCells(
    ui::Picture& destination, const ui::Rect& to, const ui::Picture& source, const ui::Rect& from);

/// The pictures that every glyph is drawn from.
struct GlyphAtlas {
    ui::Picture artwork; ///< 128 x 128 as stored: transparent pixels are 0
    ui::Picture source;  ///< 128 x 128, opaque: the artwork over the background colour
    ui::Picture cells;   ///< 256 x 256: the source stretched to 16-pixel cells
};

/// Builds the atlas of an artwork (128 x 128) over a background colour.
[[nodiscard]] GlyphAtlas BuildAtlas(const ui::Picture& artwork, ui::Pixel background);

/// Copies the atlas cell of a glyph to a cell (column and row 1-based) of a picture. A code outside 0 to 255
/// paints nothing but blank.
void PaintGlyph(ui::Picture& destination, const GlyphAtlas& atlas, GlyphCode code, int column, int row);

/// Draws a row of glyphs at a place of a picture that holds it. `source` is that of an atlas; its pixels are
/// enlarged by a whole factor.
void DrawRow(
    ui::Picture& destination, std::span<const GlyphCode> row, const ui::Picture& source, int left, int top,
    int factor);

/// A picture of a row without the blanks at both of its ends, drawn likewise; empty for a row of blanks.
[[nodiscard]] ui::Picture RowPicture(std::span<const GlyphCode> row, const ui::Picture& source, int factor);

/// The glyph's 8 x 8 artwork cell stretched to a 16 x 16 picture, for the glyph buttons.
[[nodiscard]] ui::Picture GlyphButtonPicture(const GlyphAtlas& atlas, GlyphCode code);

/// A page's picture and the part of it that has changed since it was last shown.
class PagePicture {
public:
    PagePicture(int columns, int rows)
        : m_pixels(columns * CellSide, rows * CellSide) {}

    [[nodiscard]] const ui::Picture& pixels() const { return m_pixels; }

    /// The picture, for painting into; the caller says afterwards what it damaged.
    [[nodiscard]] ui::Picture& canvas() { return m_pixels; }

    /// Marks cells (1-based) as changed.
    void damageCells(int column, int row, int columns, int rows) {
        m_damage = m_damage.united(
            {(column - 1) * CellSide, (row - 1) * CellSide, columns * CellSide, rows * CellSide});
    }

    void damageAll() { m_damage = m_pixels.bounds(); }

    /// The rectangle to show again; nothing is damaged afterwards.
    ui::Rect takeDamage() {
        const ui::Rect damage = m_damage;
        m_damage = {};
        return damage;
    }

private:
    ui::Picture m_pixels;
    ui::Rect m_damage;
};

/// The progress of repainting a page: steps of ten per cent.
class Progress {
public:
    /// Called with 0, 10 .. 100 whenever the shown value changes.
    explicit Progress(std::function<void(int)> show)
        : m_show(std::move(show)) {}

    void ProgressStart(int first, int last, int current);
    void ProgressStep();

    /// Sets the current step without showing it.
    void setCurrent(int current) { m_current = current; }

    /// What is shown: 0 to 100, a multiple of 10.
    [[nodiscard]] int percentage() const { return m_percentage; }

private:
    std::function<void(int)> m_show;
    int m_first = 1;
    int m_last = 1;
    int m_current = 1;
    int m_percentage = 0;
};

/// Which of the sounds 101 to 104 may play: options 0 to 3.
using SoundOptions = std::array<bool, 4>;

enum SoundNumber : int {
    GlyphPlacedSound = 101,
    PageSwitchedSound = 102,
    PreviewStartedSound = 103,
    PagePaintedSound = 104,
};

/// Plays sound `number` unless its option is off. Numbers other than 101 to 104 have no option and, as there
/// is no such wave, no sound.
void PlaySoundResource(ui::SoundPlayer& player, const SoundOptions& options, int number);

/// The wave of sound 101 to 104; empty for any other number.
[[nodiscard]] std::string_view SoundWave(int number);

/// Where the grid marker stands, in twips.
struct GridMarker {
    bool visible = false;
    int left = 0;
    int top = 0;
};

/// The marker for a glyph: hidden when the glyph may not be picked.
[[nodiscard]] GridMarker ShowGridMarker(GlyphCode code);

/// The glyph under a position over the glyph grid, in twips; -1 outside the grid.
[[nodiscard]] int GridHitTest(int x, int y);

} // namespace glyphs
