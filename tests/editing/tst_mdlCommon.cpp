// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/mdlCommon.h"

#include "EditWorld.h"
#include "editing/mdlArray.h"
#include "editing/mdlKey.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace editing {

namespace {

constexpr std::array<Page, 3> AllPages{Page::Name, Page::Animation, Page::Messages};

/// The cells of a row from `column` to its end, as pixels of the page's picture.
ui::Rect Strip(int row, int column, int width) {
    return {(column - 1) * 16, (row - 1) * 16, (width - column + 1) * 16, 16};
}

ui::Rect Cell(int row, int column) {
    return {(column - 1) * 16, (row - 1) * 16, 16, 16};
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

TEST(NewAnimation, BlanksEveryRowAndLeavesTheCursor) {
    AnimationDocument animation;
    animation.nameGlyphs.fill(65);
    animation.nameTicks.fill(9);
    animation.nameCount = 40;
    animation.currentName = 30;
    animation.cursorPos = 5;
    NewAnimation(animation);
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

TEST(ClearName, BlanksTheCellsAndLeavesTheCursor) {
    NameDocument name;
    name.cells.fill(65);
    name.cursorPos = 5;
    ClearName(name);
    EXPECT_EQ(std::count(name.cells.begin(), name.cells.end(), 32), 15);
    EXPECT_EQ(name.cursorPos, 5);
}

TEST(ClearMessages, BlanksTheCellsAndLeavesTheCursor) {
    MessageDocument messages;
    messages.cells.fill(65);
    messages.cursorPos = 30;
    messages.currentMessage = 3;
    ClearMessages(messages);
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
            EXPECT_TRUE(PutGlyph(world.context(), static_cast<unsigned char>(character)));
        }
    }

    void remove() { DeleteGlyph(world.context()); }

    [[nodiscard]] ui::Rect damage() { return world.pictures.of(world.page).takeDamage(); }

    EditWorld world;
};

TEST_F(Editing, OverwritesAndMovesOn) {
    put("abc");
    EXPECT_EQ(world.text(1), "abc");
    EXPECT_EQ(world.cursor().column, 4);
    show(Page::Name, 1, 2);
    put("X");
    EXPECT_EQ(world.text(1), "aXc");
    EXPECT_EQ(world.cursor().column, 3);
    EXPECT_TRUE(world.isPaintedLikeDocument());
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
    EXPECT_TRUE(world.isPaintedLikeDocument());
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
    EXPECT_TRUE(world.isPaintedLikeDocument());
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
    EXPECT_TRUE(world.isPaintedLikeDocument());
}

TEST_F(Editing, ReplacesTheLastCellWhenInsertingThere) {
    world.modes.insert = true;
    world.setRow(1, "ABCDEFGHIJKLMNO");
    show(Page::Name, 1, 15);
    put("XY");
    EXPECT_EQ(world.row(1), "ABCDEFGHIJKLMNY");
    EXPECT_EQ(world.cursor().column, 15);
    EXPECT_TRUE(world.isPaintedLikeDocument());
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
    EXPECT_TRUE(world.isPaintedLikeDocument());
}

TEST_F(Editing, PlacesGlyphsInColour2WhenThatIsOn) {
    world.modes.typingColour = true;
    put("A ");
    EXPECT_EQ(world.rows().cell(1, 1), 193);
    EXPECT_EQ(world.rows().cell(1, 2), 32);
    PutGlyph(world.context(), 200);
    EXPECT_EQ(world.rows().cell(1, 3), 200);
    EXPECT_TRUE(world.isPaintedLikeDocument());
}

TEST_F(Editing, PlacesTypedGlyphsThatCouldNotBePicked) {
    put("\"~");
    EXPECT_EQ(world.text(1), "\"~");
}

TEST_F(Editing, DoesNothingAtAllForGlyphZero) {
    world.setRow(1, "ABC");
    EXPECT_FALSE(PutGlyph(world.context(), 0));
    world.modes.insert = true;
    EXPECT_FALSE(PutGlyph(world.context(), 0));
    EXPECT_EQ(world.text(1), "ABC");
    EXPECT_EQ(world.cursor().column, 1);
    EXPECT_TRUE(world.sounds.waves.empty());
    EXPECT_TRUE(damage().empty());
}

TEST_F(Editing, PlaysItsSoundForEachGlyphPlaced) {
    put("ab");
    remove();
    EXPECT_EQ(world.soundNumbers(), (std::vector<int>{101, 101}));
}

TEST_F(Editing, IsSilentWhenItsSoundIsOffWhileWholePagesAreNot) {
    world.soundOptions[0] = false;
    put("a");
    EXPECT_TRUE(world.soundNumbers().empty());
    glyphs::Progress progress([](int) {});
    PaintNamePage(world.context(), progress);
    EXPECT_EQ(world.soundNumbers(), (std::vector<int>{104}));
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
    EXPECT_FALSE(damage().empty());
    EXPECT_TRUE(world.pictures.name.takeDamage().empty());
    EXPECT_TRUE(world.pictures.messages.takeDamage().empty());
    EXPECT_EQ(world.documents.name.cells, NameDocument().cells);
    EXPECT_EQ(world.documents.messages.cells, MessageDocument().cells);
}

TEST_F(Editing, KeepsThePictureLikeTheDocumentWhateverIsDone) {
    std::mt19937 random(19961996);
    const auto upTo = [&random](int last) {
        return static_cast<int>(random() % static_cast<unsigned>(last)) + 1;
    };
    world.documents.animation.nameCount = 22;
    PaintRowsInUse(world.context(), Page::Animation);
    glyphs::Progress progress([](int) {});
    EditClipboard clipboard;
    for (int step = 0; step < 6000; ++step) {
        world.page = AllPages[random() % AllPages.size()];
        PageCursor cursor = world.cursor();
        switch (random() % 12) {
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
            NavigateKey(world.context(), KeyBackspace);
            break;
        case 6:
            NavigateKey(world.context(), KeyEnter);
            break;
        case 7:
            CutRow(world.context(), clipboard);
            break;
        case 8:
            PasteRow(world.context(), clipboard);
            break;
        default:
            PutGlyph(world.context(), static_cast<GlyphCode>(random() % 256));
        }
        if (step % 40 == 0) {
            for (const Page page : AllPages) {
                world.page = page;
                ASSERT_TRUE(world.isPaintedLikeDocument()) << step;
            }
        }
    }
}

TEST_F(Editing, DamagesEveryPixelThatChanges) {
    std::mt19937 random(42);
    for (int step = 0; step < 1500; ++step) {
        world.page = AllPages[random() % AllPages.size()];
        PageCursor cursor = world.cursor();
        cursor.column = static_cast<int>(random() % static_cast<unsigned>(cursor.rows.width())) + 1;
        world.modes.insert = random() % 2 == 0;
        const ui::Picture before = world.pictures.of(world.page).pixels();
        if (random() % 3 == 0) {
            remove();
        } else {
            PutGlyph(world.context(), static_cast<GlyphCode>(random() % 256));
        }
        // What lies outside the damage is what was shown before.
        ui::Picture outside = world.pictures.of(world.page).pixels();
        ui::Picture expected = before;
        const ui::Rect damaged = damage();
        outside.fill(damaged, 0);
        expected.fill(damaged, 0);
        ASSERT_EQ(outside, expected) << step;
        ASSERT_LE(damaged.height, 16);
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

/// Whole pages painted from their documents.
class PagePainting : public Editing {
protected:
    glyphs::Progress progress{[this](int percentage) {
        shown.push_back(percentage);
    }};
    std::vector<int> shown;
};

TEST_F(PagePainting, PlaysItsSoundShowsItsProgressAndPaintsEveryCell) {
    const auto check = [this](Page page, auto paint) {
        SCOPED_TRACE(static_cast<int>(page));
        world.page = page;
        for (int row = 1; row <= world.rows().count(); ++row) {
            for (int column = 1; column <= world.rows().width(); ++column) {
                world.rows().cell(row, column) = static_cast<GlyphCode>((row * 31 + column) % 256);
            }
        }
        shown.clear();
        world.sounds.waves.clear();
        paint(world.context(), progress);
        EXPECT_TRUE(world.isPaintedLikeDocument());
        EXPECT_EQ(damage(), world.pictures.of(page).pixels().bounds());
        EXPECT_EQ(world.soundNumbers(), (std::vector<int>{104}));
        EXPECT_EQ(shown, (std::vector<int>{10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 0}));
    };
    check(Page::Name, PaintNamePage);
    check(Page::Animation, PaintAnimationPage);
    world.documents.animation.nameCount = 90;
    check(Page::Animation, PaintAnimationPage);
    check(Page::Messages, PaintMessagePage);
}

TEST_F(PagePainting, IsSilentForARowAndForTheFirstShowing) {
    world.page = Page::Messages;
    world.rows().cell(2, 31) = 65;
    PaintRow(world.context(), Page::Messages, 2);
    EXPECT_TRUE(world.isPaintedLikeDocument());
    EXPECT_EQ(damage(), Strip(2, 1, 31));
    world.rows().cell(3, 1) = 66;
    PaintRowsInUse(world.context(), Page::Messages);
    EXPECT_TRUE(world.isPaintedLikeDocument());
    EXPECT_EQ(damage(), ui::Rect({0, 0, 496, 48}));
    EXPECT_TRUE(world.sounds.waves.empty());
    EXPECT_TRUE(shown.empty());
}

} // namespace

} // namespace editing
