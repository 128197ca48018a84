// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/GameHints.h"

#include "games/Script.h"
#include "scripts/Texts.h"

#include <algorithm>

namespace scripts {

namespace {

using games::Engine;

/// The engines that read a configuration file: those that write it, or those that run it from its folder.
std::vector<Engine> EnginesReading(const ui::Path& config, const GamesHere& here) {
    std::vector<Engine> engines = games::EnginesWithConfig(config, here);
    return engines.empty() ? games::LookersIn(config.parent_path(), here).engines : engines;
}

/// Whether an engine calls its file like this, in whatever folder: a mod's lies in one of its own.
bool IsNameOfConfig(const ui::Path& config) {
    return std::ranges::any_of(games::FolderRules(), [&config](const games::FolderRule& rule) {
        return !rule.config.empty() && ui::Path(rule.config).filename() == config.filename();
    });
}

/// A path as players write it: "~/.yq2/baseq2/config.cfg".
std::string ShortPath(const ui::Path& path, const GamesHere& here) {
    const ui::Path& home = here.places[games::Place::Home];
    const ui::Path within = home.empty() ? ui::Path() : path.lexically_relative(home);
    const bool isWithin = !within.empty() && *within.begin() != "..";
    return isWithin ? "~/" + ui::PathText(within) : ui::PathText(path);
}

} // namespace

std::string ConfigAdvice(const ui::Path& config, const GamesHere& here) {
    std::string advice;
    for (const games::ConfigInstead& instead : games::ConfigsInstead(config, here)) {
        advice +=
            texts::ReadsInstead(games::FactsOf(instead.engine).name, ShortPath(instead.path, here)) + " ";
    }
    const std::vector<Engine> writers = games::EnginesWithConfig(config, here);
    const bool isWritten =
        writers.empty() ? IsNameOfConfig(config) : std::ranges::any_of(writers, [](Engine engine) {
            // That one writes it only when it is told to.
            return engine != Engine::EzQuake;
        });
    return isWritten ? advice + texts::QuitGameFirst : advice;
}

std::string ScriptPlaceHint(const ui::Path& script, const ui::Path& config, const GamesHere& here) {
    if (script.empty() || config.empty()) {
        return {};
    }
    const std::vector<Engine> readers = EnginesReading(config, here);
    const games::Lookers lookers = games::LookersIn(script.parent_path(), here);
    const auto finder = std::ranges::find_first_of(readers, lookers.engines);
    if (readers.empty()) {
        return {};
    }
    if (finder == readers.end()) {
        return texts::NotLookedAt(games::FactsOf(readers.front()).name);
    }
    const ui::Path mod = script.parent_path().filename();
    const bool isItsConfig = config.parent_path().filename() == mod;
    return lookers.isOfMod && !isItsConfig
               ? texts::LookedAtInMod(games::FactsOf(*finder).name, ui::PathText(mod))
               : std::string();
}

std::string KeyHint(std::string_view key, const ui::Path& config, const GamesHere& here) {
    const games::KeyRule* trouble = games::TroubleOfKey(EnginesReading(config, here), key);
    return trouble == nullptr ? std::string()
                              : texts::Beginning(games::FactsOf(trouble->seen.engine).name) + " " +
                                    std::string(trouble->text) + ".";
}

} // namespace scripts
