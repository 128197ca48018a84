// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/mdlMacro.h"

#include "support/FakePlatform.h"

#include <algorithm>
#include <gtest/gtest.h>

using editing::MessageDocument;
using editing::SaveOutcome;
using editing::ScriptEnd;
using scripts::MessageChoice;
using scripts::SayCommand;
using Step = support::FailingFiles::Step;

namespace {

constexpr auto MacroHeader = "// Macro File Created by Vortigo\r\n";
const std::string Full = "abcdefghijklmnopqrstuvwxyz12345";

void SetMessage(MessageDocument& messages, int number, std::string_view glyphs) {
    const auto row = messages.rows().row(number);
    std::fill(row.begin(), row.end(), glyphs::BlankGlyph);
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        row[i] = static_cast<unsigned char>(glyphs[i]);
    }
}

MessageDocument Messages(std::string_view top, std::string_view middle, std::string_view bottom) {
    MessageDocument messages;
    SetMessage(messages, 1, top);
    SetMessage(messages, 2, middle);
    SetMessage(messages, 3, bottom);
    return messages;
}

/// The three messages' texts.
std::vector<std::string> Texts(const MessageDocument& messages) {
    return {
        scripts::MessageText(messages, 1), scripts::MessageText(messages, 2),
        scripts::MessageText(messages, 3)};
}

using TextList = std::vector<std::string>;

const std::vector<ui::FileFilter> MessageScriptFilter = {
    {"VTM Macro Script (*.vtm;*.scr)", {"*.vtm", "*.scr"}}};

class MessageScript : public testing::Test {
protected:
    support::FakePlatform fake;
    MessageDocument messages = Messages("one", "two", "three");
    int repaints = 0;

    void expectSaveDialog(std::optional<ui::Path> answer) {
        fake.dialogs.expectSave(
            {"Save as a Script File", "*.vtm", MessageScriptFilter, ui::Path(), ".vtm", true}, answer);
    }

    SaveOutcome save(const MessageChoice& choice) {
        return scripts::SaveMessageScript(fake.dialogs, fake.files, choice, messages);
    }

    std::optional<ui::Path> choose() {
        return fake.dialogs.chooseFileToOpen(
            editing::OpenScriptRequest(editing::KindOf(editing::Page::Messages), fake.directory.folder()));
    }

    editing::ScriptRead load(const ui::Path& path, bool quiet = false) {
        return editing::LoadScript(
            fake.dialogs, fake.files, scripts::MessageReader(messages, path), quiet,
            editing::OpenFailure::StatusLine, [this] { ++repaints; });
    }
};

} // namespace

TEST(MessageText, DropsBlanksAtTheRightEndOnly) {
    EXPECT_EQ(TextList({"  a b", "", Full}), Texts(Messages("  a b  ", "", Full)));
}

TEST(MessageText, OfThirtyOneGlyphsWithABlankAtTheEndHasThirty) {
    const std::string thirty = Full.substr(0, 30);
    EXPECT_EQ(thirty, scripts::MessageText(Messages(thirty + " ", "", ""), 1));
}

TEST(WriteMessageScript, WritesTheSelectedMessagesInOrderWithOneCommand) {
    const MessageDocument messages = Messages("one", "  two", "three");
    EXPECT_EQ(
        std::string(MacroHeader) + "say \"one\"\r\nsay \"  two\"\r\nsay \"three\"\r\n",
        scripts::WriteMessageScript({{true, true, true}, SayCommand::Say}, messages));
    EXPECT_EQ(
        std::string(MacroHeader) + "say_team \"one\"\r\nsay_team \"three\"\r\n",
        scripts::WriteMessageScript({{true, false, true}, SayCommand::SayTeam}, messages));
}

TEST(WriteMessageScript, WritesNothingBetweenTheQuotesOfABlankMessage) {
    EXPECT_EQ(
        std::string(MacroHeader) + "say \"\"\r\n",
        scripts::WriteMessageScript({{false, true, false}, SayCommand::Say}, MessageDocument{}));
}

TEST(WriteMessageScript, WritesEveryGlyphAsItsByte) {
    for (int code = 0; code < 256; ++code) {
        if (code == 32) {
            continue;
        }
        const std::string glyph(1, static_cast<char>(code));
        EXPECT_EQ(
            MacroHeader + ("say \"" + glyph) + "\"\r\n",
            scripts::WriteMessageScript({{true, false, false}, SayCommand::Say}, Messages(glyph, "", "")));
    }
}

TEST(CountMessages, CountsUpToThree) {
    const std::string header = MacroHeader;
    EXPECT_EQ(1, scripts::CountMessages(header + "say \"a\"\r\n"));
    EXPECT_EQ(2, scripts::CountMessages(header + "say \"a\"\r\nsay_team \"b\""));
    EXPECT_EQ(3, scripts::CountMessages(header + "say \"a\"\r\nsay \"b\"\r\nsay \"c\"\r\n"));
    EXPECT_EQ(3, scripts::CountMessages(header + "say \"a\"\r\nsay \"b\"\r\nsay \"c\"\r\nsay \"d\"\r\n"));
    EXPECT_EQ(3, scripts::CountMessages(header + "say \"a\"\r\nsay \"b\"\r\nsay \"c\"\r\n\r\nbind x\r\n"));
    EXPECT_EQ(2, scripts::CountMessages("// Macro File Created by Vortigo\nsay \"a\"\nsay \"b\"\n"));
    EXPECT_EQ(2, scripts::CountMessages("// Macro File Created by Vortigo\rsay \"a\"\rsay \"b\"\r"));
}

TEST(CountMessages, IsNoneWhenTheScriptCannotBeRead) {
    const std::string header = MacroHeader;
    EXPECT_EQ(0, scripts::CountMessages(""));
    EXPECT_EQ(0, scripts::CountMessages(header));
    EXPECT_EQ(0, scripts::CountMessages("say \"a\"\r\n"));
    EXPECT_EQ(0, scripts::CountMessages("// macro file created by vortigo\r\nsay \"a\"\r\n"));
    EXPECT_EQ(0, scripts::CountMessages("// Name File Created by Vortigo\r\nsay \"a\"\r\n"));
    EXPECT_EQ(0, scripts::CountMessages(header + "SAY \"a\"\r\n"));
    EXPECT_EQ(0, scripts::CountMessages(header + "say \"a\"\r\nSAY_TEAM \"b\"\r\n"));
    EXPECT_EQ(0, scripts::CountMessages(header + "\r\nsay \"a\"\r\n"));
    EXPECT_EQ(0, scripts::CountMessages(header + "say \"a\"\r\n\r\n"));
    EXPECT_EQ(0, scripts::CountMessages(header + "say \"a\"\r\nsay \"b\"\r\necho\r\n"));
}

TEST(ReadMessageScript, FillsTheMessagesFromTheTopAndLeavesTheOthers) {
    const MessageDocument source = Messages("one", "two", "three");
    const auto script = scripts::WriteMessageScript({{false, true, false}, SayCommand::SayTeam}, source);
    EXPECT_EQ(std::string(MacroHeader) + "say_team \"two\"\r\n", script);
    MessageDocument messages = Messages("old message one", "old two", "old three");
    EXPECT_EQ(ScriptEnd::Read, scripts::ReadMessageScript(script, messages));
    EXPECT_EQ(TextList({"two", "old two", "old three"}), Texts(messages));
}

TEST(ReadMessageScript, IgnoresAFourthLine) {
    MessageDocument messages;
    const std::string script = "say \"a\"\r\nsay \"b\"\r\nsay \"c\"\r\nsay \"d\"\r\n";
    EXPECT_EQ(ScriptEnd::Read, scripts::ReadMessageScript(MacroHeader + script, messages));
    EXPECT_EQ(TextList({"a", "b", "c"}), Texts(messages));
}

TEST(ReadMessageScript, ReadsBackWhatWasWritten) {
    const MessageDocument source = Messages(Full, "", std::string(" \x80\xFF\x01\0x", 6));
    MessageDocument messages = Messages("old", "old", "old");
    const auto script = scripts::WriteMessageScript({{true, true, true}, SayCommand::Say}, source);
    EXPECT_EQ(ScriptEnd::Read, scripts::ReadMessageScript(script, messages));
    EXPECT_EQ(source.cells, messages.cells);
}

TEST(ReadMessageScript, FollowsTheQuotesAndNotTheCommand) {
    MessageDocument messages;
    const std::string script = "say \"a\" \r\nsay abc\r\nalias x essay \"b\"\r\n";
    EXPECT_EQ(ScriptEnd::Read, scripts::ReadMessageScript(MacroHeader + script, messages));
    EXPECT_EQ(TextList({"a\"", "say ab", "b"}), Texts(messages));
}

TEST(ReadMessageScript, LeavesTheMessagesAloneWhenTheScriptIsNotOne) {
    for (const std::string lines : {"", "SAY \"a\"\r\n", "say \"a\"\r\nfoo\r\nsay \"b\"\r\n"}) {
        MessageDocument messages = Messages("one", "two", "three");
        EXPECT_EQ(ScriptEnd::NotRecognised, scripts::ReadMessageScript(MacroHeader + lines, messages));
        EXPECT_EQ(TextList({"one", "two", "three"}), Texts(messages));
    }
}

TEST(ReadMessageScript, EndsAtAMessageThatIsTooLong) {
    MessageDocument messages = Messages("one", "two", "three");
    EXPECT_EQ(
        ScriptEnd::TooLong,
        scripts::ReadMessageScript(
            MacroHeader + ("say \"a\"\r\nsay \"" + Full) + "6\"\r\nsay \"c\"\r\n", messages));
    EXPECT_EQ(TextList({"a", Full, "three"}), Texts(messages));
}

TEST(ReadMessageScript, LeavesTheCursorWhereItIs) {
    MessageDocument messages;
    messages.cursorPos = 20;
    messages.currentMessage = 3;
    ASSERT_EQ(
        ScriptEnd::Read, scripts::ReadMessageScript(MacroHeader + std::string("say \"a\"\r\n"), messages));
    EXPECT_EQ(20, messages.cursorPos);
    EXPECT_EQ(3, messages.currentMessage);
}

TEST_F(MessageScript, IsSavedWithoutAQuestion) {
    const ui::Path path = fake.directory.files / "a.vtm";
    expectSaveDialog(path);
    fake.dialogs.expectInform("Done! The script file, " + ui::PathText(path) + ", was written.", [&] {
        EXPECT_EQ(
            std::string(MacroHeader) + "say_team \"one\"\r\nsay_team \"two\"\r\n",
            fake.directory.files.content("a.vtm"));
    });
    const SaveOutcome outcome = save({{true, true, false}, SayCommand::SayTeam});
    EXPECT_EQ(SaveOutcome::Kind::Written, outcome.kind);
    EXPECT_EQ(path, outcome.path);
}

TEST_F(MessageScript, NeedsAMessage) {
    fake.dialogs.expectInform("You need to select at least 1 message to display!");
    EXPECT_EQ(SaveOutcome::Kind::Cancelled, save({}).kind);
    EXPECT_EQ(1U, fake.dialogs.calls().size());
}

TEST_F(MessageScript, EndsSilentlyWhenTheSaveDialogIsCancelled) {
    expectSaveDialog(std::nullopt);
    EXPECT_EQ(SaveOutcome::Kind::Cancelled, save({{true, false, false}, SayCommand::Say}).kind);
}

TEST_F(MessageScript, AsksBeforeItReplacesAFileOfAnotherKind) {
    const ui::Path path =
        fake.directory.files.put("a.vtn", "// Name File Created by Vortigo\r\nname \"a\"\r\n");
    expectSaveDialog(path);
    fake.dialogs.expectBox(
        {"The file \"" + ui::PathText(path) + "\" is not a script of this kind.\nDo you wish to replace it?",
         ui::Buttons::YesNo, ui::Icon::None, "", true},
        ui::Answer::No);
    EXPECT_EQ(SaveOutcome::Kind::Cancelled, save({{true, false, false}, SayCommand::Say}).kind);
    EXPECT_EQ("// Name File Created by Vortigo\r\nname \"a\"\r\n", fake.directory.files.content("a.vtn"));
}

TEST_F(MessageScript, IsNotDoneWhenAnyStepOfTheWritingFails) {
    const ui::Path path = fake.directory.files / "a.vtm";
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
        fake.dialogs.expectWarning(
            std::string("Could not ") + word + " \"" + ui::PathText(path) + "\": injected failure.");
        EXPECT_EQ(SaveOutcome::Kind::Failed, save({{true, false, false}, SayCommand::Say}).kind);
        fake.dialogs.expectAllAsked();
        EXPECT_FALSE(fake.disk.exists(path));
    }
}

TEST_F(MessageScript, IsChosenInTheDefaultFolder) {
    fake.dialogs.expectOpen(
        {"Select the Script file", "*.vtm", MessageScriptFilter, ui::Path()}, std::nullopt);
    EXPECT_EQ(std::nullopt, choose());
    fake.dialogs.expectOpen(
        {"Select the Script file", "*.vtm", MessageScriptFilter, ui::Path()}, ui::Path("/a/b.scr"));
    EXPECT_EQ(ui::Path("/a/b.scr"), choose());
}

TEST_F(MessageScript, IsShownBeforeTheLoadIsReported) {
    const ui::Path path = fake.directory.files.put("a.vtm", std::string(MacroHeader) + "say \"x\"\r\n");
    fake.dialogs.expectInform("Done! " + ui::PathText(path) + " was read succesfully.", [&] {
        EXPECT_EQ(1, repaints);
        EXPECT_EQ(TextList({"x", "two", "three"}), Texts(messages));
    });
    EXPECT_TRUE(load(path).loaded());
}

TEST_F(MessageScript, IsLoadedWithoutASuccessMessageWhileTheProgramStarts) {
    const ui::Path path = fake.directory.files.put("a.vtm", std::string(MacroHeader) + "say \"x\"\r\n");
    EXPECT_TRUE(load(path, true).loaded());
    EXPECT_EQ(1, repaints);
}

TEST_F(MessageScript, ThatIsNotOneIsReportedEvenWhileTheProgramStarts) {
    const ui::Path path = fake.directory.files.put("a.vtm", "say \"x\"\r\n");
    for (const bool quiet : {false, true}) {
        fake.dialogs.expectInform("Error retrieving Macro from script file.");
        EXPECT_FALSE(load(path, quiet).loaded());
    }
    EXPECT_EQ(0, repaints);
    EXPECT_EQ(TextList({"one", "two", "three"}), Texts(messages));
}

TEST_F(MessageScript, ThatIsNotThereIsReportedWithTheReasonForTheStatusLine) {
    fake.dialogs.expectInform("Error retrieving Macro from script file.");
    const auto outcome = load("not-there.vtm");
    EXPECT_FALSE(outcome.loaded());
    EXPECT_EQ("Could not open \"not-there.vtm\": No such file or directory.", outcome.statusText);
    EXPECT_EQ(0, repaints);
}

TEST_F(MessageScript, WithAMessageThatIsTooLongIsReportedAndShownAsFarAsItWasRead) {
    const ui::Path path =
        fake.directory.files.put("a.vtm", MacroHeader + ("say \"x\"\r\nsay \"" + Full) + "6\"\r\n");
    fake.dialogs.expectInform("Error retrieving Macro from script file.", [&] { EXPECT_EQ(1, repaints); });
    EXPECT_FALSE(load(path).loaded());
    EXPECT_EQ(TextList({"x", Full, "three"}), Texts(messages));
}
