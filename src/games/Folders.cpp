// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "games/Folders.h"

#include <algorithm>
#include <array>
#include <utility>

namespace games {

namespace {

constexpr auto MakeFolders() {
    using enum System;
    using enum Place;
    constexpr Sighting First{Engine::FirstQuake, Evidence::Run};
    constexpr Sighting First2{Engine::FirstQuake2, Evidence::Run};
    constexpr Sighting SpasmHere{Engine::QuakeSpasm, Evidence::Run};
    constexpr Sighting Spasm{Engine::QuakeSpasm, Evidence::Read};
    constexpr Sighting Vk{Engine::VkQuake, Evidence::Read};
    constexpr Sighting Iron{Engine::Ironwail, Evidence::Read};
    constexpr Sighting DarkHere{Engine::DarkPlaces, Evidence::Run};
    constexpr Sighting Dark{Engine::DarkPlaces, Evidence::Read};
    constexpr Sighting EzHere{Engine::EzQuake, Evidence::Run};
    constexpr Sighting Ez{Engine::EzQuake, Evidence::Read};
    constexpr Sighting FteRead{Engine::Fte, Evidence::Read};
    constexpr Sighting YamagiHere{Engine::Yamagi, Evidence::Run};
    constexpr Sighting YamagiSource{Engine::Yamagi, Evidence::Read};
    constexpr Sighting Q2ProRead{Engine::Q2Pro, Evidence::Read};
    constexpr std::string_view Id1 = "id1";
    constexpr std::string_view BaseQ2 = "baseq2";
    constexpr std::string_view Id1Config = "id1/config.cfg";
    constexpr std::string_view BaseQ2Config = "baseq2/config.cfg";
    constexpr std::string_view IronConfig = "id1/ironwail.cfg";
    constexpr std::string_view VkConfig = "id1/vkQuake.cfg";
    constexpr std::string_view EzConfig = "ezquake/configs/config.cfg";
    return std::array{
        FolderRule{Linux, Game, Id1, Id1Config, true, First},
        FolderRule{Linux, Home, ".quakespasm/id1", ".quakespasm/id1/config.cfg", true, SpasmHere},
        FolderRule{Linux, Game, Id1, Id1Config, true, SpasmHere},
        FolderRule{
            Linux, Home, ".ironwail/.original/id1", ".ironwail/.original/id1/ironwail.cfg", true, Iron},
        FolderRule{
            Linux, Home, ".ironwail/.rerelease/id1", ".ironwail/.rerelease/id1/ironwail.cfg", true, Iron},
        FolderRule{Linux, Game, Id1, IronConfig, true, Iron},
        FolderRule{Linux, Data, "vkQuake/id1", "vkQuake/id1/vkQuake.cfg", true, Vk},
        FolderRule{Linux, Game, Id1, VkConfig, true, Vk},
        FolderRule{Linux, Home, ".darkplaces/id1", ".darkplaces/id1/config.cfg", true, DarkHere},
        FolderRule{Linux, Game, Id1, "", false, DarkHere},
        FolderRule{Linux, Home, ".ezquake", ".ezquake/config.cfg", true, EzHere},
        FolderRule{Linux, Game, "qw", EzConfig, true, EzHere},
        FolderRule{Linux, Game, "ezquake", EzConfig, true, EzHere},
        FolderRule{Linux, Game, Id1, "", false, EzHere},
        FolderRule{Linux, Fte, Id1, "", true, FteRead},
        FolderRule{Linux, Home, ".fte/id1", "", true, FteRead},
        FolderRule{Linux, Data, "fte/id1", "", true, FteRead},
        FolderRule{Linux, Game, "fte", "", false, FteRead},
        FolderRule{Linux, Game, "qw", "", false, FteRead},
        FolderRule{Linux, Game, Id1, "", false, FteRead},
        FolderRule{Linux, Game, BaseQ2, BaseQ2Config, true, First2},
        FolderRule{Linux, Home, ".yq2/baseq2", ".yq2/baseq2/config.cfg", true, YamagiHere},
        FolderRule{Linux, Data, "YamagiQ2/baseq2", "YamagiQ2/baseq2/config.cfg", true, YamagiSource},
        FolderRule{Linux, Game, BaseQ2, "", false, YamagiHere},
        FolderRule{Linux, Home, ".q2pro/baseq2", ".q2pro/baseq2/config.cfg", true, Q2ProRead},
        FolderRule{Linux, Game, BaseQ2, BaseQ2Config, true, Q2ProRead},

        FolderRule{Windows, Game, Id1, Id1Config, true, First},
        FolderRule{Windows, Game, Id1, Id1Config, true, Spasm},
        FolderRule{
            Windows, SavedGames, "Ironwail/original/id1", "Ironwail/original/id1/ironwail.cfg", true, Iron},
        FolderRule{
            Windows, SavedGames, "Ironwail/rerelease/id1", "Ironwail/rerelease/id1/ironwail.cfg", true, Iron},
        FolderRule{Windows, Game, Id1, IronConfig, true, Iron},
        FolderRule{Windows, AppData, "vkQuake/id1", "vkQuake/id1/vkQuake.cfg", true, Vk},
        FolderRule{Windows, SavedGames, "darkplaces/id1", "darkplaces/id1/config.cfg", true, Dark},
        FolderRule{
            Windows, Documents, "My Games/darkplaces/id1", "My Games/darkplaces/id1/config.cfg", true, Dark},
        FolderRule{Windows, Documents, "ezQuake", "ezQuake/config.cfg", true, Ez},
        FolderRule{Windows, Game, "qw", EzConfig, true, Ez},
        FolderRule{Windows, LocalAppData, "FTE Quake", "", true, FteRead},
        FolderRule{Windows, Documents, "My Games/FTE Quake", "", true, FteRead},
        FolderRule{Windows, Game, BaseQ2, BaseQ2Config, true, First2},
        FolderRule{Windows, Documents, "YamagiQ2/baseq2", "YamagiQ2/baseq2/config.cfg", true, YamagiSource},
        FolderRule{Windows, Game, BaseQ2, BaseQ2Config, true, Q2ProRead},

        FolderRule{
            MacOs, Home, "Library/Application Support/QuakeSpasm/id1",
            "Library/Application Support/QuakeSpasm/id1/config.cfg", true, Spasm},
        FolderRule{MacOs, Home, "Library/Application Support/Ironwail", "", true, Iron},
        FolderRule{MacOs, Home, "Library/Application Support/vkQuake", "", true, Vk},
        FolderRule{
            MacOs, Home, "Library/Application Support/darkplaces/id1",
            "Library/Application Support/darkplaces/id1/config.cfg", true, Dark},
        FolderRule{MacOs, Home, ".ezquake", ".ezquake/config.cfg", true, Ez},
        FolderRule{MacOs, Game, "qw", EzConfig, true, Ez},
        FolderRule{MacOs, Game, "ezquake", EzConfig, true, Ez},
        FolderRule{MacOs, Home, ".yq2/baseq2", ".yq2/baseq2/config.cfg", true, YamagiSource},
    };
}

constexpr auto Folders = MakeFolders();

using WriteTime = std::optional<std::filesystem::file_time_type>;

/// Whether a path ends with the parts of another.
bool EndsWith(const ui::Path& path, const ui::Path& end) {
    const auto pathParts = std::distance(path.begin(), path.end());
    const auto endParts = std::distance(end.begin(), end.end());
    return endParts > 0 && pathParts >= endParts &&
           std::equal(end.begin(), end.end(), std::next(path.begin(), pathParts - endParts));
}

/// A path without a slash at its end, and without detours.
ui::Path PlainPath(const ui::Path& path) {
    const ui::Path plain = path.lexically_normal();
    return plain.has_filename() ? plain : plain.parent_path();
}

/// The engines whose folder or file, whichever is asked for, is the one at the path.
std::vector<Engine>
EnginesAt(const ui::Path& path, System system, const Places& places, std::string_view FolderRule::*member) {
    const ui::Path plain = PlainPath(path);
    std::vector<Engine> atUsers;
    std::vector<Engine> atGames;
    const auto add = [](std::vector<Engine>& engines, Engine engine) {
        if (std::ranges::find(engines, engine) == engines.end()) {
            engines.push_back(engine);
        }
    };
    for (const FolderRule& rule : Folders) {
        if (rule.system != system || (rule.*member).empty()) {
            continue;
        }
        if (rule.place == Place::Game) {
            if (EndsWith(plain, rule.*member)) {
                add(atGames, rule.seen.engine);
            }
        } else if (!places[rule.place].empty() && plain == PlainPath(places[rule.place] / (rule.*member))) {
            add(atUsers, rule.seen.engine);
        }
    }
    return atUsers.empty() ? atGames : atUsers;
}

/// A folder that was found, and how new its settings are.
struct Candidate {
    FoundFolder found;
    WriteTime written;
};

void AddFolder(
    std::vector<Candidate>& candidates, const FolderRule& rule, const ui::Path& place,
    const FolderLook& look) {
    const ui::Path path = PlainPath(place / rule.folder);
    if (place.empty() || !look.isFolder(path)) {
        return;
    }
    auto known = std::ranges::find_if(
        candidates, [&path](const Candidate& candidate) { return candidate.found.path == path; });
    if (known == candidates.end()) {
        candidates.push_back({{path, {}}, {}});
        known = std::prev(candidates.end());
    }
    known->found.engines.push_back(rule.seen.engine);
    const ui::Path config = rule.config.empty() ? ui::Path() : place / rule.config;
    const WriteTime written = config.empty() ? WriteTime() : look.writtenAt(config);
    // Nothing is older than any time.
    if (written > known->written) {
        known->written = written;
        known->found.config = config;
    }
}

} // namespace

std::span<const FolderRule> FolderRules() {
    return Folders;
}

FolderLook LookAtDisk() {
    const auto isFolder = [](const ui::Path& path) {
        std::error_code error;
        return std::filesystem::is_directory(path, error);
    };
    const auto writtenAt = [](const ui::Path& path) {
        std::error_code error;
        const auto time = std::filesystem::last_write_time(path, error);
        return error ? WriteTime() : WriteTime(time);
    };
    return {isFolder, writtenAt};
}

std::vector<FoundFolder> FindFolders(System system, const Places& places, const FolderLook& look) {
    std::vector<Candidate> candidates;
    for (const FolderRule& rule : Folders) {
        if (rule.system != system || !rule.isOffered) {
            continue;
        }
        if (rule.place != Place::Game) {
            AddFolder(candidates, rule, places[rule.place], look);
            continue;
        }
        for (const ui::Path& game : places.games) {
            AddFolder(candidates, rule, game, look);
        }
    }
    std::ranges::stable_sort(candidates, std::ranges::greater(), &Candidate::written);
    std::vector<FoundFolder> folders;
    folders.reserve(candidates.size());
    for (Candidate& candidate : candidates) {
        folders.push_back(std::move(candidate.found));
    }
    return folders;
}

std::vector<Engine> EnginesLookingIn(const ui::Path& folder, System system, const Places& places) {
    return EnginesAt(folder, system, places, &FolderRule::folder);
}

std::vector<Engine> EnginesWithConfig(const ui::Path& config, System system, const Places& places) {
    return EnginesAt(config, system, places, &FolderRule::config);
}

std::string ExecCommand(std::string_view fileName) {
    const std::string name(fileName);
    return name.find(' ') == std::string::npos ? "exec " + name : "exec \"" + name + "\"";
}

} // namespace games
