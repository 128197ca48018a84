// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/GlyphFacts.h"

#include "glyphs/mdlSwitches.h"

#include <gtest/gtest.h>

using editing::FactsOf;
using editing::GlyphFacts;

namespace {

const editing::KeyMap Map = editing::DefaultKeyMap();

editing::Modes colour(bool isSecond) {
    editing::Modes modes;
    modes.typingColour = isSecond;
    return modes;
}

TEST(GlyphFacts, NamesGlyphKeysAndOtherColour) {
    const GlyphFacts facts = FactsOf('g', Map, colour(false));
    EXPECT_EQ(facts.name, "103: g");
    EXPECT_EQ(facts.keys, "Key: G");
    EXPECT_EQ(facts.note, "Color 2: 231");
    EXPECT_EQ(editing::FactsText(facts), "103: g\nKey: G\nColor 2: 231");
}

TEST(GlyphFacts, SaysWhichColourAKeyNeeds) {
    EXPECT_EQ(FactsOf('g', Map, colour(true)).keys, "Key: G, without Color 2");
    EXPECT_EQ(FactsOf('g' + 128, Map, colour(true)).keys, "Key: G");
    EXPECT_EQ(FactsOf('g' + 128, Map, colour(false)).keys, "Key: G, with Color 2");
}

TEST(GlyphFacts, SaysThatNoKeyTypesAGlyph) {
    EXPECT_EQ(FactsOf(16, Map, colour(false)).keys, "No key types it");
}

TEST(GlyphFacts, NamesTheFirstOfManyKeys) {
    EXPECT_EQ(FactsOf(32, Map, colour(false)).keys, "Keys: SpaceBar, F8, F9 ...");
    EXPECT_EQ(FactsOf(18, Map, colour(false)).keys, "Keys: NumPad 0, Shift+NumPad 0");
}

TEST(GlyphFacts, SayWhyAGlyphIsNotPlaced) {
    for (int code = 0; code < glyphs::GlyphCount; ++code) {
        const auto glyph = static_cast<glyphs::GlyphCode>(code);
        const std::string note = FactsOf(glyph, Map, {}).note;
        EXPECT_EQ(note.starts_with("Not placed: "), glyphs::FilterPickedGlyph(glyph) == 0) << code;
        EXPECT_EQ(note.starts_with("Placed as "), code == 13) << code;
    }
    EXPECT_EQ(FactsOf(34, Map, {}).note, "Not placed: it ends the text");
    EXPECT_EQ(FactsOf(34, Map, {}).keys, "No key types it; color 2: 162");
    EXPECT_EQ(FactsOf(10, Map, {}).note, "Breaks the line that it is saved in");
    EXPECT_EQ(FactsOf(13, Map, {}).note, "Placed as 141: it breaks its line");
    EXPECT_EQ(FactsOf(13, Map, {}).keys, "No key types it; color 2: 141");
    EXPECT_EQ(FactsOf(129, Map, {}).note, "");
}

} // namespace
