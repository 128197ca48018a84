// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "games/Engines.h"
#include "ui/Files.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Where games look for the scripts that they run, and where they keep their settings.
namespace games {

enum class System : std::uint8_t { Linux, Windows, MacOs };

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
    std::string_view folder; ///< within the place, with '/' between folders
    std::string_view
        config;     ///< the file that the engine saves its settings in, within the place; empty: none
    bool isOffered; ///< whether a script is best saved there
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
    /// When a file was last written; nothing if there is none.
    std::function<std::optional<std::filesystem::file_time_type>(const ui::Path&)> writtenAt;
};

/// The real disk.
[[nodiscard]] FolderLook LookAtDisk();

/// A folder that is there.
struct FoundFolder {
    ui::Path path;
    std::vector<Engine> engines; ///< that look in it
    ui::Path config = {};        ///< the newest file of settings; empty: none is there
};

/// The folders to offer for scripts: those that are there, the one with the newest settings first and those
/// without any last.
[[nodiscard]] std::vector<FoundFolder>
FindFolders(System system, const Places& places, const FolderLook& look);

/// The engines that run a script in a folder by its mere name. A folder of another place is taken for a
/// game's by what it is called.
[[nodiscard]] std::vector<Engine>
EnginesLookingIn(const ui::Path& folder, System system, const Places& places);

/// The engines that keep their settings in a file, likewise.
[[nodiscard]] std::vector<Engine>
EnginesWithConfig(const ui::Path& config, System system, const Places& places);

/// What is to be typed into the console to run a script in the game's folder: "exec clan.vtn".
[[nodiscard]] std::string ExecCommand(std::string_view fileName);

} // namespace games
