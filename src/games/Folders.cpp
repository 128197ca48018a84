// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "games/Folders.h"

#include "ui/System.h"

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
        FolderRule{Linux, Game, Id1, Id1Config, First},
        FolderRule{Linux, Home, ".quakespasm/id1", ".quakespasm/id1/config.cfg", SpasmHere},
        FolderRule{Linux, Game, Id1, Id1Config, SpasmHere},
        FolderRule{Linux, Home, ".ironwail/.original/id1", ".ironwail/.original/id1/ironwail.cfg", Iron},
        FolderRule{Linux, Home, ".ironwail/.rerelease/id1", ".ironwail/.rerelease/id1/ironwail.cfg", Iron},
        FolderRule{Linux, Game, Id1, IronConfig, Iron},
        FolderRule{Linux, Data, "vkQuake/id1", "vkQuake/id1/vkQuake.cfg", Vk},
        FolderRule{Linux, Game, Id1, VkConfig, Vk},
        FolderRule{Linux, Home, ".darkplaces/id1", ".darkplaces/id1/config.cfg", DarkHere},
        FolderRule{Linux, Game, Id1, "", DarkHere},
        FolderRule{Linux, Home, ".ezquake", ".ezquake/config.cfg", EzHere},
        FolderRule{Linux, Game, "qw", EzConfig, EzHere},
        FolderRule{Linux, Game, "ezquake", EzConfig, EzHere},
        FolderRule{Linux, Game, Id1, "", EzHere},
        FolderRule{Linux, Game, "", EzConfig, EzHere},
        FolderRule{Linux, Fte, Id1, "", FteRead},
        FolderRule{Linux, Home, ".fte/id1", "", FteRead},
        FolderRule{Linux, Data, "fte/id1", "", FteRead},
        FolderRule{Linux, Game, "fte", "", FteRead},
        FolderRule{Linux, Game, "qw", "", FteRead},
        FolderRule{Linux, Game, Id1, "", FteRead},
        FolderRule{Linux, Game, BaseQ2, BaseQ2Config, First2},
        FolderRule{Linux, Home, ".yq2/baseq2", ".yq2/baseq2/config.cfg", YamagiHere},
        FolderRule{Linux, Data, "YamagiQ2/baseq2", "YamagiQ2/baseq2/config.cfg", YamagiSource},
        FolderRule{Linux, Game, BaseQ2, "", YamagiHere},
        FolderRule{Linux, Home, ".q2pro/baseq2", ".q2pro/baseq2/config.cfg", Q2ProRead},
        FolderRule{Linux, Game, BaseQ2, BaseQ2Config, Q2ProRead},

        FolderRule{Windows, Game, Id1, Id1Config, First},
        FolderRule{Windows, Game, Id1, Id1Config, Spasm},
        FolderRule{Windows, SavedGames, "Ironwail/original/id1", "Ironwail/original/id1/ironwail.cfg", Iron},
        FolderRule{
            Windows, SavedGames, "Ironwail/rerelease/id1", "Ironwail/rerelease/id1/ironwail.cfg", Iron},
        FolderRule{Windows, Game, Id1, IronConfig, Iron},
        FolderRule{Windows, AppData, "vkQuake/id1", "vkQuake/id1/vkQuake.cfg", Vk},
        FolderRule{Windows, Game, Id1, VkConfig, Vk},
        FolderRule{Windows, SavedGames, "darkplaces/id1", "darkplaces/id1/config.cfg", Dark},
        FolderRule{Windows, Documents, "My Games/darkplaces/id1", "My Games/darkplaces/id1/config.cfg", Dark},
        FolderRule{Windows, Game, Id1, "", Dark},
        FolderRule{Windows, Documents, "ezQuake", "ezQuake/config.cfg", Ez},
        FolderRule{Windows, Game, "qw", EzConfig, Ez},
        FolderRule{Windows, Game, "ezquake", EzConfig, Ez},
        FolderRule{Windows, Game, Id1, "", Ez},
        FolderRule{Windows, Game, "", EzConfig, Ez},
        FolderRule{Windows, LocalAppData, "FTE Quake", "", FteRead},
        FolderRule{Windows, Documents, "My Games/FTE Quake", "", FteRead},
        FolderRule{Windows, Game, "fte", "", FteRead},
        FolderRule{Windows, Game, "qw", "", FteRead},
        FolderRule{Windows, Game, Id1, "", FteRead},
        FolderRule{Windows, Game, BaseQ2, BaseQ2Config, First2},
        FolderRule{Windows, Documents, "YamagiQ2/baseq2", "YamagiQ2/baseq2/config.cfg", YamagiSource},
        FolderRule{Windows, Game, BaseQ2, "", YamagiSource},
        FolderRule{Windows, Game, BaseQ2, BaseQ2Config, Q2ProRead},

        FolderRule{
            MacOs, Home, "Library/Application Support/QuakeSpasm/id1",
            "Library/Application Support/QuakeSpasm/id1/config.cfg", Spasm},
        FolderRule{MacOs, Game, Id1, Id1Config, Spasm},
        FolderRule{MacOs, Home, "Library/Application Support/Ironwail", "", Iron},
        FolderRule{MacOs, Game, Id1, IronConfig, Iron},
        FolderRule{MacOs, Home, "Library/Application Support/vkQuake", "", Vk},
        FolderRule{MacOs, Game, Id1, VkConfig, Vk},
        FolderRule{
            MacOs, Home, "Library/Application Support/darkplaces/id1",
            "Library/Application Support/darkplaces/id1/config.cfg", Dark},
        FolderRule{MacOs, Game, Id1, "", Dark},
        FolderRule{MacOs, Home, ".ezquake", ".ezquake/config.cfg", Ez},
        FolderRule{MacOs, Game, "qw", EzConfig, Ez},
        FolderRule{MacOs, Game, "ezquake", EzConfig, Ez},
        FolderRule{MacOs, Game, Id1, "", Ez},
        FolderRule{MacOs, Game, "", EzConfig, Ez},
        FolderRule{MacOs, Home, ".yq2/baseq2", ".yq2/baseq2/config.cfg", YamagiSource},
        FolderRule{MacOs, Game, BaseQ2, "", YamagiSource},
    };
}

constexpr auto Folders = MakeFolders();

/// The folders with a game's own files. That of a mod lies beside it.
constexpr std::array<std::string_view, 2> OwnFolders{"id1", "baseq2"};

/// Where systems put the files of games.
struct KnownGame {
    System system;
    std::string_view folder;
};

constexpr std::array KnownGames{
    KnownGame{System::Linux, "/usr/share/games/quake"}, KnownGame{System::Linux, "/usr/share/games/quake2"}};

/// From a file in BASE/ezquake/configs to BASE.
constexpr int MostLevels = 3;

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

/// A path as it is compared with others: on Windows capitals make no difference.
ui::Path ComparedOn(System system, const ui::Path& path) {
    std::string text = ui::PathText(path);
    if (system == System::Windows) {
        std::ranges::transform(text, text.begin(), [](char letter) {
            return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
        });
    }
    return ui::PathFromText(text);
}

void AddOnce(std::vector<Engine>& engines, Engine engine) {
    if (std::ranges::find(engines, engine) == engines.end()) {
        engines.push_back(engine);
    }
}

/// A rule's folder or its file of settings.
using Member = std::string_view FolderRule::*;

/// The engines whose folder or file in one of the user's folders is the one at a plain path.
std::vector<Engine> EnginesAtUsers(const ui::Path& path, const GamesHere& here, Member member) {
    std::vector<Engine> engines;
    const ui::Path wanted = ComparedOn(here.system, path);
    for (const FolderRule& rule : Folders) {
        if (rule.system == here.system && rule.place != Place::Game && !(rule.*member).empty() &&
            !here.places[rule.place].empty() &&
            wanted == ComparedOn(here.system, PlainPath(here.places[rule.place] / (rule.*member)))) {
            AddOnce(engines, rule.seen.engine);
        }
    }
    return engines;
}

/// The engines whose folder or file in a game's folder, wherever that lies, is called like a plain path.
std::vector<Engine> EnginesAtGames(const ui::Path& path, const GamesHere& here, Member member) {
    std::vector<Engine> engines;
    const ui::Path wanted = ComparedOn(here.system, path);
    for (const FolderRule& rule : Folders) {
        if (rule.system == here.system && rule.place == Place::Game &&
            EndsWith(wanted, ComparedOn(here.system, rule.*member))) {
            AddOnce(engines, rule.seen.engine);
        }
    }
    return engines;
}

/// The engines that look in a folder whatever is played.
std::vector<Engine> AlwaysLookingIn(const ui::Path& folder, const GamesHere& here) {
    std::vector<Engine> engines = EnginesAtUsers(folder, here, &FolderRule::folder);
    if (engines.empty()) {
        engines = EnginesAtGames(folder, here, &FolderRule::folder);
    }
    for (const FolderRule& rule : Folders) {
        // An engine's own folder tells that its game is the one in there.
        if (engines.empty() && rule.system == here.system && rule.folder.empty() && !folder.empty() &&
            here.look.isFolder((folder / rule.config).parent_path())) {
            engines.push_back(rule.seen.engine);
        }
    }
    return engines;
}

/// Whether the files of a game lie in a folder that is not one of the user's.
bool HoldsGame(const ui::Path& folder, const GamesHere& here) {
    return std::ranges::any_of(OwnFolders, [&](std::string_view own) {
        const ui::Path path = folder / own;
        return here.look.isFolder(path) && EnginesAtUsers(path, here, &FolderRule::folder).empty();
    });
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
    if (place.empty() || !look.isFolder(path) || !look.isWritable(path)) {
        return;
    }
    auto known = std::ranges::find_if(
        candidates, [&path](const Candidate& candidate) { return candidate.found.path == path; });
    if (known == candidates.end()) {
        candidates.push_back({{path, {}}, {}});
        known = std::prev(candidates.end());
    }
    std::vector<Engine>& engines = known->found.engines;
    const ui::Path config = rule.config.empty() ? ui::Path() : place / rule.config;
    const WriteTime written = config.empty() ? WriteTime() : look.writtenAt(config);
    // Nothing is older than any time.
    if (written > known->written) {
        known->written = written;
        known->found.config = config;
        engines.insert(engines.begin(), rule.seen.engine);
    } else {
        engines.push_back(rule.seen.engine);
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
    return {isFolder, ui::IsWritableFolder, writtenAt};
}

std::vector<ui::Path> FindGames(std::span<const ui::Path> files, const GamesHere& here) {
    std::vector<ui::Path> games;
    const auto add = [&games, &here](const ui::Path& folder) {
        if (std::ranges::find(games, folder) == games.end() && HoldsGame(folder, here)) {
            games.push_back(folder);
        }
    };
    for (const ui::Path& file : files) {
        ui::Path folder = PlainPath(file);
        for (int level = 0; level < MostLevels && folder.has_relative_path(); ++level) {
            folder = folder.parent_path();
            add(folder);
        }
    }
    for (const KnownGame& game : KnownGames) {
        if (game.system == here.system) {
            add(game.folder);
        }
    }
    return games;
}

std::vector<FoundFolder> FindFolders(const GamesHere& here) {
    std::vector<Candidate> candidates;
    for (const FolderRule& rule : Folders) {
        if (rule.system != here.system || rule.folder.empty()) {
            continue;
        }
        if (rule.place != Place::Game) {
            AddFolder(candidates, rule, here.places[rule.place], here.look);
            continue;
        }
        for (const ui::Path& game : here.places.games) {
            AddFolder(candidates, rule, game, here.look);
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

Lookers LookersIn(const ui::Path& folder, const GamesHere& here) {
    const ui::Path plain = PlainPath(folder);
    if (std::vector<Engine> engines = AlwaysLookingIn(plain, here); !engines.empty()) {
        return {std::move(engines)};
    }
    for (const std::string_view own : OwnFolders) {
        const ui::Path beside = plain.parent_path() / own;
        if (plain.has_filename() && here.look.isFolder(beside)) {
            return {AlwaysLookingIn(beside, here), true};
        }
    }
    return {};
}

std::vector<Engine> EnginesWithConfig(const ui::Path& config, const GamesHere& here) {
    const ui::Path plain = PlainPath(config);
    const bool isUsers = !EnginesAtUsers(plain.parent_path(), here, &FolderRule::folder).empty();
    std::vector<Engine> engines = EnginesAtUsers(plain, here, &FolderRule::config);
    return engines.empty() && !isUsers ? EnginesAtGames(plain, here, &FolderRule::config) : engines;
}

std::vector<ConfigInstead> ConfigsInstead(const ui::Path& config, const GamesHere& here) {
    const ui::Path plain = PlainPath(config);
    const ui::Path folder = plain.parent_path();
    std::vector<ConfigInstead> instead;
    if (here.system != System::Linux || plain.filename() != "config.cfg" ||
        !EnginesAtUsers(folder, here, &FolderRule::folder).empty()) {
        return instead;
    }
    const std::vector<Engine> engines = EnginesAtGames(folder, here, &FolderRule::folder);
    for (const FolderRule& rule : Folders) {
        const ui::Path end = folder.filename() / plain.filename();
        const bool isItsOwn = rule.place != Place::Game && EndsWith(rule.config, end) &&
                              std::ranges::find(engines, rule.seen.engine) != engines.end();
        const ui::Path path = here.places[rule.place] / rule.config;
        if (isItsOwn && rule.system == here.system && !here.places[rule.place].empty() &&
            here.look.writtenAt(path)) {
            instead.push_back({rule.seen.engine, path});
        }
    }
    return instead;
}

std::string ExecCommand(std::string_view fileName) {
    const std::string name(fileName);
    return name.find(' ') == std::string::npos ? "exec " + name : "exec \"" + name + "\"";
}

} // namespace games
