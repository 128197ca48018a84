// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/mdlArray.h"

#include "EditWorld.h"
#include "support/FakeDialogs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace editing {

namespace {

using glyphs::CaseChoice;
using Cells = std::vector<GlyphCode>;

/// One row of its own.
class OneRow {
public:
    explicit OneRow(Cells cells)
        : m_cells(std::move(cells)) {}

    /// A text and blanks after it.
    OneRow(std::string_view text, std::size_t width)
        : m_cells(width, glyphs::BlankGlyph) {
        std::copy(text.begin(), text.end(), m_cells.begin());
    }

    OneRow& apply(FormatOperation operation, CaseChoice choice = CaseChoice::LettersOnly) {
        FormatRows(GlyphRows(m_cells, static_cast<int>(m_cells.size())), 1, operation, choice);
        return *this;
    }

    [[nodiscard]] const Cells& cells() const { return m_cells; }

    [[nodiscard]] std::string text() const { return {m_cells.begin(), m_cells.end()}; }

private:
    Cells m_cells;
};

std::string Formatted(std::string_view text, FormatOperation operation) {
    return OneRow(text, 15).apply(operation).text();
}

GlyphCode
FormattedGlyph(GlyphCode code, FormatOperation operation, CaseChoice choice = CaseChoice::LettersOnly) {
    return OneRow(Cells{code}).apply(operation, choice).cells().front();
}

TEST(HalfToEven, RoundsHalvesToTheEvenNeighbour) {
    const std::vector<int> halves{0, 0, 1, 2, 2, 2, 3, 4, 4, 4, 5, 6, 6, 6, 7, 8};
    for (std::size_t number = 0; number < halves.size(); ++number) {
        EXPECT_EQ(HalfToEven(static_cast<int>(number)), halves[number]) << number;
    }
    EXPECT_EQ(HalfToEven(90), 45);
    EXPECT_EQ(HalfToEven(89), 44);
    EXPECT_EQ(HalfToEven(87), 44);
}

TEST(AlignLeft, MovesTheTextToTheFirstCellAndKeepsInnerBlanks) {
    EXPECT_EQ(Formatted("   a b  c", FormatOperation::AlignLeft), "a b  c         ");
    EXPECT_EQ(Formatted("              x", FormatOperation::AlignLeft), "x              ");
}

TEST(AlignLeft, LeavesARowThatStartsInTheFirstCell) {
    EXPECT_EQ(Formatted("abc  d", FormatOperation::AlignLeft), "abc  d         ");
}

TEST(AlignRight, MovesTheTextToTheLastCellAndKeepsInnerBlanks) {
    EXPECT_EQ(Formatted(" a b  c", FormatOperation::AlignRight), "         a b  c");
    EXPECT_EQ(Formatted("x", FormatOperation::AlignRight), "              x");
}

TEST(AlignRight, LeavesARowThatEndsInTheLastCell) {
    EXPECT_EQ(Formatted("  a          bc", FormatOperation::AlignRight), "  a          bc");
}

TEST(AlignCenter, StartsANameOfEachLengthInTheSameCellAlways) {
    const std::vector<int> offsets{7, 6, 6, 6, 5, 4, 4, 4, 3, 2, 2, 2, 1, 0, 0};
    for (std::size_t length = 1; length <= 15; ++length) {
        const std::string row = Formatted(std::string(length, 'x'), FormatOperation::AlignCenter);
        EXPECT_EQ(row.find('x'), static_cast<std::size_t>(offsets[length - 1])) << length;
        EXPECT_EQ(std::count(row.begin(), row.end(), 'x'), static_cast<std::ptrdiff_t>(length));
    }
}

TEST(AlignCenter, CentresEvenNamesByTheSameRule) {
    EXPECT_EQ(Formatted("ABCD", FormatOperation::AlignCenter), "      ABCD     ");
    EXPECT_EQ(Formatted("ABCDEF", FormatOperation::AlignCenter), "    ABCDEF     ");
    EXPECT_EQ(Formatted(" ABCDEFGHIJKLMN", FormatOperation::AlignCenter), "ABCDEFGHIJKLMN ");
    EXPECT_EQ(Formatted("a  b", FormatOperation::AlignCenter), "      a  b     ");
}

TEST(AlignCenter, CentresMessagesToo) {
    EXPECT_EQ(OneRow("hello", 31).apply(FormatOperation::AlignCenter).text().find("hello"), 13U);
    EXPECT_EQ(OneRow("hell", 31).apply(FormatOperation::AlignCenter).text().find("hell"), 14U);
}

TEST(Alignment, LeavesARowOfBlanks) {
    for (const auto operation :
         {FormatOperation::AlignLeft, FormatOperation::AlignCenter, FormatOperation::AlignRight}) {
        EXPECT_EQ(Formatted("", operation), std::string(15, ' '));
    }
}

TEST(Alignment, TakesOnlyGlyph32ForABlank) {
    const Cells cells{160, 65, 0, 32};
    EXPECT_EQ(OneRow(cells).apply(FormatOperation::AlignLeft).cells(), cells);
    EXPECT_EQ(OneRow(cells).apply(FormatOperation::AlignRight).cells(), (Cells{32, 160, 65, 0}));
}

TEST(ReverseCharacters, TurnsTheWholeWidthRound) {
    EXPECT_EQ(Formatted("abc", FormatOperation::ReverseCharacters), "            cba");
    EXPECT_EQ(Formatted("ab             ", FormatOperation::ReverseCharacters), "             ba");
    EXPECT_EQ(OneRow("xy", 31).apply(FormatOperation::ReverseCharacters).text(), std::string(29, ' ') + "yx");
}

TEST(CaseOperations, ChangeLettersOfBothColours) {
    EXPECT_EQ(Formatted("aBc[1]", FormatOperation::ToUpperCase), "ABC[1]         ");
    EXPECT_EQ(Formatted("aBc[1]", FormatOperation::ToLowerCase), "abc{1}         ");
    EXPECT_EQ(Formatted("aBc[1]", FormatOperation::SwitchCase), "AbC{1}         ");
    EXPECT_EQ(FormattedGlyph(225, FormatOperation::ToUpperCase), 193);
    EXPECT_EQ(FormattedGlyph(193, FormatOperation::ToLowerCase), 225);
    EXPECT_EQ(FormattedGlyph(251, FormatOperation::ToUpperCase), 251);
}

TEST(CaseOperations, ChangeDigitsAndSymbolsOnlyWhenAllCharactersAreChosen) {
    EXPECT_EQ(FormattedGlyph('1', FormatOperation::ToUpperCase), '1');
    EXPECT_EQ(FormattedGlyph('1', FormatOperation::ToUpperCase, CaseChoice::AllCharacters), '!');
    EXPECT_EQ(FormattedGlyph('!', FormatOperation::ToLowerCase, CaseChoice::AllCharacters), '1');
    EXPECT_EQ(FormattedGlyph('1', FormatOperation::SwitchCase, CaseChoice::AllCharacters), '!');
    EXPECT_EQ(FormattedGlyph('!', FormatOperation::SwitchCase, CaseChoice::AllCharacters), '1');
    EXPECT_EQ(FormattedGlyph(177, FormatOperation::SwitchCase, CaseChoice::AllCharacters), 177);
}

TEST(ColorOperations, ChangeGlyphsThatHaveAPartner) {
    EXPECT_EQ(FormattedGlyph('a', FormatOperation::Color1ToColor2), 225);
    EXPECT_EQ(FormattedGlyph(225, FormatOperation::Color1ToColor2), 225);
    EXPECT_EQ(FormattedGlyph(225, FormatOperation::Color2ToColor1), 'a');
    EXPECT_EQ(FormattedGlyph('a', FormatOperation::Color2ToColor1), 'a');
    EXPECT_EQ(FormattedGlyph(139, FormatOperation::SwitchColor), 11);
    EXPECT_EQ(FormattedGlyph(11, FormatOperation::SwitchColor), 139);
    for (const GlyphCode code : Cells{0, 10, 12, 32, 128, 138, 140, 160}) {
        for (const auto operation :
             {FormatOperation::Color1ToColor2, FormatOperation::Color2ToColor1,
              FormatOperation::SwitchColor}) {
            EXPECT_EQ(FormattedGlyph(code, operation), code);
        }
    }
}

TEST(RowSelector, MeansOneRowOrAll) {
    const Cells start{32, 'a', 32, 'b', 32, 'c'};
    Cells cells = start;
    AlignLeft(GlyphRows(cells, 2), 2);
    EXPECT_EQ(cells, (Cells{32, 'a', 'b', 32, 32, 'c'}));
    cells = start;
    AlignLeft(GlyphRows(cells, 2), AllRows);
    EXPECT_EQ(cells, (Cells{'a', 32, 'b', 32, 'c', 32}));
    FormatRows(GlyphRows(cells, 2), 3, FormatOperation::ToUpperCase, CaseChoice::LettersOnly);
    EXPECT_EQ(cells, (Cells{'a', 32, 'b', 32, 'C', 32}));
    FormatRows(GlyphRows(cells, 2), AllRows, FormatOperation::ReverseCharacters, CaseChoice::LettersOnly);
    EXPECT_EQ(cells, (Cells{32, 'a', 32, 'b', 32, 'C'}));
}

TEST(ReverseRows, TurnsTheFirstRowsRoundAndKeepsTheOthers) {
    for (int count = 1; count <= 9; ++count) {
        Cells cells;
        for (GlyphCode row = 1; row <= 9; ++row) {
            cells.insert(cells.end(), {row, static_cast<GlyphCode>(row + 100)});
        }
        Cells expected = cells;
        for (int row = 0; row < count; ++row) {
            expected[static_cast<std::size_t>(2 * row)] = static_cast<GlyphCode>(count - row);
            expected[static_cast<std::size_t>(2 * row + 1)] = static_cast<GlyphCode>(count - row + 100);
        }
        ReverseRows(GlyphRows(cells, 2), count);
        EXPECT_EQ(cells, expected) << count;
    }
}

/// Rows of many kinds: any glyphs, mostly blanks, blanks at either end, nothing but blanks.
std::vector<Cells> RandomRows() {
    std::mt19937 random(20011984);
    std::vector<Cells> rows;
    for (int i = 0; i < 2000; ++i) {
        Cells cells(random() % 2 == 0 ? 15U : 31U);
        const auto blanksInTen = random() % 11;
        for (GlyphCode& code : cells) {
            code = random() % 10 < blanksInTen ? glyphs::BlankGlyph : static_cast<GlyphCode>(random() % 256);
        }
        rows.push_back(std::move(cells));
    }
    return rows;
}

/// What stands between the blanks at both ends.
Cells TextOf(const Cells& cells) {
    const auto isBlank = [](GlyphCode code) {
        return code == 32;
    };
    const auto first = std::find_if_not(cells.begin(), cells.end(), isBlank);
    const auto end = std::find_if_not(cells.rbegin(), cells.rend(), isBlank).base();
    return first == cells.end() ? Cells() : Cells(first, end);
}

TEST(RandomRows, AreTheSameAfterBeingReversedTwice) {
    for (const Cells& cells : RandomRows()) {
        OneRow row(cells);
        EXPECT_EQ(
            row.apply(FormatOperation::ReverseCharacters).apply(FormatOperation::ReverseCharacters).cells(),
            cells);
    }
}

TEST(RandomRows, AreTheSameAfterTheirColourWasSwitchedTwice) {
    for (const Cells& cells : RandomRows()) {
        OneRow row(cells);
        EXPECT_EQ(row.apply(FormatOperation::SwitchColor).apply(FormatOperation::SwitchColor).cells(), cells);
    }
}

TEST(RandomRows, KeepTheirTextWhenTheyAreAligned) {
    for (const Cells& cells : RandomRows()) {
        for (const auto operation :
             {FormatOperation::AlignLeft, FormatOperation::AlignCenter, FormatOperation::AlignRight}) {
            OneRow row(cells);
            row.apply(operation);
            EXPECT_EQ(TextOf(row.cells()), TextOf(cells));
            ASSERT_EQ(row.cells().size(), cells.size());
        }
    }
}

TEST(RandomRows, AreAlignedOnceForAll) {
    for (const Cells& cells : RandomRows()) {
        for (const auto operation :
             {FormatOperation::AlignLeft, FormatOperation::AlignCenter, FormatOperation::AlignRight}) {
            OneRow row(cells);
            const Cells once = row.apply(operation).cells();
            EXPECT_EQ(row.apply(operation).cells(), once);
        }
    }
}

TEST(RandomRows, AreAlignedWhateverTheyWereAlignedToBefore) {
    for (const Cells& cells : RandomRows()) {
        const Cells centred = OneRow(cells).apply(FormatOperation::AlignCenter).cells();
        EXPECT_EQ(
            OneRow(cells).apply(FormatOperation::AlignRight).apply(FormatOperation::AlignCenter).cells(),
            centred);
    }
}

TEST(RandomRows, HaveGlyphsOfOneColourOnlyAfterAColourOperation) {
    for (const Cells& cells : RandomRows()) {
        const Cells inColor1 = OneRow(cells).apply(FormatOperation::Color2ToColor1).cells();
        for (const GlyphCode code : inColor1) {
            EXPECT_EQ(glyphs::ToColor1Glyph(code), code);
        }
        const Cells inColor2 = OneRow(cells).apply(FormatOperation::Color1ToColor2).cells();
        for (const GlyphCode code : inColor2) {
            EXPECT_EQ(glyphs::ToColor2Glyph(code), code);
        }
    }
}

/// The Format and Edit menus on the three pages.
class PageFormatting : public testing::Test {
protected:
    void show(Page page, int row) {
        world.page = page;
        world.cursor().row = row;
    }

    void format(FormatOperation operation) {
        world.show(FormatPage(world.cursor(), dialogs, settings, operation));
    }

    /// Texts in the first rows, the one of row 20 and the last of 90 names too.
    void fillAnimation() {
        world.page = Page::Animation;
        world.documents.animation.nameCount = 20;
        for (const int row : {1, 2, 3, 20, 21, 90}) {
            world.setRow(row, "  n" + std::to_string(row));
        }
    }

    void fillMessages() {
        world.page = Page::Messages;
        world.setRow(1, "  one");
        world.setRow(2, "  two");
        world.setRow(3, "  three");
    }

    /// Expects the question whether all rows are to be formatted.
    void expectQuestion(const char* text, ui::Answer answer) {
        dialogs.expectBox(
            {text, ui::Buttons::YesNoCancel, ui::Icon::None, "No or Cancel: only the current one."}, answer);
    }

    [[nodiscard]] CellBlock damage() { return world.damage(); }

    EditWorld world;
    support::FakeDialogs dialogs;
    FormatSettings settings;
};

const std::vector OnePagePaint{Change::Kind::WholePage};

TEST_F(PageFormatting, FormatsTheNameWithoutAQuestion) {
    show(Page::Name, 1);
    world.setRow(1, "  abc");
    format(FormatOperation::AlignLeft);
    EXPECT_EQ(world.text(1), "abc");
    EXPECT_EQ(world.shown.kinds, OnePagePaint);
    EXPECT_TRUE(world.isShownLikeDocument());
    EXPECT_EQ(damage(), (CellBlock{1, 1, 15, 1}));
}

TEST_F(PageFormatting, FormatsAllNinetyNamesAfterYes) {
    fillAnimation();
    show(Page::Animation, 2);
    expectQuestion("Do you wish to format all names?", ui::Answer::Yes);
    format(FormatOperation::AlignLeft);
    for (const int row : {1, 2, 3, 20, 21, 90}) {
        EXPECT_EQ(world.text(row), "n" + std::to_string(row));
    }
    EXPECT_EQ(world.shown.kinds, OnePagePaint);
    EXPECT_TRUE(world.isShownLikeDocument());
}

TEST_F(PageFormatting, FormatsTheCurrentNameAfterNoOrCancel) {
    for (const ui::Answer answer : {ui::Answer::No, ui::Answer::Cancel}) {
        fillAnimation();
        show(Page::Animation, 2);
        expectQuestion("Do you wish to format all names?", answer);
        format(FormatOperation::AlignLeft);
        EXPECT_EQ(world.text(1), "  n1");
        EXPECT_EQ(world.text(2), "n2");
        EXPECT_EQ(world.text(3), "  n3");
        EXPECT_TRUE(world.shown.kinds.empty());
        EXPECT_EQ(damage(), (CellBlock{1, 2, 15, 1}));
        EXPECT_TRUE(world.isShownLikeDocument());
    }
}

TEST_F(PageFormatting, FormatsAllNamesWithoutAskingWhenThatIsChosen) {
    fillAnimation();
    settings.asksForNames = false;
    format(FormatOperation::ToUpperCase);
    EXPECT_EQ(world.text(1), "  N1");
    EXPECT_EQ(world.text(90), "  N90");
    EXPECT_EQ(world.shown.kinds, OnePagePaint);
}

TEST_F(PageFormatting, FormatsAllMessagesAfterYes) {
    fillMessages();
    expectQuestion("Do you wish to format all macros?", ui::Answer::Yes);
    format(FormatOperation::AlignRight);
    EXPECT_EQ(world.row(1), std::string(28, ' ') + "one");
    EXPECT_EQ(world.row(3), std::string(26, ' ') + "three");
    EXPECT_EQ(world.shown.kinds, OnePagePaint);
    EXPECT_TRUE(world.isShownLikeDocument());
}

TEST_F(PageFormatting, FormatsTheCurrentMessageAfterNoOrCancel) {
    for (const ui::Answer answer : {ui::Answer::No, ui::Answer::Cancel}) {
        fillMessages();
        show(Page::Messages, 3);
        expectQuestion("Do you wish to format all macros?", answer);
        format(FormatOperation::SwitchCase);
        EXPECT_EQ(world.text(1), "  one");
        EXPECT_EQ(world.text(3), "  THREE");
        EXPECT_TRUE(world.shown.kinds.empty());
        EXPECT_EQ(damage(), (CellBlock{1, 3, 31, 1}));
    }
}

TEST_F(PageFormatting, FormatsAllMessagesWithoutAskingWhenThatIsChosen) {
    fillMessages();
    settings.asksForMessages = false;
    format(FormatOperation::Color1ToColor2);
    EXPECT_EQ(world.rows().cell(1, 3), 'o' + 128);
    EXPECT_EQ(world.rows().cell(3, 1), 32);
    EXPECT_EQ(world.rows().cell(3, 3), 't' + 128);
}

TEST_F(PageFormatting, KeepsEachPagesQuestionApart) {
    settings.asksForMessages = false;
    fillAnimation();
    expectQuestion("Do you wish to format all names?", ui::Answer::No);
    format(FormatOperation::AlignLeft);
    settings = {.asksForNames = false};
    fillMessages();
    expectQuestion("Do you wish to format all macros?", ui::Answer::No);
    format(FormatOperation::AlignLeft);
}

TEST_F(PageFormatting, ReversesTheOrderOfTheNamesInUseWithoutAQuestion) {
    fillAnimation();
    world.documents.animation.ticks(1) = 9;
    world.show(ReverseNameOrder(world.cursor()));
    EXPECT_EQ(world.text(20), "  n1");
    EXPECT_EQ(world.text(19), "  n2");
    EXPECT_EQ(world.text(1), "  n20");
    EXPECT_EQ(world.text(2), "");
    EXPECT_EQ(world.text(21), "  n21");
    EXPECT_EQ(world.documents.animation.ticks(1), 9);
    EXPECT_EQ(world.documents.animation.ticks(20), 2);
    EXPECT_EQ(world.shown.kinds, OnePagePaint);
    EXPECT_TRUE(world.isShownLikeDocument());
}

TEST_F(PageFormatting, SwapsTheFirstAndTheThirdMessage) {
    fillMessages();
    world.show(ReverseNameOrder(world.cursor()));
    EXPECT_EQ(world.text(1), "  three");
    EXPECT_EQ(world.text(2), "  two");
    EXPECT_EQ(world.text(3), "  one");
    EXPECT_EQ(world.shown.kinds, OnePagePaint);
    EXPECT_TRUE(world.isShownLikeDocument());
}

TEST_F(PageFormatting, ReversesNothingOnTheNamePage) {
    show(Page::Name, 1);
    world.setRow(1, "abc");
    world.show(ReverseNameOrder(world.cursor()));
    EXPECT_EQ(world.text(1), "abc");
    EXPECT_TRUE(world.shown.kinds.empty());
    EXPECT_EQ(damage(), CellBlock());
}

class ClipboardOfRows : public PageFormatting {
protected:
    void copy() { CopyRow(world.cursor(), clipboard); }

    void cut() { world.show(CutRow(world.cursor(), clipboard)); }

    void paste() { world.show(PasteRow(world.cursor(), clipboard)); }

    EditClipboard clipboard;
};

TEST_F(ClipboardOfRows, HoldsBlanksAtFirst) {
    world.setRow(1, "abc");
    paste();
    EXPECT_EQ(world.text(1), "");
    EXPECT_TRUE(world.isShownLikeDocument());
}

TEST_F(ClipboardOfRows, CopiesWithoutChangingThePage) {
    world.setRow(1, "abc");
    copy();
    EXPECT_EQ(world.text(1), "abc");
    EXPECT_EQ(damage(), CellBlock());
    EXPECT_EQ(std::string(clipboard.cells.begin(), clipboard.cells.end()), "abc" + std::string(28, ' '));
}

TEST_F(ClipboardOfRows, CutsTheRowAndPaintsItBlank) {
    fillAnimation();
    show(Page::Animation, 3);
    cut();
    EXPECT_EQ(world.text(3), "");
    EXPECT_EQ(world.text(2), "  n2");
    EXPECT_EQ(damage(), (CellBlock{1, 3, 15, 1}));
    EXPECT_TRUE(world.isShownLikeDocument());
    show(Page::Animation, 5);
    paste();
    EXPECT_EQ(world.text(5), "  n3");
    EXPECT_EQ(damage(), (CellBlock{1, 5, 15, 1}));
    EXPECT_TRUE(world.isShownLikeDocument());
    EXPECT_TRUE(world.shown.kinds.empty());
}

TEST_F(ClipboardOfRows, LosesTheEndOfAMessageInAName) {
    world.page = Page::Messages;
    world.setRow(1, "0123456789abcdefghijklmnopqrstu");
    copy();
    show(Page::Name, 1);
    paste();
    EXPECT_EQ(world.row(1), "0123456789abcde");
}

TEST_F(ClipboardOfRows, BlanksTheEndOfAMessageWithAName) {
    show(Page::Name, 1);
    world.setRow(1, "name");
    copy();
    fillMessages();
    world.setRow(2, "0123456789abcdefghijklmnopqrstu");
    show(Page::Messages, 2);
    paste();
    EXPECT_EQ(world.row(2), "name" + std::string(27, ' '));
    EXPECT_EQ(world.text(1), "  one");
}

TEST_F(ClipboardOfRows, ForgetsTheEndOfAnEarlierMessage) {
    world.page = Page::Messages;
    world.setRow(1, "0123456789abcdefghijklmnopqrstu");
    copy();
    show(Page::Name, 1);
    world.setRow(1, "x");
    copy();
    EXPECT_EQ(std::string(clipboard.cells.begin(), clipboard.cells.end()), "x" + std::string(30, ' '));
}

} // namespace

} // namespace editing
