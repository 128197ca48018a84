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

/// A path as it is written here, with slashes.
std::string TextOf(const ui::Path& path) {
    return path.generic_string();
}

/// A disk with folders, and files of settings by how many minutes ago they were written.
struct FakeDisk {
    std::set<std::string> folders;
    std::map<std::string, int> files;
    std::string readOnly; ///< a folder that cannot be written

    [[nodiscard]] games::FolderLook look() const {
        const auto isFolder = [this](const ui::Path& path) {
            return folders.contains(TextOf(path));
        };
        const auto isWritable = [this](const ui::Path& path) {
            return TextOf(path) != readOnly;
        };
        const auto writtenAt = [this](const ui::Path& path) {
            const auto file = files.find(TextOf(path));
            return file == files.end()
                       ? std::nullopt
                       : std::optional(
                             std::filesystem::file_time_type() - std::chrono::minutes(file->second));
        };
        return {isFolder, isWritable, writtenAt};
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
        text += TextOf(folder.path) + " (" + Names(folder.engines) + ") " + TextOf(folder.config) + "\n";
    }
    return text;
}

/// Who looks in a folder of a disk; in brackets: only while its mod is played.
std::string LookingIn(const ui::Path& folder, const FakeDisk& disk = {}, System system = System::Linux) {
    const games::Lookers lookers = games::LookersIn(folder, {system, LinuxPlaces(), disk.look()});
    return lookers.isOfMod ? "(" + Names(lookers.engines) + ")" : Names(lookers.engines);
}

std::string WithConfig(const ui::Path& config) {
    return Names(games::EnginesWithConfig(config, {System::Linux, LinuxPlaces(), FakeDisk().look()}));
}

/// What is read in the place of a configuration, one a line.
std::string ReadInsteadOf(const ui::Path& config, const FakeDisk& disk, System system = System::Linux) {
    std::string text;
    for (const games::ConfigInstead& instead :
         games::ConfigsInstead(config, {system, LinuxPlaces(), disk.look()})) {
        text += std::string(games::FactsOf(instead.engine).name) + " " + TextOf(instead.path) + "\n";
    }
    return text;
}

std::string GamesOf(const std::vector<ui::Path>& files, const FakeDisk& disk, System system = System::Linux) {
    std::string text;
    for (const ui::Path& game : games::FindGames(files, {system, LinuxPlaces(), disk.look()})) {
        text += TextOf(game) + "\n";
    }
    return text;
}

/// Where engines look on a system, one a line.
std::string LookedInOn(System system) {
    constexpr std::array Names{"GAME", "HOME", "DATA", "FTEHOME", "DOCUMENTS", "SAVED", "APPDATA", "LOCAL"};
    static_assert(Names.size() == games::PlaceCount);
    std::string text;
    for (const games::FolderRule& rule : games::FolderRules()) {
        if (rule.system == system) {
            text += std::string(games::FactsOf(rule.seen.engine).name) + " " +
                    Names.at(static_cast<std::size_t>(rule.place)) + "/" + std::string(rule.folder) + "\n";
        }
    }
    return text;
}

} // namespace

TEST(Folders, AreKnownForEverySystem) {
    EXPECT_EQ(
        LookedInOn(System::Linux), "original Quake GAME/id1\n"
                                   "QuakeSpasm HOME/.quakespasm/id1\n"
                                   "QuakeSpasm GAME/id1\n"
                                   "Ironwail HOME/.ironwail/.original/id1\n"
                                   "Ironwail HOME/.ironwail/.rerelease/id1\n"
                                   "Ironwail GAME/id1\n"
                                   "vkQuake DATA/vkQuake/id1\n"
                                   "vkQuake GAME/id1\n"
                                   "DarkPlaces HOME/.darkplaces/id1\n"
                                   "DarkPlaces GAME/id1\n"
                                   "ezQuake HOME/.ezquake\n"
                                   "ezQuake GAME/qw\n"
                                   "ezQuake GAME/ezquake\n"
                                   "ezQuake GAME/id1\n"
                                   "ezQuake GAME/\n"
                                   "FTE FTEHOME/id1\n"
                                   "FTE HOME/.fte/id1\n"
                                   "FTE DATA/fte/id1\n"
                                   "FTE GAME/fte\n"
                                   "FTE GAME/qw\n"
                                   "FTE GAME/id1\n"
                                   "original Quake II GAME/baseq2\n"
                                   "Yamagi Quake II HOME/.yq2/baseq2\n"
                                   "Yamagi Quake II DATA/YamagiQ2/baseq2\n"
                                   "Yamagi Quake II GAME/baseq2\n"
                                   "Q2PRO HOME/.q2pro/baseq2\n"
                                   "Q2PRO GAME/baseq2\n");
    EXPECT_EQ(
        LookedInOn(System::Windows), "original Quake GAME/id1\n"
                                     "QuakeSpasm GAME/id1\n"
                                     "Ironwail SAVED/Ironwail/original/id1\n"
                                     "Ironwail SAVED/Ironwail/rerelease/id1\n"
                                     "Ironwail GAME/id1\n"
                                     "vkQuake APPDATA/vkQuake/id1\n"
                                     "vkQuake GAME/id1\n"
                                     "DarkPlaces SAVED/darkplaces/id1\n"
                                     "DarkPlaces DOCUMENTS/My Games/darkplaces/id1\n"
                                     "DarkPlaces GAME/id1\n"
                                     "ezQuake DOCUMENTS/ezQuake\n"
                                     "ezQuake GAME/qw\n"
                                     "ezQuake GAME/ezquake\n"
                                     "ezQuake GAME/id1\n"
                                     "ezQuake GAME/\n"
                                     "FTE LOCAL/FTE Quake\n"
                                     "FTE DOCUMENTS/My Games/FTE Quake\n"
                                     "FTE GAME/fte\n"
                                     "FTE GAME/qw\n"
                                     "FTE GAME/id1\n"
                                     "original Quake II GAME/baseq2\n"
                                     "Yamagi Quake II DOCUMENTS/YamagiQ2/baseq2\n"
                                     "Yamagi Quake II GAME/baseq2\n"
                                     "Q2PRO GAME/baseq2\n");
    EXPECT_EQ(
        LookedInOn(System::MacOs), "QuakeSpasm HOME/Library/Application Support/QuakeSpasm/id1\n"
                                   "QuakeSpasm GAME/id1\n"
                                   "Ironwail HOME/Library/Application Support/Ironwail\n"
                                   "Ironwail GAME/id1\n"
                                   "vkQuake HOME/Library/Application Support/vkQuake\n"
                                   "vkQuake GAME/id1\n"
                                   "DarkPlaces HOME/Library/Application Support/darkplaces/id1\n"
                                   "DarkPlaces GAME/id1\n"
                                   "ezQuake HOME/.ezquake\n"
                                   "ezQuake GAME/qw\n"
                                   "ezQuake GAME/ezquake\n"
                                   "ezQuake GAME/id1\n"
                                   "ezQuake GAME/\n"
                                   "Yamagi Quake II HOME/.yq2/baseq2\n"
                                   "Yamagi Quake II GAME/baseq2\n");
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
        FolderLines(games::FindFolders({System::Linux, LinuxPlaces(), disk.look()})),
        "/home/r/.darkplaces/id1 (DarkPlaces) /home/r/.darkplaces/id1/config.cfg\n"
        "/home/r/.yq2/baseq2 (Yamagi Quake II) /home/r/.yq2/baseq2/config.cfg\n"
        "/home/r/.quakespasm/id1 (QuakeSpasm) /home/r/.quakespasm/id1/config.cfg\n"
        "/home/r/.fte/id1 (FTE) \n");
    EXPECT_EQ(FolderLines(games::FindFolders({System::Linux, LinuxPlaces(), FakeDisk().look()})), "");
    EXPECT_EQ(FolderLines(games::FindFolders({System::Linux, Places(), disk.look()})), "") << "nobody's home";
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
        FolderLines(games::FindFolders({System::Linux, places, disk.look()})),
        "/opt/quake/qw (ezQuake, FTE) /opt/quake/ezquake/configs/config.cfg\n"
        "/opt/quake/id1 (vkQuake, original Quake, QuakeSpasm, Ironwail, DarkPlaces, ezQuake, FTE) "
        "/opt/quake/id1/vkQuake.cfg\n"
        "/opt/quake2/baseq2 (original Quake II, Yamagi Quake II, Q2PRO) \n");
}

TEST(Folders, ThoseThatCannotBeWrittenAreNotOffered) {
    Places places = LinuxPlaces();
    places.games = {"/usr/share/games/quake", "/opt/quake"};
    FakeDisk disk;
    disk.folders = {"/usr/share/games/quake/id1", "/opt/quake/qw"};
    disk.readOnly = "/usr/share/games/quake/id1";
    EXPECT_EQ(
        FolderLines(games::FindFolders({System::Linux, places, disk.look()})),
        "/opt/quake/qw (ezQuake, FTE) \n");
}

TEST(Folders, GamesAreFoundByTheFilesInThem) {
    FakeDisk disk;
    disk.folders = {"/opt/quake/id1", "/mnt/q2/baseq2", "/home/r/.quakespasm/id1", "/home/r/.yq2/baseq2"};
    EXPECT_EQ(GamesOf({"/opt/quake/id1/config.cfg"}, disk), "/opt/quake\n");
    EXPECT_EQ(
        GamesOf(
            {"/opt/quake/ezquake/configs/config.cfg", "/opt/quake/ctf/a.vtn", "/mnt/q2/quake2.vtn"}, disk),
        "/opt/quake\n/mnt/q2\n")
        << "each once";
    EXPECT_EQ(GamesOf({"/home/r/.quakespasm/id1/a.vtn", "/home/r/.yq2/baseq2/config.cfg"}, disk), "")
        << "no game was put there";
    EXPECT_EQ(GamesOf({"/opt/quake/a/b/c/a.vtn", "/opt/x.vtn", "/home/r/a.vtn", "a.vtn", ""}, disk), "");
    disk.folders = {"/usr/share/games/quake/id1", "/usr/share/games/quake2/baseq2"};
    EXPECT_EQ(GamesOf({}, disk), "/usr/share/games/quake\n/usr/share/games/quake2\n");
    EXPECT_EQ(GamesOf({}, disk, System::Windows), "");
}

TEST(Folders, WindowsHasPlacesOfItsOwn) {
    Places places;
    places[Place::Documents] = "/docs";
    places[Place::SavedGames] = "/saved";
    FakeDisk disk;
    disk.folders = {"/docs/YamagiQ2/baseq2", "/saved/darkplaces/id1"};
    disk.files = {{"/saved/darkplaces/id1/config.cfg", 1}};
    EXPECT_EQ(
        FolderLines(games::FindFolders({System::Windows, places, disk.look()})),
        "/saved/darkplaces/id1 (DarkPlaces) /saved/darkplaces/id1/config.cfg\n"
        "/docs/YamagiQ2/baseq2 (Yamagi Quake II) \n");
}

TEST(Folders, WindowsDoesNotMindCapitals) {
    const auto lookingIn = [](const char* folder) {
        Places places;
        places[Place::SavedGames] = "/Users/r/Saved Games";
        return Names(games::LookersIn(folder, {System::Windows, places, FakeDisk().look()}).engines);
    };
    EXPECT_EQ(
        lookingIn("/Quake/ID1"), "original Quake, QuakeSpasm, Ironwail, vkQuake, DarkPlaces, ezQuake, FTE");
    EXPECT_EQ(lookingIn("/users/R/saved games/Darkplaces/Id1"), "DarkPlaces");
    EXPECT_EQ(lookingIn("/Quake/ID2"), "");
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

TEST(Folders, AModsLiesBesideTheGamesOwn) {
    FakeDisk disk;
    disk.folders = {"/opt/quake/id1", "/opt/quake2/baseq2", "/home/r/.yq2/baseq2"};
    EXPECT_EQ(
        LookingIn("/opt/quake/ctf", disk),
        "(original Quake, QuakeSpasm, Ironwail, vkQuake, DarkPlaces, ezQuake, FTE)");
    EXPECT_EQ(LookingIn("/opt/quake2/ctf/", disk), "(original Quake II, Yamagi Quake II, Q2PRO)");
    EXPECT_EQ(LookingIn("/home/r/.yq2/ctf", disk), "(Yamagi Quake II)");
    EXPECT_EQ(LookingIn("/opt/quake/qw", disk), "ezQuake, FTE");
    EXPECT_EQ(LookingIn("/opt/quake", disk), "") << "beside the game's program";
    EXPECT_EQ(LookingIn("/opt/quake/ctf/maps", disk), "");
    disk.folders.insert("/id1");
    EXPECT_EQ(LookingIn("/", disk), "");
}

TEST(Folders, EzQuakeLooksBesideItsProgram) {
    FakeDisk disk;
    disk.folders = {"/opt/quake/id1", "/opt/quake/ezquake/configs"};
    for (const System system : {System::Linux, System::Windows, System::MacOs}) {
        EXPECT_EQ(LookingIn("/opt/quake", disk, system), "ezQuake");
    }
    EXPECT_EQ(LookingIn("/opt/quake/ezquake", disk), "ezQuake");
    EXPECT_EQ(LookingIn("/opt/quake/ezquake/configs", disk), "");
    Places places;
    places.games = {"/opt/quake"};
    disk.folders.insert("/opt/quake");
    EXPECT_EQ(
        FolderLines(games::FindFolders({System::Linux, places, disk.look()})),
        "/opt/quake/id1 (original Quake, QuakeSpasm, Ironwail, vkQuake, DarkPlaces, ezQuake, FTE) \n")
        << "other games do not look there";
}

TEST(Folders, OfGamesAreKnownOnEverySystem) {
    const std::string quake = "QuakeSpasm, Ironwail, vkQuake, DarkPlaces, ezQuake";
    EXPECT_EQ(LookingIn("/quake/id1", {}, System::Windows), "original Quake, " + quake + ", FTE");
    EXPECT_EQ(LookingIn("/quake/id1", {}, System::MacOs), quake);
    EXPECT_EQ(LookingIn("/quake2/baseq2", {}, System::Windows), "original Quake II, Yamagi Quake II, Q2PRO");
    EXPECT_EQ(LookingIn("/quake2/baseq2", {}, System::MacOs), "Yamagi Quake II");
}

TEST(Folders, TellWhatIsReadInThePlaceOfAGamesOwnConfig) {
    FakeDisk disk;
    disk.files = {
        {"/home/r/.quakespasm/id1/config.cfg", 1},
        {"/home/r/.yq2/baseq2/config.cfg", 1},
        {"/home/r/.ezquake/config.cfg", 1},
        {"/home/r/.local/share/vkQuake/id1/vkQuake.cfg", 1}};
    EXPECT_EQ(
        ReadInsteadOf("/opt/quake/id1/config.cfg", disk), "QuakeSpasm /home/r/.quakespasm/id1/config.cfg\n");
    EXPECT_EQ(
        ReadInsteadOf("/opt/quake2/baseq2/config.cfg", disk),
        "Yamagi Quake II /home/r/.yq2/baseq2/config.cfg\n");
    for (const char* config :
         {"/home/r/.quakespasm/id1/config.cfg", "/home/r/.darkplaces/id1/config.cfg",
          "/opt/quake/id1/autoexec.cfg", "/opt/quake/id1/vkQuake.cfg", "/opt/quake/config.cfg", "config.cfg",
          ""}) {
        EXPECT_EQ(ReadInsteadOf(config, disk), "") << config;
    }
    EXPECT_EQ(ReadInsteadOf("/opt/quake/id1/config.cfg", disk, System::MacOs), "");
    EXPECT_EQ(ReadInsteadOf("/opt/quake/id1/config.cfg", FakeDisk()), "");
}

TEST(Folders, TellWhoseSettingsAFileHolds) {
    EXPECT_EQ(WithConfig("/home/r/.darkplaces/id1/config.cfg"), "DarkPlaces");
    EXPECT_EQ(WithConfig("/opt/quake/id1/config.cfg"), "original Quake, QuakeSpasm");
    EXPECT_EQ(WithConfig("/opt/quake/id1/ironwail.cfg"), "Ironwail");
    EXPECT_EQ(WithConfig("/opt/quake/ezquake/configs/config.cfg"), "ezQuake");
    EXPECT_EQ(WithConfig("/opt/quake2/baseq2/config.cfg"), "original Quake II, Q2PRO");
    EXPECT_EQ(WithConfig("/home/r/config.cfg"), "");
    EXPECT_EQ(WithConfig("/home/r/.fte/id1/config.cfg"), "") << "that folder is of another engine";
    EXPECT_EQ(WithConfig("/opt/quake/id1/autoexec.cfg"), "");
}

TEST(Folders, AreLookedAtOnTheDisk) {
    const support::TempFolder folder;
    const ui::Path config = folder.put(".yq2/baseq2/config.cfg", "set name \"x\"");
    const games::FolderLook look = games::LookAtDisk();
    EXPECT_TRUE(look.isFolder(config.parent_path()));
    EXPECT_FALSE(look.isFolder(config));
    EXPECT_FALSE(look.isFolder(folder / "none"));
    EXPECT_TRUE(look.isWritable(folder.path()));
    EXPECT_FALSE(look.isWritable(folder / "none"));
    EXPECT_TRUE(look.writtenAt(config).has_value());
    EXPECT_FALSE(look.writtenAt(folder / "none").has_value());
    Places places;
    places[Place::Home] = folder.path();
    const auto found = games::FindFolders({System::Linux, places, look});
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found.front().config, config);
}

TEST(Folders, AScriptIsRunByItsName) {
    EXPECT_EQ(games::ExecCommand("clan.vtn"), "exec clan.vtn");
    EXPECT_EQ(games::ExecCommand("my name.vtn"), "exec \"my name.vtn\"");
}
