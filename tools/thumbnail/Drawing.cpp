// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "thumbnail/Drawing.h"

#include "animation/AnimationPicture.h"
#include "glyphs/mdlData.h"
#include "glyphs/mdlPaint.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace thumbnail {

using glyphs::ArtworkCell;
using glyphs::BlankGlyph;
using glyphs::GlyphCode;

namespace {

using Line = std::vector<GlyphCode>;

/// Lines are not broken into shorter ones for their glyphs to be larger.
constexpr int MinColumns = 8;

/// Rows of glyphs one below the other.
struct Block {
    std::vector<Line> lines;
    bool mayWrap = false;      ///< whether lines may be broken for the glyphs to be larger
    bool mayDropLines = false; ///< whether the lines at the end may be left out for that
    int gap = 0;               ///< between the rows, in pixels of the artwork
};

bool IsBlank(std::span<const GlyphCode> cells) {
    return std::ranges::all_of(cells, [](GlyphCode code) { return code == BlankGlyph; });
}

/// The rows that are not blank, without the columns that are blank in all of them.
std::vector<Line> Cropped(const std::vector<Line>& rows) {
    std::size_t first = static_cast<std::size_t>(-1);
    std::size_t end = 0;
    for (const Line& row : rows) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            if (row[column] != BlankGlyph) {
                first = std::min(first, column);
                end = std::max(end, column + 1);
            }
        }
    }
    std::vector<Line> cropped;
    for (const Line& row : rows) {
        if (!IsBlank(row)) {
            cropped.emplace_back(
                row.begin() + static_cast<std::ptrdiff_t>(first),
                row.begin() + static_cast<std::ptrdiff_t>(end));
        }
    }
    return cropped;
}

Block BlockOf(const editing::NameDocument& name) {
    return {.lines = Cropped({Line(name.cells.begin(), name.cells.end())})};
}

Block BlockOf(const editing::AnimationDocument& animation) {
    std::vector<Line> rows;
    for (int name = 1; name <= animation.nameCount; ++name) {
        const auto cells = animation.name(name);
        rows.emplace_back(cells.begin(), cells.end());
    }
    return {.lines = Cropped(rows), .mayDropLines = true};
}

Block BlockOf(const editing::MessageDocument& messages) {
    std::vector<Line> rows;
    for (auto row = messages.cells.begin(); row != messages.cells.end(); row += editing::MessageLength) {
        rows.emplace_back(row, row + editing::MessageLength);
    }
    return {.lines = Cropped(rows), .mayWrap = true, .gap = ArtworkCell / 2};
}

/// Width and height of a block in pixels of the artwork.
int WidthOf(const Block& block) {
    return static_cast<int>(block.lines.front().size()) * ArtworkCell;
}

int HeightOf(const Block& block) {
    const int count = static_cast<int>(block.lines.size());
    return count * ArtworkCell + (count - 1) * block.gap;
}

/// The lines broken so that none is wider than so many columns: before a word, if there is one to break at.
std::vector<Line> Wrapped(const std::vector<Line>& lines, std::size_t columns) {
    std::vector<Line> wrapped;
    for (const Line& line : lines) {
        const auto end = std::find_if(line.rbegin(), line.rend(), [](GlyphCode code) {
                             return code != BlankGlyph;
                         }).base();
        for (auto at = line.begin(); at != end;) {
            auto stop = end;
            if (static_cast<std::size_t>(end - at) > columns) {
                stop = at + static_cast<std::ptrdiff_t>(columns);
                const auto blank =
                    std::find(std::reverse_iterator(stop + 1), std::reverse_iterator(at), BlankGlyph);
                if (blank.base() > at + 1) {
                    stop = blank.base() - 1;
                }
            }
            wrapped.emplace_back(at, stop);
            at = std::find_if(stop, end, [](GlyphCode code) { return code != BlankGlyph; });
        }
    }
    const std::size_t width = std::ranges::max_element(wrapped, {}, &Line::size)->size();
    for (Line& line : wrapped) {
        line.resize(width, BlankGlyph);
    }
    return wrapped;
}

/// Lays a block out on a square: by what factor its glyphs are enlarged.
int Fit(Block& block, int side) {
    // A glyph taller than a quarter of the square looks like a picture of something else.
    for (int factor = std::max(side / (4 * ArtworkCell), 1);; --factor) {
        Block laidOut = block;
        if (WidthOf(block) * factor > side) {
            const int columns = side / (ArtworkCell * factor);
            if (factor > 1 && (!block.mayWrap || columns < MinColumns)) {
                continue;
            }
            laidOut.lines = Wrapped(block.lines, static_cast<std::size_t>(columns));
        }
        if (factor > 1 && !block.mayDropLines && HeightOf(laidOut) * factor > side) {
            continue;
        }
        while (laidOut.lines.size() > 1 && HeightOf(laidOut) * factor > side) {
            laidOut.lines.pop_back();
        }
        block = std::move(laidOut);
        return factor;
    }
}

} // namespace

ui::Picture DrawThumbnail(const cli::Script& script, const ui::Picture& artwork, int side) {
    ui::Picture picture(side, side, ui::OpaqueBlack);
    Block block = std::visit([](const auto& document) { return BlockOf(document); }, script);
    if (block.lines.empty()) {
        return picture;
    }
    const ui::Picture source = glyphs::BuildAtlas(artwork, ui::OpaqueBlack).source;
    const int factor = Fit(block, side);
    const int left = (side - WidthOf(block) * factor) / 2;
    int top = (side - HeightOf(block) * factor) / 2;
    for (const Line& line : block.lines) {
        glyphs::DrawRow(picture, line, source, left, top, factor);
        top += (ArtworkCell + block.gap) * factor;
    }
    return picture;
}

std::vector<glyphs::GifFrame>
DrawAnimation(const editing::AnimationDocument& animation, const ui::Picture& artwork, int width) {
    const int factor = std::max(width / (editing::NameLength * ArtworkCell), 1);
    return animation::AnimationFrames(animation, glyphs::BuildAtlas(artwork, ui::OpaqueBlack).source, factor);
}

} // namespace thumbnail
