// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/mdlConfig.h"

#include "scripts/Names.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

using editing::NameDocument;
using scripts::ConfigNameLine;
using scripts::FindNameLine;
using support::Cells;
using support::Name;
using Step = support::FailingFiles::Step;

namespace {

constexpr auto AddQuestion = "This config file does not contain a name. Do you wish to add it?";
const std::vector<ui::FileFilter> ConfigFilter = {{"Config File (*.cfg)", {"*.cfg"}}};

std::string Lines(int count, std::string_view line = "x") {
    std::string lines;
    for (int i = 0; i < count; ++i) {
        lines += line;
        lines += "\r\n";
    }
    return lines;
}

int NumberOfNameLine(std::string_view config) {
    const auto found = FindNameLine(config);
    return found ? found->number : -1;
}

/// A configuration file of ours in a test, and the commands on it.
class Config : public testing::Test {
protected:
    support::FakePlatform fake;
    NameDocument name = Name("Player");
    support::TempFolder game;
    ui::Path path = game / "config.cfg";
    int repaints = 0;

    void put(std::string_view bytes) { game.put("config.cfg", bytes); }

    std::string content() { return game.content("config.cfg"); }

    scripts::ConfigOutcome save() {
        const auto outcome = scripts::SaveNameToConfig(fake.dialogs, fake.files, fake.directory, path, name);
        fake.dialogs.expectAllAsked();
        EXPECT_FALSE(fake.directory.files.has("tempfile.cfg")) << "the copy exists only during a rewrite";
        return outcome;
    }

    void expectUpdated() {
        fake.dialogs.expectInform(
            "Done! The config file, " + ui::PathText(path) + ", was updated with your new name.");
    }

    scripts::LoadOutcome load() {
        const auto outcome =
            scripts::LoadNameFromConfig(fake.dialogs, fake.files, path, name, [this] { ++repaints; });
        fake.dialogs.expectAllAsked();
        return outcome;
    }
};

} // namespace

TEST(FindNameLine, TakesTheLastLineThatHoldsAName) {
    const auto found = FindNameLine("a\r\nb\r\nname \"x\"\r\n\r\n\r\n\r\n\r\n\r\nset name \"y\"\r\nz\r\n");
    ASSERT_TRUE(found);
    EXPECT_EQ(9, found->number);
    EXPECT_TRUE(found->isSetName);
    EXPECT_EQ("set name \"y\"", found->text);
}

TEST(FindNameLine, ForgetsTheFormOfAnEarlierLine) {
    const auto found = FindNameLine("set name \"x\"\r\nname \"y\"\r\n");
    ASSERT_TRUE(found);
    EXPECT_EQ(2, found->number);
    EXPECT_FALSE(found->isSetName);
}

TEST(FindNameLine, NeverTakesALineWithAComment) {
    EXPECT_EQ(0, NumberOfNameLine("// name \"x\"\r\n"));
    EXPECT_EQ(0, NumberOfNameLine("name \"x\" // mine\r\n"));
    EXPECT_EQ(0, NumberOfNameLine("name \"http://x\"\r\n"));
    EXPECT_EQ(1, NumberOfNameLine("name \"x\"\r\nname \"y\" // mine\r\n"));
    EXPECT_EQ(1, NumberOfNameLine("name / /\r\n"));
}

TEST(FindNameLine, TakesAnyLineThatMentionsAName) {
    EXPECT_EQ(2, NumberOfNameLine("name \"x\"\r\nhostname \"my server\"\r\n"));
    EXPECT_EQ(2, NumberOfNameLine("name \"x\"\r\nalias a \"name b\"\r\n"));
    EXPECT_EQ(1, NumberOfNameLine("_cl_name \"x\"\r\n"));
    EXPECT_EQ(1, NumberOfNameLine("rename\r\n"));
    EXPECT_EQ(0, NumberOfNameLine("nam e\r\n"));
}

TEST(FindNameLine, IgnoresTheCaseOfLettersAndOfNothingElse) {
    EXPECT_EQ(1, NumberOfNameLine("NaMe \"x\"\r\n"));
    EXPECT_TRUE(FindNameLine("SET Name \"x\"")->isSetName);
    // The letters of colour 2 are other bytes: "name" in colour 2 is no name.
    EXPECT_EQ(0, NumberOfNameLine("\xEE\xE1\xED\xE5 \"x\"\r\n"));
}

TEST(FindNameLine, NeedsExactlyOneBlankForTheSetForm) {
    EXPECT_TRUE(FindNameLine("set name \"x\"")->isSetName);
    EXPECT_TRUE(FindNameLine("  reset names")->isSetName);
    EXPECT_FALSE(FindNameLine("set  name \"x\"")->isSetName);
    EXPECT_FALSE(FindNameLine("set\tname \"x\"")->isSetName);
    EXPECT_FALSE(FindNameLine("seta name \"x\"")->isSetName);
}

TEST(FindNameLine, CountsEveryKindOfLineEnd) {
    EXPECT_EQ(3, NumberOfNameLine("a\nb\nname \"x\"\n"));
    EXPECT_EQ(3, NumberOfNameLine("a\rb\rname \"x\"\r"));
    EXPECT_EQ(3, NumberOfNameLine("a\r\nb\r\nname \"x\""));
    EXPECT_EQ(5, NumberOfNameLine("a\n\r\n\r\rname \"x\""));
    EXPECT_EQ(0, NumberOfNameLine(""));
    EXPECT_EQ(0, NumberOfNameLine("\r\n"));
    EXPECT_EQ(2, NumberOfNameLine(std::string("\0\x1A\nname", 7)));
}

TEST(FindNameLine, LooksAtThirtyTwoThousandLinesAndNoMore) {
    EXPECT_EQ(32767, NumberOfNameLine(Lines(32766) + "name \"x\"\r\n"));
    EXPECT_EQ(32767, NumberOfNameLine(Lines(32766) + "name \"x\""));
    EXPECT_FALSE(FindNameLine(Lines(32767) + "x"));
    EXPECT_FALSE(FindNameLine("name \"x\"\r\n" + Lines(32767)));
}

TEST_F(Config, IsChosenWithItsOwnDialogs) {
    fake.dialogs.expectOpen({"Select the Config file", "*.cfg", ConfigFilter, ui::Path()}, path);
    EXPECT_EQ(path, scripts::ChooseConfigToLoad(fake.dialogs));
    fake.dialogs.expectOpen({"Select the Config file", "*.cfg", ConfigFilter}, std::nullopt);
    EXPECT_EQ(std::nullopt, scripts::ChooseConfigToLoad(fake.dialogs));
    fake.dialogs.expectSave(
        {"Select The CFG File To Alter", "*.cfg", ConfigFilter, ui::Path(), ".cfg", false}, path);
    EXPECT_EQ(path, scripts::ChooseConfigToAlter(fake.dialogs, fake.files));
    fake.dialogs.expectSave({"Select The CFG File To Alter", "*.cfg", ConfigFilter}, std::nullopt);
    EXPECT_EQ(std::nullopt, scripts::ChooseConfigToAlter(fake.dialogs, fake.files));
}

TEST_F(Config, GivesItsNameToThePage) {
    put("bind a b\r\n  name \" New one\"\r\n// name \"other\"\r\n");
    fake.dialogs.expectInform(
        "Done! The name was read from the config file.", [&] { EXPECT_EQ(1, repaints); });
    const auto outcome = load();
    EXPECT_TRUE(outcome.loaded);
    EXPECT_EQ("Line 2 was read:   name \" New one\"", outcome.statusText);
    EXPECT_EQ(" New one       ", Cells(name));
}

TEST_F(Config, GivesALineWithoutQuotesFromItsStart) {
    put(" name abc\r\n");
    fake.dialogs.expectInform("Done! The name was read from the config file.");
    EXPECT_TRUE(load().loaded);
    EXPECT_EQ(" name ab       ", Cells(name));
}

TEST_F(Config, WithoutANameLeavesThePageAlone) {
    put("name \"x\" // mine\r\n");
    fake.dialogs.expectInform("This config file does not contain a name.");
    EXPECT_FALSE(load().loaded);
    EXPECT_EQ(0, repaints);
    EXPECT_EQ("Player         ", Cells(name));
}

TEST_F(Config, WithANameThatIsTooLongFillsThePageAndSaysSo) {
    put("name \"1234567890123456\"\r\n");
    fake.dialogs.expectInform(
        "Error reading name from " + ui::PathText(path) + ".", [&] { EXPECT_EQ(1, repaints); });
    EXPECT_FALSE(load().loaded);
    EXPECT_EQ("123456789012345", Cells(name));
}

TEST_F(Config, ThatCannotBeReadSaysWhichFileAndWhy) {
    fake.dialogs.expectWarning("Could not open \"" + ui::PathText(path) + "\": No such file or directory.");
    EXPECT_FALSE(load().loaded);
    EXPECT_EQ(0, repaints);
    EXPECT_EQ("Player         ", Cells(name));
}

TEST_F(Config, WithTooManyLinesIsRefused) {
    const std::string text =
        "The config file, " + ui::PathText(path) + ", has more than 32,767 lines. VTM cannot handle it.";
    const std::string bytes = "name \"x\"\n" + Lines(32767);
    put(bytes);
    fake.dialogs.expectWarning(text);
    EXPECT_FALSE(load().loaded);
    EXPECT_EQ("Player         ", Cells(name));
    fake.dialogs.expectWarning(text);
    EXPECT_FALSE(save().written);
    EXPECT_EQ(bytes, content());
}

TEST_F(Config, IsRewrittenOnItsLastNameLineInThatForm) {
    put("a\r\nb\r\nname \"x\"\r\n\r\n\r\n\r\n\r\n\r\nset name \"y\"\r\nz\r\n");
    expectUpdated();
    const auto outcome = save();
    EXPECT_TRUE(outcome.written);
    EXPECT_EQ("Line 9 was replaced: set name \"y\"", outcome.statusText);
    EXPECT_EQ("a\r\nb\r\nname \"x\"\r\n\r\n\r\n\r\n\r\n\r\nset name \"Player\"\r\nz\r\n", content());
}

TEST_F(Config, IsRewrittenWithTheNameAsItsBytes) {
    name = Name(" \x80\xFF\x01;\" ");
    put("NAME \"x\"\r\n");
    expectUpdated();
    save();
    EXPECT_EQ("name \" \x80\xFF\x01;\"\"\r\n", content());
}

TEST_F(Config, IsRewrittenWithNothingBetweenTheQuotesOfABlankName) {
    name = {};
    put("set name \"x\"");
    expectUpdated();
    save();
    EXPECT_EQ("set name \"\"\r\n", content());
}

TEST_F(Config, LosesWhateverElseStoodOnTheLine) {
    put("\t   NAME x; bind q quit\r\nsay hello\r\n");
    expectUpdated();
    const auto outcome = save();
    EXPECT_EQ("name \"Player\"\r\nsay hello\r\n", content());
    EXPECT_EQ("Line 1 was replaced: \xC2\xB7   NAME x; bind q quit", outcome.statusText);
}

TEST_F(Config, LosesAHostNameThatFollowsTheName) {
    put("name \"x\"\nhostname \"my server\"\n");
    expectUpdated();
    EXPECT_EQ("Line 2 was replaced: hostname \"my server\"", save().statusText);
    EXPECT_EQ("name \"x\"\r\nname \"Player\"\r\n", content());
}

TEST_F(Config, KeepsEveryOtherByteAndEndsEveryLineWithCrLf) {
    std::string all;
    for (int code = 0; code < 256; ++code) {
        if (code != '\r' && code != '\n') {
            all += static_cast<char>(code);
        }
    }
    put(all + "\n \r\r\n\nname \"x\"\n// " + all + "\r\n\t");
    expectUpdated();
    save();
    EXPECT_EQ(all + "\r\n \r\r\n\r\nname \"Player\"\r\n// " + all + "\r\n\t\r\n", content());
}

TEST_F(Config, IsCutToSizeWhenTheNewLineIsShorter) {
    name = Name("a");
    put("name \"123456789012345\" ; a long line that goes away\r\n");
    expectUpdated();
    save();
    EXPECT_EQ("name \"a\"\r\n", content());
}

TEST_F(Config, OfTheGreatestLengthIsRewritten) {
    put(Lines(32766) + "name \"x\"");
    expectUpdated();
    EXPECT_TRUE(save().written);
    EXPECT_EQ(Lines(32766) + "name \"Player\"\r\n", content());
}

TEST_F(Config, WithoutANameIsLeftAloneOnNo) {
    put("name \"x\" // mine");
    fake.dialogs.expectYesNo(AddQuestion, ui::Answer::No);
    EXPECT_FALSE(save().written);
    EXPECT_EQ("name \"x\" // mine", content());
}

TEST_F(Config, WithoutANameGainsOneOnYes) {
    put("bind a b\n");
    fake.dialogs.expectYesNo(AddQuestion, ui::Answer::Yes, [&] { EXPECT_EQ("bind a b\n", content()); });
    fake.dialogs.expectInform("Done! Your name was added to the config file, " + ui::PathText(path) + ".");
    const auto outcome = save();
    EXPECT_TRUE(outcome.written);
    EXPECT_EQ("", outcome.statusText);
    // Only the new line ends with CR LF: nothing else is touched.
    EXPECT_EQ("bind a b\nname \"Player\"\r\n", content());
}

TEST_F(Config, GainsANameRightBehindItsLastByte) {
    put("// set name \"x\"\r\nbind a b");
    fake.dialogs.expectYesNo(AddQuestion, ui::Answer::Yes);
    fake.dialogs.expectInform("Done! Your name was added to the config file, " + ui::PathText(path) + ".");
    save();
    EXPECT_EQ("// set name \"x\"\r\nbind a bname \"Player\"\r\n", content());
}

TEST_F(Config, ThatIsNotThereIsMadeOnYes) {
    fake.dialogs.expectYesNo(AddQuestion, ui::Answer::No);
    EXPECT_FALSE(save().written);
    EXPECT_FALSE(game.has("config.cfg"));
    fake.dialogs.expectYesNo(AddQuestion, ui::Answer::Yes);
    fake.dialogs.expectInform("Done! Your name was added to the config file, " + ui::PathText(path) + ".");
    EXPECT_TRUE(save().written);
    EXPECT_EQ("name \"Player\"\r\n", content());
}

TEST_F(Config, ThatCannotBeReadIsNotWrittenEither) {
    put("name \"x\"\r\n");
    fake.files.failOnce(Step::Read);
    fake.dialogs.expectWarning("Could not read \"" + ui::PathText(path) + "\": injected failure.");
    EXPECT_FALSE(save().written);
    EXPECT_EQ("name \"x\"\r\n", content());
    EXPECT_EQ(0, fake.files.count(Step::Create));
}

TEST_F(Config, ThatCannotGainANameSaysWhichFileAndWhy) {
    put("x\r\n");
    const std::pair<Step, const char*> steps[] = {
        {Step::Look, "look"},
        {Step::Write, "write"},
        {Step::Flush, "flush"},
        {Step::Close, "close"},
        {Step::Lock, "lock"}};
    for (const auto& [step, word] : steps) {
        fake.files.failOnce(step);
        fake.dialogs.expectYesNo(AddQuestion, ui::Answer::Yes);
        const ui::Path named = step == Step::Lock ? fake.directory.folder() : path;
        fake.dialogs.expectWarning(
            std::string("Could not ") + word + " \"" + ui::PathText(named) +
            "\": injected failure.\nThe config file, " + ui::PathText(path) + ", was not changed.");
        EXPECT_FALSE(save().written);
        EXPECT_EQ("x\r\n", content());
    }
}

TEST_F(Config, ThatCannotBeRewrittenSaysWhereTheWholeCopyIs) {
    put("name \"x\"\r\n");
    // With a second name it is written over; the second write is the one into the file itself.
    std::filesystem::create_hard_link(path, game / "other.cfg");
    fake.files.failFrom(Step::Write, 2);
    fake.dialogs.expectWarning(
        "Could not write \"" + ui::PathText(path) + "\": injected failure.\nThe config file, " +
        ui::PathText(path) +
        ", may be incomplete now. It was copied before, and the whole copy is kept as \"" +
        ui::PathText(fake.directory.folder() / "tempfile.cfg") + "\".");
    EXPECT_FALSE(scripts::SaveNameToConfig(fake.dialogs, fake.files, fake.directory, path, name).written);
    EXPECT_EQ("name \"x\"\r\n", fake.directory.files.content("tempfile.cfg"));
}

TEST_F(Config, IsDoneEvenIfTheCopyCannotBeDeleted) {
    put("name \"x\"\r\n");
    fake.files.failOnce(Step::Remove);
    expectUpdated();
    const auto outcome = scripts::SaveNameToConfig(fake.dialogs, fake.files, fake.directory, path, name);
    EXPECT_TRUE(outcome.written);
    EXPECT_EQ(
        "Line 1 was replaced: name \"x\"  Could not remove \"" +
            ui::PathText(fake.directory.folder() / "tempfile.cfg") + "\": injected failure.",
        outcome.statusText);
    EXPECT_EQ("name \"Player\"\r\n", content());
}

TEST_F(Config, MayNotBeTheCopyItself) {
    path = fake.directory.folder() / "tempfile.cfg";
    const std::string refusal =
        "Could not alter \"" + ui::PathText(path) +
        "\": VTM needs a file of this name for itself. Please copy it to another name first.";
    fake.dialogs.expectYesNo(AddQuestion, ui::Answer::Yes);
    fake.dialogs.expectWarning(refusal);
    EXPECT_FALSE(save().written);
    EXPECT_FALSE(fake.directory.files.has("tempfile.cfg"));

    fake.directory.files.put("tempfile.cfg", "name \"x\"\r\n");
    fake.dialogs.expectWarning(refusal);
    EXPECT_FALSE(scripts::SaveNameToConfig(fake.dialogs, fake.files, fake.directory, path, name).written);
    EXPECT_EQ("name \"x\"\r\n", fake.directory.files.content("tempfile.cfg"));
}

TEST_F(Config, MayBeLoadedFromTheCopyThatAFailureLeft) {
    path = fake.directory.files.put("tempfile.cfg", "name \"saved\"\r\n");
    fake.dialogs.expectInform("Done! The name was read from the config file.");
    EXPECT_TRUE(load().loaded);
    EXPECT_EQ("saved          ", Cells(name));
}
