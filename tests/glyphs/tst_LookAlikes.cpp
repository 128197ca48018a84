// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/LookAlikes.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <map>
#include <set>

namespace glyphs {

namespace {

using Row = std::vector<GlyphCode>;

std::vector<ui::TextCharacter> Characters(std::u32string_view text) {
    std::vector<ui::TextCharacter> characters;
    for (const char32_t code : text) {
        characters.push_back({code, std::u32string(1, code)});
    }
    return characters;
}

Row Fitted(std::u32string_view text) {
    return FitText(Characters(text)).glyphs;
}

Row GlyphsOf(std::string_view text) {
    return {text.begin(), text.end()};
}

/// The glyph of colour 1 that shows the same; the sliders have no partner.
GlyphCode Uncoloured(int code) {
    const int plain = code >= 132 ? code - 128 : code;
    return static_cast<GlyphCode>(plain);
}

} // namespace

TEST(LookAlikes, AreDifferentForGlyphsThatLookDifferent) {
    std::map<char32_t, std::set<GlyphCode>> shown;
    for (int code = 0; code < GlyphCount; ++code) {
        shown[LookAlikeOf(static_cast<GlyphCode>(code))].insert(Uncoloured(code));
    }
    EXPECT_EQ(shown.at(U' '), (std::set<GlyphCode>{10, 12, 32}));
    EXPECT_EQ(shown.at(U'╔'), (std::set<GlyphCode>{1}));
    EXPECT_EQ(shown.at(U'►'), (std::set<GlyphCode>{13}));
    EXPECT_EQ(shown.at(U'◄'), (std::set<GlyphCode>{127}));
    for (const auto& [character, codes] : shown) {
        EXPECT_TRUE(codes.size() == 1 || character == U' ') << static_cast<unsigned>(character);
    }
}

TEST(LookAlikes, ComeBackAsTheGlyphsTheyStandFor) {
    const std::map<int, GlyphCode> others{{0, 28}, {10, 32}, {12, 32}, {13, 141}, {34, 39}, {127, 60}};
    for (int code = 0; code < GlyphCount; ++code) {
        const GlyphCode plain = Uncoloured(code);
        const auto other = others.find(plain);
        const Row back = Fitted(std::u32string{LookAlikeOf(static_cast<GlyphCode>(code)), U'.'});
        EXPECT_EQ(back, (Row{other == others.end() ? plain : other->second, '.'})) << code;
    }
}

TEST(LookAlikes, AreTextWithoutTheBlanksAtItsEnd) {
    EXPECT_EQ(LookAlikeText(Row{32, 16, 'V' + 128, 'T', 19, 17, 10, 32}), " ⟦VT¹⟧");
    EXPECT_EQ(LookAlikeText(Row{29, 30, 31, 128, 129, 131, 130, 139}), "╾─╼├┄┼┤█");
    EXPECT_EQ(LookAlikeText(Row{32, 32, 160}), "");
}

TEST(FitText, KeepsAsciiButForTheDoubleQuote) {
    std::u32string text;
    Row expected;
    for (char32_t character = 33; character < 127; ++character) {
        text.push_back(character);
        expected.push_back(character == U'"' ? GlyphCode{39} : static_cast<GlyphCode>(character));
    }
    EXPECT_EQ(Fitted(text), expected);
}

TEST(FitText, PlacesNoGlyphThatCannotBeTyped) {
    for (char32_t character = 0; character < 0x3000; ++character) {
        for (const GlyphCode code : Fitted(std::u32string(1, character))) {
            EXPECT_TRUE(code != 0 && code != 10 && code != 13 && code != 34 && code != 127)
                << static_cast<unsigned>(character);
        }
    }
}

TEST(FitText, KnowsOtherSignsOfTheSameLook) {
    EXPECT_EQ(Fitted(U"【«①₁»】"), (Row{16, 16, 19, 19, 17, 17}));
    EXPECT_EQ(Fitted(U"┌│┘→←"), (Row{1, 7, 4, 141, '<'}));
    EXPECT_EQ(Fitted(U"“it’s” – ★"), GlyphsOf("'it's' - *"));
}

TEST(FitText, TakesTheNearestLetter) {
    EXPECT_EQ(Fitted(U"ŁøßæŒı"), GlyphsOf("LoBaeOEi"));
    EXPECT_EQ(Fitted(U"ΑΒсор"), GlyphsOf("ABcop")) << "Greek and Cyrillic letters";
}

TEST(FitText, TakesACharacterApartThatIsMadeOfOthers) {
    const std::vector<ui::TextCharacter> text{
        {U'é', U"e\u0301"}, {U'ﬁ', U"fi"}, {U'Ｑ', U"Q"}, {U'…', U"..."}, {U'²', U"2"}};
    EXPECT_EQ(FitText(text).glyphs, (Row{'e', 'f', 'i', 'Q', '.', '.', '.', 20}));
    EXPECT_EQ(FitText(text).unlike, "");
}

TEST(FitText, TellsWhatNoGlyphLooksLikeOnce) {
    const FittedText fitted = FitText(Characters(U"a☃b漢☃😀"));
    EXPECT_EQ(fitted.glyphs, GlyphsOf("ab"));
    EXPECT_EQ(fitted.unlike, "☃漢😀");
}

TEST(FitText, TellsTheFirstOfMany) {
    const FittedText eight = FitText(Characters(U"一丁丂七丄丅丆万万一"));
    EXPECT_EQ(eight.unlike, "一丁丂七丄丅丆万");
    EXPECT_FALSE(eight.isMoreUnlike);
    const FittedText more = FitText(Characters(U"一丁丂七丄丅丆万丈三一a"));
    EXPECT_EQ(more.unlike, eight.unlike);
    EXPECT_TRUE(more.isMoreUnlike);
    EXPECT_EQ(more.glyphs, GlyphsOf("a"));
}

TEST(FitText, PassesOverWhatShowsNothing) {
    const FittedText fitted = FitText(Characters(U"\uFEFFa\u0301\u200B\uFE0Fb\u00AD"));
    EXPECT_EQ(fitted.glyphs, GlyphsOf("ab"));
    EXPECT_EQ(fitted.unlike, "");
}

TEST(FitText, TakesWhiteSpaceForBlanksAndNoneAtTheEnd) {
    EXPECT_EQ(Fitted(U" a\tb\r\nc\nd\u00A0e\u3000f \r\n"), GlyphsOf(" a b c d e f"));
    EXPECT_EQ(Fitted(U" \n"), Row());
    EXPECT_EQ(Fitted(U""), Row());
}

} // namespace glyphs
