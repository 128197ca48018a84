// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/RunText.h"

#include "games/Findings.h"
#include "games/Lists.h"
#include "scripts/BindHints.h"

#include <algorithm>

namespace shell {

namespace {

using games::Engine;
using games::Family;

/// Takes away the engines of games that are not played.
void KeepPlayed(std::vector<Engine>& engines, const GameWorld& world) {
    std::erase_if(engines, [&world](Engine engine) {
        return std::ranges::find(world.families, games::FactsOf(engine).family) == world.families.end();
    });
}

/// The engines of the families that run scripts.
std::vector<Engine> EnginesOf(std::span<const Family> families) {
    std::vector<Engine> engines;
    for (const games::ScriptLimit& limit : games::ScriptLimits()) {
        const Engine engine = limit.seen.engine;
        if (std::ranges::find(families, games::FactsOf(engine).family) != families.end()) {
            engines.push_back(engine);
        }
    }
    return engines;
}

std::vector<Family> FamiliesOf(const std::vector<Engine>& engines) {
    std::vector<Family> families;
    std::ranges::copy_if(games::Families, std::back_inserter(families), [&engines](Family family) {
        return std::ranges::any_of(
            engines, [family](Engine engine) { return games::FactsOf(engine).family == family; });
    });
    return families;
}

/// That a script is too long for some of the engines; empty: for none. `fit`: how it does not fit.
std::string TooLongText(
    const games::ScriptSize& size, const std::vector<Engine>& engines, games::Fit fit,
    const std::string& beginning) {
    std::vector<std::string_view> names;
    for (const Engine engine : engines) {
        const auto limit = std::ranges::find_if(games::ScriptLimits(), [engine](const auto& candidate) {
            return candidate.seen.engine == engine;
        });
        if (limit != games::ScriptLimits().end() && games::FitOf(*limit, size) == fit) {
            names.push_back(games::FactsOf(engine).name);
        }
    }
    if (names.empty()) {
        return {};
    }
    const std::size_t bytes = fit == games::Fit::LineTooLong ? size.longestLine : size.bytes;
    return beginning + " " + games::ListText(names) + ": " + games::BytesText(bytes) + ".";
}

/// A game that does not know the command of a script; empty: all know it.
std::string CommandTrouble(const std::vector<Family>& families, glyphs::NameCommand command) {
    for (const Family family : families) {
        const games::CommandRule& rule = games::RuleOf(family, command);
        if (!rule.runs) {
            return "In " + std::string(games::NameOf(family)) + " " + std::string(rule.text) + ".";
        }
    }
    return {};
}

/// What keeps a key from running the script, whose command is typed with quotes; empty: nothing.
std::string FileNameTrouble(const ui::Path& script, const std::vector<Family>& families) {
    const bool hasBlank = ui::PathText(script.filename()).find(' ') != std::string::npos;
    return hasBlank ? "No key can run a script with a blank in its file name."
                    : scripts::ScriptNameHint(script, families);
}

/// The weightiest thing that stands in a script's way.
std::string TroubleText(
    const editing::SaveOutcome& written, const std::vector<Engine>& engines,
    const std::vector<Family>& families) {
    const games::ScriptSize size = games::SizeOf(written.script);
    std::string text = written.command ? CommandTrouble(families, *written.command) : std::string();
    const auto orElse = [&text](auto&& make) {
        if (text.empty()) {
            text = make();
        }
    };
    orElse([&] { return TooLongText(size, engines, games::Fit::TooLong, "Too long for"); });
    orElse([&] { return TooLongText(size, engines, games::Fit::LineTooLong, "A line is too long for"); });
    orElse([&] { return FileNameTrouble(written.path, families); });
    orElse([&] { return TooLongText(size, engines, games::Fit::MayNotFit, "It may be too long for"); });
    return text;
}

} // namespace

std::string RunText(const editing::SaveOutcome& written, const GameWorld& world) {
    if (world.families.empty()) {
        return {};
    }
    const std::string name = ui::PathText(written.path.filename());
    std::vector<Engine> engines = games::LookersIn(written.path.parent_path(), world.here).engines;
    const std::string noGame = engines.empty() ? "No known game" : "None of your games";
    KeepPlayed(engines, world);
    const bool isFound = !engines.empty();
    if (!isFound) {
        engines = EnginesOf(world.families);
    }
    const std::vector<Family> families = FamiliesOf(engines);

    const games::NameTrouble trouble = games::TroubleOfScriptName(name, families);
    if (trouble.kind == games::NameTrouble::Kind::EveryGame && trouble.byte != ' ') {
        return scripts::ScriptNameHint(written.path, families);
    }
    std::string text = TroubleText(written, engines, families);
    const bool isRun = !written.command || std::ranges::any_of(families, [&written](Family family) {
        return games::RuleOf(family, *written.command).runs;
    });
    text += text.empty() ? "" : " ";
    if (!isRun) {
        return text + "Save it again and answer Yes to the Quake2 question.";
    }
    const std::string command = games::ExecCommand(name);
    return text +
           (isFound ? "Type " + command + " in the console to run it."
                    : noGame + " looks in this folder; in a game's, " + command + " in the console runs it.");
}

} // namespace shell
