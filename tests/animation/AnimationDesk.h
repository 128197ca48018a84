// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "animation/mdlAniName.h"
#include "glyphs/RowText.h"
#include "glyphs/mdlData.h"
#include "support/FakePlatform.h"

#include <string>
#include <string_view>

namespace support {

/// Everything that the operations on an animation work with: documents, pictures, an atlas in which no two
/// glyphs look alike.
class AnimationDesk {
public:
    editing::Documents documents;
    editing::Modes modes;
    editing::PagePictures pictures;
    glyphs::GlyphAtlas atlas = glyphs::BuildAtlas(artwork(), ui::OpaqueBlack);
    FakeSounds sounds;
    glyphs::SoundOptions soundOptions = {true, true, true, true};

    editing::EditContext context{documents,   editing::Page::Animation, modes, atlas, pictures, sounds,
                                 soundOptions};

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
        editing::PaintRowsInUse(context, editing::Page::Animation);
        pictures.animation.takeDamage();
    }

    /// The rows in use as they are painted.
    ui::Picture painted() const { return rowsInUse(pictures.animation.pixels()); }

    /// The rows in use as a whole repaint would show them.
    ui::Picture repainted() {
        editing::PagePictures fresh;
        const editing::EditContext repaint{documents,   editing::Page::Animation, modes, atlas, fresh, sounds,
                                           soundOptions};
        editing::PaintRowsInUse(repaint, editing::Page::Animation);
        return rowsInUse(fresh.animation.pixels());
    }

    /// The pixel rectangle of rows `first` to `last`.
    static ui::Rect rows(int first, int last) {
        return {
            0, (first - 1) * glyphs::CellSide, editing::NameLength * glyphs::CellSide,
            (last - first + 1) * glyphs::CellSide};
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

    ui::Picture rowsInUse(const ui::Picture& picture) const {
        const ui::Rect area = rows(1, documents.animation.nameCount);
        ui::Picture part(area.width, area.height);
        glyphs::BlitCells(part, 0, 0, area.width, area.height, picture, 0, 0);
        return part;
    }
};

} // namespace support
