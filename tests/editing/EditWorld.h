// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/mdlCommon.h"
#include "glyphs/mdlData.h"
#include "support/FollowedPages.h"

#include <array>
#include <string>
#include <string_view>

namespace editing {

constexpr std::array<Page, 3> AllPages{Page::Name, Page::Animation, Page::Messages};

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

/// Everything that the editing operations work with, in its first state: colour 1, overwriting, and the
/// pages followed.
class EditWorld {
public:
    EditWorld() { modes.typingColour = false; }

    [[nodiscard]] PageCursor cursor() { return CursorOf(documents, page); }

    [[nodiscard]] GlyphRows rows() { return cursor().rows; }

    /// Follows what an operation reports.
    void show(const Change& change) { shown.follow(change); }

    void put(GlyphCode code) { show(PutGlyph(cursor(), modes, code)); }

    /// Puts a text into a row of the page in view, blanks after it, and shows it.
    void setRow(int row, std::string_view text) {
        for (int column = 1; column <= rows().width(); ++column) {
            const auto index = static_cast<std::size_t>(column - 1);
            rows().cell(row, column) =
                index < text.size() ? static_cast<unsigned char>(text[index]) : glyphs::BlankGlyph;
        }
        show(RowChanged(cursor(), row));
        shown.takeDamage(page);
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

    /// Whether the page in view, having followed the changes, shows exactly its rows in use.
    [[nodiscard]] bool isShownLikeDocument() { return shown.isTrue(page); }

    [[nodiscard]] CellBlock damage() { return shown.takeDamage(page); }

    Documents documents;
    Page page = Page::Name;
    Modes modes;
    support::FollowedPages shown{documents};
};

} // namespace editing
