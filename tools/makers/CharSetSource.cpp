// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "makers/CharSetSource.h"

#include "glyphs/mdlData.h"
#include "makers/SourceText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace makers {

namespace {

constexpr int GlyphCount = 256;
constexpr int HalfCount = 128;
constexpr auto CellSide = static_cast<std::size_t>(glyphs::ArtworkCell);

using Words = std::vector<std::string>;
using Scale = std::vector<ui::Pixel>;
using Cell = std::array<std::string, CellSide>;

/// Which tone of a scale a pixel takes, counted from the lightest.
struct Shading {
    std::array<int, CellSide> rows{};
    int top = 0; ///< added where the ink has a free edge on that side
    int bottom = 0;
    int left = 0;
    int right = 0;
    int grain = 0;      ///< of a hundred pixels, how many are a tone lighter and how many a tone darker
    bool joins = false; ///< whether the ink goes on beyond the edges of the cell
};

struct Ink {
    Shading shading;
    Scale first;
    Scale second;
};

std::string Quoted(const std::string& text) {
    return "\"" + text + "\"";
}

bool IsPrintable(char c) {
    return c >= ' ' && c <= '~';
}

/// A glyph code written as a number or as a character between apostrophes.
std::optional<int> ToCode(std::string_view word) {
    if (word.size() == 3 && word.front() == '\'' && word.back() == '\'') {
        return static_cast<unsigned char>(word[1]);
    }
    int code = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), code);
    const bool isCode =
        error == std::errc() && end == word.data() + word.size() && code >= 0 && code < GlyphCount;
    return isCode ? std::optional(code) : std::nullopt;
}

/// The same for a pixel and its partner in the other half, and in every build.
int GrainTone(int code, std::size_t x, std::size_t y, int percent) {
    auto hash =
        static_cast<std::uint32_t>((code % HalfCount) * 64) + static_cast<std::uint32_t>(y * CellSide + x);
    hash = (hash ^ (hash >> 7U)) * 2654435761U;
    hash = (hash ^ (hash >> 15U)) * 2246822519U;
    hash ^= hash >> 13U;
    const int draw = static_cast<int>(hash % 100U);
    if (draw < percent) {
        return -1;
    }
    return draw < 2 * percent ? 1 : 0;
}

class Source {
public:
    explicit Source(const std::string& file)
        : m_file(file)
        , m_lines(ReadSource(file)) {}

    CharSetDrawing draw();

private:
    [[noreturn]] void refuse(const std::string& reason) const;
    [[nodiscard]] const SourceLine* nextLine();

    void readStatement(const std::string& line);
    void readText(const std::string& what, const std::string& line, std::size_t width, std::string& text);
    void readTransparent(const Words& words);
    void readScale(const Words& words);
    void readShading(const Words& words);
    void readInk(const Words& words);
    void readGlyphs(const Words& words);
    [[nodiscard]] std::vector<int> codesOf(const Words& words) const;
    [[nodiscard]] const Scale& scaleOf(const std::string& name) const;
    void checkNewLetter(const std::string& word) const;
    void checkRow(const std::string& row, int code) const;

    [[nodiscard]] ui::Pixel pixel(const Cell& cell, int code, std::size_t x, std::size_t y) const;
    void paint(ui::Picture& artwork, const Cell& cell, int code) const;

    std::string m_file;
    std::vector<SourceLine> m_lines;
    std::size_t m_next = 0;
    int m_lineNumber = 1;

    std::string m_name;
    std::string m_webAddress;
    char m_transparent = 0;
    std::map<std::string, Scale> m_scales;
    std::map<std::string, Shading> m_shadings;
    std::map<char, Ink> m_inks;
    std::array<std::optional<Cell>, GlyphCount> m_cells;
};

void Source::refuse(const std::string& reason) const {
    Refuse(m_file, m_lineNumber, reason);
}

const SourceLine* Source::nextLine() {
    if (m_next == m_lines.size()) {
        return nullptr;
    }
    const SourceLine& line = m_lines[m_next++];
    m_lineNumber = line.number;
    return &line;
}

CharSetDrawing Source::draw() {
    while (const SourceLine* line = nextLine()) {
        readStatement(line->text);
    }
    if (m_name.empty()) {
        refuse("the set has no name");
    }
    CharSetDrawing drawing{m_name, m_webAddress, ui::Picture(glyphs::ArtworkSide, glyphs::ArtworkSide, 0)};
    for (int code = 0; code < GlyphCount; ++code) {
        const auto& drawn = m_cells[static_cast<std::size_t>(code)];
        const auto& cell = drawn ? drawn : m_cells[static_cast<std::size_t>(code % HalfCount)];
        if (!cell) {
            refuse("glyph " + std::to_string(code) + " is missing");
        }
        paint(drawing.artwork, *cell, code);
    }
    return drawing;
}

void Source::readStatement(const std::string& line) {
    const Words words = SplitWords(line);
    const std::string& keyword = words.front();
    if (keyword == "name") {
        readText(keyword, line, glyphs::CharSetNameWidth, m_name);
    } else if (keyword == "address") {
        readText(keyword, line, glyphs::WebAddressWidth, m_webAddress);
    } else if (keyword == "transparent") {
        readTransparent(words);
    } else if (keyword == "scale") {
        readScale(words);
    } else if (keyword == "shading") {
        readShading(words);
    } else if (keyword == "ink") {
        readInk(words);
    } else if (keyword == "glyphs") {
        readGlyphs(words);
    } else {
        refuse("unknown keyword " + Quoted(keyword));
    }
}

void Source::readText(
    const std::string& what, const std::string& line, std::size_t width, std::string& text) {
    if (!text.empty()) {
        refuse("the set has a second " + what);
    }
    const std::size_t start = line.find_first_not_of(' ', line.find(what) + what.size());
    if (start == std::string::npos) {
        refuse("the " + what + " is empty");
    }
    text = line.substr(start);
    if (text.size() > width) {
        refuse(
            "the " + what + " has " + std::to_string(text.size()) + " characters, more than " +
            std::to_string(width));
    }
    if (!std::all_of(text.begin(), text.end(), IsPrintable)) {
        refuse("the " + what + " holds a character that is not printable ASCII");
    }
}

void Source::checkNewLetter(const std::string& word) const {
    if (word.size() != 1 || !IsPrintable(word.front())) {
        refuse(Quoted(word) + " is not a colour letter");
    }
    if (word.front() == m_transparent || m_inks.contains(word.front())) {
        refuse("the colour letter " + Quoted(word) + " is given twice");
    }
}

void Source::readTransparent(const Words& words) {
    if (words.size() != 2 || m_transparent != 0) {
        refuse("\"transparent\" takes one letter, once");
    }
    checkNewLetter(words[1]);
    m_transparent = words[1].front();
}

void Source::readScale(const Words& words) {
    if (words.size() < 3) {
        refuse("\"scale\" takes a name and its colours from light to dark");
    }
    Scale scale;
    for (std::size_t i = 2; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (word.size() != 6 || word.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos) {
            refuse(Quoted(word) + " is not a colour of six hexadecimal digits");
        }
        scale.push_back(ui::OpaqueBlack | static_cast<ui::Pixel>(std::stoul(word, nullptr, 16)));
    }
    if (!m_scales.emplace(words[1], std::move(scale)).second) {
        refuse("the scale " + Quoted(words[1]) + " is given twice");
    }
}

void Source::readShading(const Words& words) {
    if (words.size() < 2) {
        refuse("\"shading\" takes a name and its rules");
    }
    Shading shading;
    const std::map<std::string, std::pair<int*, std::size_t>> rules{
        {"rows", {shading.rows.data(), CellSide}},
        {"top", {&shading.top, 1}},
        {"bottom", {&shading.bottom, 1}},
        {"left", {&shading.left, 1}},
        {"right", {&shading.right, 1}},
        {"grain", {&shading.grain, 1}}};
    std::size_t next = 2;
    while (next < words.size()) {
        const std::string& name = words[next++];
        if (name == "joins") {
            shading.joins = true;
            continue;
        }
        const auto rule = rules.find(name);
        if (rule == rules.end()) {
            refuse("a shading has no rule " + Quoted(name));
        }
        const auto [values, count] = rule->second;
        if (words.size() - next < count) {
            refuse(Quoted(name) + " takes " + (count == 1 ? "a number" : "eight numbers"));
        }
        for (std::size_t i = 0; i < count; ++i) {
            values[i] = IntegerIn(m_file, m_lineNumber, words[next++], -50, 50);
        }
    }
    if (!m_shadings.emplace(words[1], shading).second) {
        refuse("the shading " + Quoted(words[1]) + " is given twice");
    }
}

const Scale& Source::scaleOf(const std::string& name) const {
    const auto scale = m_scales.find(name);
    if (scale == m_scales.end()) {
        refuse("there is no scale " + Quoted(name));
    }
    return scale->second;
}

void Source::readInk(const Words& words) {
    if (words.size() != 5) {
        refuse("\"ink\" takes a letter, a shading and the scales of the two halves");
    }
    checkNewLetter(words[1]);
    const auto shading = m_shadings.find(words[2]);
    if (shading == m_shadings.end()) {
        refuse("there is no shading " + Quoted(words[2]));
    }
    m_inks.emplace(words[1].front(), Ink{shading->second, scaleOf(words[3]), scaleOf(words[4])});
}

std::vector<int> Source::codesOf(const Words& words) const {
    std::vector<int> codes;
    for (std::size_t i = 1; i < words.size(); ++i) {
        const std::string_view word = words[i];
        // In '-'-'/' the first dash is a character.
        const std::size_t dash = word.find('-', word.starts_with('\'') ? 3 : 0);
        const auto first = ToCode(word.substr(0, dash));
        const auto last = dash == std::string_view::npos ? first : ToCode(word.substr(dash + 1));
        if (!first || !last || *last < *first) {
            refuse(Quoted(words[i]) + " is not a glyph code from 0 to 255 or a range of them");
        }
        for (int code = *first; code <= *last; ++code) {
            if (m_cells[static_cast<std::size_t>(code)] ||
                std::find(codes.begin(), codes.end(), code) != codes.end()) {
                refuse("glyph " + std::to_string(code) + " is drawn twice");
            }
            codes.push_back(code);
        }
    }
    if (codes.empty()) {
        refuse("\"glyphs\" takes the codes of the cells below it");
    }
    return codes;
}

void Source::checkRow(const std::string& row, int code) const {
    if (row.size() != CellSide) {
        refuse(
            "a row of glyph " + std::to_string(code) + " is " + std::to_string(row.size()) +
            " pixels wide, not 8");
    }
    for (const char letter : row) {
        if (letter != m_transparent && !m_inks.contains(letter)) {
            refuse(
                "unknown colour letter " + Quoted(std::string(1, letter)) + " in glyph " +
                std::to_string(code));
        }
    }
}

void Source::readGlyphs(const Words& words) {
    const std::vector<int> codes = codesOf(words);
    std::vector<Cell> cells(codes.size());
    for (std::size_t y = 0; y < CellSide; ++y) {
        const SourceLine* line = nextLine();
        if (line == nullptr) {
            refuse("the block ends before its eighth row");
        }
        const Words rows = SplitWords(line->text);
        if (rows.size() != cells.size()) {
            refuse(
                "row " + std::to_string(y + 1) + " of the block has " + std::to_string(rows.size()) +
                " cells, not " + std::to_string(cells.size()));
        }
        for (std::size_t i = 0; i < cells.size(); ++i) {
            checkRow(rows[i], codes[i]);
            cells[i][y] = rows[i];
        }
    }
    for (std::size_t i = 0; i < cells.size(); ++i) {
        m_cells[static_cast<std::size_t>(codes[i])] = cells[i];
    }
}

ui::Pixel Source::pixel(const Cell& cell, int code, std::size_t x, std::size_t y) const {
    const char letter = cell[y][x];
    if (letter == m_transparent) {
        return 0;
    }
    const Ink& ink = m_inks.at(letter);
    const Shading& shading = ink.shading;
    // One step left of column 0 or above row 0 wraps round and so lies outside as well.
    const auto toneOfEdge = [&](std::size_t besideX, std::size_t besideY, int tone) {
        const bool isInside = besideX < CellSide && besideY < CellSide;
        const bool goesOn = isInside ? cell[besideY][besideX] == letter : shading.joins;
        return goesOn ? 0 : tone;
    };
    const int tone = shading.rows[y] + toneOfEdge(x, y - 1, shading.top) +
                     toneOfEdge(x, y + 1, shading.bottom) + toneOfEdge(x - 1, y, shading.left) +
                     toneOfEdge(x + 1, y, shading.right) + GrainTone(code, x, y, shading.grain);
    const Scale& scale = code < HalfCount ? ink.first : ink.second;
    return scale[static_cast<std::size_t>(std::clamp(tone, 0, static_cast<int>(scale.size()) - 1))];
}

void Source::paint(ui::Picture& artwork, const Cell& cell, int code) const {
    const int left = code % 16 * glyphs::ArtworkCell;
    const int top = code / 16 * glyphs::ArtworkCell;
    for (std::size_t y = 0; y < CellSide; ++y) {
        for (std::size_t x = 0; x < CellSide; ++x) {
            artwork.setPixel(left + static_cast<int>(x), top + static_cast<int>(y), pixel(cell, code, x, y));
        }
    }
}

} // namespace

CharSetDrawing DrawCharSet(const std::string& file) {
    return Source(file).draw();
}

} // namespace makers
