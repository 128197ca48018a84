// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "animation/mdlAniName.h"
#include "editing/PagePainter.h"
#include "glyphs/RowText.h"
#include "glyphs/mdlData.h"
#include "support/FakePlatform.h"
#include "support/FollowedPages.h"

#include <string>
#include <string_view>

namespace support {

/// Everything that the operations on an animation work with: documents, pictures, an atlas in which no two
/// glyphs look alike.
class AnimationDesk {
public:
    editing::Documents documents;
    editing::PagePictures pictures;
    glyphs::GlyphAtlas atlas = glyphs::BuildAtlas(artwork(), ui::OpaqueBlack);
    FakeSounds sounds;
    glyphs::SoundOptions soundOptions = {true, true, true, true};

    glyphs::Progress progress{[](int) {
    }};
    editing::PagePainter painter{documents, atlas, pictures, sounds, soundOptions, progress};
    FollowedPages shown{documents};

    editing::AnimationDocument& animation() { return documents.animation; }

    /// Puts a text into a row, blanks after it.
    void setName(int name, std::string_view text) {
        const auto row = animation().rows().row(name);
        std::size_t cell = 0;
        for (glyphs::GlyphCode& code : row) {
            code = cell < text.size() ? static_cast<unsigned char>(text[cell]) : glyphs::BlankGlyph;
            ++cell;
        }
    }

    /// A row as text without the blanks at its end.
    std::string name(int name) { return glyphs::RowText(animation().name(name)); }

    /// Gives rows 1 to `count` the names "name 1" and so on and paints the rows in use.
    void fillNames(int count) {
        for (int row = 1; row <= count; ++row) {
            setName(row, "name " + std::to_string(row));
        }
        paint();
    }

    /// Paints the rows in use; nothing is damaged afterwards.
    void paint() {
        editing::PaintRowsFrom(painter, editing::Page::Animation, 1);
        pictures.animation.takeDamage();
        shown.showAll();
    }

    /// Whether the page, having followed the changes, shows the rows in use.
    [[nodiscard]] bool isShown() { return shown.isTrue(editing::Page::Animation); }

    /// The cells around what has changed since the last time.
    editing::CellBlock damage() { return shown.takeDamage(editing::Page::Animation); }

    /// The cells of rows `first` to `last`.
    static editing::CellBlock rows(int first, int last) {
        return {1, first, editing::NameLength, last - first + 1};
    }

private:
    static ui::Picture artwork() {
        ui::Picture picture(glyphs::ArtworkSide, glyphs::ArtworkSide);
        for (unsigned code = 0; code < glyphs::GlyphCount; ++code) {
            const int x = static_cast<int>(code % 16) * glyphs::ArtworkCell;
            const int y = static_cast<int>(code / 16) * glyphs::ArtworkCell;
            picture.fill(
                {x, y, glyphs::ArtworkCell, glyphs::ArtworkCell}, ui::OpaquePixel(code, 255 - code, 64));
            picture.setPixel(x, y, ui::OpaquePixel(255, 255, 255));
        }
        return picture;
    }
};

} // namespace support
