// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/mdlPaint.h"

#include "glyphs/mdlSwitches.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <vector>

namespace glyphs {

void BlitCells(
    ui::Picture& destination, int x, int y, int width, int height, const ui::Picture& source, int sourceX,
    int sourceY) {
    const int skipX = std::max({0, -x, -sourceX});
    const int skipY = std::max({0, -y, -sourceY});
    const int right = std::min({width, destination.width() - x, source.width() - sourceX});
    const int bottom = std::min({height, destination.height() - y, source.height() - sourceY});
    if (skipX >= right || skipY >= bottom) {
        return;
    }
    const auto bytes = static_cast<std::size_t>(right - skipX) * sizeof(ui::Pixel);
    const auto copyRow = [&](int line) {
        // Source and destination may be the same picture, so the rows may overlap.
        std::memmove(
            destination.row(y + line) + x + skipX, source.row(sourceY + line) + sourceX + skipX, bytes);
    };
    if (&destination == &source && y > sourceY) {
        for (int line = bottom - 1; line >= skipY; --line) {
            copyRow(line);
        }
    } else {
        for (int line = skipY; line < bottom; ++line) {
            copyRow(line);
        }
    }
}

void StretchCells(
    ui::Picture& destination, const ui::Rect& to, const ui::Picture& source, const ui::Rect& from) {
    if (to.empty() || from.empty()) {
        return;
    }
    assert(destination.bounds().united(to) == destination.bounds());
    assert(source.bounds().united(from) == source.bounds());
    std::vector<int> columns(static_cast<std::size_t>(to.width));
    for (int x = 0; x < to.width; ++x) {
        columns[static_cast<std::size_t>(x)] = from.x + x * from.width / to.width;
    }
    for (int y = 0; y < to.height; ++y) {
        const ui::Pixel* sourceRow = source.row(from.y + y * from.height / to.height);
        ui::Pixel* row = destination.row(to.y + y) + to.x;
        for (int x = 0; x < to.width; ++x) {
            row[x] = sourceRow[columns[static_cast<std::size_t>(x)]];
        }
    }
}

GlyphAtlas BuildAtlas(const ui::Picture& artwork, ui::Pixel background) {
    GlyphAtlas atlas;
    atlas.artwork = artwork;
    atlas.source = artwork;
    for (int y = 0; y < artwork.height(); ++y) {
        ui::Pixel* row = atlas.source.row(y);
        std::replace_if(
            row, row + artwork.width(), [](ui::Pixel pixel) { return (pixel >> 24U) != 0xFFU; },
            background | ui::OpaqueBlack);
    }
    atlas.cells = ui::Picture(AtlasSide, AtlasSide);
    StretchCells(atlas.cells, atlas.cells.bounds(), atlas.source, atlas.source.bounds());
    return atlas;
}

void PaintGlyph(ui::Picture& destination, const GlyphAtlas& atlas, GlyphCode code, int column, int row) {
    const int cell = code >= 0 && code < GlyphCount ? code : BlankGlyph;
    const int x = (column - 1) * CellSide;
    const int y = (row - 1) * CellSide;
    assert(x >= 0 && y >= 0 && x + CellSide <= destination.width() && y + CellSide <= destination.height());
    // A cell has a fixed size: copies of a known length take a third of the time of those that BlitCells
    // clips.
    const int left = cell % 16 * CellSide;
    const int top = cell / 16 * CellSide;
    for (int line = 0; line < CellSide; ++line) {
        std::memcpy(
            destination.row(y + line) + x, atlas.cells.row(top + line) + left, CellSide * sizeof(ui::Pixel));
    }
}

void DrawRow(
    ui::Picture& destination, std::span<const GlyphCode> row, const ui::Picture& source, int left, int top,
    int factor) {
    const int cell = ArtworkCell * factor;
    for (const GlyphCode code : row) {
        StretchCells(
            destination, {left, top, cell, cell}, source,
            {code % 16 * ArtworkCell, code / 16 * ArtworkCell, ArtworkCell, ArtworkCell});
        left += cell;
    }
}

ui::Picture RowPicture(std::span<const GlyphCode> row, const ui::Picture& source, int factor) {
    const auto isGlyph = [](GlyphCode code) {
        return code != BlankGlyph;
    };
    const auto first = std::ranges::find_if(row, isGlyph);
    const auto end = std::find_if(row.rbegin(), row.rend(), isGlyph).base();
    if (first == row.end()) {
        return {};
    }
    const std::span<const GlyphCode> shown(first, end);
    ui::Picture picture(static_cast<int>(shown.size()) * ArtworkCell * factor, ArtworkCell * factor);
    DrawRow(picture, shown, source, 0, 0, factor);
    return picture;
}

ui::Picture GlyphButtonPicture(const GlyphAtlas& atlas, GlyphCode code) {
    assert(code >= 0 && code < GlyphCount);
    const int side = atlas.source.width() / 16;
    ui::Picture picture(CellSide, CellSide);
    StretchCells(picture, picture.bounds(), atlas.source, {code % 16 * side, code / 16 * side, side, side});
    return picture;
}

void Progress::ProgressStart(int first, int last, int current) {
    m_first = first;
    m_last = last;
    m_current = current;
}

void Progress::ProgressStep() {
    // The last step comes out a little above 100 per cent: a page of 15 cells has 14 steps between first and
    // last.
    const int span = std::max(m_last - m_first, 1);
    const int percentage = std::clamp(m_current * 100 / span / 10 * 10, 0, 100);
    ++m_current;
    if (percentage != m_percentage) {
        m_percentage = percentage;
        m_show(percentage);
    }
}

void PlaySoundResource(ui::SoundPlayer& player, const SoundOptions& options, int number) {
    if (number >= GlyphPlacedSound && number <= PagePaintedSound &&
        !options[static_cast<std::size_t>(number - GlyphPlacedSound)]) {
        return;
    }
    const std::string_view wave = SoundWave(number);
    if (!wave.empty()) {
        player.play(wave);
    }
}

GridMarker ShowGridMarker(GlyphCode code) {
    const GlyphCode shown = FilterPickedGlyph(code);
    if (shown == 0) {
        return {};
    }
    return {.visible = true, .left = shown % 16 * TwipsPerCell, .top = shown / 16 * TwipsPerCell};
}

int GridHitTest(int x, int y) {
    constexpr int SideInTwips = AtlasSide * TwipsPerPixel;
    if (x < 0 || y < 0 || x >= SideInTwips || y >= SideInTwips) {
        return -1;
    }
    return y / TwipsPerCell * 16 + x / TwipsPerCell;
}

} // namespace glyphs
