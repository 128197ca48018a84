// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/mdlSwitches.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <utility>

namespace glyphs {

namespace {

constexpr CaseChoice Letters = CaseChoice::LettersOnly;
constexpr CaseChoice All = CaseChoice::AllCharacters;

constexpr std::array<std::pair<GlyphCode, GlyphCode>, 16> UnshiftedAndShifted{{
    {44, 60},
    {45, 95},
    {46, 62},
    {47, 63},
    {48, 41},
    {49, 33},
    {50, 64},
    {51, 35},
    {52, 36},
    {53, 37},
    {54, 94},
    {55, 38},
    {56, 42},
    {57, 40},
    {59, 58},
    {61, 43},
}};

bool IsBetween(GlyphCode code, int first, int last) {
    return code >= first && code <= last;
}

bool IsLowerCase(GlyphCode code) {
    return IsBetween(code, 97, 125) || IsBetween(code, 225, 250);
}

bool IsUpperCase(GlyphCode code) {
    return IsBetween(code, 65, 93) || IsBetween(code, 193, 218);
}

/// Calls `check` with every glyph.
template <class Check>
void ForEveryGlyph(Check check) {
    for (GlyphCode code = 0; code < GlyphCount; ++code) {
        check(code);
    }
}

TEST(CaseOfLetters, ChangesByThirtyTwo) {
    ForEveryGlyph([](GlyphCode code) {
        EXPECT_EQ(ToUpperGlyph(code, Letters), IsLowerCase(code) ? code - 32 : code);
        EXPECT_EQ(ToLowerGlyph(code, Letters), IsUpperCase(code) ? code + 32 : code);
        const int switched = IsLowerCase(code) ? code - 32 : IsUpperCase(code) ? code + 32 : code;
        EXPECT_EQ(SwitchCaseGlyph(code, Letters), switched);
    });
}

TEST(CaseOfLetters, PairsBracesWithBracketsInColour1Only) {
    EXPECT_EQ(ToUpperGlyph(123, Letters), 91);
    EXPECT_EQ(ToUpperGlyph(251, Letters), 251);
    EXPECT_EQ(ToLowerGlyph(91, Letters), 123);
    EXPECT_EQ(ToLowerGlyph(219, Letters), 219);
    EXPECT_EQ(SwitchCaseGlyph(221, Letters), 221);
    EXPECT_EQ(SwitchCaseGlyph(253, Letters), 253);
}

TEST(CaseOfLetters, LeavesDigitsAndPunctuation) {
    EXPECT_EQ(ToUpperGlyph(49, Letters), 49);
    EXPECT_EQ(ToLowerGlyph(33, Letters), 33);
    EXPECT_EQ(SwitchCaseGlyph(39, Letters), 39);
}

TEST(CaseOfAllCharacters, TakesTheOtherSymbolOfTheKey) {
    EXPECT_EQ(SwitchCaseGlyph(39, All), 126);
    EXPECT_EQ(SwitchCaseGlyph(126, All), 126);
    EXPECT_EQ(ToUpperGlyph(49, All), 33);
    EXPECT_EQ(ToLowerGlyph(64, All), 50);
    EXPECT_EQ(ToUpperGlyph(58, All), 58);
    EXPECT_EQ(ToLowerGlyph(39, All), 39);
    EXPECT_EQ(ToUpperGlyph(39, All), 39);
}

TEST(CaseOfAllCharacters, TreatsLettersLikeTheOtherChoice) {
    ForEveryGlyph([](GlyphCode code) {
        if (IsLowerCase(code)) {
            EXPECT_EQ(ToUpperGlyph(code, All), code - 32);
            EXPECT_EQ(SwitchCaseGlyph(code, All), code - 32);
        }
        if (IsUpperCase(code)) {
            EXPECT_EQ(ToLowerGlyph(code, All), code + 32);
            EXPECT_EQ(SwitchCaseGlyph(code, All), code + 32);
        }
    });
}

TEST(CaseOfAllCharacters, LeavesColour2Punctuation) {
    for (const auto& [unshifted, shifted] : UnshiftedAndShifted) {
        const auto unshifted2 = static_cast<GlyphCode>(unshifted + 128);
        const auto shifted2 = static_cast<GlyphCode>(shifted + 128);
        EXPECT_EQ(ToUpperGlyph(unshifted2, All), unshifted2);
        EXPECT_EQ(ToLowerGlyph(shifted2, All), shifted2);
        EXPECT_EQ(SwitchCaseGlyph(unshifted2, All), unshifted2);
        EXPECT_EQ(SwitchCaseGlyph(shifted2, All), shifted2);
    }
}

TEST(Punctuation, FollowsTheKeysOfAUsKeyboard) {
    std::set<GlyphCode> unshiftedCodes;
    std::set<GlyphCode> shiftedCodes;
    for (const auto& [unshifted, shifted] : UnshiftedAndShifted) {
        EXPECT_EQ(ShiftPunctuation(unshifted), shifted);
        EXPECT_EQ(UnshiftPunctuation(shifted), unshifted);
        EXPECT_EQ(SwitchPunctuation(unshifted), shifted);
        EXPECT_EQ(SwitchPunctuation(shifted), unshifted);
        unshiftedCodes.insert(unshifted);
        shiftedCodes.insert(shifted);
    }
    ForEveryGlyph([&](GlyphCode code) {
        if (!unshiftedCodes.contains(code)) {
            EXPECT_EQ(ShiftPunctuation(code), code);
        }
        if (!shiftedCodes.contains(code)) {
            EXPECT_EQ(UnshiftPunctuation(code), code);
        }
        if (!unshiftedCodes.contains(code) && !shiftedCodes.contains(code) && code != 39) {
            EXPECT_EQ(SwitchPunctuation(code), code);
        }
    });
}

TEST(Punctuation, SwitchesTheApostropheOneWay) {
    EXPECT_EQ(SwitchPunctuation(39), 126);
    EXPECT_EQ(SwitchPunctuation(126), 126);
    EXPECT_EQ(ShiftPunctuation(39), 39);
    EXPECT_EQ(UnshiftPunctuation(126), 126);
}

TEST(Colour, HasPartnersOnlyForTheseGlyphs) {
    ForEveryGlyph([](GlyphCode code) {
        const bool isColour1 = code == 11 || IsBetween(code, 33, 127);
        const bool isColour2 = code == 139 || IsBetween(code, 161, 255);
        EXPECT_EQ(ToColor2Glyph(code), isColour1 ? code + 128 : code);
        EXPECT_EQ(ToColor1Glyph(code), isColour2 ? code - 128 : code);
        EXPECT_EQ(SwitchColorGlyph(code), isColour1 ? code + 128 : isColour2 ? code - 128 : code);
        EXPECT_EQ(SwitchColorGlyph(SwitchColorGlyph(code)), code);
    });
}

TEST(Colour, LeavesTheBlanks) {
    EXPECT_EQ(SwitchColorGlyph(32), 32);
    EXPECT_EQ(SwitchColorGlyph(160), 160);
    EXPECT_EQ(SwitchColorGlyph(11), 139);
    EXPECT_EQ(SwitchColorGlyph(139), 11);
    EXPECT_EQ(SwitchColorGlyph(127), 255);
}

TEST(FilterPickedGlyph, RefusesGlyphsThatMayNotStandInAName) {
    const std::set<GlyphCode> refused{0, 34, 126, 127, 162, 254, 255};
    ForEveryGlyph([&](GlyphCode code) {
        if (refused.contains(code)) {
            EXPECT_EQ(FilterPickedGlyph(code), 0) << code;
        } else if (code != 13) {
            EXPECT_EQ(FilterPickedGlyph(code), code);
        }
    });
}

TEST(FilterPickedGlyph, TakesTheOtherArrowHeadForTheCarriageReturn) {
    EXPECT_EQ(FilterPickedGlyph(13), 141);
    EXPECT_EQ(FilterPickedGlyph(141), 141);
}

} // namespace

} // namespace glyphs
