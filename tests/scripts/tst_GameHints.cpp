// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/GameHints.h"

#include <gtest/gtest.h>

namespace {

/// A disk with a mod beside a game, and with a configuration in the player's folder.
games::FolderLook Look() {
    const auto isFolder = [](const ui::Path& path) {
        return path == "/games/quake/id1";
    };
    const auto writtenAt = [](const ui::Path& path) {
        return path == "/home/r/.q2pro/baseq2/config.cfg"
                   ? std::optional<std::filesystem::file_time_type>(std::in_place)
                   : std::nullopt;
    };
    return {isFolder, isFolder, writtenAt};
}

scripts::GamesHere Here() {
    scripts::GamesHere here{.look = Look()};
    here.places[games::Place::Home] = "/home/r";
    here.places[games::Place::Data] = "/home/r/.local/share";
    return here;
}

std::string PlaceHint(const char* script, const char* config) {
    return scripts::ScriptPlaceHint(script, config, Here());
}

std::string HintOf(const char* key, const char* config) {
    return scripts::KeyHint(key, config, Here());
}

} // namespace

TEST(GameHints, TellToQuitTheGameThatWritesAConfig) {
    const std::string advice =
        "Quit the game first: it writes this file when it quits. Safer: type autoexec.cfg for its name.";
    for (const char* config :
         {"/home/r/.yq2/baseq2/config.cfg", "/games/quake/id1/config.cfg", "/games/quake/id1/ironwail.cfg",
          "/games/quake/ctf/config.cfg"}) {
        EXPECT_EQ(scripts::ConfigAdvice(config, Here()), advice) << config;
    }
    for (const char* config :
         {"", "/home/r/.yq2/baseq2/autoexec.cfg", "/games/quake/id1/binds.cfg",
          "/home/r/.ezquake/config.cfg"}) {
        EXPECT_EQ(scripts::ConfigAdvice(config, Here()), "") << config;
    }
}

TEST(GameHints, TellThatAConfigIsNotRead) {
    EXPECT_EQ(
        scripts::ConfigAdvice("/games/quake2/baseq2/config.cfg", Here()),
        "Q2PRO reads ~/" + ui::PathText(ui::Path(".q2pro/baseq2/config.cfg").make_preferred()) +
            ", not this file. "
            "Quit the game first: it writes this file when it quits. Safer: type autoexec.cfg for its name.");
    scripts::GamesHere here = Here();
    here.places[games::Place::Home] = "/home/r/.q2pro/..";
    EXPECT_TRUE(scripts::ConfigAdvice("/games/quake2/baseq2/config.cfg", here).starts_with("Quit"));
}

TEST(GameHints, TellOfAScriptThatIsFoundInItsModAlone) {
    EXPECT_EQ(
        PlaceHint("/games/quake/ctf/clan.vtn", "/games/quake/id1/config.cfg"),
        "The original Quake looks in this folder only while ctf is played.");
    EXPECT_EQ(
        PlaceHint("/games/quake/ctf/clan.vtn", "/home/r/.quakespasm/id1/config.cfg"),
        "QuakeSpasm looks in this folder only while ctf is played.");
    EXPECT_EQ(PlaceHint("/games/quake/ctf/clan.vtn", "/games/quake/ctf/autoexec.cfg"), "");
    EXPECT_EQ(PlaceHint("/games/quake/id1/clan.vtn", "/games/quake/ctf/autoexec.cfg"), "");
}

TEST(GameHints, TellOfAScriptWhereItsGameDoesNotLook) {
    constexpr auto Quake2 = "/home/r/.yq2/baseq2/config.cfg";
    EXPECT_EQ(
        PlaceHint("/home/r/clan.vtn", Quake2), "Yamagi Quake II does not look for scripts in this folder.");
    EXPECT_EQ(
        PlaceHint("/home/r/.quakespasm/id1/clan.vtn", "/home/r/.yq2/baseq2/autoexec.cfg"),
        "Yamagi Quake II does not look for scripts in this folder.");
    EXPECT_EQ(
        PlaceHint("/games/quake/ezquake/configs/clan.vtn", "/games/quake/ezquake/configs/config.cfg"),
        "ezQuake does not look for scripts in this folder.")
        << "though its configuration lies there";
    EXPECT_EQ(
        PlaceHint("/home/r/clan.vtn", "/games/quake/id1/config.cfg"),
        "The original Quake does not look for scripts in this folder.");
    EXPECT_EQ(PlaceHint("/home/r/.yq2/baseq2/clan.vtn", Quake2), "");
    EXPECT_EQ(PlaceHint("/games/quake/id1/clan.vtn", "/games/quake/id1/config.cfg"), "");
    EXPECT_EQ(PlaceHint("/home/r/clan.vtn", "/home/r/my.cfg"), "") << "nobody knows which game that is";
    EXPECT_EQ(PlaceHint("", Quake2), "");
    EXPECT_EQ(PlaceHint("/home/r/clan.vtn", ""), "");
}

TEST(GameHints, TellOfAKeyThatTheGameDoesNotKnow) {
    constexpr auto Quake2 = "/home/r/.yq2/baseq2/config.cfg";
    EXPECT_EQ(HintOf("ESC", Quake2), "Yamagi Quake II knows no key of this name.");
    EXPECT_EQ(HintOf("~", Quake2), "Yamagi Quake II keeps this key for its console.");
    EXPECT_EQ(HintOf("~", "/home/r/.quakespasm/id1/config.cfg"), "");
    EXPECT_EQ(HintOf("\\", "/home/r/.quakespasm/id1/config.cfg"), "") << "DarkPlaces alone does not know it";
    EXPECT_EQ(HintOf("\\", "/home/r/.darkplaces/id1/autoexec.cfg"), "DarkPlaces calls this key BACKSLASH.");
    EXPECT_EQ(HintOf("ESC", "/home/r/.darkplaces/id1/config.cfg"), "DarkPlaces knows no key of this name.");
    EXPECT_EQ(HintOf("ESC", "/home/r/.q2pro/baseq2/config.cfg"), "Q2PRO knows no key of this name.");
    EXPECT_EQ(HintOf("ESC", "/games/quake/id1/vkQuake.cfg"), "vkQuake knows no key of this name.");
    EXPECT_EQ(HintOf("~", "/home/r/.q2pro/baseq2/config.cfg"), "");
    for (const char* config :
         {"/home/r/.fte/id1/config.cfg", "/home/r/.fte/id1/autoexec.cfg", "/games/quake/fte/fte.cfg"}) {
        EXPECT_EQ(HintOf("ESC", config), "") << config << ": FTE knows it";
    }
    EXPECT_EQ(HintOf("ESC", "/home/r/my.cfg"), "QuakeSpasm knows no key of this name.");
    EXPECT_EQ(HintOf("F5", "/home/r/my.cfg"), "");
}
