// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/GlyphWords.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <set>
#include <string_view>

using glyphs::GlyphCode;
using glyphs::GlyphName;
using glyphs::GlyphWords;
using glyphs::OtherColourOf;
using glyphs::ReadableRow;

namespace {

/// A row that holds these codes.
std::string readAloud(std::initializer_list<int> codes) {
    std::array<GlyphCode, 15> row{};
    row.fill(glyphs::BlankGlyph);
    std::ranges::transform(codes, row.begin(), [](int code) { return static_cast<GlyphCode>(code); });
    return ReadableRow(row);
}

TEST(GlyphWords, EveryGlyphHasItsOwnNameInPlainWords) {
    std::set<std::string> names;
    for (int code = 0; code < glyphs::GlyphCount; ++code) {
        const std::string name = GlyphName(static_cast<GlyphCode>(code));
        EXPECT_FALSE(name.empty()) << code;
        EXPECT_TRUE(std::ranges::all_of(name, [](char c) { return c >= ' ' && c <= '~'; })) << code;
        EXPECT_EQ(name.find("  "), std::string::npos) << name;
        EXPECT_FALSE(name.ends_with(", ")) << name;
        if (code != glyphs::BlankGlyph) {
            EXPECT_TRUE(name.starts_with("code " + std::to_string(code) + ", ")) << name;
        }
        names.insert(name);
    }
    EXPECT_EQ(names.size(), 256U);
}

TEST(GlyphWords, NamesLettersByTheirCharacter) {
    EXPECT_EQ(GlyphName('a'), "code 97, a");
    EXPECT_EQ(GlyphName('A'), "code 65, capital A");
    EXPECT_EQ(GlyphName('7'), "code 55, 7");
    EXPECT_EQ(GlyphName(225), "code 225, a, second color");
    EXPECT_EQ(GlyphName(193), "code 193, capital A, second color");
}

TEST(GlyphWords, NamesSignsThatAVoicePassesOver) {
    EXPECT_EQ(GlyphName(','), "code 44, comma");
    EXPECT_EQ(GlyphName('"'), "code 34, double quote");
    EXPECT_EQ(GlyphName('['), "code 91, left square bracket");
    EXPECT_EQ(GlyphName('~'), "code 126, tilde");
    EXPECT_EQ(GlyphName('.' + 128), "code 174, full stop, second color");
    for (int code = 33; code <= 126; ++code) {
        const std::string name = GlyphName(static_cast<GlyphCode>(code));
        EXPECT_TRUE(name.back() >= '0') << name << " ends with a sign";
    }
}

TEST(GlyphWords, NamesBlanks) {
    EXPECT_EQ(GlyphName(32), "blank");
    EXPECT_EQ(GlyphName(12), "code 12, blank");
    EXPECT_EQ(GlyphName(10), "code 10, blank, line feed");
    EXPECT_EQ(GlyphName(138), "code 138, blank");
    EXPECT_EQ(GlyphName(140), "code 140, blank");
    EXPECT_EQ(GlyphName(160), "code 160, blank");
}

TEST(GlyphWords, NamesOrnaments) {
    EXPECT_EQ(GlyphName(0), "code 0, small middle dot");
    EXPECT_EQ(GlyphName(1), "code 1, top left frame corner");
    EXPECT_EQ(GlyphName(5), "code 5, bullet");
    EXPECT_EQ(GlyphName(9), "code 9, lower half block");
    EXPECT_EQ(GlyphName(11), "code 11, solid block");
    EXPECT_EQ(GlyphName(13), "code 13, right arrow head, carriage return");
    EXPECT_EQ(GlyphName(16), "code 16, ornate left bracket");
    EXPECT_EQ(GlyphName(18), "code 18, gold digit 0");
    EXPECT_EQ(GlyphName(27), "code 27, gold digit 9");
    EXPECT_EQ(GlyphName(30), "code 30, ruler");
    EXPECT_EQ(GlyphName(127), "code 127, left arrow head");
    EXPECT_EQ(GlyphName(128), "code 128, left end of the slider");
    EXPECT_EQ(GlyphName(131), "code 131, slider knob");
    EXPECT_EQ(GlyphName(132), "code 132, bottom right frame corner, second color");
    EXPECT_EQ(GlyphName(139), "code 139, solid block, second color");
    EXPECT_EQ(GlyphName(141), "code 141, right arrow head, second color");
    EXPECT_EQ(GlyphName(145), "code 145, ornate right bracket, second color");
    EXPECT_EQ(GlyphName(155), "code 155, gold digit 9, second color");
    EXPECT_EQ(GlyphName(255), "code 255, left arrow head, second color");
}

TEST(GlyphWords, SaysWhatAGlyphShowsWithoutItsNumber) {
    EXPECT_EQ(GlyphWords('a'), "a");
    EXPECT_EQ(GlyphWords(32), "blank");
    EXPECT_EQ(GlyphWords(146), "gold digit 0, second color");
}

TEST(GlyphWords, TellsAGlyphInTheOtherColour) {
    EXPECT_EQ(OtherColourOf('a'), 225);
    EXPECT_EQ(OtherColourOf(225), 'a');
    EXPECT_EQ(OtherColourOf(13), 141);
    EXPECT_EQ(OtherColourOf(144), 16);
    for (const int code : {0, 3, 10, 12, 32, 128, 131, 138, 140, 160}) {
        EXPECT_FALSE(OtherColourOf(static_cast<GlyphCode>(code)).has_value()) << code;
    }
    for (int code = 0; code < glyphs::GlyphCount; ++code) {
        if (const auto other = OtherColourOf(static_cast<GlyphCode>(code))) {
            EXPECT_EQ(OtherColourOf(*other), code);
        }
    }
}

TEST(GlyphWords, ReadsARowWhateverItsColours) {
    EXPECT_EQ(readAloud({16, 'C' + 128, 'l', 225, 'n', 145}), "[Clan]");
    EXPECT_EQ(readAloud({18, 27, 146, 155}), "0909");
    EXPECT_EQ(readAloud({29, 30, 31, 128, 129, 131, 130}), "<=>(=+)");
    EXPECT_EQ(readAloud({' ', 'a', 160, 'b'}), " a b");
    EXPECT_EQ(readAloud({1, 5, 11, 13, 127}), "#.#><");
}

TEST(GlyphWords, ReadsAnEmptyRowAsBlank) {
    EXPECT_EQ(readAloud({}), "blank");
    EXPECT_EQ(readAloud({32, 160, 10}), "blank");
    EXPECT_EQ(ReadableRow({}), "blank");
}

} // namespace
