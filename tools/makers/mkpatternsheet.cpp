// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT

// mkpatternsheet POSITIONS MARKS CHARSET OUTPUT: draws all patterns of the animation wizard on one sheet, a
// PNG: each with its title and, one below the other, the fifteen names that it makes of a name. POSITIONS and
// MARKS are the sources of the patterns, CHARSET that of the glyphs.
#include "makers/CharSetSource.h"
#include "makers/PatternSource.h"
#include "makers/SourceText.h"

#include "glyphs/PngPicture.h"
#include "glyphs/mdlPaint.h"
#include "glyphs/mdlSwitches.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using glyphs::ArtworkCell;

constexpr std::string_view Sample = "The-Red-Dragons";
static_assert(Sample.size() == makers::PatternPositions);

constexpr int Columns = 10;
constexpr int Names = makers::PatternSteps + 1;
constexpr int TitleLines = 3;
constexpr int Gap = ArtworkCell;
constexpr int RowPitch = ArtworkCell + 1;
constexpr int Titles = TitleLines * RowPitch + 3;
constexpr int CellWidth = static_cast<int>(makers::PatternPositions) * ArtworkCell + 2;
constexpr int PitchX = CellWidth + Gap;
constexpr int PitchY = Titles + Names * RowPitch + 1 + 2 * Gap;

constexpr ui::Pixel Paper = ui::OpaquePixel(24, 24, 26);
constexpr ui::Pixel Frame = ui::OpaquePixel(72, 72, 76);

using SheetRow = std::vector<glyphs::GlyphCode>;

SheetRow rowOf(std::string_view text) {
    SheetRow row;
    for (const char character : text) {
        row.push_back(static_cast<unsigned char>(character));
    }
    return row;
}

// The words of a title in lines as wide as a name; a longer word is cut.
std::vector<std::string> linesOf(const std::string& title) {
    std::vector<std::string> lines;
    for (const std::string& word : makers::SplitWords(title)) {
        if (!lines.empty() && lines.back().size() + 1 + word.size() <= makers::PatternPositions) {
            lines.back() += ' ' + word;
        } else {
            lines.push_back(word.substr(0, makers::PatternPositions));
        }
    }
    return lines;
}

// A name that a pattern makes: glyphs at other places, or in the other colour.
SheetRow nameOf(const makers::PatternRow& row, bool arePositions) {
    SheetRow name = rowOf(Sample);
    const SheetRow source = name;
    for (std::size_t at = 0; at < name.size(); ++at) {
        if (!arePositions) {
            name[at] = row[at] == 1 ? glyphs::SwitchColorGlyph(source[at]) : source[at];
        } else {
            name[at] = row[at] == 0 ? glyphs::BlankGlyph : source[static_cast<std::size_t>(row[at] - 1)];
        }
    }
    return name;
}

class Sheet {
public:
    Sheet(const ui::Picture& artwork, int cells)
        : m_onPaper(glyphs::BuildAtlas(artwork, Paper).source)
        , m_onBlack(glyphs::BuildAtlas(artwork, ui::OpaqueBlack).source)
        , m_picture(Columns * PitchX + Gap, (cells + Columns - 1) / Columns * PitchY + Gap, Paper) {}

    void draw(int cell, const makers::Pattern& pattern, bool arePositions) {
        const int x = Gap + cell % Columns * PitchX;
        int y = Gap + cell / Columns * PitchY;
        // A short title stands right above its names.
        const std::vector<std::string> lines = linesOf(pattern.title);
        int line = TitleLines - static_cast<int>(lines.size());
        for (const std::string& text : lines) {
            drawRow(m_onPaper, x + 1, y + line * RowPitch, rowOf(text));
            ++line;
        }
        y += Titles;
        m_picture.fill({x, y, CellWidth, Names * RowPitch + 1}, Frame);
        m_picture.fill({x + 1, y + 1, CellWidth - 2, Names * RowPitch - 1}, ui::OpaqueBlack);
        ++y;
        for (const makers::PatternRow& row : pattern.rows) {
            drawRow(m_onBlack, x + 1, y, nameOf(row, arePositions));
            y += RowPitch;
        }
        drawRow(m_onBlack, x + 1, y, rowOf(Sample));
    }

    [[nodiscard]] const ui::Picture& picture() const { return m_picture; }

private:
    void drawRow(const ui::Picture& source, int x, int y, const SheetRow& row) {
        for (const glyphs::GlyphCode code : row) {
            glyphs::BlitCells(
                m_picture, x, y, ArtworkCell, ArtworkCell, source, code % 16 * ArtworkCell,
                code / 16 * ArtworkCell);
            x += ArtworkCell;
        }
    }

    ui::Picture m_onPaper;
    ui::Picture m_onBlack;
    ui::Picture m_picture;
};

// Titles are told apart by all of their words.
void checkTitles(const std::string& file, const makers::PatternSource& source) {
    for (const makers::Pattern& pattern : source.patterns) {
        if (linesOf(pattern.title).size() > TitleLines) {
            makers::Refuse(file, pattern.line, "\"" + pattern.title + "\" is too long for the sheet");
        }
    }
}

std::string drawSheet(const std::string& positions, const std::string& marks, const std::string& charset) {
    const std::array<makers::PatternSource, 2> sources = {
        makers::ReadPatterns(positions), makers::ReadPatterns(marks)};
    checkTitles(positions, sources[0]);
    checkTitles(marks, sources[1]);
    // The second kind begins in a line of its own.
    const auto rounded = [](std::size_t count) {
        return (static_cast<int>(count) + Columns - 1) / Columns * Columns;
    };
    Sheet sheet(
        makers::DrawCharSet(charset).artwork,
        rounded(sources[0].patterns.size()) + static_cast<int>(sources[1].patterns.size()));
    int cell = 0;
    for (const makers::PatternSource& source : sources) {
        for (const makers::Pattern& pattern : source.patterns) {
            sheet.draw(cell, pattern, source.arePositions);
            ++cell;
        }
        cell = rounded(static_cast<std::size_t>(cell));
    }
    auto png = glyphs::EncodePng(sheet.picture());
    if (!png) {
        throw makers::SourceError{png.failure().message};
    }
    return std::move(png).value();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 5) {
        std::cerr << "usage: mkpatternsheet POSITIONS MARKS CHARSET OUTPUT\n";
        return 2;
    }
    return makers::RunTool([&] { makers::WriteOutput(argv[4], drawSheet(argv[1], argv[2], argv[3])); });
}
