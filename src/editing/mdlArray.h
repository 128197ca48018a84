// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/FormatSettings.h"
#include "editing/mdlCommon.h"
#include "ui/Dialogs.h"

#include <array>

namespace editing {

/// The row selector that means every row, in use or not; any other is the number of one row.
constexpr int AllRows = 0;

/// What the Format menu does to rows of glyphs.
enum class FormatOperation {
    AlignLeft,
    AlignCenter,
    AlignRight,
    ToLowerCase,
    ToUpperCase,
    SwitchCase,
    Color1ToColor2,
    Color2ToColor1,
    SwitchColor,
    ReverseCharacters,
};

/// Half of `number` (0 or more); a half left over goes to the even neighbour, so 3 gives 2 and 5 gives 2.
[[nodiscard]] int HalfToEven(int number);

/// The row transforms. Blanks inside a row are kept; a row of blanks stays one.
void AlignLeft(const GlyphRows& rows, int selector);
void AlignCenter(const GlyphRows& rows, int selector);
void AlignRight(const GlyphRows& rows, int selector);

/// Turns rows round over their whole width, blanks at the end included.
void ReverseCharacters(const GlyphRows& rows, int selector);

/// Any of the transforms. `caseChoice` matters to the three case operations only.
void FormatRows(
    const GlyphRows& rows, int selector, FormatOperation operation, glyphs::CaseChoice caseChoice);

/// Turns the order of the first `count` rows round.
void ReverseRows(const GlyphRows& rows, int count);

/// Formats a page: the name; or all rows of the other pages if the answer, or the setting without a question,
/// is yes; otherwise the current row alone, also when the question is cancelled.
Change FormatPage(
    const PageCursor& cursor, ui::Dialogs& dialogs, const FormatSettings& settings,
    FormatOperation operation);

/// Turns the order of the names in use, or of the messages, round. Nothing happens on the name page.
Change ReverseNameOrder(const PageCursor& cursor);

/// The program's own clipboard for one row, apart from the system's. Blank at first.
struct EditClipboard {
    std::array<GlyphCode, MessageLength> cells = BlankCells<MessageLength>();
};

/// Copies the current row of a page; cells past the end of a name become blank.
void CopyRow(const PageCursor& cursor, EditClipboard& clipboard);

/// Copies the current row and blanks it.
Change CutRow(const PageCursor& cursor, EditClipboard& clipboard);

/// Puts the clipboard's first cells into the current row of a page, wherever they came from.
Change PasteRow(const PageCursor& cursor, const EditClipboard& clipboard);

} // namespace editing
