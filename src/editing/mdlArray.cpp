// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/mdlArray.h"

#include "editing/Kinds.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <span>

namespace editing {

namespace {

using Row = std::span<GlyphCode>;

bool IsBlank(GlyphCode code) {
    return code == glyphs::BlankGlyph;
}

/// Applies a transform of one row to the selected rows.
template <class Transform>
void ForRows(const GlyphRows& rows, int selector, Transform transform) {
    if (selector != AllRows) {
        transform(rows.row(selector));
        return;
    }
    for (int row = 1; row <= rows.count(); ++row) {
        transform(rows.row(row));
    }
}

/// Applies a transform of one glyph to every cell of the selected rows.
template <class Transform>
void ForCells(const GlyphRows& rows, int selector, Transform transform) {
    ForRows(rows, selector, [&](Row row) { std::transform(row.begin(), row.end(), row.begin(), transform); });
}

/// Moves what stands between the blanks at both ends of a row: `offset` tells, from its length, how many
/// blanks go before it.
template <class Offset>
void MoveText(Row row, Offset offset) {
    const auto first = std::find_if_not(row.begin(), row.end(), IsBlank);
    if (first == row.end()) {
        return;
    }
    const auto end = std::find_if_not(row.rbegin(), row.rend(), IsBlank).base();
    std::array<GlyphCode, MessageLength> scratch{};
    assert(row.size() <= scratch.size());
    const auto scratchEnd = std::copy(first, end, scratch.begin());
    const auto length = scratchEnd - scratch.begin();
    std::fill(row.begin(), row.end(), glyphs::BlankGlyph);
    std::copy(scratch.begin(), scratchEnd, row.begin() + offset(static_cast<int>(length)));
}

/// Whether every row of the page in view is to be formatted.
bool AsksForAllRows(Page page, ui::Dialogs& dialogs, const FormatSettings& settings) {
    const Kind& kind = KindOf(page);
    if (kind.asksBeforeFormat == nullptr) {
        return false;
    }
    return !(settings.*kind.asksBeforeFormat) ||
           dialogs.box(
               {.text = kind.formatQuestion,
                .buttons = ui::Buttons::YesNoCancel,
                .detail = "No or Cancel: only the current one."}) == ui::Answer::Yes;
}

} // namespace

int HalfToEven(int number) {
    return static_cast<int>(std::lrint(number / 2.0));
}

void AlignLeft(const GlyphRows& rows, int selector) {
    ForRows(rows, selector, [](Row row) { MoveText(row, [](int) { return 0; }); });
}

void AlignCenter(const GlyphRows& rows, int selector) {
    const int width = rows.width();
    ForRows(rows, selector, [width](Row row) {
        MoveText(row, [width](int length) { return HalfToEven(width - length); });
    });
}

void AlignRight(const GlyphRows& rows, int selector) {
    const int width = rows.width();
    ForRows(
        rows, selector, [width](Row row) { MoveText(row, [width](int length) { return width - length; }); });
}

void ReverseCharacters(const GlyphRows& rows, int selector) {
    ForRows(rows, selector, [](Row row) { std::reverse(row.begin(), row.end()); });
}

void FormatRows(
    const GlyphRows& rows, int selector, FormatOperation operation, glyphs::CaseChoice caseChoice) {
    switch (operation) {
    case FormatOperation::AlignLeft:
        AlignLeft(rows, selector);
        break;
    case FormatOperation::AlignCenter:
        AlignCenter(rows, selector);
        break;
    case FormatOperation::AlignRight:
        AlignRight(rows, selector);
        break;
    case FormatOperation::ToLowerCase:
        ForCells(rows, selector, [=](GlyphCode code) { return glyphs::ToLowerGlyph(code, caseChoice); });
        break;
    case FormatOperation::ToUpperCase:
        ForCells(rows, selector, [=](GlyphCode code) { return glyphs::ToUpperGlyph(code, caseChoice); });
        break;
    case FormatOperation::SwitchCase:
        ForCells(rows, selector, [=](GlyphCode code) { return glyphs::SwitchCaseGlyph(code, caseChoice); });
        break;
    case FormatOperation::Color1ToColor2:
        ForCells(rows, selector, glyphs::ToColor2Glyph);
        break;
    case FormatOperation::Color2ToColor1:
        ForCells(rows, selector, glyphs::ToColor1Glyph);
        break;
    case FormatOperation::SwitchColor:
        ForCells(rows, selector, glyphs::SwitchColorGlyph);
        break;
    case FormatOperation::ReverseCharacters:
        ReverseCharacters(rows, selector);
        break;
    }
}

void ReverseRows(const GlyphRows& rows, int count) {
    // Rounding up at the half swaps the middle row with itself at most.
    const int half = HalfToEven(count);
    for (int row = 1; row <= half; ++row) {
        const Row first = rows.row(row);
        const Row last = rows.row(count - row + 1);
        if (first.data() != last.data()) {
            std::swap_ranges(first.begin(), first.end(), last.begin());
        }
    }
}

Change FormatPage(
    const PageCursor& cursor, ui::Dialogs& dialogs, const FormatSettings& settings,
    FormatOperation operation) {
    const bool isAll = AsksForAllRows(cursor.page, dialogs, settings);
    FormatRows(cursor.rows, isAll ? AllRows : cursor.row, operation, settings.caseChoice);
    if (isAll || cursor.rows.count() == 1) {
        return {.kind = Change::Kind::WholePage, .page = cursor.page};
    }
    return RowChanged(cursor, cursor.row);
}

Change ReverseNameOrder(const PageCursor& cursor) {
    if (cursor.rows.count() == 1) {
        return {};
    }
    ReverseRows(cursor.rows, cursor.rowsInUse);
    return {.kind = Change::Kind::WholePage, .page = cursor.page};
}

void CopyRow(const PageCursor& cursor, EditClipboard& clipboard) {
    const Row row = cursor.rows.row(cursor.row);
    clipboard.cells.fill(glyphs::BlankGlyph);
    std::copy(row.begin(), row.end(), clipboard.cells.begin());
}

Change CutRow(const PageCursor& cursor, EditClipboard& clipboard) {
    CopyRow(cursor, clipboard);
    const Row row = cursor.rows.row(cursor.row);
    std::fill(row.begin(), row.end(), glyphs::BlankGlyph);
    return RowChanged(cursor, cursor.row);
}

Change PasteRow(const PageCursor& cursor, const EditClipboard& clipboard) {
    const Row row = cursor.rows.row(cursor.row);
    std::copy_n(clipboard.cells.begin(), row.size(), row.begin());
    return RowChanged(cursor, cursor.row);
}

} // namespace editing
