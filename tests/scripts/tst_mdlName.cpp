// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/mdlName.h"

#include "scripts/Names.h"
#include "support/FakePlatform.h"
#include "ui/FileWriter.h"

#include <gtest/gtest.h>

using editing::NameDocument;
using editing::SaveOutcome;
using editing::ScriptEnd;
using scripts::NameCommand;
using support::Cells;
using support::Name;
using Step = support::FailingFiles::Step;

namespace {

/// Every glyph code a name can hold but the blank, fifteen at a time.
std::vector<std::string> AllNames() {
    std::vector<std::string> names;
    std::string text;
    for (int code = 0; code < 256; ++code) {
        text += static_cast<char>(code);
        if (text.size() == 15 || code == 255) {
            names.push_back(text);
            text.clear();
        }
    }
    return names;
}

const std::vector<ui::FileFilter> NameScriptFilter = {{"VTM Name Script (*.vtn;*.scr)", {"*.vtn", "*.scr"}}};
constexpr auto Question = "Is this name to be used in Quake2?";

class NameScript : public testing::Test {
protected:
    support::FakePlatform fake;
    NameDocument name;
    int repaints = 0;

    ui::Path file(const ui::Path& fileName) { return fake.directory.folder() / fileName; }

    ui::Path put(const char* fileName, std::string_view bytes) {
        const ui::Path path = file(fileName);
        EXPECT_TRUE(ui::WriteFile(fake.disk, path, bytes).ok());
        return path;
    }

    ui::Bytes get(const ui::Path& path) {
        auto bytes = fake.disk.read(path);
        return bytes ? bytes.value() : "(not there)";
    }

    void expectSaveDialog(std::optional<ui::Path> answer) {
        fake.dialogs.expectSave(
            {"Save as a Script File", "*.vtn", NameScriptFilter, fake.directory.folder(), ".vtn", true},
            answer);
    }

    std::optional<ui::Path> choose() {
        return fake.dialogs.chooseFileToOpen(
            editing::OpenScriptRequest(editing::KindOf(editing::Page::Name), fake.directory.folder()));
    }

    SaveOutcome save() {
        return editing::SaveScript(
            fake.dialogs, fake.files, scripts::NameWriter(name), fake.directory.folder());
    }

    editing::ScriptRead load(const ui::Path& path, bool quiet = false) {
        return editing::LoadScript(
            fake.dialogs, fake.files, scripts::NameReader(name, path), quiet,
            editing::OpenFailure::StatusLine, [this] { ++repaints; });
    }
};

} // namespace

TEST(NameText, DropsBlanksAtTheRightEndOnly) {
    EXPECT_EQ("  a b", scripts::NameText(Name("  a b    ")));
    EXPECT_EQ("", scripts::NameText(NameDocument{}));
    EXPECT_EQ("123456789012345", scripts::NameText(Name("123456789012345")));
    // Only glyph 32 is a blank; its likeness in colour 2 is not.
    EXPECT_EQ("a\xA0", scripts::NameText(Name("a\xA0 ")));
}

TEST(WriteNameScript, WritesTwoLinesThatEndWithCrLf) {
    EXPECT_EQ(
        "// Name File Created by Vortigo\r\nname \"Player\"\r\n",
        scripts::WriteNameScript(NameCommand::Name, Name("Player")));
    EXPECT_EQ(
        "// Name File Created by Vortigo\r\nset name \"  Player\"\r\n",
        scripts::WriteNameScript(NameCommand::SetName, Name("  Player  ")));
}

TEST(WriteNameScript, WritesNothingBetweenTheQuotesOfABlankName) {
    EXPECT_EQ(
        "// Name File Created by Vortigo\r\nname \"\"\r\n",
        scripts::WriteNameScript(NameCommand::Name, NameDocument{}));
}

TEST(WriteNameScript, WritesEveryGlyphAsItsByte) {
    for (const std::string& glyphs : AllNames()) {
        EXPECT_EQ(
            "// Name File Created by Vortigo\r\nname \"" + glyphs + "\"\r\n",
            scripts::WriteNameScript(NameCommand::Name, Name(glyphs)));
    }
}

TEST(ReadNameScript, ReadsBackWhatWasWritten) {
    for (const std::string& glyphs : AllNames()) {
        // Line ends and quotes are written all the same, but the game and the reader see them as what they
        // are.
        if (glyphs.find_first_of("\r\n\"") != std::string::npos) {
            continue;
        }
        NameDocument name = Name("old");
        EXPECT_EQ(
            ScriptEnd::Read,
            scripts::ReadNameScript(scripts::WriteNameScript(NameCommand::SetName, Name(glyphs)), name));
        EXPECT_EQ(Cells(Name(glyphs)), Cells(name));
    }
}

TEST(ReadNameScript, TakesBothCommandsForTheSame) {
    for (const std::string command : {"name", "set name", "alias name", "nameless"}) {
        NameDocument name = Name("replaced whole");
        EXPECT_EQ(
            ScriptEnd::Read,
            scripts::ReadNameScript("// Name File Created by Vortigo\r\n" + command + " \" ab\"\r\n", name));
        EXPECT_EQ(" ab            ", Cells(name));
    }
}

TEST(ReadNameScript, ReadsEveryLineEndAndAnUnterminatedLine) {
    for (const std::string end : {"\r\n", "\r", "\n"}) {
        for (const std::string& last : {end, std::string()}) {
            NameDocument name;
            EXPECT_EQ(
                ScriptEnd::Read, scripts::ReadNameScript(
                                     "// Name File Created by Vortigo" + end + "name \"ab\"" + last, name));
            EXPECT_EQ("ab             ", Cells(name));
        }
    }
}

TEST(ReadNameScript, DropsTheLastByteOfTheLineWhateverItIs) {
    NameDocument name;
    EXPECT_EQ(
        ScriptEnd::Read,
        scripts::ReadNameScript("// Name File Created by Vortigo\r\nname \"ab\" \r\n", name));
    EXPECT_EQ("ab\"            ", Cells(name));
}

TEST(ReadNameScript, ReadsALineWithoutQuotesFromItsStart) {
    NameDocument name;
    EXPECT_EQ(
        ScriptEnd::Read, scripts::ReadNameScript("// Name File Created by Vortigo\r\nname abc\r\n", name));
    EXPECT_EQ("name ab        ", Cells(name));
}

TEST(ReadNameScript, FindsItsHeaderAnywhereInTheFirstLine) {
    NameDocument name;
    EXPECT_EQ(
        ScriptEnd::Read, scripts::ReadNameScript("xx Name File Created by Vortigo 2\r\nname \"a\"", name));
}

TEST(ReadNameScript, LeavesTheNameAloneWhenTheScriptIsNotOne) {
    for (const std::string script : {
             "",
             "\r\n",
             "// Name File Created by Vortigo",
             "// Name File Created by Vortigo\r\n",
             "// Name File Created by Vortigo\r\n\r\nname \"a\"\r\n",
             "// Name File Created by Vortigo\r\nNAME \"a\"\r\n",
             "// Name File Created by Vortigo\r\nsay \"a\"\r\n",
             "// name file created by vortigo\r\nname \"a\"\r\n",
             "\r\n// Name File Created by Vortigo\r\nname \"a\"\r\n",
             "// Macro File Created by Vortigo\r\nname \"a\"\r\n",
             "name \"a\"\r\n",
         }) {
        NameDocument name = Name("old");
        EXPECT_EQ(ScriptEnd::NotRecognised, scripts::ReadNameScript(script, name)) << script;
        EXPECT_EQ("old            ", Cells(name)) << script;
    }
}

TEST(ReadNameScript, KeepsTheFirstFifteenGlyphsOfALongerName) {
    NameDocument name = Name("old");
    EXPECT_EQ(
        ScriptEnd::TooLong,
        scripts::ReadNameScript("// Name File Created by Vortigo\r\nname \"1234567890123456\"\r\n", name));
    EXPECT_EQ("123456789012345", Cells(name));
}

TEST(ReadNameScript, LeavesTheCursorWhereItIs) {
    NameDocument name;
    name.cursorPos = 7;
    ASSERT_EQ(
        ScriptEnd::Read,
        scripts::ReadNameScript("// Name File Created by Vortigo\r\nname \"abc\"\r\n", name));
    EXPECT_EQ(7, name.cursorPos);
}

TEST_F(NameScript, IsSavedForTheGameThatWasAnswered) {
    name = Name("Player");
    const ui::Path path = file("a.vtn");
    expectSaveDialog(path);
    // The question comes before the file is made.
    fake.dialogs.expectGameQuestion(Question, ui::Answer::Yes, [&] { EXPECT_FALSE(fake.disk.exists(path)); });
    fake.dialogs.expectInform("Done! The script file, " + ui::PathText(path) + ", was written.", [&] {
        EXPECT_EQ("// Name File Created by Vortigo\r\nname \"Player\"\r\n", get(path));
    });
    const SaveOutcome outcome = save();
    EXPECT_EQ(SaveOutcome::Kind::Written, outcome.kind);
    EXPECT_EQ(path, outcome.path);
    EXPECT_TRUE(scripts::OffersBinding(outcome));
    fake.dialogs.expectAllAsked();

    expectSaveDialog(path);
    fake.dialogs.expectGameQuestion(Question, ui::Answer::No);
    fake.dialogs.expectInform("Done! The script file, " + ui::PathText(path) + ", was written.");
    (void)save();
    EXPECT_EQ("// Name File Created by Vortigo\r\nset name \"Player\"\r\n", get(path));
}

TEST_F(NameScript, ReplacesALongerScriptWhole) {
    name = Name("a");
    const ui::Path path = put("a.vtn", "// Name File Created by Vortigo\r\nset name \"123456789012345\"\r\n");
    expectSaveDialog(path);
    fake.dialogs.expectGameQuestion(Question, ui::Answer::Yes);
    fake.dialogs.expectInform("Done! The script file, " + ui::PathText(path) + ", was written.");
    (void)save();
    EXPECT_EQ("// Name File Created by Vortigo\r\nname \"a\"\r\n", get(path));
}

TEST_F(NameScript, EndsSilentlyWhenTheSaveDialogIsCancelled) {
    expectSaveDialog(std::nullopt);
    const SaveOutcome outcome = save();
    EXPECT_EQ(SaveOutcome::Kind::Cancelled, outcome.kind);
    EXPECT_TRUE(scripts::OffersBinding(outcome)) << "the binding prompt follows a cancelled dialog too";
    EXPECT_EQ(0, fake.files.count(support::FailingFiles::Step::Create));
}

TEST_F(NameScript, AsksBeforeItReplacesAFileOfAnotherKind) {
    const ui::Path path = put("autoexec.cfg", "bind a b\n");
    expectSaveDialog(path);
    fake.dialogs.expectBox(
        {"The file \"" + ui::PathText(path) + "\" is not a script of this kind.\nDo you wish to replace it?",
         ui::Buttons::YesNo, ui::Icon::None, "", true},
        ui::Answer::No);
    EXPECT_EQ(SaveOutcome::Kind::Cancelled, save().kind);
    EXPECT_EQ("bind a b\n", get(path));
    fake.dialogs.expectAllAsked();

    expectSaveDialog(path);
    fake.dialogs.expectBox(
        {"The file \"" + ui::PathText(path) + "\" is not a script of this kind.\nDo you wish to replace it?",
         ui::Buttons::YesNo, ui::Icon::None, "", true},
        ui::Answer::Yes);
    fake.dialogs.expectGameQuestion(Question, ui::Answer::Yes);
    fake.dialogs.expectInform("Done! The script file, " + ui::PathText(path) + ", was written.");
    EXPECT_EQ(SaveOutcome::Kind::Written, save().kind);
    EXPECT_EQ("// Name File Created by Vortigo\r\nname \"\"\r\n", get(path));
}

TEST_F(NameScript, ReplacesAnEmptyFileWithoutAsking) {
    const ui::Path path = put("a.vtn", "");
    expectSaveDialog(path);
    fake.dialogs.expectGameQuestion(Question, ui::Answer::Yes);
    fake.dialogs.expectInform("Done! The script file, " + ui::PathText(path) + ", was written.");
    EXPECT_EQ(SaveOutcome::Kind::Written, save().kind);
}

TEST_F(NameScript, ThatCannotBeWrittenSaysWhichFileAndWhy) {
    const ui::Path path = file("nowhere/a.vtn");
    expectSaveDialog(path);
    fake.dialogs.expectGameQuestion(Question, ui::Answer::Yes);
    fake.dialogs.expectWarning("Could not open \"" + ui::PathText(path) + "\": No such file or directory.");
    const SaveOutcome outcome = save();
    EXPECT_EQ(SaveOutcome::Kind::Failed, outcome.kind);
    EXPECT_FALSE(scripts::OffersBinding(outcome)) << "nothing follows a failed save";
}

TEST_F(NameScript, IsNotDoneWhenAnyStepOfTheWritingFails) {
    const ui::Path path = file("a.vtn");
    for (const auto& [step, word] :
         {std::pair(Step::Look, "look"),
          {Step::Create, "create"},
          {Step::Write, "write"},
          {Step::Flush, "flush"},
          {Step::Read, "read"},
          {Step::Close, "close"},
          {Step::Rename, "rename"}}) {
        fake.files.failOnce(step);
        expectSaveDialog(path);
        fake.dialogs.expectGameQuestion(Question, ui::Answer::Yes);
        fake.dialogs.expectWarning(
            std::string("Could not ") + word + " \"" + ui::PathText(path) + "\": injected failure.");
        EXPECT_EQ(SaveOutcome::Kind::Failed, save().kind);
        fake.dialogs.expectAllAsked();
        EXPECT_FALSE(fake.disk.exists(path));
    }
}

TEST_F(NameScript, ThatCannotReplaceAnotherLeavesThatOneWhole) {
    const ui::Path path = put("a.vtn", "// Name File Created by Vortigo\r\nname \"old\"\r\n");
    std::filesystem::create_hard_link(path, file("b.vtn"));
    fake.files.failOnce(Step::Write, 2);
    expectSaveDialog(path);
    fake.dialogs.expectGameQuestion(Question, ui::Answer::Yes);
    fake.dialogs.expectWarning(
        "Could not write \"" + ui::PathText(path) +
        "\": injected failure.\nThe file was put back as it was.");
    EXPECT_EQ(SaveOutcome::Kind::Failed, save().kind);
    EXPECT_EQ("// Name File Created by Vortigo\r\nname \"old\"\r\n", get(path));
}

TEST_F(NameScript, IsChosenInTheDefaultFolder) {
    fake.dialogs.expectOpen({"Select the Script file", "*.vtn", NameScriptFilter, ui::Path()}, std::nullopt);
    EXPECT_EQ(std::nullopt, choose());
    fake.dialogs.expectOpen(
        {"Select the Script file", "*.vtn", NameScriptFilter, ui::Path()}, ui::Path("/a/b.scr"));
    EXPECT_EQ(ui::Path("/a/b.scr"), choose());
}

TEST_F(NameScript, IsShownBeforeTheLoadIsReported) {
    const ui::Path path = put("a.vtn", "// Name File Created by Vortigo\r\nset name \"Player\"\r\n");
    fake.dialogs.expectInform("Done! " + ui::PathText(path) + " was read succesfully.", [&] {
        EXPECT_EQ(1, repaints);
        EXPECT_EQ("Player         ", Cells(name));
    });
    EXPECT_TRUE(load(path).loaded());
    EXPECT_EQ(1, repaints);
}

TEST_F(NameScript, IsLoadedWithoutASuccessMessageWhileTheProgramStarts) {
    const ui::Path path = put("a.vtn", "// Name File Created by Vortigo\r\nset name \"Player\"\r\n");
    EXPECT_TRUE(load(path, true).loaded());
    EXPECT_EQ(1, repaints);
    EXPECT_EQ("Player         ", Cells(name));
}

TEST_F(NameScript, ThatIsNotOneIsReportedEvenWhileTheProgramStarts) {
    name = Name("old");
    const ui::Path path = put("a.vtn", "// name file created by vortigo\r\nname \"a\"\r\n");
    for (const bool quiet : {false, true}) {
        fake.dialogs.expectInform("Error reading name from " + ui::PathText(path) + ".");
        EXPECT_FALSE(load(path, quiet).loaded());
    }
    EXPECT_EQ(0, repaints);
    EXPECT_EQ("old            ", Cells(name));
}

TEST_F(NameScript, ThatIsNotThereIsReportedWithTheReasonForTheStatusLine) {
    name = Name("old");
    // Paths are shown as they were given: the start-up gives the file's name alone.
    fake.dialogs.expectInform("Error reading name from not-there.vtn.");
    const auto outcome = load("not-there.vtn");
    EXPECT_FALSE(outcome.loaded());
    EXPECT_EQ("Could not open \"not-there.vtn\": No such file or directory.", outcome.statusText);
    EXPECT_EQ(0, repaints);
    EXPECT_EQ("old            ", Cells(name));
}

TEST_F(NameScript, ThatIsTooLongIsReportedAndShownAsFarAsItFits) {
    name = Name("old");
    const ui::Path path = put("a.vtn", "// Name File Created by Vortigo\r\nname \"1234567890123456\"\r\n");
    fake.dialogs.expectInform(
        "Error reading name from " + ui::PathText(path) + ".", [&] { EXPECT_EQ(1, repaints); });
    EXPECT_FALSE(load(path).loaded());
    EXPECT_EQ("123456789012345", Cells(name));
    EXPECT_EQ(1, repaints);
}

TEST_F(NameScript, IsSavedAndLoadedUnderAnyFileName) {
    name = Name("Player");
    const ui::Path path = file(ui::PathFromText("g\xFCnther \xC3\xBC.vtn"));
    expectSaveDialog(path);
    fake.dialogs.expectGameQuestion(Question, ui::Answer::Yes);
    fake.dialogs.expectInform("Done! The script file, " + ui::PathText(path) + ", was written.");
    (void)save();
    name = {};
    EXPECT_TRUE(load(path, true).loaded());
    EXPECT_EQ("Player         ", Cells(name));
}

TEST_F(NameScript, IsOnTheClipboardAsItsBytes) {
    name = Name(" \x01\xFF\x80q ");
    fake.dialogs.expectInform(
        "Your name is now in the Windows Clipboard.\n"
        "Place the cursor anywhere you can Paste or\n"
        "Shift-Insert to use your new name.\n"
        "Like the Profile Name of GameSpy.",
        [&] { EXPECT_EQ(1U, fake.clipboard.texts.size()); });
    scripts::CopyNameToClipboard(fake.clipboard, fake.dialogs, name);
    EXPECT_EQ(std::vector<std::string>{" \x01\xFF\x80q"}, fake.clipboard.texts);
}

TEST_F(NameScript, AsksForTheBindingWizard) {
    constexpr auto text = "Would you like to use the Binding Wizard to bind the script file you just saved?";
    fake.dialogs.expectYesNo(text, ui::Answer::Yes);
    EXPECT_TRUE(scripts::AskToBind(fake.dialogs));
    fake.dialogs.expectYesNo(text, ui::Answer::No);
    EXPECT_FALSE(scripts::AskToBind(fake.dialogs));
}
