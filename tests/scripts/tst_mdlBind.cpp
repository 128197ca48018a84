// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/mdlBind.h"

#include "scripts/mdlConfig.h"
#include "support/FakePlatform.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <gtest/gtest.h>
#include <set>

using scripts::CheckStrForKey;
using scripts::GetBoundKeys;
using scripts::KeyNames;
using Step = support::FailingFiles::Step;

namespace {

constexpr auto ReplaceQuestion = "You have selected a key that is already bound!\n"
                                 "VTM will now replace it with your binding, OK?";

int Key(std::string_view name) {
    const auto found = std::find(KeyNames.begin(), KeyNames.end(), name);
    EXPECT_NE(KeyNames.end(), found) << name;
    return static_cast<int>(found - KeyNames.begin());
}

std::set<std::string> BoundNames(std::string_view config) {
    std::set<std::string> names;
    const auto bound = GetBoundKeys(config);
    for (std::size_t key = 0; key < bound.size(); ++key) {
        if (bound[key]) {
            names.emplace(KeyNames[key]);
        }
    }
    return names;
}

using Names = std::set<std::string>;

std::string Fixture(const std::string& name) {
    std::ifstream file(std::string(VTM_FIXTURES) + "/scripts/" + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

class Binding : public testing::Test {
protected:
    support::FakePlatform fake;
    support::TempFolder game;
    ui::Path path = game / "config.cfg";
    scripts::BindChoice choice{path, "/games/scripts/player.vtn", Key("q")};

    void put(std::string_view bytes) { game.put("config.cfg", bytes); }

    std::string content() { return game.content("config.cfg"); }

    scripts::ConfigOutcome bind() {
        const auto outcome = scripts::BindKey(fake.dialogs, fake.files, fake.directory, choice);
        fake.dialogs.expectAllAsked();
        EXPECT_FALSE(fake.directory.files.has("tempfile.cfg")) << "the copy exists only during a rewrite";
        return outcome;
    }

    void expectUpdated() {
        fake.dialogs.expectInform(
            "Done! The config file, " + ui::PathText(path) + ", was updated with your new binding.");
    }
};

} // namespace

TEST(KeyNames, AreTheEightyTwoOfTheGamesInOrder) {
    ASSERT_EQ(82U, KeyNames.size());
    EXPECT_EQ(0, Key("LEFTARROW"));
    EXPECT_EQ(4, Key("*"));
    EXPECT_EQ(18, Key("SPACE"));
    EXPECT_EQ(55, Key(","));
    EXPECT_EQ(58, Key("SEMICOLON"));
    EXPECT_EQ(62, Key("\\"));
    EXPECT_EQ(65, Key("~"));
    EXPECT_EQ(78, Key("ESC"));
    EXPECT_EQ(81, Key("MOUSE3"));
    for (int i = 0; i < 26; ++i) {
        EXPECT_EQ(19 + i, Key(std::string(1, static_cast<char>('a' + i))));
    }
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(45 + i, Key(std::string(1, static_cast<char>('0' + i))));
    }
    for (int i = 1; i <= 12; ++i) {
        EXPECT_EQ(65 + i, Key("F" + std::to_string(i)));
    }
    EXPECT_EQ(82U, std::set<std::string_view>(KeyNames.begin(), KeyNames.end()).size());
}

TEST(CheckStrForKey, FindsEveryQuotedKey) {
    for (int key = 0; key < 82; ++key) {
        EXPECT_EQ(
            key, CheckStrForKey(
                     "bind \"" + std::string(KeyNames[static_cast<std::size_t>(key)]) + "\" \"say hi\""));
    }
}

TEST(CheckStrForKey, IgnoresCase) {
    EXPECT_EQ(Key("a"), CheckStrForKey("BIND \"A\" \"x y\""));
    EXPECT_EQ(Key("MOUSE1"), CheckStrForKey("Bind \"mouse1\" +attack"));
}

TEST(CheckStrForKey, NeedsTheWordBindAndTheQuotes) {
    EXPECT_EQ(100, CheckStrForKey("alias \"a\" \"b\""));
    EXPECT_EQ(100, CheckStrForKey("bind a \"say hi\""));
    EXPECT_EQ(100, CheckStrForKey("bind \"a"));
    EXPECT_EQ(100, CheckStrForKey("bind a\""));
    EXPECT_EQ(100, CheckStrForKey("bind \" a\" \"x y\""));
    EXPECT_EQ(100, CheckStrForKey("bind \"JOY1\" \"x y\""));
    EXPECT_EQ(100, CheckStrForKey(""));
    EXPECT_EQ(100, CheckStrForKey("bind"));
    EXPECT_EQ(100, CheckStrForKey("\""));
}

TEST(CheckStrForKey, CountsAnUnbindingToo) {
    EXPECT_EQ(Key("q"), CheckStrForKey("unbind \"q\""));
}

TEST(CheckStrForKey, TakesTheLaterKeyOfTheTable) {
    EXPECT_EQ(Key("F1"), CheckStrForKey("bind \"F1\" \"a\""));
    EXPECT_EQ(Key("F1"), CheckStrForKey("bind \"a\" \"F1\""));
    EXPECT_EQ(Key("MOUSE3"), CheckStrForKey("bind \"~\" \"MOUSE3\" \"q\""));
    // A quote may end one word and begin the next.
    EXPECT_EQ(Key("b"), CheckStrForKey("bind \"a\"b\""));
}

TEST(GetBoundKeys, LooksAtAllLinesAndAtCommentsToo) {
    EXPECT_EQ(
        Names({"a", "b", "F1", "\\"}),
        BoundNames("bind \"A\" \"x y\"\r\n// bind \"b\" \"x y\"\nbind c \"x y\"\rbind \"F1\" \"x y\"\r\nbind "
                   "\"\\\" \"x y\""));
    EXPECT_EQ(Names(), BoundNames(""));
    EXPECT_EQ(Names({"TAB", "q", "F2", "F3"}), BoundNames(Fixture("game.cfg")));
}

/// The least time of several runs that the keys of a configuration of one line take.
std::chrono::nanoseconds TimeOfOneLine(std::string_view words) {
    std::string config = "bind ";
    while (config.size() < 1024U * 1024U) {
        config += words;
    }
    auto least = std::chrono::nanoseconds::max();
    for (int round = 0; round < 5; ++round) {
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(config.find('"') == std::string::npos, BoundNames(config).empty());
        least = std::min<std::chrono::nanoseconds>(least, std::chrono::steady_clock::now() - start);
    }
    return least;
}

TEST(GetBoundKeys, DoesNotLookAtEveryKeyForEveryWordOfALongLine) {
    EXPECT_LT(TimeOfOneLine("\"a"), 100 * TimeOfOneLine("xa"));
}

TEST(BindLine, RunsTheScriptByItsFileName) {
    EXPECT_EQ("bind \"F1\" \"exec a.vtn\"", scripts::BindLine(Key("F1"), "/games/q2/sub folder/a.vtn"));
    EXPECT_EQ("bind \"a\" \"exec b.scr\"", scripts::BindLine(Key("a"), "b.scr"));
    EXPECT_EQ("bind \"\\\" \"exec b.scr\"", scripts::BindLine(Key("\\"), "./b.scr"));
}

TEST(FindBindingLine, TakesTheFirstLineThatQuotesTheKey) {
    const std::string config =
        "alias x \"say q\"\n// bind \"q\" \"a b\"\nalias y \"Q\"\nbind \"q\" \"a b\"\n";
    EXPECT_EQ(3, scripts::FindBindingLine(config, Key("q")).number);
    EXPECT_EQ("alias y \"Q\"", scripts::FindBindingLine(config, Key("q")).text);
    EXPECT_EQ(0, scripts::FindBindingLine(config, Key("w")).number);
    EXPECT_EQ(0, scripts::FindBindingLine("bind \"q\" \"connect http://x\"\n", Key("q")).number);
    EXPECT_EQ(0, scripts::FindBindingLine("", Key("q")).number);
}

TEST(AppendedBinding, IsALineOfItsOwn) {
    const int key = Key("F5");
    EXPECT_EQ("bind \"F5\" \"exec a.vtn\"\r\n", scripts::AppendedBinding("", key, "a.vtn"));
    EXPECT_EQ("bind \"F5\" \"exec a.vtn\"\r\n", scripts::AppendedBinding("x\n", key, "a.vtn"));
    EXPECT_EQ("bind \"F5\" \"exec a.vtn\"\r\n", scripts::AppendedBinding("x\r\n", key, "a.vtn"));
    EXPECT_EQ("bind \"F5\" \"exec a.vtn\"\r\n", scripts::AppendedBinding("x\r", key, "a.vtn"));
    EXPECT_EQ("\r\nbind \"F5\" \"exec a.vtn\"\r\n", scripts::AppendedBinding("x", key, "a.vtn"));
}

TEST(BindRequests, AreOpenDialogs) {
    const auto config = scripts::BindConfigRequest();
    EXPECT_EQ("Select the CFG file to alter", config.title);
    EXPECT_EQ("*.cfg", config.initialName);
    ASSERT_EQ(1U, config.filters.size());
    EXPECT_EQ("Config File (*.cfg)", config.filters[0].text);
    EXPECT_EQ(std::vector<std::string>{"*.cfg"}, config.filters[0].patterns);

    const auto script = scripts::BindScriptRequest();
    EXPECT_EQ("Select the Script file to Bind to", script.title);
    EXPECT_EQ("*.scr", script.initialName);
    const std::pair<const char*, const char*> filters[] = {
        {"VTM Name Script (*.vtn)", "*.vtn"},
        {"Script File (*.scr)", "*.scr"},
        {"VTM Animation Script (*.vta)", "*.vta"},
        {"VTM Message Script (*.vtm)", "*.vtm"}};
    ASSERT_EQ(std::size(filters), script.filters.size());
    for (std::size_t i = 0; i < std::size(filters); ++i) {
        EXPECT_EQ(filters[i].first, script.filters[i].text);
        EXPECT_EQ(std::vector<std::string>{filters[i].second}, script.filters[i].patterns);
    }
}

TEST_F(Binding, NeedsAConfigFileThenAScriptThenAKey) {
    choice = {};
    fake.dialogs.expectInform("Please select a config file!");
    EXPECT_FALSE(bind().written);
    choice.config = path;
    fake.dialogs.expectInform("Please select a script file!");
    EXPECT_FALSE(bind().written);
    choice.script = "/games/";
    fake.dialogs.expectInform("Please select a script file!");
    EXPECT_FALSE(bind().written);
    choice.script = "a.vtn";
    fake.dialogs.expectInform("Please select a key!");
    EXPECT_FALSE(bind().written);
    EXPECT_FALSE(game.has("config.cfg"));
}

TEST_F(Binding, OfAFreeKeyIsAddedAtTheEnd) {
    put("bind \"w\" \"x y\"\nbind q \"x y\"\n");
    expectUpdated();
    const auto outcome = bind();
    EXPECT_TRUE(outcome.written);
    EXPECT_EQ("", outcome.statusText);
    // A key that is bound without quotes does not count as bound.
    EXPECT_EQ("bind \"w\" \"x y\"\nbind q \"x y\"\nbind \"q\" \"exec player.vtn\"\r\n", content());
}

TEST_F(Binding, EndsAnUnterminatedLastLineFirst) {
    put("bind \"w\" \"x y\"");
    expectUpdated();
    EXPECT_TRUE(bind().written);
    EXPECT_EQ("bind \"w\" \"x y\"\r\nbind \"q\" \"exec player.vtn\"\r\n", content());
}

TEST_F(Binding, MakesAFileThatIsNotThere) {
    expectUpdated();
    EXPECT_TRUE(bind().written);
    EXPECT_EQ("bind \"q\" \"exec player.vtn\"\r\n", content());
}

TEST_F(Binding, OfABoundKeyIsReplacedOnYes) {
    put("a\nbind \"Q\" \"x y\"; b\n\nc");
    fake.dialogs.expectYesNo(ReplaceQuestion, ui::Answer::Yes);
    expectUpdated();
    const auto outcome = bind();
    EXPECT_TRUE(outcome.written);
    EXPECT_EQ("Line 2 was replaced: bind \"Q\" \"x y\"; b", outcome.statusText);
    EXPECT_EQ("a\r\nbind \"q\" \"exec player.vtn\"\r\n\r\nc\r\n", content());
}

TEST_F(Binding, OfABoundKeyChangesNotAByteOnNo) {
    const std::string bytes = "a\nbind \"Q\" \"x y\"; b\n\nc";
    put(bytes);
    fake.dialogs.expectYesNo(ReplaceQuestion, ui::Answer::No);
    EXPECT_FALSE(bind().written);
    EXPECT_EQ(bytes, content());
    EXPECT_EQ(0, fake.files.count(Step::Create));
}

TEST_F(Binding, TakesThePlaceOfAnEarlierLineThatQuotesTheKey) {
    put("alias x \"q\"\r\nbind \"q\" \"x y\"\r\n");
    fake.dialogs.expectYesNo(ReplaceQuestion, ui::Answer::Yes);
    expectUpdated();
    EXPECT_EQ("Line 1 was replaced: alias x \"q\"", bind().statusText);
    EXPECT_EQ("bind \"q\" \"exec player.vtn\"\r\nbind \"q\" \"x y\"\r\n", content());
}

TEST_F(Binding, OfAKeyThatOnlyCommentsBindIsAdded) {
    put("// bind \"q\" \"x y\"\nend");
    fake.dialogs.expectYesNo(ReplaceQuestion, ui::Answer::Yes);
    expectUpdated();
    const auto outcome = bind();
    EXPECT_TRUE(outcome.written);
    EXPECT_EQ("", outcome.statusText);
    EXPECT_EQ("// bind \"q\" \"x y\"\nend\r\nbind \"q\" \"exec player.vtn\"\r\n", content());
}

TEST_F(Binding, InAFileThatCannotBeReadSaysWhichFileAndWhy) {
    put("x\n");
    fake.files.failOnce(Step::Read);
    fake.dialogs.expectWarning("Could not read \"" + ui::PathText(path) + "\": injected failure.");
    EXPECT_FALSE(bind().written);
    EXPECT_EQ("x\n", content());
}

TEST_F(Binding, ThatCannotBeAddedSaysWhichFileAndWhy) {
    put("x\n");
    fake.files.failOnce(Step::Write);
    fake.dialogs.expectWarning(
        "Could not write \"" + ui::PathText(path) + "\": injected failure.\nThe config file, " +
        ui::PathText(path) + ", was not changed.");
    EXPECT_FALSE(bind().written);
    EXPECT_EQ("x\n", content());
}

TEST_F(Binding, ThatCannotBeReplacedSaysWhereTheWholeCopyIs) {
    put("bind \"q\" \"x y\"\n");
    // With a second name it is written over.
    std::filesystem::create_hard_link(path, game / "other.cfg");
    fake.files.failFrom(Step::Flush, 2);
    fake.dialogs.expectYesNo(ReplaceQuestion, ui::Answer::Yes);
    fake.dialogs.expectWarning(
        "Could not flush \"" + ui::PathText(path) + "\": injected failure.\nThe config file, " +
        ui::PathText(path) +
        ", may be incomplete now. It was copied before, and the whole copy is kept as \"" +
        ui::PathText(fake.directory.folder() / "tempfile.cfg") + "\".");
    EXPECT_FALSE(scripts::BindKey(fake.dialogs, fake.files, fake.directory, choice).written);
    EXPECT_EQ("bind \"q\" \"x y\"\n", fake.directory.files.content("tempfile.cfg"));
}

TEST_F(Binding, MayNotAlterTheCopy) {
    path = fake.directory.folder() / "tempfile.cfg";
    choice.config = path;
    fake.dialogs.expectWarning(
        "Could not alter \"" + ui::PathText(path) +
        "\": VTM needs a file of this name for itself. Please copy it to another name first.");
    EXPECT_FALSE(bind().written);
}

TEST_F(Binding, AndTheNameGoIntoTheConfigOfAGame) {
    put(Fixture("game.cfg"));
    fake.dialogs.expectYesNo(ReplaceQuestion, ui::Answer::Yes);
    expectUpdated();
    EXPECT_EQ("Line 4 was replaced: bind \"q\" \"exec old.vtn\"", bind().statusText);
    EXPECT_EQ(Fixture("game-bound.cfg"), content());

    put(Fixture("game.cfg"));
    choice.key = Key("F12");
    expectUpdated();
    EXPECT_TRUE(bind().written);
    EXPECT_EQ(Fixture("game-added.cfg"), content());

    put(Fixture("game.cfg"));
    editing::NameDocument name;
    int column = 0;
    for (const char glyph : std::string("\x80New \xFF")) {
        name.cells.at(static_cast<std::size_t>(column++)) = static_cast<unsigned char>(glyph);
    }
    fake.dialogs.expectInform(
        "Done! The config file, " + ui::PathText(path) + ", was updated with your new name.");
    EXPECT_TRUE(scripts::SaveNameToConfig(fake.dialogs, fake.files, fake.directory, path, name).written);
    EXPECT_EQ(Fixture("game-named.cfg"), content());
}
