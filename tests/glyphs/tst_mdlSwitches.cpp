// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/mdlSwitches.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>
#include <string_view>
#include <utility>

namespace glyphs {

namespace {

constexpr CaseChoice Letters = CaseChoice::LettersOnly;
constexpr CaseChoice All = CaseChoice::AllCharacters;

/// What the keys of a US keyboard type without and with Shift, but for letters, brackets and the like.
constexpr std::string_view Unshifted = ",-./0123456789;=";
constexpr std::string_view Shifted = "<_>?)!@#$%^&*(:+";

constexpr auto UnshiftedAndShifted = [] {
    std::array<std::pair<GlyphCode, GlyphCode>, Unshifted.size()> pairs{};
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        pairs[i] = {static_cast<GlyphCode>(Unshifted[i]), static_cast<GlyphCode>(Shifted[i])};
    }
    return pairs;
}();

/// The glyphs that have a capital, and those, in colour 1. In colour 2 only the letters have one.
constexpr std::string_view Lower = "abcdefghijklmnopqrstuvwxyz{|}";
constexpr std::string_view Upper = "ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]";
constexpr std::size_t LetterCount = 26;

std::map<GlyphCode, GlyphCode> PartnersOf(std::string_view from, std::string_view to) {
    constexpr int Colour2 = 128;
    std::map<GlyphCode, GlyphCode> partners;
    for (std::size_t i = 0; i < from.size(); ++i) {
        partners[static_cast<GlyphCode>(from[i])] = static_cast<GlyphCode>(to[i]);
        if (i < LetterCount) {
            partners[static_cast<GlyphCode>(from[i] + Colour2)] = static_cast<GlyphCode>(to[i] + Colour2);
        }
    }
    return partners;
}

const std::map<GlyphCode, GlyphCode> UpperOf = PartnersOf(Lower, Upper);
const std::map<GlyphCode, GlyphCode> LowerOf = PartnersOf(Upper, Lower);

/// What a glyph is to become; itself where it has no partner.
GlyphCode PartnerOf(const std::map<GlyphCode, GlyphCode>& partners, GlyphCode code) {
    const auto found = partners.find(code);
    return found == partners.end() ? code : found->second;
}

/// Calls `check` with every glyph.
template <class Check>
void ForEveryGlyph(Check check) {
    for (GlyphCode code = 0; code < GlyphCount; ++code) {
        check(code);
    }
}

TEST(CaseOfLetters, GivesEachLetterItsOther) {
    ForEveryGlyph([](GlyphCode code) {
        EXPECT_EQ(ToUpperGlyph(code, Letters), PartnerOf(UpperOf, code));
        EXPECT_EQ(ToLowerGlyph(code, Letters), PartnerOf(LowerOf, code));
        EXPECT_EQ(
            SwitchCaseGlyph(code, Letters), PartnerOf(UpperOf.contains(code) ? UpperOf : LowerOf, code));
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
    for (const auto& [lower, upper] : UpperOf) {
        EXPECT_EQ(ToUpperGlyph(lower, All), upper);
        EXPECT_EQ(SwitchCaseGlyph(lower, All), upper);
        EXPECT_EQ(ToLowerGlyph(upper, All), lower);
        EXPECT_EQ(SwitchCaseGlyph(upper, All), lower);
    }
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
    // All that a keyboard types but the blank, and the two that it does not.
    constexpr std::string_view Colour1 =
        "\x0B!\"#$%&'()*+,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`"
        "abcdefghijklmnopqrstuvwxyz{|}~\x7F";
    std::map<GlyphCode, GlyphCode> colour2Of;
    std::map<GlyphCode, GlyphCode> colour1Of;
    for (const char glyph : Colour1) {
        const auto code = static_cast<GlyphCode>(glyph);
        colour2Of[code] = static_cast<GlyphCode>(code + 128);
        colour1Of[static_cast<GlyphCode>(code + 128)] = code;
    }
    ForEveryGlyph([&](GlyphCode code) {
        EXPECT_EQ(ToColor2Glyph(code), PartnerOf(colour2Of, code));
        EXPECT_EQ(ToColor1Glyph(code), PartnerOf(colour1Of, code));
        EXPECT_EQ(SwitchColorGlyph(code), PartnerOf(colour2Of.contains(code) ? colour2Of : colour1Of, code));
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
