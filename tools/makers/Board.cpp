// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "makers/Board.h"

#include "makers/SourceText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace makers {

namespace {

constexpr int PictureScale = 2;
constexpr int Raster = 8;
constexpr int NameOffset = 40;
constexpr int FragsGlyphs = 4;
constexpr int TitleScale = 3;

constexpr int SecondColour = 128;
constexpr int RulerLeft = 29;
constexpr int RulerMiddle = 30;
constexpr int RulerRight = 31;
constexpr int ArrowHead = 13;

struct Dye {
    std::string_view name;
    ui::Pixel colour;
};

constexpr std::array<Dye, 8> Dyes = {{
    {"crimson", 0xFF6A1812},
    {"amber", 0xFF74480F},
    {"moss", 0xFF32491E},
    {"sea", 0xFF184A50},
    {"night", 0xFF222E60},
    {"plum", 0xFF47224E},
    {"ash", 0xFF3A3734},
    {"bone", 0xFF62594A},
}};

constexpr ui::Pixel Empty = ui::OpaqueBlack;
constexpr ui::Pixel SlotShade = 0xFF15110D;
constexpr ui::Pixel SlotLight = 0xFF5C4C38;
constexpr ui::Pixel StripShade = 0xFF82570F;
constexpr ui::Pixel StripLight = 0xFFF4D262;
constexpr std::array<ui::Pixel, 4> FrameTones = {0xFF17120E, 0xFF9E8A6C, 0xFF6C5C46, 0xFF2C241B};

class LineReader {
public:
    LineReader(const std::string& file, const SourceLine& line)
        : m_file(file)
        , m_line(line.number)
        , m_rest(line.text) {}

    [[noreturn]] void refuse(const std::string& message) const { Refuse(m_file, m_line, message); }

    std::string word(const std::string& what) {
        m_rest.erase(0, std::min(m_rest.find_first_not_of(' '), m_rest.size()));
        if (m_rest.empty()) {
            refuse(what + " is missing");
        }
        const std::size_t end = std::min(m_rest.find(' '), m_rest.size());
        std::string taken = m_rest.substr(0, end);
        m_rest.erase(0, end);
        return taken;
    }

    int number(const std::string& what, int low, int high) {
        return IntegerIn(m_file, m_line, word(what), low, high);
    }

    // A place or size of the finished picture, as a number of drawn pixels.
    int place(const std::string& what, int high) {
        const int value = number(what, 0, high);
        if (value % Raster != 0) {
            refuse(what + " " + std::to_string(value) + " is not a multiple of " + std::to_string(Raster));
        }
        return value / PictureScale;
    }

    ui::Pixel dye(const std::string& what) {
        const std::string name = word(what);
        const auto* dye =
            std::find_if(Dyes.begin(), Dyes.end(), [&](const Dye& entry) { return entry.name == name; });
        if (dye == Dyes.end()) {
            refuse("there is no dye \"" + name + "\"");
        }
        return dye->colour;
    }

    // The rest of the line as glyph codes.
    std::vector<int> glyphs(std::size_t most) {
        m_rest.erase(0, std::min(m_rest.find_first_not_of(' '), m_rest.size()));
        std::vector<int> codes;
        int colour = 0;
        for (std::size_t at = 0; at < m_rest.size(); ++at) {
            const char character = m_rest[at];
            if (m_rest.compare(at, 2, "\\c") == 0) {
                colour = SecondColour - colour;
                at += 1;
            } else if (m_rest.compare(at, 2, "\\x") == 0) {
                codes.push_back(hexadecimal(m_rest.substr(at + 2, 2)));
                at += 3;
            } else if (character < ' ' || character > '~' || character == '\\') {
                refuse("a text holds ASCII characters, \\xHH and \\c");
            } else {
                codes.push_back(character + (character == ' ' ? 0 : colour));
            }
        }
        if (codes.empty() || codes.size() > most) {
            refuse(
                "a text has 1 to " + std::to_string(most) + " glyphs, not " + std::to_string(codes.size()));
        }
        return codes;
    }

    void finish() {
        m_rest.erase(0, std::min(m_rest.find_first_not_of(' '), m_rest.size()));
        if (!m_rest.empty()) {
            refuse("\"" + m_rest + "\" is too much");
        }
    }

private:
    [[nodiscard]] int hexadecimal(const std::string& digits) const {
        int value = 0;
        const char* end = digits.data() + digits.size();
        if (digits.size() != 2 || std::from_chars(digits.data(), end, value, 16).ptr != end) {
            refuse("\\x needs two hexadecimal digits");
        }
        return value;
    }

    std::string m_file;
    int m_line;
    std::string m_rest;
};

void readElement(LineReader& line, Board& board) {
    const std::string kind = line.word("the element");
    if (kind != "panel" && kind != "title" && kind != "text" && kind != "line" && kind != "row" &&
        kind != "strip") {
        line.refuse("there is no element \"" + kind + "\"");
    }
    const int x = line.place("X", BoardWidth * PictureScale);
    const int y = line.place("Y", BoardHeight * PictureScale);
    int width = 0;
    int height = BoardGlyph;
    if (kind == "panel") {
        width = line.place("WIDTH", BoardWidth * PictureScale);
        height = line.place("HEIGHT", BoardHeight * PictureScale);
        if (!board.panel.empty()) {
            line.refuse("a second panel");
        }
        board.panel = {x, y, width, height};
        line.finish();
    } else if (kind == "line") {
        std::vector<int> glyphs(
            static_cast<std::size_t>(line.number("GLYPHS", 2, BoardWidth / BoardGlyph)), RulerMiddle);
        glyphs.front() = RulerLeft;
        glyphs.back() = RulerRight;
        width = static_cast<int>(glyphs.size()) * BoardGlyph;
        board.texts.push_back({x, y, glyphs, 1});
        line.finish();
    } else if (kind == "title" || kind == "text") {
        const int scale = kind == "title" ? TitleScale : 1;
        board.texts.push_back({x, y, line.glyphs(BoardWidth / BoardGlyph), scale});
        width = static_cast<int>(board.texts.back().glyphs.size()) * BoardGlyph * scale;
        height = BoardGlyph * scale;
    } else {
        BoardRow row;
        row.x = x;
        row.y = y;
        row.frags = std::to_string(line.number("FRAGS", -99, 999));
        row.upperDye = line.dye("UPPER");
        row.lowerDye = line.dye("LOWER");
        row.strip = kind == "strip";
        if (row.strip) {
            line.finish();
        } else {
            row.name = line.glyphs(NameGlyphs);
        }
        width = NameOffset + NameGlyphs * BoardGlyph;
        board.rows.push_back(row);
    }
    if (x + width > BoardWidth || y + height > BoardHeight) {
        line.refuse("it does not fit into the picture");
    }
}

void drawGlyph(ui::Picture& picture, const ui::Picture& artwork, int code, int left, int top, int scale) {
    const int column = code % 16 * BoardGlyph;
    const int line = code / 16 * BoardGlyph;
    const int side = BoardGlyph * scale;
    const auto inkAt = [&](int x, int y) {
        return x >= 0 && y >= 0 && x < side && y < side ? artwork.pixel(column + x / scale, line + y / scale)
                                                        : ui::Pixel(0);
    };
    // A large glyph throws a shadow, or it would drown in the picture behind it.
    const int shadow = scale > 1 ? scale - 1 : 0;
    for (int y = 0; y < side + shadow; ++y) {
        for (int x = 0; x < side + shadow; ++x) {
            if (left + x >= picture.width() || top + y >= picture.height()) {
                continue;
            }
            if (const ui::Pixel ink = inkAt(x, y); ink != 0) {
                picture.setPixel(left + x, top + y, ink);
            } else if (shadow != 0 && inkAt(x - shadow, y - shadow) != 0) {
                picture.setPixel(left + x, top + y, Empty);
            }
        }
    }
}

void drawText(ui::Picture& picture, const ui::Picture& artwork, const BoardText& text) {
    int x = text.x;
    for (const int code : text.glyphs) {
        drawGlyph(picture, artwork, code, x, text.y, text.scale);
        x += BoardGlyph * text.scale;
    }
}

// A sunken field with an edge around it.
void drawSlot(ui::Picture& picture, const ui::Rect& slot, ui::Pixel shade, ui::Pixel light) {
    picture.fill({slot.x - 1, slot.y - 1, slot.width + 2, slot.height + 2}, light);
    picture.fill({slot.x - 1, slot.y - 1, slot.width + 1, slot.height + 1}, shade);
    picture.fill(slot, Empty);
}

void drawFrame(ui::Picture& picture, const ui::Rect& panel) {
    for (std::size_t ring = 0; ring < FrameTones.size(); ++ring) {
        const int inset = static_cast<int>(ring);
        const ui::Rect edge = {
            panel.x + inset, panel.y + inset, panel.width - 2 * inset, panel.height - 2 * inset};
        const ui::Pixel lit = FrameTones[ring];
        const ui::Pixel shaded = FrameTones[ring == 1 ? 2 : ring == 2 ? 3 : ring];
        picture.fill({edge.x, edge.y, edge.width, 1}, lit);
        picture.fill({edge.x, edge.y, 1, edge.height}, lit);
        picture.fill({edge.x, edge.y + edge.height - 1, edge.width, 1}, shaded);
        picture.fill({edge.x + edge.width - 1, edge.y, 1, edge.height}, shaded);
    }
}

void drawRow(ui::Picture& picture, const ui::Picture& artwork, const BoardRow& row) {
    constexpr int FragsWidth = FragsGlyphs * BoardGlyph;
    drawSlot(picture, {row.x, row.y, FragsWidth, BoardGlyph}, SlotShade, SlotLight);
    picture.fill({row.x, row.y, FragsWidth, BoardGlyph / 2}, row.upperDye);
    picture.fill({row.x, row.y + BoardGlyph / 2, FragsWidth, BoardGlyph / 2}, row.lowerDye);
    int x = row.x + FragsWidth - BoardGlyph / 2 - static_cast<int>(row.frags.size()) * BoardGlyph;
    for (const char digit : row.frags) {
        drawGlyph(picture, artwork, static_cast<unsigned char>(digit), x, row.y, 1);
        x += BoardGlyph;
    }
    const ui::Rect name = {row.x + NameOffset, row.y, NameGlyphs * BoardGlyph, BoardGlyph};
    if (row.strip) {
        drawSlot(picture, name, StripShade, StripLight);
        drawGlyph(picture, artwork, ArrowHead, row.x - BoardGlyph - 2, row.y, 1);
    } else {
        drawSlot(picture, name, SlotShade, SlotLight);
        drawText(picture, artwork, {name.x, name.y, row.name, 1});
    }
}

} // namespace

Board ReadBoard(const std::string& file) {
    Board board;
    for (const SourceLine& source : ReadSource(file)) {
        LineReader line(file, source);
        readElement(line, board);
    }
    const auto strips =
        std::count_if(board.rows.begin(), board.rows.end(), [](const BoardRow& row) { return row.strip; });
    if (board.panel.empty() || strips != 1) {
        throw SourceError{file + ": a board has one panel and one strip"};
    }
    return board;
}

void ShadePanel(const Board& board, LightPicture& picture) {
    constexpr double Shade = 0.30;
    for (int y = board.panel.y; y < board.panel.y + board.panel.height; ++y) {
        for (int x = board.panel.x; x < board.panel.x + board.panel.width; ++x) {
            picture.at(x, y) = picture.at(x, y) * Shade;
        }
    }
}

void DrawBoard(const Board& board, const ui::Picture& artwork, ui::Picture& picture) {
    drawFrame(picture, board.panel);
    for (const BoardText& text : board.texts) {
        drawText(picture, artwork, text);
    }
    for (const BoardRow& row : board.rows) {
        drawRow(picture, artwork, row);
    }
}

} // namespace makers
