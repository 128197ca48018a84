// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/FakeDialogs.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <memory>
#include <optional>

namespace {

using support::FakeDialogs;
using ui::Answer;

TEST(FakeDialogs, AnswersExpectedQuestionsInOrder) {
    FakeDialogs dialogs;
    dialogs.expectInform("Done!");
    dialogs.expectYesNo("Add it?", Answer::Yes);
    dialogs.expectYesNoCancel("All?", Answer::Cancel);
    dialogs.expectSave({"Save", "*.vtn", {{"Names", {"*.vtn"}}}}, "/tmp/a.vtn");
    dialogs.expectOpen({"Open", "*.vtn", {}}, std::nullopt);
    dialogs.expectColour(0xFF0000FFU, 0xFF00FF00U);

    dialogs.inform("Done!");
    EXPECT_TRUE(dialogs.askYesNo("Add it?"));
    EXPECT_EQ(dialogs.box({"All?", ui::Buttons::YesNoCancel}), Answer::Cancel);
    ui::FileDialogRequest save;
    save.title = "Save";
    save.initialName = "*.vtn";
    save.filters = {{"Names", {"*.vtn"}}};
    EXPECT_EQ(dialogs.chooseFileToSave(save), ui::Path("/tmp/a.vtn"));
    ui::FileDialogRequest open;
    open.title = "Open";
    open.initialName = "*.vtn";
    EXPECT_EQ(dialogs.chooseFileToOpen(open), std::nullopt);
    EXPECT_EQ(dialogs.chooseColour(0xFF0000FFU), 0xFF00FF00U);
    EXPECT_EQ(dialogs.calls().size(), 6U);
    EXPECT_EQ(dialogs.left(), 0U);
}

TEST(FakeDialogs, FailsOnAnUnexpectedQuestion) {
    FakeDialogs dialogs;
    EXPECT_NONFATAL_FAILURE(dialogs.inform("Surprise"), "Surprise");
}

TEST(FakeDialogs, FailsOnAQuestionOfAnotherKind) {
    FakeDialogs dialogs;
    dialogs.expectColour(0, 1);
    EXPECT_NONFATAL_FAILURE(dialogs.inform("Surprise"), "the colour chooser");
    EXPECT_EQ(dialogs.chooseColour(0), 1U);
}

TEST(FakeDialogs, FailsOnAnotherText) {
    FakeDialogs dialogs;
    dialogs.expectInform("Done!");
    EXPECT_NONFATAL_FAILURE(dialogs.inform("Done."), "Done!");
}

TEST(FakeDialogs, FailsOnAMissingIcon) {
    FakeDialogs dialogs;
    dialogs.expectWarning("Beware");
    EXPECT_NONFATAL_FAILURE(dialogs.inform("Beware"), "Beware");
}

TEST(FakeDialogs, FailsOnAnotherDetailOrDefaultButton) {
    const ui::Message message{"Add it?", ui::Buttons::YesNo, ui::Icon::None, "At the end.", true};
    FakeDialogs dialogs;
    dialogs.expectBox(message, Answer::No);
    EXPECT_EQ(dialogs.box(message), Answer::No);
    dialogs.expectYesNo("Add it?", Answer::No);
    EXPECT_NONFATAL_FAILURE(
        dialogs.box({"Add it?", ui::Buttons::YesNo, ui::Icon::None, "At the end."}), "At the end.");
    dialogs.expectYesNo("Add it?", Answer::No);
    EXPECT_NONFATAL_FAILURE(
        dialogs.box({"Add it?", ui::Buttons::YesNo, ui::Icon::None, "", true}), "prefersNo");
}

TEST(FakeDialogs, FailsOnAQuestionThatNeverCame) {
    auto dialogs = std::make_unique<FakeDialogs>();
    dialogs->expectInform("Done!");
    EXPECT_NONFATAL_FAILURE(dialogs.reset(), "never came");
}

TEST(FakeDialogs, RunsTheActionWhileTheQuestionIsShown) {
    FakeDialogs dialogs;
    bool shown = false;
    dialogs.expectInform("Done!", [&] { shown = dialogs.calls().size() == 1; });
    dialogs.inform("Done!");
    EXPECT_TRUE(shown);
}

} // namespace
