// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "SessionRun.h"
#include "WorkStates.h"

namespace {

using editing::Page;
using Shown = std::vector<std::string>;

} // namespace

TEST_F(SessionRun, TheStartEndsWithItsPageInView) {
    fake.settings.write("options", "maketype", "2");
    load({});
    EXPECT_EQ(session.page(), Page::Messages);
    ASSERT_GE(view.shown.size(), 3U);
    EXPECT_EQ(
        Shown(view.shown.end() - 3, view.shown.end()), (Shown{"view Messages", "show Messages", "follow"}));
    EXPECT_EQ(played(102), 1) << "the page is switched to once";
    EXPECT_EQ(played(104), 0) << "the first painting is silent";
    EXPECT_TRUE(isPainted());
    EXPECT_EQ(session.history().undoCommand(), nullptr);
}

TEST_F(SessionRun, AScriptOfTheCommandLineIsLoadedInSilence) {
    const ui::Path path = putScript("clan.vtn", "clan");
    load({" /name " + ui::PathText(path)});
    EXPECT_EQ(nameText(), "clan");
    EXPECT_EQ(session.page(), Page::Animation) << "the page that its switch shows";
    EXPECT_NE(view.status.find("clan.vtn"), std::string::npos) << view.status;
    EXPECT_EQ(session.history().undoCommand(), nullptr) << "it is what everything is taken back to";
}

TEST_F(SessionRun, ACharacterSetThatIsMissingEndsTheStart) {
    ASSERT_TRUE(fake.disk.remove(fake.directory.files / "vtmgrid.dat"));
    EXPECT_FALSE(session.load({}).ok());
}

TEST_F(SessionRun, AChangeIsPaintedThenShownAndCanBeTakenBack) {
    startOn(Page::Name);
    {
        const auto running = session.running("Stamp");
        session.finish(editing::PutGlyph(session.cursor(), {}, 29));
    }
    EXPECT_EQ(view.shown, (Shown{"show Name", "follow"}));
    EXPECT_TRUE(isPainted());
    ASSERT_NE(session.history().undoCommand(), nullptr);
    EXPECT_EQ(*session.history().undoCommand(), "Stamp");
    session.undo();
    EXPECT_EQ(nameText(), "");
    EXPECT_TRUE(isPainted());
    session.redo();
    EXPECT_EQ(nameText(), "\x1d");
    EXPECT_TRUE(isPainted());
}

TEST_F(SessionRun, TakingBackBringsItsPageIntoView) {
    startOn(Page::Name);
    session.finish(editing::PutGlyph(session.cursor(), {}, 29));
    session.switchTo(Page::Messages);
    view.shown.clear();
    fake.sounds.waves.clear();
    session.undo();
    EXPECT_EQ(view.shown, (Shown{"view Name", "show Name", "follow"}));
    EXPECT_TRUE(fake.sounds.waves.empty());
}

TEST_F(SessionRun, WhatACrashHasLeftIsShownInSilenceAndCanBeTakenBack) {
    startOn(Page::Name);
    const editing::Documents before = documents();
    shell::WorkState state = RandomWork(7);
    state.page = Page::Messages;
    session.restore(state);
    EXPECT_EQ(documents(), state.documents);
    EXPECT_EQ(session.page(), Page::Messages);
    EXPECT_TRUE(isPainted());
    EXPECT_EQ(
        view.shown,
        (Shown{"show Name", "show Animation", "show Messages", "view Messages", "show Messages", "follow"}));
    EXPECT_TRUE(fake.sounds.waves.empty());
    ASSERT_NE(session.history().undoCommand(), nullptr);
    EXPECT_EQ(*session.history().undoCommand(), "Restore");
    session.undo();
    EXPECT_EQ(documents(), before);
    EXPECT_TRUE(isPainted());
    EXPECT_EQ(session.history().undoCommand(), nullptr) << "it is one step";
}

TEST_F(SessionRun, ThePageInViewIsNotSwitchedToAgain) {
    startOn(Page::Name);
    session.switchTo(Page::Name);
    EXPECT_TRUE(view.shown.empty());
    session.turnTo(Page::Name);
    EXPECT_EQ(view.shown, (Shown{"view Name", "show Name", "follow"}));
    EXPECT_EQ(played(102), 1);
}

TEST_F(SessionRun, WhatWasReadStandsOnThePageBeforeItIsTold) {
    startOn(Page::Animation);
    const ui::Path path = putScript("clan.vtn", "clan");
    fake.dialogs.expectOpen(OpenDialog(Page::Name), path);
    bool wasPainted = false;
    fake.dialogs.expectInform("Done! " + ui::PathText(path) + " was read succesfully.", [&] {
        wasPainted = isPainted() && nameText() == "clan" && session.page() == Page::Name &&
                     view.shown.back() == "show Name";
    });
    files.loadScript(Page::Name);
    EXPECT_TRUE(wasPainted);
    EXPECT_EQ(played(104), 1);
}

TEST_F(SessionRun, ACancelledDialogLeavesThePageInView) {
    startOn(Page::Animation);
    fake.dialogs.expectOpen(OpenDialog(Page::Name), std::nullopt);
    files.loadScript(Page::Name);
    EXPECT_EQ(session.page(), Page::Animation);
    EXPECT_EQ(view.shown, (Shown{"show Animation", "follow"}));
}

TEST_F(SessionRun, AnAbandonedReadingIsShownOnlyWhenAskedFor) {
    startOn(Page::Animation);
    const ui::Path path = fake.directory.files.put(
        "long.vta", "// Animation File Created by Vortigo\r\n// 20 Names In The Animation Sequence\r\n"
                    "name \"first\"\r\nname \"much longer than a name\"\r\n");
    fake.dialogs.expectOpen(OpenDialog(Page::Animation), path);
    files.loadScript(Page::Animation);
    EXPECT_TRUE(view.offersReadNames);
    EXPECT_FALSE(isPainted());
    session.showReadNames();
    EXPECT_FALSE(view.offersReadNames);
    EXPECT_TRUE(isPainted());
}

TEST_F(SessionRun, AScriptThatWasSavedIsRememberedBeforeItsKeyIsAskedFor) {
    startOn(Page::Name);
    session.finish(editing::PutGlyph(session.cursor(), {}, 'x'));
    view.shown.clear();
    const ui::Path path = fake.directory.files / "x.vtn";
    fake.dialogs.expectSave(SaveDialog(Page::Name), path);
    fake.dialogs.expectGameQuestion("Is this name to be used in Quake2?", ui::Answer::Yes);
    fake.dialogs.expectInform("Done! The script file, " + ui::PathText(path) + ", was written.");
    fake.dialogs.expectYesNo(
        "Would you like to use the Binding Wizard to bind the script file you just saved?", ui::Answer::Yes);
    files.saveScript(Page::Name);
    EXPECT_EQ(view.shown, (Shown{"recent", "binding wizard", "show Name", "follow"}));
    EXPECT_EQ(session.workspace().rememberedScript, path);
    EXPECT_EQ(session.workspace().recent.of(Page::Name), std::vector<std::string>{ui::PathText(path)});
}

TEST_F(SessionRun, MessagesAreSavedByTheirWizard) {
    startOn(Page::Name);
    const ui::Path path = fake.directory.files / "m.vtm";
    wizards.outcome = {editing::SaveOutcome::Kind::Written, path, "told"};
    files.saveScript(Page::Messages);
    EXPECT_EQ(view.shown, (Shown{"messages' wizard", "recent", "show Name", "follow"}));
    EXPECT_EQ(
        view.status,
        "told No known game looks in this folder; in a game's, exec m.vtm in the console runs it.")
        << "what was lost comes first";
    EXPECT_EQ(session.workspace().recent.of(Page::Messages), std::vector<std::string>{ui::PathText(path)});
    session.workspace().settings.games = {};
    files.saveScript(Page::Messages);
    EXPECT_EQ(view.status, "told") << "no game is played";
}

TEST_F(SessionRun, ARecentFileIsLoadedThenShown) {
    const ui::Path path = putScript("old.vtn", "old");
    fake.settings.write("NameFiles", "RecentFile1", ui::PathText(path));
    startOn(Page::Messages);
    fake.dialogs.expectInform("Done! " + ui::PathText(path) + " was read succesfully.", [&] {
        EXPECT_EQ(session.page(), Page::Messages) << "the page follows the reading";
    });
    files.loadRecent(Page::Name, 0);
    EXPECT_EQ(session.page(), Page::Name);
    EXPECT_EQ(nameText(), "old");
    files.loadRecent(Page::Name, 1);
    EXPECT_EQ(nameText(), "old") << "there is no such entry";
}

TEST_F(SessionRun, NewColoursAreShownAndEveryPagePaintedAnew) {
    startOn(Page::Name);
    shell::OptionsModel options(session.workspace().settings, session.workspace().charSet);
    options.setColour(shell::BackgroundColour, ui::OpaquePixel(0, 0, 90));
    session.applyOptions(options);
    EXPECT_EQ(view.shown, (Shown{"colours", "atlas", "show Name", "show Animation", "show Messages"}));
    EXPECT_EQ(played(104), 3);
    EXPECT_EQ(view.furthest, 100);
    EXPECT_TRUE(isPainted());
}

TEST_F(SessionRun, TheEndSavesTheOptionsIfTheySaySo) {
    startOn(Page::Messages);
    session.workspace().settings.favourites[0] = 77;
    EXPECT_TRUE(session.end().ok());
    EXPECT_EQ(fake.settings.read("options", "fav1"), "77");
    session.workspace().settings.favourites[0] = 78;
    session.workspace().settings.saveAtExit = false;
    EXPECT_TRUE(session.end().ok());
    EXPECT_EQ(fake.settings.read("options", "fav1"), "77");
}

TEST_F(SessionRun, TheDesktopLearnsOfTheScriptsOnce) {
    startOn(Page::Name);
    session.registerFileTypes();
    session.registerFileTypes();
    EXPECT_EQ(fake.fileTypes.registrations.size(), 1U);
}
