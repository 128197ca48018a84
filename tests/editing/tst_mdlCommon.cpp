// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/mdlCommon.h"

#include "EditWorld.h"
#include "editing/mdlArray.h"
#include "editing/mdlKey.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace editing {

namespace {

/// The cells of a row from `column` to its end.
CellBlock Strip(int row, int column, int width) {
    return {column, row, width - column + 1, 1};
}

CellBlock Cell(int row, int column) {
    return {column, row, 1, 1};
}

TEST(Documents, HaveTheirSizesAndAreBlankAtFirst) {
    Documents documents;
    const auto check = [](const GlyphRows& rows, int count, int width) {
        EXPECT_EQ(rows.count(), count);
        EXPECT_EQ(rows.width(), width);
        for (int row = 1; row <= count; ++row) {
            for (const GlyphCode code : rows.row(row)) {
                EXPECT_EQ(code, 32);
            }
        }
    };
    check(documents.name.rows(), 1, 15);
    check(documents.animation.rows(), 90, 15);
    check(documents.messages.rows(), 3, 31);
}

TEST(Documents, StartWithTheirCursorsInPlace) {
    Documents documents;
    EXPECT_EQ(documents.name.cursorPos, 1);
    EXPECT_EQ(documents.messages.cursorPos, 1);
    EXPECT_EQ(documents.messages.currentMessage, 1);
    EXPECT_EQ(documents.animation.cursorPos, 1);
    EXPECT_EQ(documents.animation.currentName, 15);
    EXPECT_EQ(documents.animation.nameCount, 15);
    for (int name = 1; name <= 90; ++name) {
        EXPECT_EQ(documents.animation.ticks(name), 2);
    }
}

TEST(Modes, StartInColour2AndOverwriting) {
    const Modes modes;
    EXPECT_TRUE(modes.typingColour);
    EXPECT_FALSE(modes.insert);
    EXPECT_FALSE(modes.upperCase);
    EXPECT_TRUE(modes.numberPad);
}

TEST(GlyphRows, CountRowsAndColumnsFromOne) {
    std::vector<GlyphCode> cells{1, 2, 3, 4, 5, 6};
    const GlyphRows rows(cells, 3);
    EXPECT_EQ(rows.count(), 2);
    EXPECT_EQ(rows.cell(1, 1), 1);
    EXPECT_EQ(rows.cell(1, 3), 3);
    EXPECT_EQ(rows.cell(2, 1), 4);
    rows.cell(2, 3) = 9;
    EXPECT_EQ(cells.back(), 9);
    EXPECT_EQ(rows.row(2).size(), 3U);
}

TEST(CursorOf, BelongsToThePage) {
    Documents documents;
    documents.animation.nameCount = 40;
    EXPECT_EQ(CursorOf(documents, Page::Name).rowsInUse, 1);
    EXPECT_EQ(CursorOf(documents, Page::Animation).rowsInUse, 40);
    EXPECT_EQ(CursorOf(documents, Page::Messages).rowsInUse, 3);
    CursorOf(documents, Page::Name).column = 7;
    CursorOf(documents, Page::Animation).column = 8;
    CursorOf(documents, Page::Animation).row = 33;
    CursorOf(documents, Page::Messages).column = 31;
    CursorOf(documents, Page::Messages).row = 2;
    EXPECT_EQ(documents.name.cursorPos, 7);
    EXPECT_EQ(documents.animation.cursorPos, 8);
    EXPECT_EQ(documents.animation.currentName, 33);
    EXPECT_EQ(documents.messages.cursorPos, 31);
    EXPECT_EQ(documents.messages.currentMessage, 2);
}

TEST(NewDocument, BlanksEveryRowOfTheAnimationAndLeavesTheCursor) {
    Documents documents;
    AnimationDocument& animation = documents.animation;
    animation.nameGlyphs.fill(65);
    animation.nameTicks.fill(9);
    animation.nameCount = 40;
    animation.currentName = 30;
    animation.cursorPos = 5;
    NewDocument(documents, Page::Animation);
    for (const GlyphCode code : animation.nameGlyphs) {
        ASSERT_EQ(code, 32);
    }
    for (int name = 1; name <= 90; ++name) {
        EXPECT_EQ(animation.ticks(name), 2);
    }
    EXPECT_EQ(animation.nameCount, 40);
    EXPECT_EQ(animation.currentName, 30);
    EXPECT_EQ(animation.cursorPos, 5);
}

TEST(NewDocument, BlanksTheNameAndLeavesTheCursor) {
    Documents documents;
    NameDocument& name = documents.name;
    name.cells.fill(65);
    name.cursorPos = 5;
    NewDocument(documents, Page::Name);
    EXPECT_EQ(std::count(name.cells.begin(), name.cells.end(), 32), 15);
    EXPECT_EQ(name.cursorPos, 5);
}

TEST(NewDocument, BlanksTheMessagesAndLeavesTheCursor) {
    Documents documents;
    MessageDocument& messages = documents.messages;
    messages.cells.fill(65);
    messages.cursorPos = 30;
    messages.currentMessage = 3;
    NewDocument(documents, Page::Messages);
    EXPECT_EQ(std::count(messages.cells.begin(), messages.cells.end(), 32), 93);
    EXPECT_EQ(messages.cursorPos, 30);
    EXPECT_EQ(messages.currentMessage, 3);
}

/// Glyphs placed and removed on the three pages.
class Editing : public testing::Test {
protected:
    /// Brings a page into view with the cursor in a cell.
    void show(Page page, int row, int column) {
        world.page = page;
        world.cursor().row = row;
        world.cursor().column = column;
    }

    void put(std::string_view text) {
        for (const char character : text) {
            world.put(static_cast<unsigned char>(character));
        }
    }

    void paste(std::string_view text) {
        std::vector<GlyphCode> codes;
        for (const char character : text) {
            codes.push_back(static_cast<unsigned char>(character));
        }
        world.show(PutGlyphs(world.cursor(), world.modes, codes));
    }

    void remove() { world.show(DeleteGlyph(world.cursor())); }

    [[nodiscard]] CellBlock damage() { return world.damage(); }

    EditWorld world;
};

TEST(Documents, AreEqualWhenAllTheyHoldIs) {
    const Documents blank;
    for (const Page page : AllPages) {
        Documents other;
        EXPECT_EQ(other, blank);
        CursorOf(other, page).column = 2;
        EXPECT_NE(other, blank);
        other = blank;
        const GlyphRows rows = CursorOf(other, page).rows;
        rows.cell(rows.count(), rows.width()) = 65;
        EXPECT_NE(other, blank);
    }
    Documents other;
    other.animation.ticks(90) = 3;
    EXPECT_NE(other, blank);
}

TEST_F(Editing, OverwritesAndMovesOn) {
    put("abc");
    EXPECT_EQ(world.text(1), "abc");
    EXPECT_EQ(world.cursor().column, 4);
    show(Page::Name, 1, 2);
    put("X");
    EXPECT_EQ(world.text(1), "aXc");
    EXPECT_EQ(world.cursor().column, 3);
    EXPECT_TRUE(world.isShownLikeDocument());
}

TEST_F(Editing, StaysOnTheLastCellWhenOverwriting) {
    show(Page::Name, 1, 15);
    put("ab");
    EXPECT_EQ(world.cursor().column, 15);
    EXPECT_EQ(world.rows().cell(1, 15), 'b');
    show(Page::Messages, 2, 30);
    put("abc");
    EXPECT_EQ(world.cursor().column, 31);
    EXPECT_EQ(world.rows().cell(2, 30), 'a');
    EXPECT_EQ(world.rows().cell(2, 31), 'c');
    EXPECT_TRUE(world.isShownLikeDocument());
}

TEST_F(Editing, InsertsBeforeTheGlyphInsertedLast) {
    world.modes.insert = true;
    put("ab");
    EXPECT_EQ(world.text(1), "ba");
    EXPECT_EQ(world.cursor().column, 1);
}

TEST_F(Editing, LosesTheLastGlyphWhenInserting) {
    world.modes.insert = true;
    world.setRow(1, "ABC           Z");
    put("X");
    EXPECT_EQ(world.row(1), "XABC           ");
    EXPECT_EQ(world.cursor().column, 1);
    put("Y");
    EXPECT_EQ(world.text(1), "YXABC");
    EXPECT_TRUE(world.isShownLikeDocument());
}

TEST_F(Editing, InsertsIntoTheRowOfTheCursorOnly) {
    world.modes.insert = true;
    world.page = Page::Messages;
    world.setRow(1, std::string(31, 'a'));
    world.setRow(2, std::string(31, 'b'));
    world.setRow(3, std::string(31, 'c'));
    show(Page::Messages, 2, 20);
    put("X");
    EXPECT_EQ(world.row(1), std::string(31, 'a'));
    EXPECT_EQ(world.row(2), std::string(19, 'b') + "X" + std::string(11, 'b'));
    EXPECT_EQ(world.row(3), std::string(31, 'c'));
    EXPECT_TRUE(world.isShownLikeDocument());
}

TEST_F(Editing, ReplacesTheLastCellWhenInsertingThere) {
    world.modes.insert = true;
    world.setRow(1, "ABCDEFGHIJKLMNO");
    show(Page::Name, 1, 15);
    put("XY");
    EXPECT_EQ(world.row(1), "ABCDEFGHIJKLMNY");
    EXPECT_EQ(world.cursor().column, 15);
    EXPECT_TRUE(world.isShownLikeDocument());
}

TEST_F(Editing, PlacesSeveralGlyphsAndMovesOnBehindThem) {
    world.setRow(1, "ABCDEFGHIJKLMNO");
    show(Page::Name, 1, 3);
    paste("xyz");
    EXPECT_EQ(world.row(1), "ABxyzFGHIJKLMNO");
    EXPECT_EQ(world.cursor().column, 6);
    show(Page::Name, 1, 13);
    EXPECT_EQ(RoomFrom(world.cursor()), 3U);
    paste("12345");
    EXPECT_EQ(world.row(1), "ABxyzFGHIJKL123");
    EXPECT_EQ(world.cursor().column, 15);
    paste("");
    EXPECT_EQ(world.row(1), "ABxyzFGHIJKL123");
    EXPECT_TRUE(world.isShownLikeDocument());
}

TEST_F(Editing, InsertsSeveralGlyphsInTheirOrderAndStaysBeforeThem) {
    world.modes.insert = true;
    world.modes.typingColour = true;
    world.page = Page::Messages;
    world.setRow(2, "hello world");
    show(Page::Messages, 2, 7);
    paste("my ");
    EXPECT_EQ(world.text(2), "hello \xED\xF9 world");
    EXPECT_EQ(world.cursor().column, 7);
    paste(std::string(40, 'x'));
    EXPECT_EQ(world.row(2), "hello " + std::string(25, '\xF8'));
    EXPECT_EQ(world.cursor().column, 7);
    EXPECT_TRUE(world.isShownLikeDocument());
}

TEST_F(Editing, ClosesTheRowUpWhenAGlyphIsRemoved) {
    world.setRow(1, "XABC");
    remove();
    EXPECT_EQ(world.row(1), "ABC            ");
    EXPECT_EQ(world.cursor().column, 1);
    world.setRow(1, "ABCDEFGHIJKLMNO");
    show(Page::Name, 1, 5);
    remove();
    EXPECT_EQ(world.row(1), "ABCDFGHIJKLMNO ");
    EXPECT_EQ(world.cursor().column, 5);
    show(Page::Name, 1, 15);
    world.setRow(1, "ABCDEFGHIJKLMNO");
    remove();
    EXPECT_EQ(world.row(1), "ABCDEFGHIJKLMN ");
    EXPECT_TRUE(world.isShownLikeDocument());
}

TEST_F(Editing, PlacesGlyphsInColour2WhenThatIsOn) {
    world.modes.typingColour = true;
    put("A ");
    EXPECT_EQ(world.rows().cell(1, 1), 193);
    EXPECT_EQ(world.rows().cell(1, 2), 32);
    world.put(200);
    EXPECT_EQ(world.rows().cell(1, 3), 200);
    EXPECT_TRUE(world.isShownLikeDocument());
}

TEST_F(Editing, PlacesTypedGlyphsThatCouldNotBePicked) {
    put("\"~");
    EXPECT_EQ(world.text(1), "\"~");
}

TEST_F(Editing, DoesNothingAtAllForGlyphZero) {
    world.setRow(1, "ABC");
    EXPECT_EQ(PutGlyph(world.cursor(), world.modes, 0), Change());
    world.modes.insert = true;
    EXPECT_EQ(PutGlyph(world.cursor(), world.modes, 0), Change());
    EXPECT_EQ(world.text(1), "ABC");
    EXPECT_EQ(world.cursor().column, 1);
    EXPECT_EQ(damage(), CellBlock());
}

TEST_F(Editing, IsHeardForEachGlyphPlaced) {
    put("ab");
    remove();
    EXPECT_EQ(world.shown.kinds, (std::vector(2, Change::Kind::PlacedGlyph)));
}

TEST_F(Editing, DamagesOneCellWhenOverwriting) {
    show(Page::Messages, 3, 7);
    put("a");
    EXPECT_EQ(damage(), Cell(3, 7));
    show(Page::Messages, 3, 31);
    put("a");
    EXPECT_EQ(damage(), Cell(3, 31));
}

TEST_F(Editing, DamagesTheRestOfTheRowWhenItMoves) {
    for (const Page page : AllPages) {
        const int width = page == Page::Messages ? 31 : 15;
        const int row = page == Page::Name ? 1 : 3;
        for (int column = 1; column <= width; ++column) {
            show(page, row, column);
            world.modes.insert = true;
            put("a");
            EXPECT_EQ(damage(), Strip(row, column, width));
            remove();
            EXPECT_EQ(damage(), Strip(row, column, width));
        }
    }
}

TEST_F(Editing, LeavesTheOtherPagesAlone) {
    show(Page::Animation, 4, 2);
    put("abc");
    EXPECT_EQ(damage(), (CellBlock{2, 4, 3, 1}));
    EXPECT_EQ(world.shown.takeDamage(Page::Name), CellBlock());
    EXPECT_EQ(world.shown.takeDamage(Page::Messages), CellBlock());
    EXPECT_EQ(world.documents.name.cells, NameDocument().cells);
    EXPECT_EQ(world.documents.messages.cells, MessageDocument().cells);
}

TEST_F(Editing, TellsOfAllThatItChangesWhateverIsDone) {
    std::mt19937 random(19961996);
    const auto upTo = [&random](int last) {
        return static_cast<int>(random() % static_cast<unsigned>(last)) + 1;
    };
    world.documents.animation.nameCount = 22;
    EditClipboard clipboard;
    for (int step = 0; step < 6000; ++step) {
        world.page = AllPages[random() % AllPages.size()];
        PageCursor cursor = world.cursor();
        switch (random() % 13) {
        case 0:
            cursor.column = upTo(cursor.rows.width());
            cursor.row = upTo(cursor.rowsInUse);
            break;
        case 1:
            world.modes.insert = !world.modes.insert;
            break;
        case 2:
            world.modes.typingColour = !world.modes.typingColour;
            break;
        case 3:
        case 4:
            remove();
            break;
        case 5:
            world.show(NavigateKey(world.cursor(), KeyBackspace));
            break;
        case 6:
            world.show(NavigateKey(world.cursor(), KeyEnter));
            break;
        case 7:
            world.show(CutRow(world.cursor(), clipboard));
            break;
        case 8:
            world.show(PasteRow(world.cursor(), clipboard));
            break;
        case 9:
            paste(std::string(random() % 20, 'x'));
            break;
        default:
            world.put(static_cast<GlyphCode>(random() % 256));
        }
        if (step % 40 == 0) {
            for (const Page page : AllPages) {
                world.page = page;
                ASSERT_TRUE(world.isShownLikeDocument()) << step;
            }
        }
    }
}

/// Presses of the mouse on the page pictures.
class PlacingTheCursor : public Editing {
protected:
    [[nodiscard]] std::pair<int, int> placed(Page page, int x, int y) {
        world.page = page;
        PageCursor cursor = world.cursor();
        PlaceCursor(cursor, x, y);
        return {cursor.row, cursor.column};
    }
};

using Position = std::pair<int, int>;

TEST_F(PlacingTheCursor, FindsTheCellUnderThePixel) {
    EXPECT_EQ(placed(Page::Name, 0, 0), Position(1, 1));
    EXPECT_EQ(placed(Page::Name, 15, 15), Position(1, 1));
    EXPECT_EQ(placed(Page::Name, 16, 0), Position(1, 2));
    EXPECT_EQ(placed(Page::Name, 239, 15), Position(1, 15));
    EXPECT_EQ(placed(Page::Animation, 100, 40), Position(3, 7));
    EXPECT_EQ(placed(Page::Messages, 495, 47), Position(3, 31));
    EXPECT_EQ(placed(Page::Messages, 479, 31), Position(2, 30));
}

TEST_F(PlacingTheCursor, StopsAtTheLastColumnAndTheRowsInUse) {
    EXPECT_EQ(placed(Page::Name, 240, 99), Position(1, 15));
    EXPECT_EQ(placed(Page::Messages, 9999, 9999), Position(3, 31));
    EXPECT_EQ(placed(Page::Animation, 500, 15 * 16), Position(15, 15));
    world.documents.animation.nameCount = 40;
    EXPECT_EQ(placed(Page::Animation, 0, 39 * 16), Position(40, 1));
    EXPECT_EQ(placed(Page::Animation, 0, 60 * 16), Position(40, 1));
}

TEST_F(PlacingTheCursor, TakesTheFirstCellLeftOfAndAboveThePicture) {
    for (const Page page : AllPages) {
        EXPECT_EQ(placed(page, -1, -1), Position(1, 1));
        EXPECT_EQ(placed(page, -500, -500), Position(1, 1));
    }
}

TEST_F(PlacingTheCursor, MovesTheDocumentsCursor) {
    EXPECT_EQ(placed(Page::Animation, 16 * 4, 16 * 8), Position(9, 5));
    EXPECT_EQ(world.documents.animation.currentName, 9);
    EXPECT_EQ(world.documents.animation.cursorPos, 5);
}

} // namespace

} // namespace editing
