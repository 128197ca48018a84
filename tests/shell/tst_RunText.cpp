// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/RunText.h"

#include "support/FakePlatform.h"

#include <gtest/gtest.h>

namespace {

using editing::SaveOutcome;
using games::Family;
using glyphs::NameCommand;

class RunTextTest : public testing::Test {
protected:
    support::FakePlatform fake;
    std::vector<Family> families{games::Families.begin(), games::Families.end()};
    std::optional<NameCommand> command = NameCommand::Name;
    ui::Bytes script = "name \"x\"\r\n";

    /// What is told of a script that lies there, within the home folder.
    std::string told(const std::string& file) {
        games::GamesHere here;
        here.places[games::Place::Home] = home();
        here.places[games::Place::Data] = home() / ".local/share";
        return shell::RunText(
            SaveOutcome{SaveOutcome::Kind::Written, home() / file, "", script, command}, {families, here});
    }

    [[nodiscard]] ui::Path home() const { return fake.directory.files.path(); }

    static ui::Bytes bytes(std::size_t count) { return ui::Bytes(count, '\n'); }
};

} // namespace

TEST_F(RunTextTest, SaysHowToRunAScript) {
    EXPECT_EQ(told(".yq2/baseq2/clan.vtn"), "Type exec clan.vtn in the console to run it.");
    EXPECT_EQ(told("games/quake/id1/clan.vtn"), "Type exec clan.vtn in the console to run it.");
}

TEST_F(RunTextTest, SaysThatNoGameLooksThere) {
    EXPECT_EQ(
        told("vtm/clan.vtn"),
        "No known game looks in this folder; in a game's, exec clan.vtn in the console runs it.");
    families = {Family::Quake};
    EXPECT_EQ(
        told(".yq2/baseq2/clan.vtn"),
        "None of your games looks in this folder; in a game's, exec clan.vtn in the console runs it.")
        << "nobody plays that game";
}

TEST_F(RunTextTest, TakesAFolderBesideTheGamesOwnForAMods) {
    fake.directory.files.put("quake/id1/config.cfg", "");
    EXPECT_EQ(told("quake/ctf/clan.vtn"), "Type exec clan.vtn in the console to run it.");
    command = NameCommand::SetName;
    fake.directory.files.put("quake2/baseq2/config.cfg", "");
    EXPECT_EQ(told("quake2/ctf/clan.vtn"), "Type exec clan.vtn in the console to run it.");
}

TEST_F(RunTextTest, WarnsOfACommandThatAGameDoesNotKnow) {
    command = NameCommand::SetName;
    EXPECT_EQ(
        told("clan.vtn"),
        "In Quake the command \"set\" is unknown: the old name stays. No known game looks in this folder; in "
        "a game's, exec clan.vtn in the console runs it.");
    EXPECT_EQ(
        told("quake/id1/clan.vtn"), "In Quake the command \"set\" is unknown: the old name stays. Type exec "
                                    "clan.vtn in the console to run it.")
        << "QuakeWorld looks there as well";
    EXPECT_EQ(
        told(".quakespasm/id1/clan.vtn"),
        "In Quake the command \"set\" is unknown: the old name stays. Save it again and answer Yes to the "
        "Quake2 question.");
    EXPECT_EQ(told(".yq2/baseq2/clan.vtn"), "Type exec clan.vtn in the console to run it.");
    families = {Family::QuakeWorld, Family::Quake2};
    EXPECT_EQ(told("quake/id1/clan.vtn"), "Type exec clan.vtn in the console to run it.");
}

TEST_F(RunTextTest, WarnsOfAScriptThatIsTooLong) {
    script = bytes(10517);
    EXPECT_EQ(
        told("quake/id1/a.vta"),
        "Too long for original Quake: 10,517 bytes. Type exec a.vta in the console to run it.");
    EXPECT_EQ(
        told("a.vta"),
        "Too long for original Quake and original Quake II: 10,517 bytes. No known game looks in "
        "this folder; in a game's, exec a.vta in the console runs it.");
    EXPECT_EQ(told(".darkplaces/id1/a.vta"), "Type exec a.vta in the console to run it.");
    script = bytes(8000);
    EXPECT_EQ(
        told("quake2/baseq2/a.vta"),
        "It may be too long for original Quake II: 8,000 bytes. Type exec a.vta in the console to run it.");
    script = bytes(7965);
    EXPECT_EQ(told("quake2/baseq2/a.vta"), "Type exec a.vta in the console to run it.");
    script = ui::Bytes(1024, 'x');
    EXPECT_EQ(
        told(".yq2/baseq2/a.vta"),
        "A line is too long for Yamagi Quake II: 1,024 bytes. Type exec a.vta in the console to run it.");
}

TEST_F(RunTextTest, WarnsOfAFileNameThatStandsInTheWay) {
    EXPECT_EQ(
        told(".yq2/baseq2/my clan.vtn"), "No key can run a script with a blank in its file name. Type exec "
                                         "\"my clan.vtn\" in the console to run it.");
    EXPECT_EQ(told(".yq2/baseq2/a;b.vtn"), "Games cannot run a script with a ; in its file name.");
    EXPECT_EQ(
        told(".yq2/baseq2/a$b.vtn"), "Some games cannot run a script with a $ in its file name. Type exec "
                                     "a$b.vtn in the console to run it.");
    EXPECT_EQ(told(".quakespasm/id1/a$b.vtn"), "Type exec a$b.vtn in the console to run it.")
        << "that is of Quake2 alone";
}

TEST_F(RunTextTest, IsSilentWhereNoGameIsPlayed) {
    families.clear();
    EXPECT_EQ(told("a b.vtn"), "");
}

TEST_F(RunTextTest, AsksMessagesForNoCommand) {
    command.reset();
    EXPECT_EQ(told(".quakespasm/id1/m.vtm"), "Type exec m.vtm in the console to run it.");
}
