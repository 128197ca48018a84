// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/mdlCommon.h"

#include "glyphs/mdlPaint.h"
#include "glyphs/mdlSwitches.h"

#include <algorithm>

namespace editing {

using glyphs::BlankGlyph;

PageCursor CursorOf(Documents& documents, Page page) {
    auto& [name, animation, messages] = documents;
    return std::array<PageCursor, 3>{{
        {Page::Name, name.rows(), name.cursorPos, name.currentRow, 1},
        {Page::Animation, animation.rows(), animation.cursorPos, animation.currentName, animation.nameCount},
        {Page::Messages, messages.rows(), messages.cursorPos, messages.currentMessage, MessageCount},
    }}[static_cast<std::size_t>(page)];
}

Change RowChanged(const PageCursor& cursor, int row) {
    return {.page = cursor.page, .changed = {1, row, cursor.rows.width(), 1}};
}

Change NewDocument(Documents& documents, Page page) {
    const GlyphRows rows = CursorOf(documents, page).rows;
    for (int row = 1; row <= rows.count(); ++row) {
        std::ranges::fill(rows.row(row), BlankGlyph);
    }
    if (page == Page::Animation) {
        documents.animation.nameTicks.fill(InitialTicks);
    }
    return {.kind = Change::Kind::WholePage, .page = page};
}

void CursorRight(const PageCursor& cursor) {
    ++cursor.column;
}

void CursorLeft(const PageCursor& cursor) {
    --cursor.column;
}

Change PutGlyph(const PageCursor& cursor, const Modes& modes, GlyphCode code) {
    if (code == 0) {
        return {};
    }
    const int width = cursor.rows.width();
    const int column = cursor.column;
    Change change{
        .kind = Change::Kind::PlacedGlyph, .page = cursor.page, .changed = {column, cursor.row, 1, 1}};
    if (modes.insert && column < width) {
        const auto cells = cursor.rows.row(cursor.row).subspan(static_cast<std::size_t>(column - 1));
        std::shift_right(cells.begin(), cells.end(), 1);
        change.moved = {column, cursor.row, width - column, 1};
        change.byColumns = 1;
    }
    cursor.rows.cell(cursor.row, column) = modes.typingColour ? glyphs::ToColor2Glyph(code) : code;

    // Inserting leaves the cursor on the new glyph, so the next one goes in before it: that is how insert
    // mode works.
    if (!modes.insert && column < width) {
        CursorRight(cursor);
    }
    return change;
}

std::size_t RoomFrom(const PageCursor& cursor) {
    const int room = cursor.rows.width() - cursor.column + 1;
    return static_cast<std::size_t>(room);
}

Change PutGlyphs(const PageCursor& cursor, const Modes& modes, std::span<const GlyphCode> codes) {
    codes = codes.first(std::min(codes.size(), RoomFrom(cursor)));
    const auto cells = cursor.rows.row(cursor.row).last(RoomFrom(cursor));
    const auto count = static_cast<std::ptrdiff_t>(codes.size());
    if (modes.insert) {
        std::shift_right(cells.begin(), cells.end(), count);
    } else {
        cursor.column = std::min(cursor.column + static_cast<int>(count), cursor.rows.width());
    }
    std::ranges::transform(codes, cells.begin(), [&modes](GlyphCode code) {
        return modes.typingColour ? glyphs::ToColor2Glyph(code) : code;
    });
    return RowChanged(cursor, cursor.row);
}

Change DeleteGlyph(const PageCursor& cursor) {
    const int width = cursor.rows.width();
    const int column = cursor.column;
    const auto cells = cursor.rows.row(cursor.row).subspan(static_cast<std::size_t>(column - 1));
    std::shift_left(cells.begin(), cells.end(), 1);
    cells.back() = BlankGlyph;
    return {
        .page = cursor.page,
        .moved = {column + 1, cursor.row, width - column, 1},
        .byColumns = -1,
        .changed = {width, cursor.row, 1, 1}};
}

void PlaceCursor(const PageCursor& cursor, int x, int y) {
    cursor.column = std::clamp(x / glyphs::CellSide, 0, cursor.rows.width() - 1) + 1;
    cursor.row = std::clamp(y / glyphs::CellSide, 0, cursor.rowsInUse - 1) + 1;
}

} // namespace editing
