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
    {34, "it ends the text"},
    {126, "left to the keys"},
    {127, "Quake2 drops it"},
    {162, "Quake2 reads a quote"},
    {254, "left to the keys"},
    {255, "old Quake disconnects"},
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

/// Why a glyph is not placed as it is, or what it does to its line; empty for most.
std::string WarningText(GlyphCode code) {
    const auto refusal = std::ranges::find(Refusals, code, &Refusal::code);
    if (refusal != Refusals.end()) {
        return std::string("Not placed: ").append(refusal->reason);
    }
    if (const GlyphCode placed = glyphs::FilterPickedGlyph(code); placed != code) {
        return "Placed as " + std::to_string(placed) + ": it breaks its line";
    }
    return glyphs::BreaksScriptLine(code) ? "Breaks the line that it is saved in" : "";
}

std::string OtherColourText(GlyphCode code) {
    const auto other = glyphs::OtherColourOf(code);
    return other ? std::string("olor ") + (code < *other ? '2' : '1') + ": " + std::to_string(*other)
                 : std::string();
}

} // namespace

GlyphFacts FactsOf(GlyphCode code, const KeyMap& map, const Modes& modes) {
    GlyphFacts facts{
        .name = std::to_string(code) + ": " + glyphs::GlyphWords(code),
        .keys = KeysText(code, map, modes.typingColour),
        .note = WarningText(code),
    };
    if (const std::string other = OtherColourText(code); facts.note.empty() && !other.empty()) {
        facts.note = 'C' + other;
    } else if (!other.empty()) {
        facts.keys += "; c" + other;
    }
    return facts;
}

std::string FactsText(const GlyphFacts& facts) {
    return facts.name + '\n' + facts.keys + (facts.note.empty() ? "" : '\n' + facts.note);
}

} // namespace editing
