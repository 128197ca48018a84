// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/mdlPick.h"

#include "editing/Kinds.h"
#include "editing/mdlCommon.h"
#include "glyphs/mdlPaint.h"
#include "glyphs/mdlSwitches.h"

#include <algorithm>
#include <cassert>

namespace editing {

std::array<GlyphCode, 3> FrequentGlyphs(Documents documents) {
    std::array<int, glyphs::GlyphCount> counts{};
    for (const Kind& kind : Kinds) {
        const PageCursor cursor = CursorOf(documents, kind.page);
        for (int row = 1; row <= cursor.rowsInUse; ++row) {
            for (const GlyphCode code : cursor.rows.row(row)) {
                assert(code >= 0 && code < glyphs::GlyphCount);
                ++counts[static_cast<std::size_t>(code)];
            }
        }
    }
    counts[glyphs::BlankGlyph] = 0;

    std::array<GlyphCode, 3> frequent{};
    for (GlyphCode& entry : frequent) {
        // The first of the largest, so that the lower code goes first; glyph 0 when nothing is left to count.
        const auto best = std::max_element(counts.begin(), counts.end());
        entry = static_cast<GlyphCode>(best - counts.begin());
        *best = 0;
    }
    return frequent;
}

GlyphCode PickedAt(GlyphCode chosen, int x, int y) {
    const int hit = glyphs::GridHitTest(x * glyphs::TwipsPerPixel, y * glyphs::TwipsPerPixel);
    const GlyphCode picked = hit < 0 ? GlyphCode{0} : glyphs::FilterPickedGlyph(static_cast<GlyphCode>(hit));
    return picked == 0 ? chosen : picked;
}

GlyphCode PickedTowards(GlyphCode chosen, int columns, int rows) {
    constexpr GlyphCode First = 1;
    constexpr int Side = 16;
    if (chosen == 0) {
        return First;
    }
    int column = chosen % Side + columns;
    int row = chosen / Side + rows;
    for (; column >= 0 && column < Side && row >= 0 && row < Side; column += columns, row += rows) {
        const auto code = static_cast<GlyphCode>(row * Side + column);
        // A glyph that stands for another one would make the choice jump.
        if (code != 0 && glyphs::FilterPickedGlyph(code) == code) {
            return code;
        }
    }
    return chosen;
}

GlyphCode PickedAtEnd(GlyphCode chosen, int columns, int rows) {
    GlyphCode last = chosen;
    for (GlyphCode next = PickedTowards(last, columns, rows); next != last;
         next = PickedTowards(last, columns, rows)) {
        last = next;
    }
    return last;
}

GlyphCode PickedByCharacter(GlyphCode chosen, char character) {
    const auto inColour1 = static_cast<GlyphCode>(static_cast<unsigned char>(character));
    if (inColour1 < glyphs::BlankGlyph || inColour1 >= glyphs::ColourDistance) {
        return chosen;
    }
    const GlyphCode inColour2 = glyphs::ToColor2Glyph(inColour1);
    const bool wantsColour2 = chosen >= glyphs::ColourDistance ? chosen != inColour2 : chosen == inColour1;
    const GlyphCode picked = glyphs::FilterPickedGlyph(wantsColour2 ? inColour2 : inColour1);
    return picked == 0 ? chosen : picked;
}

} // namespace editing
