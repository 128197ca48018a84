// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/mdlSwitches.h"

#include <array>

namespace glyphs {

namespace {

constexpr GlyphCode CaseDistance = 32;

constexpr bool IsInRange(GlyphCode code, GlyphCode first, GlyphCode last) {
    return code >= first && code <= last;
}

// The braces and the bar (123 to 125) pair with the brackets and the backslash in colour 1 only.
constexpr bool IsLower(GlyphCode code) {
    return IsInRange(code, 97, 125) || IsInRange(code, 225, 250);
}

constexpr bool IsUpper(GlyphCode code) {
    return IsInRange(code, 65, 93) || IsInRange(code, 193, 218);
}

constexpr bool IsColor1(GlyphCode code) {
    return code == 11 || IsInRange(code, 33, 127);
}

constexpr bool IsColor2(GlyphCode code) {
    return code == 139 || IsInRange(code, 161, 255);
}

struct PunctuationKey {
    GlyphCode unshifted;
    GlyphCode shifted;
};

constexpr std::array<PunctuationKey, 16> PunctuationKeys{{
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

} // namespace

GlyphCode ShiftPunctuation(GlyphCode code) {
    for (const PunctuationKey& key : PunctuationKeys) {
        if (key.unshifted == code) {
            return key.shifted;
        }
    }
    return code;
}

GlyphCode UnshiftPunctuation(GlyphCode code) {
    for (const PunctuationKey& key : PunctuationKeys) {
        if (key.shifted == code) {
            return key.unshifted;
        }
    }
    return code;
}

GlyphCode SwitchPunctuation(GlyphCode code) {
    // One way only: 126 lies outside the range that the switch looks at.
    if (code == 39) {
        return 126;
    }
    const GlyphCode shifted = ShiftPunctuation(code);
    return shifted != code ? shifted : UnshiftPunctuation(code);
}

GlyphCode ToUpperGlyph(GlyphCode code, CaseChoice choice) {
    if (IsLower(code)) {
        return static_cast<GlyphCode>(code - CaseDistance);
    }
    return choice == CaseChoice::LettersOnly ? code : ShiftPunctuation(code);
}

GlyphCode ToLowerGlyph(GlyphCode code, CaseChoice choice) {
    if (IsUpper(code)) {
        return static_cast<GlyphCode>(code + CaseDistance);
    }
    return choice == CaseChoice::LettersOnly ? code : UnshiftPunctuation(code);
}

GlyphCode SwitchCaseGlyph(GlyphCode code, CaseChoice choice) {
    if (IsLower(code)) {
        return static_cast<GlyphCode>(code - CaseDistance);
    }
    if (IsUpper(code)) {
        return static_cast<GlyphCode>(code + CaseDistance);
    }
    return choice == CaseChoice::LettersOnly ? code : SwitchPunctuation(code);
}

GlyphCode ToColor1Glyph(GlyphCode code) {
    return IsColor2(code) ? static_cast<GlyphCode>(code - ColourDistance) : code;
}

GlyphCode ToColor2Glyph(GlyphCode code) {
    return IsColor1(code) ? static_cast<GlyphCode>(code + ColourDistance) : code;
}

GlyphCode SwitchColorGlyph(GlyphCode code) {
    return IsColor2(code) ? ToColor1Glyph(code) : ToColor2Glyph(code);
}

GlyphCode FilterPickedGlyph(GlyphCode code) {
    switch (code) {
    case 0:
    case 34: // a double quote would end the quoted name of a game command
    case 126:
    case 127:
    case 162:
    case 254:
    case 255:
        return 0;
    case 13: // a carriage return would end the line; its colour-2 partner looks alike
        return 141;
    default:
        return code;
    }
}

} // namespace glyphs
