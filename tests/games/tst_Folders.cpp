// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "games/Folders.h"

#include "support/TempProgramDirectory.h"

#include <gtest/gtest.h>

#include <chrono>
#include <map>
#include <set>

namespace {

using games::Engine;
using games::FoundFolder;
using games::Place;
using games::Places;
using games::System;

/// A disk with folders, and files of settings by how many minutes ago they were written.
struct FakeDisk {
    std::set<std::string> folders;
    std::map<std::string, int> files;

    [[nodiscard]] games::FolderLook look() const {
        const auto isFolder = [this](const ui::Path& path) {
            return folders.contains(ui::PathText(path));
        };
        const auto writtenAt = [this](const ui::Path& path) {
            const auto file = files.find(ui::PathText(path));
            return file == files.end()
                       ? std::nullopt
                       : std::optional(
                             std::filesystem::file_time_type() - std::chrono::minutes(file->second));
        };
        return {isFolder, writtenAt};
    }
};

Places LinuxPlaces() {
    Places places;
    places[Place::Home] = "/home/r";
    places[Place::Data] = "/home/r/.local/share";
    return places;
}

/// The engines' names, in order.
std::string Names(const std::vector<Engine>& engines) {
    std::string text;
    for (const Engine engine : engines) {
        text += (text.empty() ? "" : ", ") + std::string(games::FactsOf(engine).name);
    }
    return text;
}

std::string FolderLines(const std::vector<FoundFolder>& folders) {
    std::string text;
    for (const FoundFolder& folder : folders) {
        text += ui::PathText(folder.path) + " (" + Names(folder.engines) + ") " +
                ui::PathText(folder.config) + "\n";
    }
    return text;
}

std::string LookingIn(const ui::Path& folder, System system = System::Linux) {
    return Names(games::EnginesLookingIn(folder, system, LinuxPlaces()));
}

std::string WithConfig(const ui::Path& config) {
    return Names(games::EnginesWithConfig(config, System::Linux, LinuxPlaces()));
}

/// What the engines' own folders are on a system, one a line.
std::string OfferedOn(System system) {
    constexpr std::array Names{"GAME", "HOME", "DATA", "FTEHOME", "DOCUMENTS", "SAVED", "APPDATA", "LOCAL"};
    static_assert(Names.size() == games::PlaceCount);
    std::string text;
    for (const games::FolderRule& rule : games::FolderRules()) {
        if (rule.system == system && rule.isOffered) {
            text += std::string(games::FactsOf(rule.seen.engine).name) + " " +
                    Names.at(static_cast<std::size_t>(rule.place)) + "/" + std::string(rule.folder) + "\n";
        }
    }
    return text;
}

} // namespace

TEST(Folders, AreKnownForEverySystem) {
    EXPECT_EQ(
        OfferedOn(System::Linux), "original Quake GAME/id1\n"
                                  "QuakeSpasm HOME/.quakespasm/id1\n"
                                  "QuakeSpasm GAME/id1\n"
                                  "Ironwail HOME/.ironwail/.original/id1\n"
                                  "Ironwail HOME/.ironwail/.rerelease/id1\n"
                                  "Ironwail GAME/id1\n"
                                  "vkQuake DATA/vkQuake/id1\n"
                                  "vkQuake GAME/id1\n"
                                  "DarkPlaces HOME/.darkplaces/id1\n"
                                  "ezQuake HOME/.ezquake\n"
                                  "ezQuake GAME/qw\n"
                                  "ezQuake GAME/ezquake\n"
                                  "FTE FTEHOME/id1\n"
                                  "FTE HOME/.fte/id1\n"
                                  "FTE DATA/fte/id1\n"
                                  "original Quake II GAME/baseq2\n"
                                  "Yamagi Quake II HOME/.yq2/baseq2\n"
                                  "Yamagi Quake II DATA/YamagiQ2/baseq2\n"
                                  "Q2PRO HOME/.q2pro/baseq2\n"
                                  "Q2PRO GAME/baseq2\n");
    EXPECT_EQ(
        OfferedOn(System::Windows), "original Quake GAME/id1\n"
                                    "QuakeSpasm GAME/id1\n"
                                    "Ironwail SAVED/Ironwail/original/id1\n"
                                    "Ironwail SAVED/Ironwail/rerelease/id1\n"
                                    "Ironwail GAME/id1\n"
                                    "vkQuake APPDATA/vkQuake/id1\n"
                                    "DarkPlaces SAVED/darkplaces/id1\n"
                                    "DarkPlaces DOCUMENTS/My Games/darkplaces/id1\n"
                                    "ezQuake DOCUMENTS/ezQuake\n"
                                    "ezQuake GAME/qw\n"
                                    "FTE LOCAL/FTE Quake\n"
                                    "FTE DOCUMENTS/My Games/FTE Quake\n"
                                    "original Quake II GAME/baseq2\n"
                                    "Yamagi Quake II DOCUMENTS/YamagiQ2/baseq2\n"
                                    "Q2PRO GAME/baseq2\n");
    EXPECT_EQ(
        OfferedOn(System::MacOs), "QuakeSpasm HOME/Library/Application Support/QuakeSpasm/id1\n"
                                  "Ironwail HOME/Library/Application Support/Ironwail\n"
                                  "vkQuake HOME/Library/Application Support/vkQuake\n"
                                  "DarkPlaces HOME/Library/Application Support/darkplaces/id1\n"
                                  "ezQuake HOME/.ezquake\n"
                                  "ezQuake GAME/qw\n"
                                  "ezQuake GAME/ezquake\n"
                                  "Yamagi Quake II HOME/.yq2/baseq2\n");
    for (const games::FolderRule& rule : games::FolderRules()) {
        EXPECT_NE(games::VersionOf(rule.seen), "") << rule.folder;
        const bool isFirst =
            rule.seen.engine == Engine::FirstQuake || rule.seen.engine == Engine::FirstQuake2;
        EXPECT_TRUE(rule.system == System::Linux || isFirst || rule.seen.evidence == games::Evidence::Read);
    }
}

TEST(Folders, ThoseThatAreThereAreFoundWithTheNewestSettingsFirst) {
    FakeDisk disk;
    disk.folders = {
        "/home/r/.quakespasm/id1", "/home/r/.darkplaces/id1", "/home/r/.yq2/baseq2", "/home/r/.fte/id1"};
    disk.files = {
        {"/home/r/.quakespasm/id1/config.cfg", 30},
        {"/home/r/.darkplaces/id1/config.cfg", 5},
        {"/home/r/.yq2/baseq2/config.cfg", 10}};
    EXPECT_EQ(
        FolderLines(games::FindFolders(System::Linux, LinuxPlaces(), disk.look())),
        "/home/r/.darkplaces/id1 (DarkPlaces) /home/r/.darkplaces/id1/config.cfg\n"
        "/home/r/.yq2/baseq2 (Yamagi Quake II) /home/r/.yq2/baseq2/config.cfg\n"
        "/home/r/.quakespasm/id1 (QuakeSpasm) /home/r/.quakespasm/id1/config.cfg\n"
        "/home/r/.fte/id1 (FTE) \n");
    EXPECT_EQ(FolderLines(games::FindFolders(System::Linux, LinuxPlaces(), FakeDisk().look())), "");
    EXPECT_EQ(FolderLines(games::FindFolders(System::Linux, Places(), disk.look())), "") << "nobody's home";
}

TEST(Folders, AFolderOfTheGameIsFoundOnceForAllItsEngines) {
    Places places = LinuxPlaces();
    places.games = {"/opt/quake", "/opt/quake2/"};
    FakeDisk disk;
    disk.folders = {"/opt/quake/id1", "/opt/quake/qw", "/opt/quake2/baseq2"};
    disk.files = {
        {"/opt/quake/id1/config.cfg", 30},
        {"/opt/quake/id1/vkQuake.cfg", 3},
        {"/opt/quake/ezquake/configs/config.cfg", 1}};
    EXPECT_EQ(
        FolderLines(games::FindFolders(System::Linux, places, disk.look())),
        "/opt/quake/qw (ezQuake) /opt/quake/ezquake/configs/config.cfg\n"
        "/opt/quake/id1 (original Quake, QuakeSpasm, Ironwail, vkQuake) /opt/quake/id1/vkQuake.cfg\n"
        "/opt/quake2/baseq2 (original Quake II, Q2PRO) \n");
}

TEST(Folders, WindowsHasPlacesOfItsOwn) {
    Places places;
    places[Place::Documents] = "/docs";
    places[Place::SavedGames] = "/saved";
    FakeDisk disk;
    disk.folders = {"/docs/YamagiQ2/baseq2", "/saved/darkplaces/id1"};
    disk.files = {{"/saved/darkplaces/id1/config.cfg", 1}};
    EXPECT_EQ(
        FolderLines(games::FindFolders(System::Windows, places, disk.look())),
        "/saved/darkplaces/id1 (DarkPlaces) /saved/darkplaces/id1/config.cfg\n"
        "/docs/YamagiQ2/baseq2 (Yamagi Quake II) \n");
}

TEST(Folders, TellWhoLooksInThem) {
    EXPECT_EQ(LookingIn("/home/r/.quakespasm/id1"), "QuakeSpasm") << "no game was put there";
    EXPECT_EQ(LookingIn("/home/r/.quakespasm/id1/"), "QuakeSpasm");
    EXPECT_EQ(LookingIn("/home/r/x/../.yq2/./baseq2"), "Yamagi Quake II");
    EXPECT_EQ(LookingIn("/home/r/.ezquake"), "ezQuake");
    EXPECT_EQ(
        LookingIn("/opt/quake/id1"),
        "original Quake, QuakeSpasm, Ironwail, vkQuake, DarkPlaces, ezQuake, FTE");
    EXPECT_EQ(LookingIn("/opt/quake/qw"), "ezQuake, FTE");
    EXPECT_EQ(LookingIn("/opt/quake2/baseq2"), "original Quake II, Yamagi Quake II, Q2PRO");
    EXPECT_EQ(LookingIn("/opt/quake/ezquake/configs"), "");
    EXPECT_EQ(LookingIn("/home/r"), "");
    EXPECT_EQ(LookingIn("/opt/vtm/bin"), "");
    EXPECT_EQ(LookingIn("/opt/quake/ID1"), "") << "capitals must match";
    EXPECT_EQ(LookingIn("/opt/myid1"), "");
    EXPECT_EQ(LookingIn(""), "");
}

TEST(Folders, TellWhoseSettingsAFileHolds) {
    EXPECT_EQ(WithConfig("/home/r/.darkplaces/id1/config.cfg"), "DarkPlaces");
    EXPECT_EQ(WithConfig("/opt/quake/id1/config.cfg"), "original Quake, QuakeSpasm");
    EXPECT_EQ(WithConfig("/opt/quake/id1/ironwail.cfg"), "Ironwail");
    EXPECT_EQ(WithConfig("/opt/quake/ezquake/configs/config.cfg"), "ezQuake");
    EXPECT_EQ(WithConfig("/opt/quake2/baseq2/config.cfg"), "original Quake II, Q2PRO");
    EXPECT_EQ(WithConfig("/home/r/config.cfg"), "");
    EXPECT_EQ(WithConfig("/opt/quake/id1/autoexec.cfg"), "");
}

TEST(Folders, AreLookedAtOnTheDisk) {
    const support::TempFolder folder;
    const ui::Path config = folder.put(".yq2/baseq2/config.cfg", "set name \"x\"");
    const games::FolderLook look = games::LookAtDisk();
    EXPECT_TRUE(look.isFolder(config.parent_path()));
    EXPECT_FALSE(look.isFolder(config));
    EXPECT_FALSE(look.isFolder(folder / "none"));
    EXPECT_TRUE(look.writtenAt(config).has_value());
    EXPECT_FALSE(look.writtenAt(folder / "none").has_value());
    Places places;
    places[Place::Home] = folder.path();
    const auto found = games::FindFolders(System::Linux, places, look);
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found.front().config, config);
}

TEST(Folders, AScriptIsRunByItsName) {
    EXPECT_EQ(games::ExecCommand("clan.vtn"), "exec clan.vtn");
    EXPECT_EQ(games::ExecCommand("my name.vtn"), "exec \"my name.vtn\"");
}
