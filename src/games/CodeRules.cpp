// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "games/CodeRules.h"

#include <algorithm>
#include <array>

namespace games {

namespace {

constexpr Sighting SpasmRun{Engine::QuakeSpasm, Evidence::Run};
constexpr Sighting EzRun{Engine::EzQuake, Evidence::Run};
constexpr Sighting EzRead{Engine::EzQuake, Evidence::Read};
constexpr Sighting MvdsvRun{Engine::Mvdsv, Evidence::Run};
constexpr Sighting MvdsvRead{Engine::Mvdsv, Evidence::Read};
constexpr Sighting YamagiRun{Engine::Yamagi, Evidence::Run};
constexpr Sighting YamagiRead{Engine::Yamagi, Evidence::Read};

constexpr auto MakeRules() {
    using enum Family;
    using enum Station;
    using enum Action;
    using enum Reason;
    return std::array{
        CodeRule{Quake, Own, 0, 255, Keep, None, SpasmRun},
        CodeRule{Quake, Own, 0, 0, EndText, None, SpasmRun},
        CodeRule{Quake, Own, '\n', '\n', EndText, RestIsRun, SpasmRun},
        CodeRule{Quake, Own, '"', '"', Refuse, EndsQuotes, SpasmRun},
        CodeRule{Quake, Others, 0, 255, Keep, None, SpasmRun},

        CodeRule{QuakeWorld, Own, 0, 255, Keep, None, EzRead},
        CodeRule{QuakeWorld, Own, 0, 0, EndText, None, EzRun},
        CodeRule{QuakeWorld, Own, '\n', '\n', EndText, RestIsRun, EzRead},
        CodeRule{QuakeWorld, Own, '\r', '\r', Drop, None, EzRead},
        CodeRule{QuakeWorld, Own, '"', '"', Refuse, EndsQuotes, EzRead},
        CodeRule{QuakeWorld, Others, 0, 255, Keep, None, MvdsvRead},
        CodeRule{QuakeWorld, Others, 1, 9, Drop, None, MvdsvRead},
        CodeRule{QuakeWorld, Others, 11, 12, Drop, None, MvdsvRead},
        CodeRule{QuakeWorld, Others, ' ', ' ', DropAtEnds, None, MvdsvRead},
        CodeRule{QuakeWorld, Others, '#', '#', Refuse, Unnamed, MvdsvRead},
        CodeRule{QuakeWorld, Others, '$', '$', Refuse, ServerRefuses, MvdsvRead},
        CodeRule{QuakeWorld, Others, ';', ';', Refuse, ServerRefuses, MvdsvRead},
        CodeRule{QuakeWorld, Others, '\\', '\\', Refuse, NotSent, EzRead},
        CodeRule{QuakeWorld, Others, '^', '^', ColourNext, None, MvdsvRun},
        CodeRule{QuakeWorld, Others, 160, 160, DropAtEnds, None, MvdsvRead},
        CodeRule{QuakeWorld, Others, 220, 220, Refuse, ServerRefuses, MvdsvRead},
        CodeRule{QuakeWorld, Others, 255, 255, Drop, None, MvdsvRead},

        CodeRule{Quake2, Own, 0, 255, Keep, None, YamagiRead},
        CodeRule{Quake2, Own, 0, 0, Refuse, GameRefuses, YamagiRead},
        CodeRule{Quake2, Own, '\n', '\n', Refuse, GameRefuses, YamagiRead},
        CodeRule{Quake2, Own, '"', '"', Refuse, GameRefuses, YamagiRead},
        CodeRule{Quake2, Own, ';', ';', Refuse, GameRefuses, YamagiRead},
        CodeRule{Quake2, Own, '\\', '\\', Refuse, GameRefuses, YamagiRead},
        CodeRule{Quake2, Others, 0, 255, Keep, None, YamagiRun},
        CodeRule{Quake2, Others, 0, 31, Drop, None, YamagiRun},
        CodeRule{Quake2, Others, 127, 159, Drop, None, YamagiRun},
        CodeRule{Quake2, Others, 160, 254, StripColour, None, YamagiRun},
        CodeRule{Quake2, Others, 162, 162, Refuse, BadInfo, YamagiRun},
        CodeRule{Quake2, Others, 187, 187, Refuse, BadInfo, YamagiRun},
        CodeRule{Quake2, Others, 220, 220, EndText, None, YamagiRun},
        CodeRule{Quake2, Others, 255, 255, Drop, None, YamagiRun},

        CodeRule{Quake, Message, 0, 255, Keep, None, SpasmRun},
        CodeRule{Quake, Message, 0, 0, EndText, None, SpasmRun},
        CodeRule{Quake, Message, '\n', '\n', EndText, RestIsRun, SpasmRun},
        CodeRule{Quake, Message, '"', '"', EndText, EndsQuotes, SpasmRun},

        CodeRule{QuakeWorld, Message, 0, 255, Keep, None, EzRun},
        CodeRule{QuakeWorld, Message, 0, 0, EndText, None, EzRun},
        CodeRule{QuakeWorld, Message, '\n', '\n', EndText, RestIsRun, EzRead},
        CodeRule{QuakeWorld, Message, '\r', '\r', Drop, None, EzRead},
        CodeRule{QuakeWorld, Message, '"', '"', EndText, EndsQuotes, EzRead},
        CodeRule{QuakeWorld, Message, 255, 255, Drop, None, EzRead},

        CodeRule{Quake2, Message, 0, 255, Keep, None, YamagiRun},
        CodeRule{Quake2, Message, 0, 0, EndText, None, YamagiRun},
        CodeRule{Quake2, Message, '\n', '\n', EndText, RestIsRun, YamagiRead},
        CodeRule{Quake2, Message, '\r', '\r', Drop, None, YamagiRead},
        CodeRule{Quake2, Message, '"', '"', EndText, EndsQuotes, YamagiRead},
    };
}

constexpr auto Rules = MakeRules();

constexpr std::array Pairs{
    PairRule{Family::QuakeWorld, Station::Own, 'r', 0, Reason::ColourCode, EzRun},
    PairRule{Family::QuakeWorld, Station::Own, 'c', 3, Reason::ColourCode, EzRun},
    PairRule{Family::QuakeWorld, Station::Others, 'c', 0, Reason::ColourCode, MvdsvRun},
};

constexpr std::array Turns{TurnRule{Family::QuakeWorld, '$', EzRun}};

constexpr std::array WholeNames{
    WholeNameRule{Family::QuakeWorld, "", Reason::NoName, MvdsvRead},
    WholeNameRule{Family::QuakeWorld, "console", Reason::ReservedName, MvdsvRead},
};

constexpr std::size_t PlaceOf(Family family, Station station, std::size_t code) {
    const std::size_t table =
        static_cast<std::size_t>(family) * StationCount + static_cast<std::size_t>(station);
    return table * glyphs::GlyphCount + code;
}

/// For every family, station and glyph the rule that holds, by its place among the rules.
constexpr auto MakeIndex() {
    std::array<std::uint8_t, Families.size() * StationCount * glyphs::GlyphCount> index{};
    static_assert(Rules.size() < 256);
    for (std::size_t rule = 0; rule < Rules.size(); ++rule) {
        const CodeRule& that = Rules.at(rule);
        for (std::size_t code = that.first; code <= that.last; ++code) {
            index.at(PlaceOf(that.family, that.station, code)) = static_cast<std::uint8_t>(rule);
        }
    }
    return index;
}

constexpr auto RuleIndex = MakeIndex();

} // namespace

std::span<const CodeRule> CodeRules() {
    return Rules;
}

const CodeRule& RuleOf(Family family, Station station, GlyphCode code) {
    return Rules[RuleIndex[PlaceOf(family, station, static_cast<unsigned char>(code))]];
}

std::span<const PairRule> PairRules() {
    return Pairs;
}

const TurnRule* TurnOf(Family family, std::span<const GlyphCode> row, std::size_t place) {
    const auto isSign = [&row](std::size_t at) {
        return at < row.size() && row[at] > glyphs::BlankGlyph && row[at] < 127;
    };
    const auto found = std::ranges::find_if(Turns, [&](const TurnRule& rule) {
        return rule.family == family && rule.code == row[place] && isSign(place + 1) &&
               row[place + 1] != rule.code;
    });
    return found == Turns.end() ? nullptr : &*found;
}

std::span<const WholeNameRule> WholeNameRules() {
    return WholeNames;
}

} // namespace games
