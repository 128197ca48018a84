// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/BindHints.h"
#include "scripts/ConfigRewrite.h"
#include "scripts/mdlConfig.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

using scripts::BindingForecast;
using scripts::NameForecast;

namespace {

std::string OfKey(std::string_view config, std::string_view key) {
    return BindingForecast(config, scripts::GetBoundKeys(config), scripts::FindKey(key).value());
}

std::string UnquotedKeysText(std::string_view config) {
    return scripts::UnquotedKeysText(config, scripts::GetBoundKeys(config));
}

/// Config files as games and people write them.
const std::vector<std::string> Configs{
    "",
    "bind \"q\" \"+jump\"\r\nname \"me\"\r\n",
    "set allow_download \"1\"\nbind \"1\" \"impulse 1\"\nset hostname \"x\"\n",
    "// bind \"q\" \"a comment\"\nbind \"q\" \"+jump\"",
    "// bind \"q\" \"only a comment\"\r\n// name\r\n",
    "bind q \"+jump\"\nbind 1 \"impulse 1\"",
    "seta name \"x\"\rbind \"q\" \"+jump\"\r",
    "alias \"q\" \"quit\"\nbind \"q\" \"+jump\"\n",
};

} // namespace

TEST(BindingForecast, NamesTheLineThatIsReplaced) {
    EXPECT_EQ(OfKey("\n\nbind \"F5\" \"exec x\"\n", "F5"), "Line 3 will be replaced: bind \"F5\" \"exec x\"");
    EXPECT_EQ(
        OfKey("set allow_download \"1\"\nbind \"1\" \"impulse 1\"\n", "1"),
        "Line 1 will be replaced: set allow_download \"1\"")
        << "the first line that quotes the key, whatever it is";
    EXPECT_EQ(
        OfKey("bind \"q\" \"say \xC1\x01\"", "q"), "Line 1 will be replaced: bind \"q\" \"say A\xC2\xB7\"");
}

TEST(BindingForecast, SaysThatALineIsAdded) {
    EXPECT_EQ(OfKey("", "q"), "A line will be added");
    EXPECT_EQ(OfKey("bind \"w\" \"+jump\"", "q"), "A line will be added");
    EXPECT_EQ(OfKey("// bind \"q\" \"a comment\"\n", "q"), "A line will be added");
}

TEST(BindingForecast, NamesTheLineThatBindsTheKeyWithoutQuotesAndStays) {
    const std::string told = "A line will be added; line 3 binds this key too and stays";
    EXPECT_EQ(OfKey("bind F5 \"a\"\n\n  BIND\tf5   \"exec x\"\n", "F5"), told);
    EXPECT_EQ(OfKey("bind F5\"exec x\"\n", "F5"), "A line will be added");
    EXPECT_EQ(OfKey("unbind F5\nbindlist\nbind\nbind \n", "F5"), "A line will be added");
}

TEST(BindingForecast, IsWhatHappens) {
    for (const std::string& config : Configs) {
        for (const char* name : {"q", "1", "F5"}) {
            support::FakePlatform fake;
            const support::TempFolder game;
            const ui::Path path = game.put("config.cfg", config);
            const int key = scripts::FindKey(name).value();
            if (scripts::GetBoundKeys(config)[static_cast<std::size_t>(key)]) {
                fake.dialogs.expectYesNo(
                    "You have selected a key that is already bound!\nVTM will now replace it with your "
                    "binding, OK?",
                    ui::Answer::Yes);
            }
            fake.dialogs.expectInform(
                "Done! The config file, " + ui::PathText(path) + ", was updated with your new binding.");
            const auto outcome =
                scripts::BindKey(fake.dialogs, fake.files, fake.directory, {path, "player.vtn", key});
            std::string told = outcome.statusText;
            if (const auto place = told.find(" was replaced: "); place != std::string::npos) {
                told.replace(place, 4, " will be");
            }
            const std::string forecast = OfKey(config, name);
            EXPECT_EQ(told.empty() ? "A line will be added" : told, forecast.substr(0, forecast.find(';')))
                << config;
        }
    }
}

TEST(NameForecast, NamesTheLineThatIsReplaced) {
    EXPECT_EQ(NameForecast("a\nname \"me\"\n"), "Line 2 will be replaced: name \"me\"");
    EXPECT_EQ(
        NameForecast("name \"me\"\nset hostname \"server\"\n"),
        "Line 2 will be replaced, though it is not the name: set hostname \"server\"");
}

TEST(NameForecast, SaysThatALineIsAdded) {
    for (const char* config : {"", "a\n", "a\r", "a\r\n", "// name\n"}) {
        EXPECT_EQ(NameForecast(config), "A line will be added") << config;
    }
}

TEST(NameForecast, WarnsOfALineThatHoldsSomethingElse) {
    for (const char* line :
         {"name \"me\"", "  NAME\tme", "set name \"me\"", "seta name \"me\"", "_cl_name \"me\"",
          "\"_cl_name\" \"me\"", "name          \"me\""}) {
        EXPECT_EQ(NameForecast(line), "Line 1 will be replaced: " + scripts::ReadableLine(line));
    }
    for (const char* line :
         {"\"sv_namechangetimer\" \"0\"", "cl_fakename \"\"", "tp_name_ya \"ya\"", "set hostname \"x\"",
          "alias name2 \"name x\"", "bind F5 \"name x\"", "nameless"}) {
        EXPECT_EQ(
            NameForecast(line),
            "Line 1 will be replaced, though it is not the name: " + scripts::ReadableLine(line));
    }
}

TEST(NameForecast, SaysWhatTheNameIsJoinedTo) {
    EXPECT_EQ(NameForecast("bind"), "Line 1 has no line end: your name will be joined to it");
    EXPECT_EQ(NameForecast("a\r\n\nbind"), "Line 3 has no line end: your name will be joined to it");
}

TEST(NameForecast, SaysThatAFileIsTooLong) {
    EXPECT_EQ(
        NameForecast(std::string(32768, '\n')), "This file has more than 32,767 lines and cannot be changed");
    EXPECT_EQ(NameForecast(std::string(32767, '\n')), "A line will be added");
}

TEST(NameForecast, IsWhatHappens) {
    for (const std::string& config : Configs) {
        support::FakePlatform fake;
        const support::TempFolder game;
        const ui::Path path = game.put("config.cfg", config);
        const bool isReplaced = scripts::FindNameLine(config)->number > 0;
        if (isReplaced) {
            fake.dialogs.expectInform(
                "Done! The config file, " + ui::PathText(path) + ", was updated with your new name.");
        } else {
            fake.dialogs.expectYesNo(
                "This config file does not contain a name. Do you wish to add it?", ui::Answer::Yes);
            fake.dialogs.expectInform(
                "Done! Your name was added to the config file, " + ui::PathText(path) + ".");
        }
        const auto outcome = scripts::SaveNameToConfig(fake.dialogs, fake.files, fake.directory, path, {});
        std::string forecast = NameForecast(config);
        if (isReplaced) {
            const std::string_view remark = ", though it is not the name";
            if (const auto at = forecast.find(remark); at != std::string::npos) {
                forecast.erase(at, remark.size());
            }
            const auto place = forecast.find(" will be ");
            ASSERT_NE(place, std::string::npos) << config;
            EXPECT_EQ(outcome.statusText, std::string(forecast).replace(place, 9, " was "));
        } else {
            EXPECT_EQ(game.content("config.cfg"), config + "name \"\"\r\n");
            const bool isJoined = !config.empty() && config.back() != '\n' && config.back() != '\r';
            EXPECT_EQ(forecast.find("joined") != std::string::npos, isJoined) << config;
        }
    }
}

TEST(NameForecast, LooksAtTheFile) {
    support::FakePlatform fake;
    const support::TempFolder game;
    EXPECT_EQ(NameForecast(fake.files, game.put("a.cfg", "name")), "Line 1 will be replaced: name");
    EXPECT_EQ(NameForecast(fake.files, game / "new.cfg"), "A file with one line will be made");
    EXPECT_EQ(NameForecast(fake.files, game / "gone" / "new.cfg"), "This file cannot be changed.");
    fake.files.failOnce(support::FailingFiles::Step::Look);
    EXPECT_EQ(NameForecast(fake.files, game / "a.cfg"), "This file cannot be changed.");
    EXPECT_EQ(NameForecast(fake.files, game.path()), "");
    fake.files.failOnce(support::FailingFiles::Step::Read);
    EXPECT_EQ(NameForecast(fake.files, game / "a.cfg"), "");
}

TEST(NameForecast, IsToldByTheDialogThatAsksForTheFile) {
    support::FakePlatform fake;
    const support::TempFolder game;
    const auto request = scripts::SaveConfigRequest(fake.files);
    ASSERT_TRUE(request.forecast);
    EXPECT_EQ(request.forecast(game.put("a.cfg", "name")), "Line 1 will be replaced: name");
    ASSERT_TRUE(request.advice);
    EXPECT_EQ(request.advice(game / "a.cfg"), "");
    EXPECT_EQ(
        request.advice(game / "config.cfg"),
        "Quit the game first: it writes this file when it quits. Safer: type autoexec.cfg for its name.");
}

TEST(UnquotedKeysText, CountsTheKeysThatTheListsShowAsFree) {
    EXPECT_EQ(UnquotedKeysText(""), "");
    EXPECT_EQ(UnquotedKeysText("bind \"q\" \"a\"\n// bind w \"a\"\nunbind e\nbind JOY1 x\n"), "");
    EXPECT_EQ(
        UnquotedKeysText("bind F5 \"exec x\"\nbind f5 \"y\"\nbind \"q\" \"a\"\nbind q \"b\"\n"),
        "This file writes keys without quotes: its bound key is listed as free");
    EXPECT_EQ(
        UnquotedKeysText("bind  F5            \"exec x\"\r\n  bind w +forward\r\nbind SEMICOLON x\r\n"),
        "This file writes keys without quotes: its 3 bound keys are listed as free");
}
