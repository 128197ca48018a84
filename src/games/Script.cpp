// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "games/Script.h"

#include "games/Lists.h"

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

namespace games {

namespace {

constexpr Evidence Run = Evidence::Run;
constexpr Evidence Read = Evidence::Read;

constexpr std::array CommandRules{
    CommandRule{Family::Quake, NameCommand::Name, true, "", {Engine::QuakeSpasm, Run}},
    CommandRule{
        Family::Quake,
        NameCommand::SetName,
        false,
        "the command \"set\" is unknown: the old name stays",
        {Engine::QuakeSpasm, Run}},
    CommandRule{Family::QuakeWorld, NameCommand::Name, true, "", {Engine::EzQuake, Read}},
    CommandRule{Family::QuakeWorld, NameCommand::SetName, true, "", {Engine::EzQuake, Read}},
    CommandRule{
        Family::Quake2,
        NameCommand::Name,
        true,
        "runs no \"name\" in an autoexec.cfg before its first start",
        {Engine::Yamagi, Run}},
    CommandRule{Family::Quake2, NameCommand::SetName, true, "", {Engine::Yamagi, Read}},
};

constexpr std::size_t NoLimit = std::numeric_limits<std::size_t>::max();
constexpr std::size_t FirstSure = 7965; ///< seen to run; what waits in the buffer with it is little
constexpr std::size_t FirstMost = 8191;
constexpr std::size_t Line = 1023;

constexpr std::array Limits{
    ScriptLimit{FirstSure, FirstMost, Line, true, false, true, {Engine::FirstQuake, Run}},
    ScriptLimit{262143, 262143, Line, true, true, false, {Engine::QuakeSpasm, Read}},
    ScriptLimit{262143, 262143, Line, true, true, false, {Engine::VkQuake, Read}},
    ScriptLimit{262143, 262143, Line, true, true, false, {Engine::Ironwail, Read}},
    ScriptLimit{NoLimit, NoLimit, 16383, true, true, false, {Engine::DarkPlaces, Read}},
    ScriptLimit{262143, 262143, Line, true, true, false, {Engine::EzQuake, Read}},
    ScriptLimit{262143, 262143, Line, true, true, false, {Engine::Fte, Read}},
    ScriptLimit{FirstSure, FirstMost, Line, true, true, true, {Engine::FirstQuake2, Run}},
    ScriptLimit{32767, 32767, Line, true, true, false, {Engine::Yamagi, Read}},
    ScriptLimit{65535, 65535, Line, false, true, false, {Engine::Q2Pro, Read}},
};

/// What an engine does not take in the name of a script that a key runs.
struct ScriptNameRule {
    std::string_view bytes;
    bool takesAbove127;
    std::size_t longest;
    Sighting seen;
};

constexpr std::string_view Quoting = "'(){}";

constexpr std::array ScriptNames{
    ScriptNameRule{Quoting, false, 31, {Engine::FirstQuake, Run}},
    ScriptNameRule{Quoting, false, NoLimit, {Engine::QuakeSpasm, Read}},
    ScriptNameRule{"$", false, 63, {Engine::Yamagi, Read}},
    ScriptNameRule{"", true, 63, {Engine::Q2Pro, Read}},
};

constexpr auto MakeKeys() {
    constexpr std::string_view NoKey = "knows no key of this name";
    constexpr std::string_view Uses = "uses this key unless it is bound anew";
    constexpr std::string_view TakesPicture = "takes a picture with this key unless it is bound anew";
    return std::array{
        KeyRule{"ESC", false, NoKey, {Engine::QuakeSpasm, Read}},
        KeyRule{"ESC", false, NoKey, {Engine::VkQuake, Read}},
        KeyRule{"ESC", false, NoKey, {Engine::Ironwail, Read}},
        KeyRule{"ESC", false, NoKey, {Engine::DarkPlaces, Read}},
        KeyRule{"ESC", false, NoKey, {Engine::EzQuake, Read}},
        KeyRule{"ESC", false, NoKey, {Engine::Yamagi, Read}},
        KeyRule{"ESC", false, NoKey, {Engine::Q2Pro, Read}},
        KeyRule{"\\", false, "calls this key BACKSLASH", {Engine::DarkPlaces, Read}},
        KeyRule{"~", false, "keeps this key for its console", {Engine::Yamagi, Read}},
        KeyRule{"F10", true, Uses, {Engine::QuakeSpasm, Read}},
        KeyRule{"F10", true, Uses, {Engine::EzQuake, Read}},
        KeyRule{"F10", true, Uses, {Engine::Yamagi, Read}},
        KeyRule{"F12", true, TakesPicture, {Engine::QuakeSpasm, Read}},
        KeyRule{"F12", true, TakesPicture, {Engine::EzQuake, Read}},
        KeyRule{"F12", true, TakesPicture, {Engine::Yamagi, Read}},
    };
}

constexpr auto Keys = MakeKeys();

constexpr std::string_view Wait = "wait; ";

unsigned CodeOfByte(char byte) {
    return static_cast<unsigned char>(byte);
}

bool EndsCommand(char byte) {
    return CodeOfByte(byte) <= 32 || CodeOfByte(byte) == 127 || byte == ';' || byte == '"';
}

char CapitalOf(char byte) {
    return byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 'a' + 'A') : byte;
}

/// The bytes of a name without the blanks at its right end.
std::size_t LengthOf(std::span<const GlyphCode> name) {
    std::size_t length = name.size();
    while (length > 0 && name[length - 1] == glyphs::BlankGlyph) {
        --length;
    }
    return length;
}

} // namespace

const CommandRule& RuleOf(Family family, NameCommand command) {
    return *std::ranges::find_if(CommandRules, [family, command](const CommandRule& rule) {
        return rule.family == family && rule.command == command;
    });
}

std::string FamiliesThatRun(NameCommand command) {
    std::vector<std::string_view> names;
    for (const Family family : Families) {
        if (RuleOf(family, command).runs) {
            names.push_back(NameOf(family));
        }
    }
    return ListText(names);
}

std::string CommandText(NameCommand command) {
    std::string text = "writes \"" + std::string(glyphs::CommandWord(command)) + "\": runs in ";
    text += FamiliesThatRun(command);
    std::string notes;
    bool runsEverywhere = true;
    for (const Family family : Families) {
        const CommandRule& rule = RuleOf(family, command);
        runsEverywhere = runsEverywhere && rule.runs;
        if (rule.runs && !rule.text.empty()) {
            notes += ".\n" + std::string(NameOf(family)) + " " + std::string(rule.text);
        }
    }
    return text + (runsEverywhere ? "" : " only") + notes;
}

ScriptSize SizeOf(std::string_view script) {
    ScriptSize size{
        script.size(), 0, script.find('\0') != std::string_view::npos,
        script.find("\r\n") != std::string_view::npos, !script.empty() && script.back() != '\n'};
    for (glyphs::ByteLines lines(script); !lines.atEnd();) {
        size.longestLine = std::max(size.longestLine, lines.next().size());
    }
    return size;
}

ScriptSize SizeOfAnimation(const TimedNames& names, NameCommand command) {
    constexpr std::string_view Header = "// Animation File Created by Vortigo";
    constexpr std::string_view CountLine = "// 15 Names In The Animation Sequence";
    constexpr std::size_t LineEnd = 2;
    constexpr std::size_t Quotes = 2;
    const std::size_t word = command == NameCommand::SetName ? std::string_view("set name ").size()
                                                             : std::string_view("name ").size();
    ScriptSize size{Header.size() + CountLine.size() + 2 * LineEnd, CountLine.size(), false, true};
    for (std::size_t i = 0; i < names.count(); ++i) {
        const std::size_t line = word + Quotes + LengthOf(names.name(i));
        const std::size_t waits = static_cast<std::size_t>(std::max<int>(names.ticks[i], 0)) * Wait.size();
        size.bytes += line + LineEnd + (waits > 0 ? waits + LineEnd : 0);
        size.longestLine = std::max({size.longestLine, line, waits});
        size.hasZero = size.hasZero || std::ranges::find(names.name(i), 0) != names.name(i).end();
    }
    return size;
}

std::span<const ScriptLimit> ScriptLimits() {
    return Limits;
}

Fit FitOf(const ScriptLimit& limit, const ScriptSize& size) {
    if (size.bytes > limit.most) {
        return Fit::TooLong;
    }
    if (size.longestLine > limit.line) {
        return Fit::LineTooLong;
    }
    return size.bytes > limit.sure ? Fit::MayNotFit : Fit::Fits;
}

NameTrouble TroubleOfScriptName(std::string_view name, std::span<const Family> families) {
    using Kind = NameTrouble::Kind;
    if (const auto found = std::ranges::find_if(name, EndsCommand); found != name.end()) {
        return {Kind::EveryGame, *found, RuleOf(families.front(), NameCommand::Name).seen};
    }
    const auto isAsked = [families](const ScriptNameRule& rule) {
        return std::ranges::find(families, FactsOf(rule.seen.engine).family) != families.end();
    };
    for (const char byte : name) {
        for (const ScriptNameRule& rule : ScriptNames) {
            const bool isTaken = rule.bytes.find(byte) == std::string_view::npos &&
                                 (CodeOfByte(byte) <= 127 || rule.takesAbove127);
            if (!isTaken && isAsked(rule)) {
                return {Kind::SomeGames, byte, rule.seen};
            }
        }
    }
    const auto isTooLong = [name, isAsked](const ScriptNameRule& rule) {
        return name.size() > rule.longest && isAsked(rule);
    };
    const auto rule = std::ranges::find_if(ScriptNames, isTooLong);
    return rule == ScriptNames.end() ? NameTrouble{} : NameTrouble{Kind::TooLong, 0, rule->seen};
}

std::span<const KeyRule> KeyRules() {
    return Keys;
}

const KeyRule* TroubleOfKey(std::span<const Engine> engines, std::string_view key) {
    const auto found = std::ranges::find_if(Keys, [engines, key](const KeyRule& rule) {
        return (engines.empty() || std::ranges::find(engines, rule.seen.engine) != engines.end()) &&
               std::ranges::equal(rule.key, key, {}, CapitalOf, CapitalOf);
    });
    return found == Keys.end() ? nullptr : &*found;
}

} // namespace games
