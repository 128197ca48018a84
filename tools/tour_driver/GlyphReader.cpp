// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "tour_driver/GlyphReader.h"

#include <utility>

namespace tour {

namespace {

constexpr int Edge = 3;

} // namespace

GlyphReader::GlyphReader(ui::Picture atlasCells, int halves)
    : m_cells(std::move(atlasCells))
    , m_halves(halves) {}

bool GlyphReader::matchesCell(const ui::Picture& screen, int x, int y, unsigned char code) const {
    const int left = code % 16 * glyphs::CellSide;
    const int top = code / 16 * glyphs::CellSide;
    for (int row = Edge; row < glyphs::CellSide - Edge; ++row) {
        for (int column = Edge; column < glyphs::CellSide - Edge; ++column) {
            const int screenX = x + (2 * column + 1) * m_halves / 4;
            const int screenY = y + (2 * row + 1) * m_halves / 4;
            if (screen.pixel(screenX, screenY) != m_cells.pixel(left + column, top + row)) {
                return false;
            }
        }
    }
    return true;
}

bool GlyphReader::matches(const ui::Picture& screen, Position position, std::string_view codes) const {
    const int width = static_cast<int>(codes.size()) * cellSide();
    if (position.x < 0 || position.y < 0 || position.x + width > screen.width() ||
        position.y + cellSide() > screen.height()) {
        return false;
    }
    int x = position.x;
    for (const char code : codes) {
        if (!matchesCell(screen, x, position.y, static_cast<unsigned char>(code))) {
            return false;
        }
        x += cellSide();
    }
    return true;
}

std::optional<Position>
GlyphReader::find(const ui::Picture& screen, const ui::Rect& area, std::string_view codes) const {
    for (int y = area.y; y < area.y + area.height; ++y) {
        for (int x = area.x; x < area.x + area.width; ++x) {
            if (matches(screen, {x, y}, codes)) {
                return Position{x, y};
            }
        }
    }
    return std::nullopt;
}

} // namespace tour
