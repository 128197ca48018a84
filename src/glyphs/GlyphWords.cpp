// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/GlyphWords.h"

#include <array>
#include <string_view>

namespace glyphs {

namespace {

constexpr GlyphCode FirstCharacter = 33;
constexpr GlyphCode LastCharacter = 126;
constexpr std::string_view Blank = "blank";

/// A glyph below the characters in words, and the sign that resembles it.
struct Ornament {
    std::string_view words;
    char sign;
};

constexpr std::array<Ornament, FirstCharacter> Ornaments{{
    {"small middle dot", '.'},
    {"top left frame corner", '#'},
    {"top right frame corner", '#'},
    {"bottom left frame corner", '#'},
    {"bottom right frame corner", '#'},
    {"bullet", '.'},
    {"horizontal frame edge", '#'},
    {"vertical frame edge", '#'},
    {"upper half block", '#'},
    {"lower half block", '#'},
    {"blank, line feed", ' '},
    {"solid block", '#'},
    {Blank, ' '},
    {"right arrow head, carriage return", '>'},
    {"small bullet", '.'},
    {"large bullet", '.'},
    {"ornate left bracket", '['},
    {"ornate right bracket", ']'},
    {"gold digit 0", '0'},
    {"gold digit 1", '1'},
    {"gold digit 2", '2'},
    {"gold digit 3", '3'},
    {"gold digit 4", '4'},
    {"gold digit 5", '5'},
    {"gold digit 6", '6'},
    {"gold digit 7", '7'},
    {"gold digit 8", '8'},
    {"gold digit 9", '9'},
    {"middle dot", '.'},
    {"left end of the ruler", '<'},
    {"ruler", '='},
    {"right end of the ruler", '>'},
    {Blank, ' '},
}};

/// The glyphs 128 to 131, which are not 0 to 3 in a second colour.
constexpr std::array<Ornament, 4> Slider{{
    {"left end of the slider", '('},
    {"slider track", '='},
    {"right end of the slider", ')'},
    {"slider knob", '+'},
}};

constexpr Ornament LeftArrow{"left arrow head", '<'};

/// Signs by name: a voice passes over most of them.
std::string_view SignName(char sign) {
    constexpr std::string_view Signs = "!\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}~";
    constexpr std::array<std::string_view, Signs.size()> Names{
        "exclamation mark",
        "double quote",
        "number sign",
        "dollar",
        "percent",
        "ampersand",
        "apostrophe",
        "left parenthesis",
        "right parenthesis",
        "asterisk",
        "plus",
        "comma",
        "minus",
        "full stop",
        "slash",
        "colon",
        "semicolon",
        "less than",
        "equals",
        "greater than",
        "question mark",
        "at sign",
        "left square bracket",
        "backslash",
        "right square bracket",
        "circumflex",
        "underscore",
        "backquote",
        "left brace",
        "vertical bar",
        "right brace",
        "tilde"};
    const std::size_t index = Signs.find(sign);
    return index == std::string_view::npos ? std::string_view() : Names[index];
}

/// What the glyph is in colour 1: codes 128 and above show the artwork of 0 to 127.
GlyphCode Uncoloured(GlyphCode code) {
    return code < ColourDistance ? code : static_cast<GlyphCode>(code - ColourDistance);
}

bool IsCharacter(GlyphCode uncoloured) {
    return uncoloured >= FirstCharacter && uncoloured <= LastCharacter;
}

bool IsSlider(GlyphCode code) {
    return code >= ColourDistance && code < ColourDistance + static_cast<GlyphCode>(Slider.size());
}

const Ornament& OrnamentOf(GlyphCode code) {
    const auto index = static_cast<std::size_t>(Uncoloured(code));
    if (IsSlider(code)) {
        return Slider[index];
    }
    return index < Ornaments.size() ? Ornaments[index] : LeftArrow;
}

std::string CharacterName(char character) {
    if (character >= 'A' && character <= 'Z') {
        return std::string("capital ") + character;
    }
    const std::string_view sign = SignName(character);
    return sign.empty() ? std::string(1, character) : std::string(sign);
}

} // namespace

std::string GlyphWords(GlyphCode code) {
    const GlyphCode uncoloured = Uncoloured(code);
    std::string words;
    if (IsCharacter(uncoloured)) {
        words = CharacterName(static_cast<char>(uncoloured));
    } else if (OrnamentOf(code).sign == ' ' && code >= ColourDistance) {
        // Only the bytes below 128 mean something to a script, and a blank has no colour.
        return std::string(Blank);
    } else if (code == ColourDistance + '\r') {
        words = "right arrow head";
    } else {
        words = OrnamentOf(code).words;
    }
    return code < ColourDistance || IsSlider(code) ? words : words + ", second color";
}

std::string GlyphName(GlyphCode code) {
    std::string words = GlyphWords(code);
    return code == BlankGlyph ? words : "code " + std::to_string(code) + ", " + words;
}

std::optional<GlyphCode> OtherColourOf(GlyphCode code) {
    const auto other = static_cast<GlyphCode>(code ^ ColourDistance);
    const bool isBlank = !IsCharacter(Uncoloured(code)) && OrnamentOf(code).sign == ' ';
    return isBlank || IsSlider(code) || IsSlider(other) ? std::nullopt : std::optional(other);
}

std::string ReadableRow(std::span<const GlyphCode> row) {
    std::string text;
    for (const GlyphCode code : row) {
        const GlyphCode uncoloured = Uncoloured(code);
        text.push_back(IsCharacter(uncoloured) ? static_cast<char>(uncoloured) : OrnamentOf(code).sign);
    }
    text.resize(text.find_last_not_of(' ') + 1);
    return text.empty() ? std::string(Blank) : text;
}

} // namespace glyphs
