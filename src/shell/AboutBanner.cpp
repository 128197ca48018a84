// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/AboutBanner.h"

#include "glyphs/mdlData.h"

#include <string_view>

namespace shell {

namespace {

using glyphs::GlyphCode;

constexpr int Width = 320;
constexpr int BannerHeight = 96;
constexpr int NameScale = 2 * BannerBlock;
constexpr int LineScale = BannerBlock;
constexpr int LineMargin = 8;

constexpr GlyphCode LineLeft = 29;
constexpr GlyphCode LineMiddle = 30;
constexpr GlyphCode LineRight = 31;

void PaintLargeGlyph(
    ui::Picture& picture, const glyphs::GlyphAtlas& atlas, GlyphCode code, int x, int y, int scale) {
    const int side = scale * glyphs::ArtworkCell;
    glyphs::StretchCells(
        picture, {x, y, side, side}, atlas.source,
        {code % 16 * glyphs::ArtworkCell, code / 16 * glyphs::ArtworkCell, glyphs::ArtworkCell,
         glyphs::ArtworkCell});
}

void PaintLine(ui::Picture& picture, const glyphs::GlyphAtlas& atlas, int y) {
    constexpr int side = LineScale * glyphs::ArtworkCell;
    constexpr int count = (Width - 2 * LineMargin) / side;
    for (int i = 0; i < count; ++i) {
        const GlyphCode code = i == 0 ? LineLeft : i == count - 1 ? LineRight : LineMiddle;
        PaintLargeGlyph(picture, atlas, code, LineMargin + i * side, y, LineScale);
    }
}

} // namespace

ui::Picture AboutBanner(const glyphs::GlyphAtlas& atlas) {
    constexpr std::string_view name = "Vortigo";
    constexpr int side = NameScale * glyphs::ArtworkCell;
    constexpr int lineSide = LineScale * glyphs::ArtworkCell;

    // The blank shows the background colour of the character set in use.
    ui::Picture picture(
        Width, BannerHeight,
        atlas.source.pixel(
            glyphs::BlankGlyph % 16 * glyphs::ArtworkCell, glyphs::BlankGlyph / 16 * glyphs::ArtworkCell));
    PaintLine(picture, atlas, LineMargin);
    PaintLine(picture, atlas, BannerHeight - LineMargin - lineSide);
    const int left = (Width - static_cast<int>(name.size()) * side) / 2;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const auto code = static_cast<GlyphCode>(name[i] + (i == 0 ? glyphs::ColourDistance : 0));
        PaintLargeGlyph(
            picture, atlas, code, left + static_cast<int>(i) * side, (BannerHeight - side) / 2, NameScale);
    }
    return picture;
}

} // namespace shell
