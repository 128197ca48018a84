// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/LookAlikes.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace glyphs {

namespace {

constexpr GlyphCode ArrowToRight = 13;
constexpr GlyphCode ArrowToLeft = 127;
constexpr GlyphCode FirstLetter = 33;

/// Of the glyphs 0 to 32.
constexpr std::u32string_view OrnamentSigns = U"⋅╔╗╚╝•═║▀▄ █ ►∙●⟦⟧⁰¹²³⁴⁵⁶⁷⁸⁹·╾─╼ ";
static_assert(OrnamentSigns.size() == FirstLetter);

/// Of the glyphs 128 to 131, which are not 0 to 3 in the second colour.
constexpr std::u32string_view SliderSigns = U"├┄┤┼";

constexpr char32_t SignOfLeftArrow = U'◄';

/// What a glyph that cannot be typed is taken for.
struct Substitute {
    GlyphCode glyph;
    GlyphCode typed;
};

constexpr std::array<Substitute, 4> Substitutes{
    {{0, 28}, {ArrowToRight, ArrowToRight + ColourDistance}, {'"', '\''}, {ArrowToLeft, '<'}}};

/// Characters that look like a glyph which has another look-alike, or like none so much as like that one.
struct Resemblance {
    std::u32string_view characters;
    GlyphCode glyph;
};

constexpr auto Resemblances = std::to_array<Resemblance>({
    // frames and blocks
    {U"┌┏╭╒╓", 1},
    {U"┐┓╮╕╖", 2},
    {U"└┗╰╘╙", 3},
    {U"┘┛╯╛╜", 4},
    {U"│┃┆┇╎╏", 7},
    {U"◦◘○◯", 5},
    {U"■▉▇▓⬛", 11},
    {U"━┅┈╌╍", 30},
    {U"╡┥┨", 130},
    {U"╞┝┠", 128},
    {U"╬╋┿╂╪╫", 131},
    // arrows and dots
    {U"→⇒➔➜➤▶▷▸▹❯", ArrowToRight},
    {U"←⇐◀◁◂◃❮", ArrowToLeft},
    {U"‧・･", 28},
    {U"⬤⚫◉◎", 15},
    // brackets
    {U"【〖⟪«「『❰〚", 16},
    {U"】〗⟫»」』❱〛", 17},
    {U"⟨〈《‹❬", '<'},
    {U"⟩〉》›❭", '>'},
    {U"〔❲", '['},
    {U"〕❳", ']'},
    // digits
    {U"₀⓪⓿", 18},
    {U"₁①❶", 19},
    {U"₂②❷", 20},
    {U"₃③❸", 21},
    {U"₄④❹", 22},
    {U"₅⑤❺", 23},
    {U"₆⑥❻", 24},
    {U"₇⑦❼", 25},
    {U"₈⑧❽", 26},
    {U"₉⑨❾", 27},
    // signs
    {U"‘’‚‛“”„‟′″´", '\''},
    {U"‐‑‒–—―−", '-'},
    {U"⁄∕÷", '/'},
    {U"★☆✦✧✪✯✶✱∗", '*'},
    {U"¦∣", '|'},
    {U"∼", '~'},
    {U"¡", '!'},
    {U"¿", '?'},
    {U"†✝✚", '+'},
    {U"≡", '='},
    // Latin letters that are not made of simpler ones
    {U"ΑАª", 'A'},
    {U"ΒВ", 'B'},
    {U"СϹ©", 'C'},
    {U"ÐĐ", 'D'},
    {U"ΕЕ€Є", 'E'},
    {U"ΗНĦ", 'H'},
    {U"ΙІӀ", 'I'},
    {U"Ј", 'J'},
    {U"ΚК", 'K'},
    {U"Ł£", 'L'},
    {U"ΜМ", 'M'},
    {U"ΝИŊ", 'N'},
    {U"ØΟО", 'O'},
    {U"ΡРÞ", 'P'},
    {U"®Я", 'R'},
    {U"Ѕ§", 'S'},
    {U"ΤТ", 'T'},
    {U"ΥУ¥", 'Y'},
    {U"ΧХ", 'X'},
    {U"Ζ", 'Z'},
    {U"αа", 'a'},
    {U"ßβ", 'B'},
    {U"с¢", 'c'},
    {U"ðđ", 'd'},
    {U"еєε", 'e'},
    {U"ıіι", 'i'},
    {U"ј", 'j'},
    {U"ł", 'l'},
    {U"ŋη", 'n'},
    {U"øοоσ°", 'o'},
    {U"рρþ", 'p'},
    {U"хχ×", 'x'},
    {U"уγ", 'y'},
});

/// Letters that two glyphs look like.
struct Ligature {
    char32_t character;
    std::string_view letters;
};

constexpr std::array<Ligature, 4> Ligatures{{{U'Æ', "AE"}, {U'æ', "ae"}, {U'Œ', "OE"}, {U'œ', "oe"}}};

constexpr bool IsIn(char32_t character, char32_t first, char32_t last) {
    return character >= first && character <= last;
}

bool IsWhite(char32_t character) {
    return IsIn(character, U'\t', U'\r') || IsIn(character, 0x2000, 0x200A) || character == U' ' ||
           character == 0x85 || character == 0xA0 || character == 0x2028 || character == 0x2029 ||
           character == 0x202F || character == 0x205F || character == 0x3000;
}

/// Characters that show nothing by themselves: controls, accents, marks that join, turn or vary others.
bool ShowsNothing(char32_t character) {
    return character < U' ' || IsIn(character, 0x7F, 0x9F) || character == 0xAD ||
           IsIn(character, 0x300, 0x36F) || IsIn(character, 0x1AB0, 0x1AFF) ||
           IsIn(character, 0x1DC0, 0x1DFF) || IsIn(character, 0x200B, 0x200F) ||
           IsIn(character, 0x202A, 0x202E) || IsIn(character, 0x2060, 0x206F) ||
           IsIn(character, 0x20D0, 0x20FF) || IsIn(character, 0xFE00, 0xFE0F) || character == 0xFEFF;
}

GlyphCode Typed(GlyphCode glyph) {
    const auto* const found = std::ranges::find(Substitutes, glyph, &Substitute::glyph);
    return found == Substitutes.end() ? glyph : found->typed;
}

/// Adds the glyphs that look like a character; false when there are none.
bool AddGlyphs(std::vector<GlyphCode>& glyphs, char32_t character) {
    const auto add = [&glyphs](std::size_t glyph) {
        glyphs.push_back(Typed(static_cast<GlyphCode>(glyph)));
        return true;
    };
    if (IsWhite(character)) {
        return add(BlankGlyph);
    }
    if (IsIn(character, U'!', U'~')) {
        return add(character);
    }
    if (character == SignOfLeftArrow) {
        return add(ArrowToLeft);
    }
    if (const std::size_t place = OrnamentSigns.find(character); place != std::u32string_view::npos) {
        return add(place);
    }
    if (const std::size_t place = SliderSigns.find(character); place != std::u32string_view::npos) {
        return add(ColourDistance + place);
    }
    for (const Resemblance& resemblance : Resemblances) {
        if (resemblance.characters.find(character) != std::u32string_view::npos) {
            return add(static_cast<std::size_t>(resemblance.glyph));
        }
    }
    const auto* const ligature = std::ranges::find(Ligatures, character, &Ligature::character);
    if (ligature == Ligatures.end()) {
        return false;
    }
    glyphs.insert(glyphs.end(), ligature->letters.begin(), ligature->letters.end());
    return true;
}

/// The same for a character that is made of others: of these, as many as glyphs look like.
bool AddGlyphs(std::vector<GlyphCode>& glyphs, const ui::TextCharacter& character) {
    if (AddGlyphs(glyphs, character.code)) {
        return true;
    }
    bool isLike = false;
    for (const char32_t part : character.parts) {
        isLike = AddGlyphs(glyphs, part) || isLike;
    }
    return isLike;
}

void AddUtf8(std::string& text, char32_t character) {
    const auto add = [&text](char32_t byte) {
        text.push_back(static_cast<char>(static_cast<unsigned char>(byte)));
    };
    const auto addRest = [&add, character](unsigned bits) {
        add(0x80U | ((character >> bits) & 0x3FU));
    };
    if (character < 0x80) {
        add(character);
        return;
    }
    if (character < 0x800) {
        add(0xC0U | (character >> 6U));
    } else {
        if (character < 0x10000) {
            add(0xE0U | (character >> 12U));
        } else {
            add(0xF0U | (character >> 18U));
            addRest(12);
        }
        addRest(6);
    }
    addRest(0);
}

} // namespace

char32_t LookAlikeOf(GlyphCode code) {
    const auto shape = static_cast<std::size_t>(code % ColourDistance);
    if (code >= ColourDistance && shape < SliderSigns.size()) {
        return SliderSigns[shape];
    }
    if (shape < OrnamentSigns.size()) {
        return OrnamentSigns[shape];
    }
    return shape == ArrowToLeft ? SignOfLeftArrow : static_cast<char32_t>(shape);
}

std::string LookAlikeText(std::span<const GlyphCode> row) {
    std::string text;
    for (const GlyphCode code : row) {
        AddUtf8(text, LookAlikeOf(code));
    }
    text.resize(text.find_last_not_of(' ') + 1);
    return text;
}

FittedText FitText(std::span<const ui::TextCharacter> text) {
    FittedText fitted;
    std::u32string unlike;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char32_t character = text[i].code;
        const bool isPair = character == U'\r' && i + 1 < text.size() && text[i + 1].code == U'\n';
        if (!isPair && !AddGlyphs(fitted.glyphs, text[i]) && !ShowsNothing(character) &&
            unlike.find(character) == std::u32string::npos) {
            fitted.isMoreUnlike = unlike.size() == MostUnlike;
            if (!fitted.isMoreUnlike) {
                unlike.push_back(character);
            }
        }
    }
    while (!fitted.glyphs.empty() && fitted.glyphs.back() == BlankGlyph) {
        fitted.glyphs.pop_back();
    }
    for (const char32_t character : unlike) {
        AddUtf8(fitted.unlike, character);
    }
    return fitted;
}

} // namespace glyphs
