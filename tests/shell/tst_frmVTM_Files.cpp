// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include "scripts/frmSaveMessages.h"

#include <QCheckBox>
#include <QMenu>
#include <QPushButton>

using editing::Page;

namespace {

class Save : public MainWindow {
protected:
    /// Expects the save dialog, the question about the game and the report of success.
    void expectSaving(
        const std::string& initialName, const ui::Path& path, const std::string& question,
        ui::Answer answer) {
        support::ExpectedFileDialog dialog;
        dialog.title = initialName == "*.vta" ? "" : "Save as a Script File";
        dialog.initialName = initialName;
        dialog.filters = {
            initialName == "*.vta" ? ui::FileFilter{"VTM Animation Script (*.vta;*.scr)", {"*.vta", "*.scr"}}
                                   : ui::FileFilter{"VTM Name Script (*.vtn;*.scr)", {"*.vtn", "*.scr"}}};
        dialog.folder = fake.directory.files.path();
        fake.dialogs.expectSave(dialog, path);
        fake.dialogs.expectGameQuestion(question, answer);
        fake.dialogs.expectInform("Done! The script file, " + ui::PathText(path) + ", was written.");
    }

    /// Ticks the middle message in the wizard and presses OK.
    void saveMiddleMessage() const {
        chooseAndUse<scripts::frmSaveMessages>("mnuFileSaveMessage", [](scripts::frmSaveMessages& wizard) {
            wizard.findChild<QCheckBox*>(QStringLiteral("chkMess_1"))->setChecked(true);
            wizard.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
        });
    }

    void expectBindingOffer() {
        fake.dialogs.expectYesNo(
            "Would you like to use the Binding Wizard to bind the script file you just saved?",
            ui::Answer::No);
    }
};

class Load : public MainWindow {};

class Recent : public Save {};

TEST_F(Save, TheNameScriptHoldsTheBytesThatTheScreenShows) {
    startOn(Page::Name);
    clickGlyph(16);
    type("vtm");
    clickGlyph(145);
    const ui::Path path = fake.directory.files / "me.vtn";
    expectSaving("*.vtn", path, "Is this name to be used in Quake2?", ui::Answer::Yes);
    expectBindingOffer();
    choose("mnuFileSaveName_0");
    EXPECT_EQ(
        fake.directory.files.content("me.vtn"), "// Name File Created by Vortigo\r\nname \"\x10"
                                                "vtm\x91\"\r\n");
    EXPECT_EQ(workspace().rememberedScript, path);
}

TEST_F(Save, ThePromptForBindingComesAlsoAfterACancelledDialog) {
    startOn(Page::Name);
    support::ExpectedFileDialog dialog;
    dialog.title = "Save as a Script File";
    dialog.initialName = "*.vtn";
    dialog.filters = {{"VTM Name Script (*.vtn;*.scr)", {"*.vtn", "*.scr"}}};
    fake.dialogs.expectSave(dialog, std::nullopt);
    expectBindingOffer();
    choose("mnuFileSaveName_0");
    EXPECT_TRUE(workspace().recent.of(Page::Name).empty());
}

TEST_F(Save, NothingIsOfferedWhenBindingPromptsAreOff) {
    fake.settings.write("options", "bindprompt", "False");
    startOn(Page::Name);
    expectSaving(
        "*.vtn", fake.directory.files / "me.vtn", "Is this name to be used in Quake2?", ui::Answer::No);
    choose("mnuFileSaveName_0");
    EXPECT_EQ(fake.directory.files.content("me.vtn"), "// Name File Created by Vortigo\r\nset name \"\"\r\n");
}

TEST_F(Save, TheAnimationIsSavedFromItsPageIntoItsOwnRecentList) {
    startOn(Page::Name);
    const ui::Path path = fake.directory.files / "my.vta";
    expectSaving("*.vta", path, "Is this animation to be used in Quake2?", ui::Answer::Yes);
    expectBindingOffer();
    choose("mnuFileSaveAni_0");
    EXPECT_EQ(workspace().page(), Page::Animation);
    EXPECT_EQ(workspace().recent.of(Page::Animation), std::vector<std::string>{ui::PathText(path)});
    EXPECT_TRUE(workspace().recent.of(Page::Name).empty());
}

TEST_F(Save, ThePromptForBindingComesAfterACancelledAnimationAndNotAfterAFailedOne) {
    startOn(Page::Name);
    support::ExpectedFileDialog dialog;
    dialog.initialName = "*.vta";
    dialog.filters = {{"VTM Animation Script (*.vta;*.scr)", {"*.vta", "*.scr"}}};
    fake.dialogs.expectSave(dialog, std::nullopt);
    expectBindingOffer();
    choose("mnuFileSaveAni_0");
    EXPECT_EQ(workspace().page(), Page::Name);
    fake.dialogs.expectAllAsked();

    fake.dialogs.expectSave(dialog, fake.directory.files / "my.vta");
    fake.dialogs.expectGameQuestion("Is this animation to be used in Quake2?", ui::Answer::Yes);
    fake.files.failOnce(support::FailingFiles::Step::Write);
    choose("mnuFileSaveAni_0");
    EXPECT_TRUE(workspace().recent.of(Page::Animation).empty());
    EXPECT_TRUE(workspace().rememberedScript.empty());
}

TEST_F(Save, MessagesGoThroughTheirWizardIntoTheirOwnRecentListAndOfferNoBinding) {
    startOn(Page::Messages);
    press(Qt::Key_Return);
    type("middle");
    const ui::Path path = fake.directory.files / "my.vtm";
    support::ExpectedFileDialog dialog;
    dialog.title = "Save as a Script File";
    dialog.initialName = "*.vtm";
    dialog.filters = {{"VTM Macro Script (*.vtm;*.scr)", {"*.vtm", "*.scr"}}};
    fake.dialogs.expectSave(dialog, path);
    fake.dialogs.expectInform("Done! The script file, " + ui::PathText(path) + ", was written.");
    saveMiddleMessage();
    EXPECT_EQ(
        fake.directory.files.content("my.vtm"), "// Macro File Created by Vortigo\r\nsay \"middle\"\r\n");
    EXPECT_EQ(workspace().recent.of(Page::Messages), std::vector<std::string>{ui::PathText(path)});
    EXPECT_TRUE(workspace().recent.of(Page::Name).empty());
    EXPECT_EQ(workspace().rememberedScript, path);
    EXPECT_TRUE(find<QMenu>("mnuFileRecentMacro")->menuAction()->isVisible());

    choose("mnuNewMessages");
    choose("mnuView_0");
    fake.dialogs.expectInform("Done! " + ui::PathText(path) + " was read succesfully.");
    choose("mnuRecentMacroFiles_0");
    EXPECT_EQ(workspace().page(), Page::Messages);
    EXPECT_EQ(row(1), "middle" + std::string(25, ' ')) << "which message a line came from is not kept";
    EXPECT_EQ(row(2), std::string(31, ' '));
}

TEST_F(Save, MessagesWhoseSaveDialogWasCancelledAreNotListed) {
    startOn(Page::Messages);
    support::ExpectedFileDialog dialog;
    dialog.title = "Save as a Script File";
    dialog.initialName = "*.vtm";
    dialog.filters = {{"VTM Macro Script (*.vtm;*.scr)", {"*.vtm", "*.scr"}}};
    fake.dialogs.expectSave(dialog, std::nullopt);
    saveMiddleMessage();
    EXPECT_TRUE(workspace().recent.of(Page::Messages).empty());
    EXPECT_TRUE(workspace().rememberedScript.empty());
}

TEST_F(Save, TheClipboardReceivesTheBytesOfTheName) {
    startOn(Page::Name);
    type("ab");
    clickGlyph(225);
    fake.dialogs.expectInform(
        "Your name is now in the Windows Clipboard.\nPlace the cursor anywhere you can Paste or\n"
        "Shift-Insert to use your new name.\nLike the Profile Name of GameSpy.");
    choose("mnuFileSaveName_2");
    EXPECT_EQ(fake.clipboard.texts, std::vector<std::string>{"ab\xE1"});
}

TEST_F(Save, TheNameGoesIntoAConfigurationFileWhichIsRemembered) {
    startOn(Page::Name);
    type("new");
    const ui::Path path = fake.directory.files.put("config.cfg", "bind a b\nname \"old\"\nquit\n");
    support::ExpectedFileDialog dialog;
    dialog.title = "Select The CFG File To Alter";
    dialog.initialName = "*.cfg";
    dialog.filters = {{"Config File (*.cfg)", {"*.cfg"}}};
    fake.dialogs.expectSave(dialog, path);
    fake.dialogs.expectInform(
        "Done! The config file, " + ui::PathText(path) + ", was updated with your new name.");
    choose("mnuFileSaveName_1");
    EXPECT_EQ(fake.directory.files.content("config.cfg"), "bind a b\r\nname \"new\"\r\nquit\r\n");
    EXPECT_EQ(workspace().rememberedConfig, path);
}

TEST_F(Load, AScriptChosenInTheMenuFillsThePageAndIsReported) {
    startOn(Page::Messages);
    const ui::Path path =
        fake.directory.files.put("me.vtn", "// Name File Created by Vortigo\r\nset name \"hi\x91\"\r\n");
    support::ExpectedFileDialog dialog;
    dialog.title = "Select the Script file";
    dialog.initialName = "*.vtn";
    dialog.filters = {{"VTM Name Script (*.vtn;*.scr)", {"*.vtn", "*.scr"}}};
    fake.dialogs.expectOpen(dialog, path);
    fake.dialogs.expectInform("Done! " + ui::PathText(path) + " was read succesfully.");
    choose("mnuFileLoadNameFromScriptFile");
    EXPECT_EQ(workspace().page(), Page::Name);
    EXPECT_EQ(row(), "hi\x91" + std::string(12, ' '));
    EXPECT_EQ(played(104), 1);
    EXPECT_TRUE(workspace().recent.of(Page::Name).empty()) << "loading adds nothing to the recent files";
}

TEST_F(Load, ACancelledDialogChangesNothing) {
    startOn(Page::Messages);
    support::ExpectedFileDialog dialog;
    dialog.title = "Select the Script file";
    dialog.initialName = "*.vta";
    dialog.filters = {{"VTM Animation Script (*.vta;*.scr)", {"*.vta", "*.scr"}}};
    fake.dialogs.expectOpen(dialog, std::nullopt);
    choose("mnuFileLoadAniFromScriptFile");
    EXPECT_EQ(workspace().page(), Page::Messages);
}

TEST_F(Load, MessagesFillTheirPageFromTheTop) {
    startOn(Page::Name);
    workspace().documents.messages.rows().cell(3, 1) = 'k';
    const ui::Path path = fake.directory.files.put(
        "a.scr", "// Macro File Created by Vortigo\r\nsay_team \"go\"\r\nsay \"now\x91\"\r\n");
    support::ExpectedFileDialog dialog;
    dialog.title = "Select the Script file";
    dialog.initialName = "*.vtm";
    dialog.filters = {{"VTM Macro Script (*.vtm;*.scr)", {"*.vtm", "*.scr"}}};
    fake.dialogs.expectOpen(dialog, path);
    fake.dialogs.expectInform("Done! " + ui::PathText(path) + " was read succesfully.", [this] {
        EXPECT_EQ(workspace().page(), Page::Messages) << "the page behind the box is the new one";
        EXPECT_EQ(played(104), 1);
    });
    choose("mnuFileLoadMessagesFromScriptFile");
    EXPECT_EQ(row(1), "go" + std::string(29, ' '));
    EXPECT_EQ(row(2), "now\x91" + std::string(27, ' '));
    EXPECT_EQ(row(3), "k" + std::string(30, ' '));
    EXPECT_TRUE(workspace().recent.of(Page::Messages).empty()) << "loading adds nothing to the recent files";
}

TEST_F(Load, MessagesThatCannotBeReadChangeNothing) {
    startOn(Page::Messages);
    type("kept");
    const ui::Path path =
        fake.directory.files.put("a.vtm", "// Macro File Created by Vortigo\r\nSAY \"go\"\r\n");
    support::ExpectedFileDialog dialog;
    dialog.title = "Select the Script file";
    dialog.initialName = "*.vtm";
    dialog.filters = {{"VTM Macro Script (*.vtm;*.scr)", {"*.vtm", "*.scr"}}};
    fake.dialogs.expectOpen(dialog, path);
    fake.dialogs.expectInform("Error retrieving Macro from script file.");
    choose("mnuFileLoadMessagesFromScriptFile");
    EXPECT_EQ(row(1), "kept" + std::string(27, ' '));
    EXPECT_EQ(played(104), 0);
}

TEST_F(Load, ALongerAnimationMovesTheBarsAlong) {
    startOn(Page::Name);
    std::string script = "// Animation File Created by Vortigo\r\n// 20 Names In The Animation Sequence\r\n";
    for (int i = 0; i < 20; ++i) {
        script += "name \"n" + std::to_string(i) + "\"\r\nwait; wait; wait; \r\n";
    }
    const ui::Path path = fake.directory.files.put("my.vta", script);
    support::ExpectedFileDialog dialog;
    dialog.title = "Select the Script file";
    dialog.initialName = "*.vta";
    dialog.filters = {{"VTM Animation Script (*.vta;*.scr)", {"*.vta", "*.scr"}}};
    dialog.folder = fake.directory.files.path();
    fake.dialogs.expectOpen(dialog, path);
    fake.dialogs.expectInform("Done! " + ui::PathText(path) + " was read succesfully.");
    choose("mnuFileLoadAniFromScriptFile");
    EXPECT_TRUE(workspace().recent.of(Page::Animation).empty()) << "loading adds nothing to the recent files";
    EXPECT_EQ(find<QScrollBar>("AniTotalScroll")->value(), 20);
    EXPECT_EQ(find<QScrollBar>("VScroll1")->maximum(), 6);
    EXPECT_EQ(text("lblAniTotalNum"), QStringLiteral("20"));
    EXPECT_EQ(row(20), "n19" + std::string(12, ' '));
}

TEST_F(Recent, SavedFilesAreListedNewestFirstAndLoadedFromThere) {
    fake.settings.write("options", "bindprompt", "False");
    startOn(Page::Name);
    EXPECT_FALSE(find<QMenu>("mnuFileRecentName")->menuAction()->isVisible());
    for (const char* name : {"a.vtn", "b&c.vtn"}) {
        type("x");
        expectSaving(
            "*.vtn", fake.directory.files / name, "Is this name to be used in Quake2?", ui::Answer::Yes);
        choose("mnuFileSaveName_0");
    }
    EXPECT_TRUE(find<QMenu>("mnuFileRecentName")->menuAction()->isVisible());
    EXPECT_EQ(
        find<QAction>("mnuRecentNameFiles_0")->text(),
        QString::fromStdString(ui::PathText(fake.directory.files / "b&&c.vtn")));
    EXPECT_TRUE(find<QAction>("mnuRecentNameFiles_1")->isVisible());
    EXPECT_FALSE(find<QAction>("mnuRecentNameFiles_2")->isVisible());

    choose("mnuView_2");
    fake.dialogs.expectInform(
        "Done! " + ui::PathText(fake.directory.files / "b&c.vtn") + " was read succesfully.");
    choose("mnuRecentNameFiles_0");
    EXPECT_EQ(workspace().page(), Page::Name);
    EXPECT_EQ(row(), "xx" + std::string(13, ' '));
}

TEST_F(Recent, ALongPathIsCutInItsMiddleAndWholeInTheTooltip) {
    const std::string path = "/start/" + std::string(300, 'x') + "/<b>&end.vtn";
    fake.settings.write("NameFiles", "RecentFile1", path);
    startOn(Page::Name);
    const auto* const entry = find<QAction>("mnuRecentNameFiles_0");
    const auto* const menu = find<QMenu>("mnuFileRecentName");
    EXPECT_LE(menu->sizeHint().width(), 800);
    EXPECT_TRUE(entry->text().startsWith(QStringLiteral("/start/x"))) << entry->text().toStdString();
    EXPECT_TRUE(entry->text().endsWith(QStringLiteral("x/<b>&&end.vtn"))) << entry->text().toStdString();
    EXPECT_TRUE(menu->toolTipsVisible());
    EXPECT_EQ(
        entry->toolTip().toStdString(), "<p>/start/" + std::string(300, 'x') + "/&lt;b&gt;&amp;end.vtn</p>");
    fake.dialogs.expectInform("Error reading name from " + path + ".");
    choose("mnuRecentNameFiles_0");
}

TEST_F(Recent, AFileThatIsGoneIsReportedAndItsPageShown) {
    const std::string gone = ui::PathText(fake.directory.files / "gone.vta");
    fake.settings.write("AnimFiles", "RecentFile1", gone);
    startOn(Page::Name);
    fake.dialogs.expectInform("Error reading animation from " + gone + ".");
    choose("mnuRecentAniFiles_0");
    EXPECT_EQ(workspace().page(), Page::Animation);
}

} // namespace
