// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/mdlCommon.h"
#include "glyphs/mdlData.h"
#include "support/FakePlatform.h"

#include <string>
#include <string_view>

namespace editing {

/// Artwork in which no two pixels are alike, so that a cell painted from the wrong place shows.
inline ui::Picture DistinctArtwork() {
    ui::Picture artwork(glyphs::ArtworkSide, glyphs::ArtworkSide);
    for (int y = 0; y < artwork.height(); ++y) {
        for (int x = 0; x < artwork.width(); ++x) {
            artwork.setPixel(x, y, ui::OpaquePixel(static_cast<unsigned>(x), static_cast<unsigned>(y), 99));
        }
    }
    return artwork;
}

/// Everything that the editing operations work with, in its first state: painted, colour 1, overwriting,
/// silent until something happens.
class EditWorld {
public:
    EditWorld() {
        modes.typingColour = false;
        for (const Page each : {Page::Name, Page::Animation, Page::Messages}) {
            page = each;
            PaintRowsInUse(context(), each);
            pictures.of(each).takeDamage();
        }
        page = Page::Name;
    }

    [[nodiscard]] EditContext context() {
        return {documents, page, modes, atlas, pictures, sounds, soundOptions};
    }

    [[nodiscard]] PageCursor cursor() { return CursorOf(documents, page); }

    [[nodiscard]] GlyphRows rows() { return cursor().rows; }

    /// Puts a text into a row of the page in view, blanks after it, and paints it.
    void setRow(int row, std::string_view text) {
        for (int column = 1; column <= rows().width(); ++column) {
            const auto index = static_cast<std::size_t>(column - 1);
            rows().cell(row, column) =
                index < text.size() ? static_cast<unsigned char>(text[index]) : glyphs::BlankGlyph;
        }
        PaintRow(context(), page, row);
        pictures.of(page).takeDamage();
    }

    /// The row's cells as bytes, blanks at the end included.
    [[nodiscard]] std::string row(int number) {
        std::string text;
        const auto cells = rows().row(number);
        for (const GlyphCode code : cells) {
            text.push_back(static_cast<char>(code));
        }
        return text;
    }

    /// The same with only the blanks that are not at the end.
    [[nodiscard]] std::string text(int number) {
        std::string text = row(number);
        text.resize(text.find_last_not_of(' ') + 1);
        return text;
    }

    /// Whether the picture of the page in view shows exactly its rows in use.
    [[nodiscard]] bool isPaintedLikeDocument() {
        PagePictures fresh;
        EditContext other{documents, page, modes, atlas, fresh, sounds, soundOptions};
        PaintRowsInUse(other, page);
        const ui::Picture& painted = pictures.of(page).pixels();
        const ui::Picture& expected = fresh.of(page).pixels();
        const int height = cursor().rowsInUse * glyphs::CellSide;
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < painted.width(); ++x) {
                if (painted.pixel(x, y) != expected.pixel(x, y)) {
                    return false;
                }
            }
        }
        return true;
    }

    /// The numbers of the sounds that were played, in order.
    [[nodiscard]] std::vector<int> soundNumbers() const {
        std::vector<int> numbers;
        for (const std::string& wave : sounds.waves) {
            for (int number = glyphs::GlyphPlacedSound; number <= glyphs::PagePaintedSound; ++number) {
                if (wave == glyphs::SoundWave(number)) {
                    numbers.push_back(number);
                }
            }
        }
        return numbers;
    }

    Documents documents;
    Page page = Page::Name;
    Modes modes;
    glyphs::GlyphAtlas atlas = glyphs::BuildAtlas(DistinctArtwork(), ui::OpaqueBlack);
    PagePictures pictures;
    support::FakeSounds sounds;
    glyphs::SoundOptions soundOptions{true, true, true, true};
};

} // namespace editing
