// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/GlyphFacts.h"

#include "glyphs/GlyphWords.h"
#include "glyphs/RowText.h"
#include "glyphs/mdlSwitches.h"

#include <algorithm>
#include <span>
#include <string_view>

namespace editing {

namespace {

constexpr std::size_t MaxKeys = 3; ///< that are named: a blank has more than a hundred

/// Why a glyph is not placed from a grid.
struct Refusal {
    GlyphCode code;
    std::string_view reason;
};

constexpr std::array<Refusal, 7> Refusals{{
    {0, "it ends the text"},
    {34, "it ends the quoted text"},
    {126, "only a key types it"},
    {127, "Quake2 drops it from names"},
    {162, "Quake2 takes it for a quote"},
    {254, "only a key types it"},
    {255, "original Quake disconnects"},
}};

std::string Listed(const std::vector<std::string>& keys) {
    std::string text = keys.size() == 1 ? "Key: " : "Keys: ";
    for (std::size_t i = 0; i < std::min(keys.size(), MaxKeys); ++i) {
        text += (i == 0 ? "" : ", ") + keys[i];
    }
    return keys.size() > MaxKeys ? text + " ..." : text;
}

std::string KeysText(GlyphCode code, const KeyMap& map, bool typesColour2) {
    if (const auto keys = TypingKeys(map, typesColour2, code); !keys.empty()) {
        return Listed(keys);
    }
    if (const auto keys = TypingKeys(map, !typesColour2, code); !keys.empty()) {
        return Listed(keys) + (typesColour2 ? ", without Color 2" : ", with Color 2");
    }
    return "No key types it";
}

std::string NoteText(GlyphCode code) {
    std::string note;
    const auto refusal = std::ranges::find(Refusals, code, &Refusal::code);
    if (refusal != Refusals.end()) {
        note = std::string("Not placed: ").append(refusal->reason);
    } else if (const GlyphCode placed = glyphs::FilterPickedGlyph(code); placed != code) {
        note = "Placed as " + std::to_string(placed) + ": it breaks its line";
    } else if (glyphs::BreaksScriptLine(code)) {
        note = "Breaks the line that it is saved in";
    }
    if (const auto other = glyphs::OtherColourOf(code)) {
        note += std::string(note.empty() ? "Color " : "; color ") + (code < *other ? '2' : '1') + ": glyph " +
                std::to_string(*other);
    }
    return note;
}

} // namespace

GlyphFacts FactsOf(GlyphCode code, const KeyMap& map, const Modes& modes) {
    return {
        .name = "Glyph " + std::to_string(code) + ": " + glyphs::GlyphWords(code),
        .keys = KeysText(code, map, modes.typingColour),
        .note = NoteText(code),
    };
}

std::string FactsText(const GlyphFacts& facts) {
    return facts.name + '\n' + facts.keys + (facts.note.empty() ? "" : '\n' + facts.note);
}

} // namespace editing
