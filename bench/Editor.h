// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/PagePainter.h"
#include "editing/mdlCommon.h"

namespace bench {

class SilentPlayer : public ui::SoundPlayer {
public:
    void play(std::string_view /*wave*/) override {}
};

/// Documents full of glyphs, an atlas of noise, and the pictures they are painted into.
struct Editor {
    editing::Documents documents;
    editing::Modes modes;
    glyphs::GlyphAtlas atlas;
    editing::PagePictures pictures;
    SilentPlayer sounds;
    glyphs::SoundOptions soundOptions{true, true, true, true};

    Editor() {
        ui::Picture artwork(128, 128);
        for (int y = 0; y < artwork.height(); ++y) {
            for (int x = 0; x < artwork.width(); ++x) {
                const auto noise =
                    static_cast<ui::Pixel>(x) * 2654435761U + static_cast<ui::Pixel>(y) * 40503U;
                artwork.setPixel(x, y, ui::OpaqueBlack | noise);
            }
        }
        atlas = glyphs::BuildAtlas(artwork, ui::OpaqueBlack);
        fill(documents.name.cells);
        fill(documents.animation.nameGlyphs);
        fill(documents.messages.cells);
        documents.animation.nameCount = editing::MaxNames;
    }

    glyphs::Progress progress{[](int) {
    }};
    editing::PagePainter painter{documents, atlas, pictures, sounds, soundOptions, progress};

private:
    template <typename Cells>
    static void fill(Cells& cells) {
        unsigned code = 1;
        for (editing::GlyphCode& cell : cells) {
            code = (code * 73U + 41U) % 256U;
            // Glyphs that a script can hold: no quote and no line end.
            cell = static_cast<editing::GlyphCode>(35U + code % 221U);
        }
    }
};

} // namespace bench
