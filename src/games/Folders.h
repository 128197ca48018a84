// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "games/Engines.h"
#include "ui/System.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Where games look for the scripts that they run, and where they keep their settings.
namespace games {

using ui::System;

/// What the folders of games lie in.
enum class Place : std::uint8_t {
    Game,        ///< the folder that a game was put into, wherever that is
    Home,        ///< of the user
    Data,        ///< what the user's programs keep: XDG_DATA_HOME
    Fte,         ///< FTEHOME
    Documents,   ///< Windows: Documents
    SavedGames,  ///< Windows: Saved Games
    AppData,     ///< Windows: %APPDATA%
    LocalAppData ///< Windows: %LOCALAPPDATA%
};

inline constexpr std::size_t PlaceCount = 8;

/// A folder that an engine looks in.
struct FolderRule {
    System system;
    Place place;
    std::string_view folder; ///< within the place, with '/' between folders; empty: the place itself
    std::string_view
        config; ///< the file that the engine saves its settings in, within the place; empty: none
    Sighting seen;
};

/// An engine looks into its folders in the order of these.
[[nodiscard]] std::span<const FolderRule> FolderRules();

/// Where the places are here.
struct Places {
    std::array<ui::Path, PlaceCount> paths =
        {};                           ///< in the order of Place; empty: there is none. Not of Game.
    std::vector<ui::Path> games = {}; ///< folders that games were put into

    [[nodiscard]] ui::Path& operator[](Place place) { return paths.at(static_cast<std::size_t>(place)); }

    [[nodiscard]] const ui::Path& operator[](Place place) const {
        return paths.at(static_cast<std::size_t>(place));
    }
};

/// How the disk is looked at.
struct FolderLook {
    std::function<bool(const ui::Path&)> isFolder;
    /// Whether the user can make files in a folder.
    std::function<bool(const ui::Path&)> isWritable;
    /// When a file was last written; nothing if there is none.
    std::function<std::optional<std::filesystem::file_time_type>(const ui::Path&)> writtenAt;
};

/// The real disk.
[[nodiscard]] FolderLook LookAtDisk();

/// Where games have their folders on a computer.
struct GamesHere {
    System system = System::Linux;
    Places places = {};
    FolderLook look = LookAtDisk();
};

/// The folders that games were put into, for Places: where systems put them, and those that one of the files
/// lies in or below, as far as games are there.
[[nodiscard]] std::vector<ui::Path> FindGames(std::span<const ui::Path> files, const GamesHere& here);

/// A folder that is there.
struct FoundFolder {
    ui::Path path;
    std::vector<Engine> engines; ///< that look in it, the one with the newest settings first
    ui::Path config = {};        ///< the newest file of settings; empty: none is there
};

/// The folders to offer for scripts: those that are there and can be written, the one with the newest
/// settings first and those without any last. The place of a game itself is none.
[[nodiscard]] std::vector<FoundFolder> FindFolders(const GamesHere& here);

/// Who looks for scripts in a folder.
struct Lookers {
    std::vector<Engine> engines = {};
    bool isOfMod = false; ///< whether they look there only while the mod of the folder's name is played
};

/// The engines that run a script in a folder by its mere name. A folder of another place is taken for a
/// game's by what it is called and by what lies beside it.
[[nodiscard]] Lookers LookersIn(const ui::Path& folder, const GamesHere& here);

/// The engines that keep their settings in a file. One of another place is taken for a game's by what it and
/// its folders are called.
[[nodiscard]] std::vector<Engine> EnginesWithConfig(const ui::Path& config, const GamesHere& here);

/// A file that an engine reads in the place of another one.
struct ConfigInstead {
    Engine engine;
    ui::Path path;
};

/// The files that engines read in the place of a game's own config.cfg, as players have one in folders of
/// their own.
[[nodiscard]] std::vector<ConfigInstead> ConfigsInstead(const ui::Path& config, const GamesHere& here);

/// What is to be typed into the console to run a script in the game's folder: "exec clan.vtn".
[[nodiscard]] std::string ExecCommand(std::string_view fileName);

} // namespace games
