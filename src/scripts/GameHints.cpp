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
    std::vector<Engine> engines = games::EnginesWithConfig(config, here.system, here.places);
    return engines.empty() ? games::EnginesLookingIn(config.parent_path(), here.system, here.places)
                           : engines;
}

/// Whether an engine calls its file like this, in whatever folder: a mod's lies in one of its own.
bool IsNameOfConfig(const ui::Path& config) {
    return std::ranges::any_of(games::FolderRules(), [&config](const games::FolderRule& rule) {
        return !rule.config.empty() && ui::Path(rule.config).filename() == config.filename();
    });
}

bool Contains(const std::vector<Engine>& engines, Engine engine) {
    return std::ranges::find(engines, engine) != engines.end();
}

} // namespace

std::string ConfigAdvice(const ui::Path& config, const GamesHere& here) {
    const std::vector<Engine> writers = games::EnginesWithConfig(config, here.system, here.places);
    const bool isWritten =
        writers.empty() ? IsNameOfConfig(config) : std::ranges::any_of(writers, [](Engine engine) {
            // That one writes it only when it is told to.
            return engine != Engine::EzQuake;
        });
    return isWritten ? texts::QuitGameFirst : "";
}

std::string ScriptPlaceHint(const ui::Path& script, const ui::Path& config, const GamesHere& here) {
    if (script.empty() || config.empty()) {
        return {};
    }
    const std::vector<Engine> readers = EnginesReading(config, here);
    const std::vector<Engine> lookers =
        games::EnginesLookingIn(script.parent_path(), here.system, here.places);
    const bool isFound =
        std::ranges::any_of(readers, [&lookers](Engine engine) { return Contains(lookers, engine); });
    return readers.empty() || isFound ? std::string()
                                      : texts::NotLookedAt(games::FactsOf(readers.front()).name);
}

std::string KeyHint(std::string_view key, const ui::Path& config, const GamesHere& here) {
    const std::vector<Engine> readers = EnginesReading(config, here);
    const games::KeyRule* found = nullptr;
    for (const games::Family family : games::Families) {
        const bool isPlayed = readers.empty() || std::ranges::any_of(readers, [family](Engine engine) {
                                  return games::FactsOf(engine).family == family;
                              });
        if (found == nullptr && isPlayed) {
            found = games::TroubleOfKey(family, key);
        }
    }
    return found == nullptr
               ? std::string()
               : std::string(games::FactsOf(found->seen.engine).name) + " " + std::string(found->text) + ".";
}

} // namespace scripts
