// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/mdlPick.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace editing {

namespace {

using Three = std::array<GlyphCode, 3>;

void PutText(GlyphRows rows, int row, std::string_view text) {
    std::copy(text.begin(), text.end(), rows.row(row).begin());
}

TEST(FrequentGlyphs, AreNoneInBlankDocuments) {
    const Documents documents;
    EXPECT_EQ(FrequentGlyphs(documents), (Three{0, 0, 0}));
}

TEST(FrequentGlyphs, StandInTheOrderOfTheirNumber) {
    Documents documents;
    PutText(documents.name.rows(), 1, "aab");
    EXPECT_EQ(FrequentGlyphs(documents), (Three{'a', 'b', 0}));
    PutText(documents.name.rows(), 1, "xyxyxyzzbb");
    EXPECT_EQ(FrequentGlyphs(documents), (Three{'x', 'y', 'b'}));
}

TEST(FrequentGlyphs, PutTheLowerCodeFirstWhenTheyTie) {
    Documents documents;
    PutText(documents.name.rows(), 1, "dcba");
    EXPECT_EQ(FrequentGlyphs(documents), (Three{'a', 'b', 'c'}));
}

TEST(FrequentGlyphs, CountAllThreeMessages) {
    Documents documents;
    PutText(documents.name.rows(), 1, "ab");
    PutText(documents.messages.rows(), 1, "c");
    PutText(documents.messages.rows(), 2, "cc");
    PutText(documents.messages.rows(), 3, "                           bbbb");
    EXPECT_EQ(FrequentGlyphs(documents), (Three{'b', 'c', 'a'}));
}

TEST(FrequentGlyphs, CountTheNamesInUseOnly) {
    Documents documents;
    PutText(documents.name.rows(), 1, "a");
    PutText(documents.animation.rows(), 15, "bb");
    PutText(documents.animation.rows(), 16, "ccc");
    EXPECT_EQ(FrequentGlyphs(documents), (Three{'b', 'a', 0}));
    documents.animation.nameCount = 16;
    EXPECT_EQ(FrequentGlyphs(documents), (Three{'c', 'b', 'a'}));
}

TEST(FrequentGlyphs, TakeBothColoursForDifferentGlyphs) {
    Documents documents;
    documents.name.cells[0] = 193;
    documents.name.cells[1] = 255;
    documents.name.cells[2] = 255;
    documents.name.cells[3] = 65;
    EXPECT_EQ(FrequentGlyphs(documents), (Three{255, 65, 193}));
}

TEST(FrequentGlyphs, CountGlyphZeroLikeAnyOther) {
    Documents documents;
    documents.name.cells[0] = 0;
    documents.name.cells[1] = 0;
    documents.messages.cells[0] = 160;
    EXPECT_EQ(FrequentGlyphs(documents), (Three{0, 160, 0}));
}

TEST(PickedAt, IsTheGlyphUnderThePixel) {
    EXPECT_EQ(PickedAt(5, 16, 0), 1);
    EXPECT_EQ(PickedAt(5, 31, 15), 1);
    EXPECT_EQ(PickedAt(5, 32, 16), 18);
    EXPECT_EQ(PickedAt(5, 0, 255), 240);
    EXPECT_EQ(PickedAt(5, 255, 0), 15);
}

TEST(PickedAt, StaysOnRefusedGlyphsAndOutsideTheGrid) {
    for (const int code : {0, 34, 126, 127, 162, 254, 255}) {
        EXPECT_EQ(PickedAt(5, code % 16 * 16, code / 16 * 16), 5) << code;
    }
    EXPECT_EQ(PickedAt(5, -1, 16), 5);
    EXPECT_EQ(PickedAt(5, 16, -1), 5);
    EXPECT_EQ(PickedAt(5, 256, 16), 5);
    EXPECT_EQ(PickedAt(5, 16, 256), 5);
    EXPECT_EQ(PickedAt(0, 0, 0), 0);
}

TEST(PickedAt, TakesTheOtherArrowHeadForTheCarriageReturn) {
    EXPECT_EQ(PickedAt(5, 13 * 16, 0), 141);
}

TEST(PickedTowards, GoesToTheNeighbour) {
    EXPECT_EQ(PickedTowards(100, 1, 0), 101);
    EXPECT_EQ(PickedTowards(100, -1, 0), 99);
    EXPECT_EQ(PickedTowards(100, 0, 1), 116);
    EXPECT_EQ(PickedTowards(100, 0, -1), 84);
}

TEST(PickedTowards, PassesOverGlyphsThatMayNotBePicked) {
    EXPECT_EQ(PickedTowards(33, 1, 0), 35);
    EXPECT_EQ(PickedTowards(18, 0, 1), 50);
    EXPECT_EQ(PickedTowards(12, 1, 0), 14);
    EXPECT_EQ(PickedTowards(29, 0, -1), 29);
}

TEST(PickedTowards, StaysAtTheEdges) {
    EXPECT_EQ(PickedTowards(1, -1, 0), 1);
    EXPECT_EQ(PickedTowards(15, 1, 0), 15);
    EXPECT_EQ(PickedTowards(125, 1, 0), 125);
    EXPECT_EQ(PickedTowards(16, 0, -1), 16);
    EXPECT_EQ(PickedTowards(240, 0, 1), 240);
    EXPECT_EQ(PickedTowards(253, 1, 0), 253);
}

TEST(PickedTowards, BeginsAtTheFirstGlyphThatMayBePicked) {
    EXPECT_EQ(PickedTowards(0, 1, 0), 1);
    EXPECT_EQ(PickedTowards(0, 0, -1), 1);
}

} // namespace

} // namespace editing
