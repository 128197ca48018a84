// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/BindHints.h"

#include "support/FakePlatform.h"

#include <gtest/gtest.h>

namespace {

class BindHints : public testing::Test {
protected:
    support::TempFolder folder;
    ui::DiskFiles disk;
    support::FailingFiles files{disk};

    /// What is said of a script of that name.
    std::string ofScript(const std::string& name) {
        folder.put(name, "");
        return scripts::ScriptHint(files, folder / name);
    }

    std::string ofConfig(const std::string& bytes) {
        folder.put("a.cfg", bytes);
        return scripts::ReadBoundKeys(files, folder / "a.cfg").hint;
    }

    static bool binds(const scripts::ConfigKeys& keys, std::string_view key) {
        return keys.bound[static_cast<std::size_t>(scripts::FindKey(key).value())];
    }
};

} // namespace

TEST_F(BindHints, SayNothingOfAScriptThatEveryGameRuns) {
    EXPECT_EQ("", ofScript("player.vtn"));
    EXPECT_EQ("", ofScript("my games (a;b)/player-1_x.vtn")) << "the game looks in a folder of its own";
    EXPECT_EQ("", ofScript("abcdefghijklmnopqrstuvwxyz0.vtn"));
    EXPECT_EQ("", scripts::ScriptHint(files, ""));
}

TEST_F(BindHints, NameWhatNoGameRunsInTheNameOfAScript) {
    EXPECT_EQ("Games cannot run a script with a blank in its file name.", ofScript("my (1).vtn"));
    EXPECT_EQ("Games cannot run a script with a ; in its file name.", ofScript("a;b.vtn"));
}

TEST_F(BindHints, NameWhatSomeGamesDoNotRunInTheNameOfAScript) {
    for (const char special : {'\'', '(', ')', '{', '}', '$'}) {
        EXPECT_EQ(
            std::string("Some games cannot run a script with a ") + special + " in its file name.",
            ofScript(std::string("a") + special + ".vtn"));
    }
    EXPECT_EQ(
        "Some games cannot run a script with an accented or foreign letter in its file name.",
        ofScript("m\xC3\xBCller.vtn"));
    EXPECT_EQ(
        "Some games run no script with more than 27 characters before its extension.",
        ofScript("abcdefghijklmnopqrstuvwxyz01.vtn"));
}

TEST_F(BindHints, SayThatAScriptIsNoFile) {
    folder.put("folder/a.vtn", "");
    EXPECT_EQ("There is no such file.", scripts::ScriptHint(files, folder / "gone.vtn"));
    EXPECT_EQ("There is no such file.", scripts::ScriptHint(files, folder / "gone/"));
    EXPECT_EQ("This is a folder.", scripts::ScriptHint(files, folder / "folder"));
    EXPECT_EQ("This is a folder.", scripts::ScriptHint(files, folder / "folder/"));
    EXPECT_EQ("This is not a file.", scripts::ScriptHint(files, "/dev/null"));
}

TEST_F(BindHints, SayWhatIsWrongWithAConfigFile) {
    EXPECT_EQ("", scripts::ReadBoundKeys(files, "").hint);
    EXPECT_EQ("This is a folder.", scripts::ReadBoundKeys(files, folder.path()).hint);
    EXPECT_EQ("This is not a file.", scripts::ReadBoundKeys(files, "/dev/null").hint);
    EXPECT_EQ("There is no such file yet.", scripts::ReadBoundKeys(files, folder / "a.cfg").hint);

    folder.put("a.cfg", "bind \"q\" \"x y\"");
    const auto read = scripts::ReadBoundKeys(files, folder / "a.cfg");
    EXPECT_EQ("", read.hint);
    EXPECT_TRUE(binds(read, "q"));
    files.failOnce(support::FailingFiles::Step::Read);
    const auto unreadable = scripts::ReadBoundKeys(files, folder / "a.cfg");
    EXPECT_EQ("This file cannot be read.", unreadable.hint);
    EXPECT_EQ(
        "Could not read \"" + ui::PathText(folder / "a.cfg") + "\": injected failure.", unreadable.reason);
    EXPECT_FALSE(binds(unreadable, "q"));
}

TEST_F(BindHints, SayWhyAConfigFileCannotBeChanged) {
    const int key = scripts::FindKey("q").value();
    const auto nowhere = scripts::ReadBoundKeys(files, folder / "gone" / "a.cfg");
    EXPECT_EQ("This file cannot be changed.", nowhere.hint);
    EXPECT_EQ("There is no folder \"" + ui::PathText(folder / "gone") + "\".", nowhere.reason);
    EXPECT_EQ("", nowhere.forecast(key));

    folder.put("a.cfg", "bind \"q\" \"x y\"");
    files.failOnce(support::FailingFiles::Step::Look);
    const auto unwritable = scripts::ReadBoundKeys(files, folder / "a.cfg");
    EXPECT_EQ("This file cannot be changed.", unwritable.hint);
    EXPECT_NE(unwritable.reason.find("injected failure"), std::string::npos) << unwritable.reason;
    EXPECT_EQ("", unwritable.forecast(key));
    EXPECT_TRUE(binds(unwritable, "q")) << "its keys are listed all the same";
}

TEST_F(BindHints, SayThatAConfigFileIsAScript) {
    for (const char* kind : {"Name", "Animation", "Macro"}) {
        EXPECT_EQ(
            "This is a script, not a config file.",
            ofConfig(std::string("// ") + kind + " File Created by Vortigo\r\nname \"me\"\r\n"));
    }
    EXPECT_EQ("", ofConfig("name \"me\"\n// Name File Created by Vortigo\n"));
}

TEST_F(BindHints, SayThatKeysWithoutQuotesAreListedAsFree) {
    EXPECT_EQ(
        "This file writes keys without quotes: its 2 bound keys are listed as free",
        ofConfig("bind F5 \"exec x\"\nbind w \"+forward\"\nbind \"q\" \"quit\"\n"));
}

TEST_F(BindHints, TellWhatBindingIsGoingToDo) {
    const int key = scripts::FindKey("q").value();
    folder.put("a.cfg", "bind \"q\" \"x y\"");
    const auto keys = scripts::ReadBoundKeys(files, folder / "a.cfg");
    EXPECT_EQ("Line 1 will be replaced: bind \"q\" \"x y\"", keys.forecast(key));
    EXPECT_EQ("", keys.forecast({})) << "no key is chosen yet";
    EXPECT_EQ("A line will be added", scripts::ReadBoundKeys(files, folder / "new.cfg").forecast(key));
    EXPECT_EQ("", scripts::ReadBoundKeys(files, "").forecast(key));
    EXPECT_EQ("", scripts::ReadBoundKeys(files, folder.path()).forecast(key));
    files.failOnce(support::FailingFiles::Step::Read);
    EXPECT_EQ("", scripts::ReadBoundKeys(files, folder / "a.cfg").forecast(key));
}
