// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/PagePainter.h"

#include "EditWorld.h"
#include "editing/mdlKey.h"
#include "support/FakePlatform.h"
#include "support/PaintedPages.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace editing {

namespace {

/// Pages that are painted for real, from documents in which few cells are alike.
class Painting : public testing::Test {
protected:
    Painting() {
        documents.animation.nameCount = 20;
        for (const Page page : AllPages) {
            const GlyphRows rows = CursorOf(documents, page).rows;
            for (int row = 1; row <= rows.count(); ++row) {
                for (int column = 1; column <= rows.width(); ++column) {
                    rows.cell(row, column) = static_cast<GlyphCode>((row * 31 + column) % 256);
                }
            }
            PaintRowsFrom(painter, page, 1);
            pictures.of(page).takeDamage();
        }
        shown.showAll();
    }

    void show(const Change& change) {
        ShowChange(painter, change);
        shown.follow(change);
    }

    /// Whether a picture shows exactly the rows in use of what was followed.
    [[nodiscard]] bool isPaintedAsFollowed(Page page) {
        Documents followed = shown.shown();
        followed.animation.nameCount = documents.animation.nameCount;
        PagePictures fresh;
        const PagePainter other{followed, atlas, fresh, sounds, soundOptions, progress};
        PaintRowsFrom(other, page, 1);
        const int height = CursorOf(documents, page).rowsInUse * glyphs::CellSide;
        return support::TopOf(pictures.of(page).pixels(), height) ==
               support::TopOf(fresh.of(page).pixels(), height);
    }

    /// The pixels of a block of cells.
    static ui::Rect pixels(const CellBlock& block) {
        return {(block.column - 1) * 16, (block.row - 1) * 16, block.columns * 16, block.rows * 16};
    }

    [[nodiscard]] std::vector<int> takeSounds() {
        std::vector<int> numbers;
        for (const std::string& wave : sounds.waves) {
            for (int number = glyphs::GlyphPlacedSound; number <= glyphs::PagePaintedSound; ++number) {
                if (wave == glyphs::SoundWave(number)) {
                    numbers.push_back(number);
                }
            }
        }
        sounds.waves.clear();
        return numbers;
    }

    Documents documents;
    glyphs::GlyphAtlas atlas = glyphs::BuildAtlas(DistinctArtwork(), ui::OpaqueBlack);
    PagePictures pictures;
    support::FakeSounds sounds;
    glyphs::SoundOptions soundOptions{true, true, true, true};
    std::vector<int> percentages;
    glyphs::Progress progress{[this](int percentage) {
        percentages.push_back(percentage);
    }};
    PagePainter painter{documents, atlas, pictures, sounds, soundOptions, progress};
    support::FollowedPages shown{documents};
};

using Kind = Change::Kind;

TEST_F(Painting, FollowsEveryKindOfChangePixelForPixelAndDamagesOneRectangle) {
    struct Case {
        const char* what;
        Change change;
    };

    const std::vector<Case> cases{
        {"a cell", {.page = Page::Messages, .changed = {31, 3, 1, 1}}},
        {"a row", {.page = Page::Animation, .changed = {1, 7, 15, 1}}},
        {"two rows", {.page = Page::Animation, .changed = {1, 19, 15, 2}}},
        {"a placed glyph", {.kind = Kind::PlacedGlyph, .changed = {4, 1, 1, 1}}},
        {"cells to the right",
         {.page = Page::Messages, .moved = {5, 2, 26, 1}, .byColumns = 1, .changed = {5, 2, 1, 1}}},
        {"cells to the left",
         {.page = Page::Messages, .moved = {6, 2, 26, 1}, .byColumns = -1, .changed = {31, 2, 1, 1}}},
        {"no cells to the left", {.moved = {16, 1, 0, 1}, .byColumns = -1, .changed = {15, 1, 1, 1}}},
        {"rows downwards",
         {.page = Page::Animation, .moved = {1, 3, 15, 17}, .byRows = 1, .changed = {1, 3, 15, 1}}},
        {"rows upwards",
         {.page = Page::Animation, .moved = {1, 4, 15, 17}, .byRows = -1, .changed = {1, 20, 15, 1}}},
        {"a whole page", {.kind = Kind::WholePage, .page = Page::Animation}},
        {"a whole name", {.kind = Kind::WholePage}},
        {"nothing", {}},
    };
    for (const auto& [what, change] : cases) {
        SCOPED_TRACE(what);
        // Everything is another than what is painted, so that what is painted too much shows as well.
        for (const Page page : AllPages) {
            const GlyphRows rows = CursorOf(documents, page).rows;
            for (int row = 1; row <= rows.count(); ++row) {
                for (GlyphCode& code : rows.row(row)) {
                    code = static_cast<GlyphCode>((code + 77) % 256);
                }
            }
        }
        show(change);
        for (const Page page : AllPages) {
            EXPECT_TRUE(isPaintedAsFollowed(page));
            const CellBlock damage = shown.takeDamage(page);
            EXPECT_EQ(pictures.of(page).takeDamage(), damage == CellBlock() ? ui::Rect() : pixels(damage));
        }
    }
}

TEST_F(Painting, SoundsForAPlacedGlyphAndForAWholePageUnlessThatIsOff) {
    const Change silent{.changed = {1, 1, 15, 1}};
    const Change placed{.kind = Kind::PlacedGlyph, .changed = {1, 1, 1, 1}};
    const Change whole{.kind = Kind::WholePage};
    ShowChange(painter, silent);
    PaintRowsFrom(painter, Page::Animation, 1);
    EXPECT_TRUE(takeSounds().empty());
    EXPECT_TRUE(percentages.empty());
    ShowChange(painter, placed);
    EXPECT_EQ(takeSounds(), std::vector{101});
    EXPECT_TRUE(percentages.empty());
    ShowChange(painter, whole);
    EXPECT_EQ(takeSounds(), std::vector{104});
    soundOptions = {false, true, true, true};
    ShowChange(painter, placed);
    ShowChange(painter, whole);
    EXPECT_EQ(takeSounds(), std::vector{104});
    soundOptions = {true, true, true, false};
    ShowChange(painter, placed);
    ShowChange(painter, whole);
    EXPECT_EQ(takeSounds(), std::vector{101});
}

TEST_F(Painting, OfAWholePagePlaysItsSoundShowsItsProgressAndPaintsEveryCellInUse) {
    const auto check = [this](Page page) {
        SCOPED_TRACE(static_cast<int>(page));
        documents.animation.cursorPos = 3;
        pictures.of(page).canvas().fill(pictures.of(page).pixels().bounds(), ui::OpaqueBlack);
        percentages.clear();
        PaintPage(painter, page);
        shown.showAll();
        EXPECT_TRUE(isPaintedAsFollowed(page));
        EXPECT_EQ(pictures.of(page).takeDamage(), pictures.of(page).pixels().bounds());
        EXPECT_EQ(takeSounds(), std::vector{104});
        EXPECT_EQ(percentages, (std::vector<int>{10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 0}));
    };
    check(Page::Name);
    check(Page::Animation);
    documents.animation.nameCount = 90;
    check(Page::Animation);
    check(Page::Messages);
}

TEST_F(Painting, OfTheRowsFromOneOnLeavesTheOthers) {
    documents.animation.nameCount = 30;
    EXPECT_FALSE(isPaintedAsFollowed(Page::Animation)) << "rows out of use are not kept painted";
    PaintRowsFrom(painter, Page::Animation, 21);
    EXPECT_TRUE(isPaintedAsFollowed(Page::Animation));
    EXPECT_EQ(pictures.animation.takeDamage(), ui::Rect({0, 320, 240, 160}));
    PaintRowsFrom(painter, Page::Animation, 31);
    EXPECT_TRUE(pictures.animation.takeDamage().empty());
    PaintRowsFrom(painter, Page::Messages, 1);
    EXPECT_EQ(pictures.messages.takeDamage(), ui::Rect({0, 0, 496, 48}));
}

TEST_F(Painting, DamagesEveryPixelThatChangesWhateverIsDone) {
    std::mt19937 random(42);
    Modes modes;
    for (int step = 0; step < 1500; ++step) {
        const Page page = AllPages[random() % AllPages.size()];
        const PageCursor cursor = CursorOf(documents, page);
        cursor.column = static_cast<int>(random() % static_cast<unsigned>(cursor.rows.width())) + 1;
        modes.insert = random() % 2 == 0;
        const ui::Picture before = pictures.of(page).pixels();
        show(
            random() % 3 == 0 ? NavigateKey(cursor, KeyDelete)
                              : PutGlyph(cursor, modes, static_cast<GlyphCode>(random() % 256)));
        ASSERT_TRUE(isPaintedAsFollowed(page)) << step;
        ASSERT_TRUE(shown.isTrue(page)) << step;
        // What lies outside the damage is what was shown before.
        ui::Picture outside = pictures.of(page).pixels();
        ui::Picture expected = before;
        const ui::Rect damaged = pictures.of(page).takeDamage();
        outside.fill(damaged, 0);
        expected.fill(damaged, 0);
        ASSERT_EQ(outside, expected) << step;
        ASSERT_LE(damaged.height, 16);
    }
}

} // namespace

} // namespace editing
