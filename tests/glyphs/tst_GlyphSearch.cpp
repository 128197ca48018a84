// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/GlyphSearch.h"

#include "glyphs/GlyphWords.h"

#include <algorithm>
#include <gtest/gtest.h>

using glyphs::FindGlyphs;
using glyphs::GlyphCode;
using Codes = std::vector<GlyphCode>;

namespace {

TEST(GlyphSearch, FindsAGlyphByItsNumber) {
    EXPECT_EQ(FindGlyphs("29"), Codes{29});
    EXPECT_EQ(FindGlyphs(" 255 "), Codes{255});
    EXPECT_EQ(FindGlyphs("256"), Codes{});
    EXPECT_EQ(FindGlyphs("99999999999999"), Codes{});
}

TEST(GlyphSearch, FindsACharacterInBothColours) {
    EXPECT_EQ(FindGlyphs("g"), (Codes{'g', 'g' + 128}));
    EXPECT_EQ(FindGlyphs("G"), (Codes{'G', 'G' + 128}));
    EXPECT_EQ(FindGlyphs(" { "), (Codes{'{', '{' + 128}));
}

TEST(GlyphSearch, TakesADigitForAllThatItMayMean) {
    EXPECT_EQ(FindGlyphs("7"), (Codes{7, 25, '7', 153, '7' + 128}));
}

TEST(GlyphSearch, FindsByBeginningsOfWordsInAnyOrder) {
    EXPECT_EQ(FindGlyphs("bracket orn"), (Codes{16, 17, 144, 145}));
    EXPECT_EQ(FindGlyphs("GOLD second 3"), Codes{149});
    EXPECT_EQ(FindGlyphs("capital q"), (Codes{'Q', 'Q' + 128}));
    EXPECT_EQ(FindGlyphs("heart"), Codes{});
}

TEST(GlyphSearch, KnowsOtherNamesOfSigns) {
    EXPECT_EQ(FindGlyphs("hash"), (Codes{'#', '#' + 128}));
    EXPECT_EQ(FindGlyphs("star"), (Codes{'*', '*' + 128}));
    EXPECT_EQ(FindGlyphs("pipe"), (Codes{'|', '|' + 128}));
    EXPECT_EQ(FindGlyphs("yellow digit 4"), (Codes{22, 150}));
    for (const char* const word :
         {"ball", "bar", "box", "caret", "circle", "cursor", "dash", "dot", "hyphen", "line", "number",
          "paren", "period", "point", "pound", "quote", "space", "square", "triangle"}) {
        EXPECT_FALSE(FindGlyphs(word).empty()) << word;
    }
}

TEST(GlyphSearch, FindsAPastedCharacterByItsLooks) {
    const auto found = [](std::u32string_view text) {
        std::vector<ui::TextCharacter> characters;
        for (const char32_t code : text) {
            characters.push_back({code, std::u32string(1, code)});
        }
        return FindGlyphs(characters);
    };
    EXPECT_EQ(found(U"\u2588"), (Codes{11, 139})) << "the full block";
    EXPECT_EQ(found(U"\u4E2D"), Codes{}) << "nothing looks like that";
    EXPECT_EQ(found(U"gold 7"), (Codes{25, 153}));
    EXPECT_EQ(found(U""), Codes{});
}

TEST(GlyphSearch, FindsNothingForNothing) {
    EXPECT_EQ(FindGlyphs(""), Codes{});
    EXPECT_EQ(FindGlyphs(" \t"), Codes{});
}

TEST(GlyphSearch, FindsEveryGlyphByItsOwnDescription) {
    for (GlyphCode code = 0; code < glyphs::GlyphCount; ++code) {
        const std::string words = glyphs::GlyphWords(code);
        EXPECT_EQ(std::ranges::count(FindGlyphs(words), code), 1) << words;
    }
}

} // namespace
