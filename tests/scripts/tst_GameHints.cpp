// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/GameHints.h"

#include <gtest/gtest.h>

namespace {

scripts::GamesHere Here() {
    scripts::GamesHere here;
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
        "Quit the game first: it writes this file when it quits. autoexec.cfg beside it is safer.";
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
    EXPECT_EQ(HintOf("ESC", "/home/r/my.cfg"), "QuakeSpasm knows no key of this name.");
    EXPECT_EQ(HintOf("F5", "/home/r/my.cfg"), "");
}
