// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include "animation/frmAniWiz.h"
#include "animation/frmRankings.h"
#include "scripts/frmBindWiz.h"
#include "scripts/frmSaveMessages.h"
#include "shell/frmAbout.h"
#include "shell/frmOptions.h"

#include <QStatusBar>
#include <filesystem>

using editing::Page;

namespace {

class Status : public MainWindow {
protected:
    [[nodiscard]] std::string status() const { return window->statusBar()->currentMessage().toStdString(); }

    /// What an earlier command has told.
    void tell() const { window->statusBar()->showMessage(QStringLiteral("Line 3 was replaced: name")); }

    /// Expects the save dialog of the animation and answers what follows it.
    void expectAnimationSaved(const ui::Path& path) {
        support::ExpectedFileDialog dialog;
        dialog.initialName = "*.vta";
        dialog.filters = {{"VTM Animation Script (*.vta;*.scr)", {"*.vta", "*.scr"}}};
        fake.dialogs.expectSave(dialog, path);
        fake.dialogs.expectGameQuestion("Is this animation to be used in Quake2?", ui::Answer::Yes);
        fake.dialogs.expectInform("Done! The script file, " + ui::PathText(path) + ", was written.");
    }
};

} // namespace

TEST_F(Status, ForgetsTheLastCommandWithTheNextOneThatChangesAPage) {
    startOn(Page::Name);
    for (const char* command :
         {"mnuNewName",
          "mnuFormatAlignLeft",
          "mnuFormatAlignCenter",
          "mnuFormatAlignRight",
          "mnuFormatUpperToLowerCase",
          "mnuFormatLowerToUpperCase",
          "mnuFormatSwitchCase",
          "mnuFormatColor1ToColor2",
          "mnuFormatColor2ToColor1",
          "mnuFormatSwitchColor",
          "mnuFormatReverseCharacters",
          "mnuFormatReverseNameOrder",
          "aleft",
          "acenter",
          "aright",
          "lcase",
          "ucase",
          "scase",
          "color1",
          "color2",
          "scolor",
          "revorder",
          "revchar",
          "mnuNewMessages",
          "mnuNewAni"}) {
        tell();
        choose(command);
        EXPECT_EQ(status(), "") << command;
    }
}

TEST_F(Status, ForgetsTheLastCommandWithTheNextOneOfTheFileMenuThoughItIsCancelled) {
    startOn(Page::Name);
    workspace().settings.bindPrompt = false;
    const auto expect = [this](const char* command, support::ExpectedFileDialog dialog) {
        tell();
        if (std::string_view(command).find("Load") != std::string_view::npos) {
            fake.dialogs.expectOpen(dialog, {});
        } else {
            fake.dialogs.expectSave(dialog, {});
        }
        choose(command);
        EXPECT_EQ(status(), "") << command;
    };
    const ui::FileFilter names{"VTM Name Script (*.vtn;*.scr)", {"*.vtn", "*.scr"}};
    const ui::FileFilter configs{"Config File (*.cfg)", {"*.cfg"}};
    const ui::FileFilter animations{"VTM Animation Script (*.vta;*.scr)", {"*.vta", "*.scr"}};
    const ui::FileFilter messages{"VTM Macro Script (*.vtm;*.scr)", {"*.vtm", "*.scr"}};
    expect("mnuFileLoadNameFromScriptFile", {"Select the Script file", "*.vtn", {names}});
    expect("mnuFileLoadNameFromConfigFile", {"Select the Config file", "*.cfg", {configs}});
    expect("mnuFileLoadAniFromScriptFile", {"Select the Script file", "*.vta", {animations}});
    expect("mnuFileLoadMessagesFromScriptFile", {"Select the Script file", "*.vtm", {messages}});
    expect("mnuFileSaveName_0", {"Save as a Script File", "*.vtn", {names}});
    expect("mnuFileSaveName_1", {"Select The CFG File To Alter", "*.cfg", {configs}});
    expect("mnuFileSaveAni_0", {"", "*.vta", {animations}});

    tell();
    fake.dialogs.expectInform("Your name is now in the Windows Clipboard.\n"
                              "Place the cursor anywhere you can Paste or\n"
                              "Shift-Insert to use your new name.\n"
                              "Like the Profile Name of GameSpy.");
    choose("mnuFileSaveName_2");
    EXPECT_EQ(status(), "");
    tell();
    chooseAndUse<scripts::frmSaveMessages>("mnuFileSaveMessage", [](scripts::frmSaveMessages&) {});
    EXPECT_EQ(status(), "");
}

TEST_F(Status, ForgetsTheLastCommandWithTheNextOneOfTheToolsMenuThoughItIsCancelled) {
    startOn(Page::Name);
    workspace().settings.screenshot = ui::PathText(fake.directory.files.put("shot.bmp", ""));
    for (const char* command : {"mnuToolsAnimationWizard", "wiz"}) {
        tell();
        chooseAndUse<animation::frmAniWiz>(command, [](animation::frmAniWiz&) {});
        EXPECT_EQ(status(), "") << command;
    }
    for (const char* command : {"mnuToolsAnimationViewer", "view"}) {
        tell();
        chooseAndUse<animation::frmRankings>(command, [](animation::frmRankings&) {});
        EXPECT_EQ(status(), "") << command;
    }
    for (const char* command : {"mnuToolsSettings", "config"}) {
        tell();
        chooseAndUse<shell::frmOptions>(command, [](shell::frmOptions&) {});
        EXPECT_EQ(status(), "") << command;
    }
    tell();
    chooseAndUse<scripts::frmBindWiz>("mnuToolsBindingWizard", [](scripts::frmBindWiz&) {});
    EXPECT_EQ(status(), "");
}

TEST_F(Status, TellsOfAKeyThatTypedABlankWithCtrl) {
    startOn(Page::Name);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(status(), "Ctrl+Z typed a blank. What keys type is set in Tools > Configure > Key Mapping.");
    EXPECT_EQ(column(), 2) << "the blank is typed all the same";
}

TEST_F(Status, KeepsTellingWhileTheUserLooksAround) {
    startOn(Page::Name);
    tell();
    for (const char* command : {"mnuView_1", "smess", "mnuEditCopy"}) {
        choose(command);
    }
    chooseAndUse<shell::frmAbout>("mnuAboutVTM", [](shell::frmAbout&) {});
    EXPECT_EQ(status(), "Line 3 was replaced: name");
}

TEST_F(Status, KeepsWhatASaveHadToTellWhenTheBindingThatFollowsItIsCancelled) {
    startOn(Page::Animation);
    workspace().documents.animation.nameTicks.fill(0);
    expectAnimationSaved(fake.directory.files / "fast.vta");
    fake.dialogs.expectYesNo(
        "Would you like to use the Binding Wizard to bind the script file you just saved?", ui::Answer::Yes);
    chooseAndUse<scripts::frmBindWiz>("mnuFileSaveAni_0", [](scripts::frmBindWiz&) {});
    EXPECT_NE(status(), "");
}

TEST_F(Status, TellsWhichPageHoldsTheScriptOfTheCommandLine) {
    const ui::Path before = std::filesystem::current_path();
    const auto startWith = [this](const char* argument, const char* name, const char* script) {
        start({argument + ui::PathText(fake.directory.files.put(name, script))});
    };
    startWith(" /name ", "x.vtn", "// Name File Created by Vortigo\r\nname \"cmd\"\r\n");
    EXPECT_EQ(status(), "x.vtn was read and is on the page Name.");
    startWith(" /macro ", "x.vtm", "// Macro File Created by Vortigo\r\nsay \"hello\"\r\n");
    EXPECT_EQ(status().find("x.vtm was read and is on the page Messages."), 0U) << status();
    startWith(
        " /animation ", "x.vta",
        "// Animation File Created by Vortigo\r\n// 15 Names In The Animation Sequence\r\nname \"a\"\r\n");
    EXPECT_EQ(status().find("x.vta was read and is on the page Animation."), 0U) << status();
    EXPECT_EQ(workspace().page(), Page::Name);
    std::filesystem::current_path(before);
}

TEST_F(Status, DoesNotSayThatAScriptWasReadThatWasNot) {
    start({" /animation /nowhere/x.vta"});
    EXPECT_EQ(status().find("was read"), std::string::npos) << status();
    EXPECT_NE(status(), "");
}

TEST_F(Status, TellsHowACommandLineIsWrittenThatLoadsNothing) {
    start({"my.vtn"});
    EXPECT_EQ(status(), "The command line names no script. Write it like this: vtm \" /name my.vtn\"");
    start();
    EXPECT_EQ(status(), "");
}
