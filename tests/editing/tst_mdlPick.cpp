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

void Fill(GlyphRows rows, int row, std::string_view text) {
    std::copy(text.begin(), text.end(), rows.row(row).begin());
}

TEST(FrequentGlyphs, AreNoneInBlankDocuments) {
    const Documents documents;
    EXPECT_EQ(FrequentGlyphs(documents), (Three{0, 0, 0}));
}

TEST(FrequentGlyphs, StandInTheOrderOfTheirNumber) {
    Documents documents;
    Fill(documents.name.rows(), 1, "aab");
    EXPECT_EQ(FrequentGlyphs(documents), (Three{'a', 'b', 0}));
    Fill(documents.name.rows(), 1, "xyxyxyzzbb");
    EXPECT_EQ(FrequentGlyphs(documents), (Three{'x', 'y', 'b'}));
}

TEST(FrequentGlyphs, PutTheLowerCodeFirstWhenTheyTie) {
    Documents documents;
    Fill(documents.name.rows(), 1, "dcba");
    EXPECT_EQ(FrequentGlyphs(documents), (Three{'a', 'b', 'c'}));
}

TEST(FrequentGlyphs, CountAllThreeMessages) {
    Documents documents;
    Fill(documents.name.rows(), 1, "ab");
    Fill(documents.messages.rows(), 1, "c");
    Fill(documents.messages.rows(), 2, "cc");
    Fill(documents.messages.rows(), 3, "                           bbbb");
    EXPECT_EQ(FrequentGlyphs(documents), (Three{'b', 'c', 'a'}));
}

TEST(FrequentGlyphs, CountTheNamesInUseOnly) {
    Documents documents;
    Fill(documents.name.rows(), 1, "a");
    Fill(documents.animation.rows(), 15, "bb");
    Fill(documents.animation.rows(), 16, "ccc");
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

} // namespace

} // namespace editing
