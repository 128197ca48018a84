// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/GlyphCode.h"

#include <cassert>
#include <cstddef>
#include <span>

namespace editing {

using glyphs::GlyphCode;

/// The rows of a document: a view of cells that lie row by row. Rows and columns are 1-based.
class GlyphRows {
public:
    GlyphRows(std::span<GlyphCode> cells, int width)
        : m_cells(cells)
        , m_width(width) {}

    [[nodiscard]] int width() const { return m_width; }

    [[nodiscard]] int count() const { return static_cast<int>(m_cells.size()) / m_width; }

    [[nodiscard]] std::span<GlyphCode> row(int number) const {
        assert(number >= 1 && number <= count());
        return m_cells.subspan(
            static_cast<std::size_t>(number - 1) * static_cast<std::size_t>(m_width),
            static_cast<std::size_t>(m_width));
    }

    /// The cells of the first `count` rows.
    [[nodiscard]] std::span<GlyphCode> firstRows(int count) const {
        assert(count >= 0 && count <= this->count());
        return m_cells.first(static_cast<std::size_t>(count) * static_cast<std::size_t>(m_width));
    }

    [[nodiscard]] GlyphCode& cell(int rowNumber, int column) const {
        assert(column >= 1 && column <= m_width);
        return row(rowNumber)[static_cast<std::size_t>(column - 1)];
    }

private:
    std::span<GlyphCode> m_cells;
    int m_width;
};

} // namespace editing
