// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Change.h"
#include "editing/mdlCommon.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace support {

/// The cells that the three pages show when nothing but the reported changes is followed: a picture without
/// pixels. What an operation does not report stays away.
class FollowedPages {
public:
    explicit FollowedPages(editing::Documents& documents)
        : m_documents(documents)
        , m_shown(documents) {}

    /// Shows everything as it is; nothing is damaged or due afterwards.
    void showAll() {
        m_shown = m_documents;
        m_damage = {};
        kinds.clear();
    }

    void follow(const editing::Change& change) {
        using Kind = editing::Change::Kind;
        const editing::GlyphRows shown = editing::CursorOf(m_shown, change.page).rows;
        if (change.kind == Kind::WholePage) {
            const int inUse = editing::CursorOf(m_documents, change.page).rowsInUse;
            take(change.page, {1, 1, shown.width(), inUse});
            damage(change.page, {1, 1, shown.width(), shown.count()});
        } else {
            editing::Documents before = m_shown;
            const editing::GlyphRows from = editing::CursorOf(before, change.page).rows;
            editing::CellBlock to = change.moved;
            to.column += change.byColumns;
            to.row += change.byRows;
            forCells(to, [&](int row, int column) {
                shown.cell(row, column) = from.cell(row - change.byRows, column - change.byColumns);
            });
            damage(change.page, to);
            take(change.page, change.changed);
            damage(change.page, change.changed);
        }
        if (change.kind != Kind::Cells) {
            kinds.push_back(change.kind);
        }
    }

    /// Whether a page shows exactly its rows in use.
    [[nodiscard]] bool isTrue(editing::Page page) {
        const editing::PageCursor document = editing::CursorOf(m_documents, page);
        const editing::GlyphRows shown = editing::CursorOf(m_shown, page).rows;
        for (int row = 1; row <= document.rowsInUse; ++row) {
            if (!std::ranges::equal(document.rows.row(row), shown.row(row))) {
                return false;
            }
        }
        return true;
    }

    /// The cells around all that was followed on a page; nothing is damaged afterwards.
    editing::CellBlock takeDamage(editing::Page page) {
        return std::exchange(m_damage[static_cast<std::size_t>(page)], {});
    }

    /// The cells that a page shows.
    [[nodiscard]] const editing::Documents& shown() const { return m_shown; }

    std::vector<editing::Change::Kind> kinds; ///< of the changes that are heard, in their order

private:
    template <class Visit>
    static void forCells(const editing::CellBlock& block, Visit visit) {
        for (int row = block.row; row < block.row + block.rows; ++row) {
            for (int column = block.column; column < block.column + block.columns; ++column) {
                visit(row, column);
            }
        }
    }

    void take(editing::Page page, const editing::CellBlock& block) {
        const editing::GlyphRows document = editing::CursorOf(m_documents, page).rows;
        const editing::GlyphRows shown = editing::CursorOf(m_shown, page).rows;
        forCells(block, [&](int row, int column) { shown.cell(row, column) = document.cell(row, column); });
    }

    void damage(editing::Page page, const editing::CellBlock& block) {
        if (block.columns <= 0 || block.rows <= 0) {
            return;
        }
        editing::CellBlock& damaged = m_damage[static_cast<std::size_t>(page)];
        if (damaged == editing::CellBlock()) {
            damaged = block;
            return;
        }
        const int right = std::max(damaged.column + damaged.columns, block.column + block.columns);
        const int bottom = std::max(damaged.row + damaged.rows, block.row + block.rows);
        damaged.column = std::min(damaged.column, block.column);
        damaged.row = std::min(damaged.row, block.row);
        damaged.columns = right - damaged.column;
        damaged.rows = bottom - damaged.row;
    }

    editing::Documents& m_documents;
    editing::Documents m_shown;
    std::array<editing::CellBlock, 3> m_damage{};
};

} // namespace support
