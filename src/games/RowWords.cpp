// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "games/RowWords.h"

#include <algorithm>

namespace games {

namespace {

/// Which glyphs of a row a note is about.
enum class Match : std::uint8_t {
    Anywhere,
    AtStart, ///< of the row
    AtEnd,   ///< of the row
    NotAtEnd,
    BeforeItself,   ///< with another one behind it
    BeforeDigit,    ///< with a digit behind it
    BeforeVariable, ///< with what begins the name of a variable behind it
    Turned          ///< as TurnRule says
};

struct NoteRule {
    Station station; ///< Message, or Own for a name
    Match match;
    std::uint8_t first;
    std::uint8_t last;
    std::string_view text;
    Sighting seen;
};

constexpr auto MakeNotes() {
    using enum Match;
    constexpr Station Name = Station::Own;
    constexpr Station Message = Station::Message;
    constexpr Sighting FirstQuake{Engine::FirstQuake, Evidence::Run};
    constexpr Sighting FirstQuake2{Engine::FirstQuake2, Evidence::Run};
    constexpr Sighting DarkPlaces{Engine::DarkPlaces, Evidence::Run};
    constexpr Sighting DarkRead{Engine::DarkPlaces, Evidence::Read};
    constexpr Sighting EzQuake{Engine::EzQuake, Evidence::Run};
    constexpr Sighting EzQuakeRead{Engine::EzQuake, Evidence::Read};
    constexpr Sighting Q2Pro{Engine::Q2Pro, Evidence::Read};
    constexpr std::string_view EndsText = "ends the text there";
    constexpr std::string_view TakesQuote = "takes the closing quote for a part of the text";
    constexpr std::string_view TurnsPairs = "makes one glyph of $ and the next";
    constexpr std::string_view ColorMark = "may take the glyph for a color mark";
    constexpr std::string_view Quake2Text = "refuses the name";
    return std::array{
        NoteRule{Name, Anywhere, '\r', '\r', EndsText, DarkRead},
        NoteRule{Name, BeforeVariable, '$', '$', "fills in $variables", DarkPlaces},
        NoteRule{Name, NotAtEnd, '\\', '\\', "cannot store \\", DarkRead},
        NoteRule{Name, AtEnd, '\\', '\\', TakesQuote, DarkRead},
        NoteRule{Name, BeforeDigit, '^', '^', "shows ^ and a digit as a color", DarkRead},
        NoteRule{Name, Anywhere, 255, 255, "ends the text there, and the player is disconnected", FirstQuake},
        NoteRule{Name, Turned, '$', '$', TurnsPairs, EzQuake},
        NoteRule{Name, Anywhere, 162, 162, Quake2Text, Q2Pro},
        NoteRule{Name, Anywhere, 187, 187, Quake2Text, Q2Pro},
        NoteRule{Name, Anywhere, 220, 220, Quake2Text, Q2Pro},

        NoteRule{Message, Anywhere, '\r', '\r', EndsText, DarkRead},
        NoteRule{Message, BeforeItself, '\\', '\\', "makes one \\ of two", DarkRead},
        NoteRule{Message, AtEnd, '\\', '\\', TakesQuote, DarkRead},
        NoteRule{Message, Anywhere, 255, 255, EndsText, FirstQuake},
        NoteRule{Message, AtStart, 1, 2, ColorMark, {Engine::VkQuake, Evidence::Read}},
        NoteRule{Message, Turned, '$', '$', TurnsPairs, EzQuakeRead},
        NoteRule{Message, Anywhere, '%', '%', "puts other words in the place of % and a letter", EzQuakeRead},
        NoteRule{Message, Anywhere, '^', '^', "takes ^ and what stands behind it for a color", EzQuakeRead},
        NoteRule{Message, AtStart, 1, 2, ColorMark, EzQuakeRead},
        NoteRule{Message, Anywhere, 255, 255, EndsText, FirstQuake2},
        NoteRule{Message, AtStart, 1, 2, ColorMark, {Engine::Yamagi, Evidence::Read}},
    };
}

constexpr auto Notes = MakeNotes();

bool BeginsVariable(int code) {
    return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || code == '$' || code == '{';
}

/// Whether a note is about the glyph at a place of a row, which does not end with blanks.
bool IsAbout(const NoteRule& note, std::span<const GlyphCode> row, std::size_t place) {
    if (row[place] < note.first || row[place] > note.last) {
        return false;
    }
    const int next = place + 1 < row.size() ? row[place + 1] : -1;
    switch (note.match) {
    case Match::AtStart:
        return place == 0;
    case Match::AtEnd:
        return next < 0;
    case Match::NotAtEnd:
        return next >= 0;
    case Match::BeforeItself:
        return next == row[place];
    case Match::BeforeDigit:
        return next >= '0' && next <= '9';
    case Match::BeforeVariable:
        return BeginsVariable(next);
    case Match::Turned:
        return TurnOf(FactsOf(note.seen.engine).family, row, place) != nullptr;
    case Match::Anywhere:
        break;
    }
    return true;
}

/// A glyph as a sentence calls it.
std::string SignOf(GlyphCode code) {
    switch (code) {
    case '\n':
        return "a line feed";
    case '\r':
        return "a carriage return";
    case glyphs::BlankGlyph:
        return "a blank";
    default:
        break;
    }
    const auto isSign = [](int plain) {
        return plain > glyphs::BlankGlyph && plain < 127;
    };
    if (isSign(code)) {
        return {static_cast<char>(code)};
    }
    return isSign(code - 128) ? std::string("a colored ") + static_cast<char>(code - 128)
                              : "glyph " + std::to_string(code);
}

std::string CellText(int column) {
    return "cell " + std::to_string(column);
}

/// Why a row is refused, or gets a name in its place.
std::string RefusalText(const RowVerdict& verdict, std::span<const GlyphCode> row) {
    const auto at = static_cast<std::size_t>(std::max(verdict.column, 1) - 1);
    const std::string sign = at < row.size() ? SignOf(row[at]) : "";
    const std::string where = ": " + sign + " in " + CellText(verdict.column);
    const std::string called =
        "the server will call you \"" + std::string(ReplacementOf(verdict.reason)) + "\"";
    switch (verdict.reason) {
    case Reason::NoName:
        return called + (verdict.column == 0 ? ": the name is empty" : ": nothing is left of the name");
    case Reason::ReservedName:
        return called + ": the name is the server's own";
    case Reason::EndsQuotes:
        return "the name breaks off" + where;
    case Reason::ServerRefuses:
        return "the server refuses the name" + where;
    case Reason::UnlessTurned:
        return "refused, except from " + std::string(FactsOf(verdict.seen.engine).name) + where;
    case Reason::GameRefuses:
        return "the game refuses the name" + where;
    case Reason::NotSent:
        return "the game does not send the name" + where;
    case Reason::ColourCode:
        return "the old name stays: &" + SignOf(row[at + 1]) + " in " + CellText(verdict.column) +
               " is a color code";
    default:
        return called + where;
    }
}

/// What is seen of a row that arrives in another form.
RowWords ChangeWords(const RowVerdict& verdict) {
    const bool isMessage = verdict.station == Station::Message;
    const bool isOwn = verdict.station == Station::Own;
    const bool isEmpty = verdict.shownCount == 0;
    std::string text;
    const auto lost = std::ranges::find(verdict.fates, Fate::Lost);
    if (lost != verdict.fates.end()) {
        text = "cut off in " + CellText(static_cast<int>(lost - verdict.fates.begin()) + 1);
        text += verdict.reason == Reason::RestIsRun ? ", and the rest is run as a command; " : "; ";
    }
    text += isMessage ? "players see" : isOwn ? "you see" : "others see";
    text += isEmpty ? (isMessage ? " an empty message" : " an empty name") : ":";
    return {text, !isEmpty};
}

} // namespace

RowWords WordsOf(const RowVerdict& verdict, std::span<const GlyphCode> row) {
    switch (verdict.outcome) {
    case Outcome::Changed:
        return ChangeWords(verdict);
    case Outcome::Replaced:
    case Outcome::Refused:
        return {RefusalText(verdict, row)};
    case Outcome::Kept:
        break;
    }
    return {"kept"};
}

std::vector<EngineNote> NotesOn(Family family, Station station, std::span<const GlyphCode> row) {
    while (!row.empty() && row.back() == glyphs::BlankGlyph) {
        row = row.first(row.size() - 1);
    }
    std::vector<EngineNote> notes;
    for (const NoteRule& rule : Notes) {
        const bool isMessageRule = rule.station == Station::Message;
        if (FactsOf(rule.seen.engine).family != family || isMessageRule != (station == Station::Message)) {
            continue;
        }
        for (std::size_t place = 0; place < row.size(); ++place) {
            if (IsAbout(rule, row, place)) {
                notes.push_back({static_cast<int>(place) + 1, rule.text, rule.seen});
                break;
            }
        }
    }
    return notes;
}

} // namespace games
