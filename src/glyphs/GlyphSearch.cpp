// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/GlyphSearch.h"

#include "glyphs/GlyphWords.h"
#include "glyphs/LookAlikes.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>

namespace glyphs {

namespace {

constexpr char32_t LastAscii = 127;

/// What people also call what a description calls otherwise; both in small letters.
struct OtherName {
    std::string_view name;
    std::string_view described;
};

constexpr std::array<OtherName, 25> OtherNames{{
    {"ball", "bullet"},       {"bar", "vertical bar"}, {"bar", "ruler"},         {"bar", "slider"},
    {"box", "block"},         {"caret", "circumflex"}, {"circle", "bullet"},     {"cursor", "solid block"},
    {"dash", "minus"},        {"dot", "full stop"},    {"hash", "number sign"},  {"hyphen", "minus"},
    {"line", "ruler"},        {"number", "digit"},     {"paren", "parenthesis"}, {"period", "full stop"},
    {"pipe", "vertical bar"}, {"point", "full stop"},  {"pound", "number sign"}, {"quote", "apostrophe"},
    {"space", "blank"},       {"square", "block"},     {"star", "asterisk"},     {"triangle", "arrow head"},
    {"yellow", "gold"},
}};

std::string SmallLetters(std::string_view text) {
    std::string small(text);
    std::ranges::transform(
        small, small.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return small;
}

/// Whether a word of the text begins so.
bool HoldsWord(std::string_view text, std::string_view beginning) {
    for (std::size_t at = text.find(beginning); at != std::string_view::npos;
         at = text.find(beginning, at + 1)) {
        if (at == 0 || text[at - 1] == ' ') {
            return true;
        }
    }
    return false;
}

bool Describes(std::string_view description, std::string_view word) {
    return HoldsWord(description, word) || std::ranges::any_of(OtherNames, [&](const OtherName& other) {
               return other.name.starts_with(word) && HoldsWord(description, other.described);
           });
}

std::optional<int> NumberIn(std::string_view text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(number) : std::nullopt;
}

std::vector<std::string> WordsOf(std::string_view text) {
    std::istringstream stream{std::string(text)};
    return {std::istream_iterator<std::string>(stream), {}};
}

template <class Fits>
std::vector<GlyphCode> AllThat(Fits&& fits) {
    std::vector<GlyphCode> found;
    for (GlyphCode code = 0; code < GlyphCount; ++code) {
        if (fits(code)) {
            found.push_back(code);
        }
    }
    return found;
}

/// A digit is the number of a glyph, a character and one of the gold digits.
std::vector<GlyphCode> FindCharacter(char character) {
    const std::optional<int> number = NumberIn({&character, 1});
    const std::string goldDigit = std::string("gold digit ") + character;
    return AllThat([&](GlyphCode code) {
        return code % ColourDistance == character ||
               (number && (code == *number || GlyphWords(code).starts_with(goldDigit)));
    });
}

} // namespace

std::vector<GlyphCode> FindGlyphs(std::string_view wanted) {
    const std::vector<std::string> words = WordsOf(wanted);
    if (words.empty()) {
        return {};
    }
    if (words.size() == 1 && words[0].size() == 1) {
        return FindCharacter(words[0][0]);
    }
    if (const auto number = NumberIn(words[0]); number && words.size() == 1) {
        return AllThat([number](GlyphCode code) { return code == *number; });
    }
    return AllThat([&words](GlyphCode code) {
        const std::string description = SmallLetters(GlyphWords(code));
        return std::ranges::all_of(
            words, [&](const std::string& word) { return Describes(description, SmallLetters(word)); });
    });
}

std::vector<GlyphCode> FindGlyphs(std::span<const ui::TextCharacter> wanted) {
    if (wanted.size() == 1 && wanted[0].code > LastAscii) {
        const FittedText fitted = FitText(wanted);
        if (fitted.glyphs.size() != 1 || !fitted.unlike.empty()) {
            return {};
        }
        const GlyphCode code = fitted.glyphs.front();
        return AllThat(
            [code, other = OtherColourOf(code)](GlyphCode each) { return each == code || each == other; });
    }
    std::string ascii;
    for (const ui::TextCharacter& character : wanted) {
        ascii.push_back(character.code > LastAscii ? '?' : static_cast<char>(character.code));
    }
    return FindGlyphs(ascii);
}

} // namespace glyphs
