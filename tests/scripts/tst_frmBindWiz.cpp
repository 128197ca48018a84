// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/frmBindWiz.h"

#include "support/Environment.h"
#include "support/FakePlatform.h"
#include "ui/System.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>

#include <gtest/gtest.h>

namespace {

using Strings = std::vector<std::string>;

class BindWizard : public testing::Test {
protected:
    support::FakePlatform fake;
    support::TempFolder game;
    ui::Path config = game.put("config.cfg", "bind \"Q\" \"x y\"\nbind \"F1\" \"x y\"\n");
    ui::Path script = game.put("player.vtn", "");
    std::unique_ptr<scripts::frmBindWiz> form;

    void open(const scripts::frmBindWiz::Paths& remembered = {}) {
        form = std::make_unique<scripts::frmBindWiz>(fake.dialogs, fake.files, fake.directory, remembered);
        form->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    }

    template <class Widget>
    Widget* find(const char* name) {
        auto* const widget = form->findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(nullptr, widget) << name;
        return widget;
    }

    void click(const char* name) { QTest::mouseClick(find<QAbstractButton>(name), Qt::LeftButton); }

    std::string text(const char* name) { return find<QLineEdit>(name)->text().toStdString(); }

    std::string hint(const char* name) { return find<QLabel>(name)->text().trimmed().toStdString(); }

    void type(const char* name, const std::string& keys) {
        auto* const edit = find<QLineEdit>(name);
        edit->setFocus();
        edit->selectAll();
        QTest::keyClicks(edit, QString::fromStdString(keys));
    }

    Strings entries(const char* name) {
        Strings entries;
        const auto* const list = find<QListWidget>(name);
        for (int row = 0; row < list->count(); ++row) {
            entries.push_back(list->item(row)->text().toStdString());
        }
        return entries;
    }

    std::string selected(const char* name) {
        const auto items = find<QListWidget>(name)->selectedItems();
        return items.isEmpty() ? "" : items.constFirst()->text().toStdString();
    }

    /// Clicks an entry of a list.
    void pick(const char* name, const char* key) {
        auto* const list = find<QListWidget>(name);
        const auto items = list->findItems(QLatin1String(key), Qt::MatchExactly);
        ASSERT_EQ(1, items.size()) << key;
        list->scrollToItem(items.constFirst());
        QTest::mouseClick(
            list->viewport(), Qt::LeftButton, {}, list->visualItemRect(items.constFirst()).center());
    }

    void expectOpenConfig(std::optional<ui::Path> answer, const ui::Path& folder = {}) {
        fake.dialogs.expectOpen(
            {"Select the CFG file to alter", "*.cfg", {{"Config File (*.cfg)", {"*.cfg"}}}, folder}, answer);
    }

    void expectOpenScript(std::optional<ui::Path> answer) {
        fake.dialogs.expectOpen(
            {"Select the Script file to Bind to",
             "*.scr",
             {{"VTM Name Script (*.vtn)", {"*.vtn"}},
              {"Script File (*.scr)", {"*.scr"}},
              {"VTM Animation Script (*.vta)", {"*.vta"}},
              {"VTM Message Script (*.vtm)", {"*.vtm"}}}},
            answer);
    }

    void expectDone() {
        fake.dialogs.expectInform(
            "Done! The config file, " + ui::PathText(config) + ", was updated with your new binding.");
    }

    void expectReplaceQuestion(ui::Answer answer) {
        fake.dialogs.expectYesNo(
            "You have selected a key that is already bound!\nVTM will now replace it with your binding, OK?",
            answer);
    }
};

} // namespace

TEST_F(BindWizard, StartsEmptyWithAllKeysFree) {
    open();
    EXPECT_EQ(QStringLiteral("frmBindWiz"), form->objectName());
    EXPECT_EQ(QStringLiteral("Binding Wizard"), form->windowTitle());
    EXPECT_EQ(QStringLiteral("OK"), find<QAbstractButton>("cmdOK")->text());
    EXPECT_EQ(QStringLiteral("Cancel"), find<QAbstractButton>("cmdCancel")->text());
    EXPECT_EQ("", text("txtCFGFileName"));
    EXPECT_EQ("", text("txtSCRFileName"));
    EXPECT_EQ(82U, entries("BindList").size());
    EXPECT_EQ(entries("BindList"), entries("NotBound"));
    EXPECT_EQ("LEFTARROW", entries("BindList").front());
    EXPECT_EQ("\\", entries("BindList")[62]);
    EXPECT_EQ("MOUSE3", entries("BindList").back());
    EXPECT_EQ(Strings(), entries("PreBound"));
    EXPECT_EQ("", selected("BindList"));
    EXPECT_EQ("", hint("lblCFGHint"));
    EXPECT_EQ("", hint("lblSCRHint"));
    EXPECT_EQ("", hint("lblForecast"));
}

TEST_F(BindWizard, StartsWithTheRememberedFiles) {
    open({config, script});
    EXPECT_EQ(ui::PathText(config), text("txtCFGFileName"));
    EXPECT_EQ(ui::PathText(script), text("txtSCRFileName"));
    EXPECT_EQ(Strings({"q", "F1"}), entries("PreBound"));
    EXPECT_EQ(80U, entries("NotBound").size());
    EXPECT_EQ(82U, entries("BindList").size());
    EXPECT_TRUE(find<QListWidget>("NotBound")->isEnabled());
    EXPECT_TRUE(find<QListWidget>("PreBound")->isEnabled());
}

TEST_F(BindWizard, LeavesOutRememberedFilesThatAreGone) {
    open({game / "gone.cfg", game / "gone.vtn"});
    EXPECT_EQ("", text("txtCFGFileName"));
    EXPECT_EQ("", text("txtSCRFileName"));
    EXPECT_EQ(game / "gone.cfg", form->remembered().config);
}

TEST_F(BindWizard, RemembersTheFilesThatWereChosen) {
    open();
    expectOpenConfig(config);
    click("cmdGetCFGFile");
    EXPECT_EQ(ui::PathText(config), text("txtCFGFileName"));
    EXPECT_EQ(Strings({"q", "F1"}), entries("PreBound"));
    expectOpenScript(script);
    click("cmdGetSCRFile");
    EXPECT_EQ(ui::PathText(script), text("txtSCRFileName"));
    click("cmdCancel");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(config, form->remembered().config);
    EXPECT_EQ(script, form->remembered().script);
}

TEST_F(BindWizard, KeepsItsFilesWhenADialogIsCancelled) {
    open({config, script});
    expectOpenConfig(std::nullopt, game.path());
    click("cmdGetCFGFile");
    expectOpenScript(std::nullopt);
    click("cmdGetSCRFile");
    EXPECT_EQ(ui::PathText(config), text("txtCFGFileName"));
    EXPECT_EQ(ui::PathText(script), text("txtSCRFileName"));
    EXPECT_EQ(config, form->remembered().config);
}

TEST_F(BindWizard, ListsTheKeysOfAnotherFileAnew) {
    open({config, script});
    expectOpenConfig(game.put("other.cfg", "// bind \"w\" \"x y\"\n"), game.path());
    click("cmdGetCFGFile");
    EXPECT_EQ(Strings({"w"}), entries("PreBound"));
    EXPECT_EQ(81U, entries("NotBound").size());
    EXPECT_EQ(82U, entries("BindList").size());
}

TEST_F(BindWizard, ListsTheKeysOfAFileThatIsTyped) {
    open();
    type("txtCFGFileName", ui::PathText(config));
    EXPECT_EQ(Strings({"q", "F1"}), entries("PreBound"));
    EXPECT_EQ("", hint("lblCFGHint"));
    EXPECT_TRUE(find<QLineEdit>("txtCFGFileName")->hasFocus());
    type("txtCFGFileName", ui::PathText(config) + "x");
    EXPECT_EQ(Strings(), entries("PreBound"));
    EXPECT_EQ("There is no such file yet.", hint("lblCFGHint"));
    QTest::keyClick(find<QLineEdit>("txtCFGFileName"), Qt::Key_Backspace);
    EXPECT_EQ(Strings({"q", "F1"}), entries("PreBound"));
}

TEST_F(BindWizard, WarnsOfAScriptThatTheGameCannotRun) {
    open();
    type("txtSCRFileName", ui::PathText(game.put("my a.vtn", "")));
    EXPECT_EQ("Games cannot run a script with a blank in its file name.", hint("lblSCRHint"));
    type("txtSCRFileName", ui::PathText(script));
    EXPECT_EQ("", hint("lblSCRHint"));
    type("txtSCRFileName", ui::PathText(script) + "x");
    EXPECT_EQ("There is no such file.", hint("lblSCRHint"));
    // No box, and no refusal.
    EXPECT_TRUE(fake.dialogs.calls().empty());
}

TEST_F(BindWizard, TellsWhatTheGameMakesOfTheFilesAndTheKey) {
    const ui::Path yamagi = game.put("home/.yq2/baseq2/config.cfg", "");
    scripts::GamesHere here;
    here.places[games::Place::Home] = game / "home";
    form = std::make_unique<scripts::frmBindWiz>(
        fake.dialogs, fake.files, fake.directory, scripts::frmBindWiz::Paths{yamagi, script}, here);
    form->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    EXPECT_EQ(
        "Quit the game first: it writes this file when it quits. Safer: type autoexec.cfg for its name.",
        hint("lblCFGAdvice"));
    EXPECT_EQ("Yamagi Quake II does not look for scripts in this folder.", hint("lblSCRHint"));
    EXPECT_FALSE(find<QLabel>("lblCFGHint")->isVisible()) << "no room for nothing";
    EXPECT_FALSE(find<QLabel>("lblKeyHint")->isVisible());
    pick("BindList", "ESC");
    EXPECT_EQ("Yamagi Quake II knows no key of this name.", hint("lblKeyHint"));
    EXPECT_TRUE(find<QLabel>("lblKeyHint")->isVisible());
    pick("BindList", "F5");
    EXPECT_FALSE(find<QLabel>("lblKeyHint")->isVisible());
    EXPECT_LT(find<QLabel>("lblCFGAdvice")->font().pointSizeF(), form->font().pointSizeF());
    type("txtCFGFileName", ui::PathText(yamagi.parent_path() / "autoexec.cfg"));
    EXPECT_EQ("", hint("lblCFGAdvice"));
    EXPECT_EQ("Yamagi Quake II does not look for scripts in this folder.", hint("lblSCRHint"));
    type("txtCFGFileName", ui::PathText(config));
    EXPECT_EQ("", hint("lblSCRHint")) << "nobody knows which game that is";
}

TEST_F(BindWizard, FitsASmallScreen) {
    open({config, script});
    EXPECT_LE(form->minimumSizeHint().width(), 760);
    EXPECT_LE(form->minimumSizeHint().height(), 560);
    EXPECT_LE(form->height(), 560);
}

TEST_F(BindWizard, TellsWhatIsGoingToHappenBeforeItDoes) {
    open();
    EXPECT_EQ("", hint("lblForecast"));
    type("txtCFGFileName", ui::PathText(config));
    EXPECT_EQ("", hint("lblForecast")) << "no key is chosen yet";
    pick("NotBound", "a");
    EXPECT_EQ("A line will be added", hint("lblForecast"));
    pick("BindList", "F1");
    EXPECT_EQ("Line 2 will be replaced: bind \"F1\" \"x y\"", hint("lblForecast"));
    type("txtCFGFileName", ui::PathText(config) + "x");
    EXPECT_EQ("A line will be added", hint("lblForecast"));
    type("txtCFGFileName", ui::PathText(game.path()));
    EXPECT_EQ("", hint("lblForecast"));
    EXPECT_EQ("This is a folder.", hint("lblCFGHint"));
}

TEST_F(BindWizard, FindsTypedFilesInTheHomeOfTheUser) {
    // Where the system does not ask this, its temporary files lie in the user's home.
    const Environment home("HOME", QByteArray::fromStdString(ui::PathText(game.path())));
    const auto inHome = [](const ui::Path& file) {
        return "~/" + file.lexically_relative(ui::HomeFolder()).generic_string();
    };
    open();
    type("txtCFGFileName", inHome(config));
    type("txtSCRFileName", inHome(script));
    EXPECT_EQ(Strings({"q", "F1"}), entries("PreBound"));
    EXPECT_EQ("", hint("lblSCRHint"));
    EXPECT_EQ(inHome(config), text("txtCFGFileName"));
}

TEST_F(BindWizard, RemembersTheTypedFilesWithWhichAKeyWasBound) {
    open();
    type("txtCFGFileName", ui::PathText(config));
    type("txtSCRFileName", ui::PathText(script));
    EXPECT_EQ(ui::Path(), form->remembered().config);
    EXPECT_EQ(ui::Path(), form->remembered().script);
    pick("NotBound", "F5");
    expectDone();
    click("cmdOK");
    EXPECT_EQ(config, form->remembered().config);
    EXPECT_EQ(script, form->remembered().script);
}

TEST_F(BindWizard, ChoosesTheKeyPickedInAnyList) {
    open({config, script});
    pick("NotBound", "a");
    EXPECT_EQ("a", selected("BindList"));
    EXPECT_EQ("", selected("PreBound"));
    pick("PreBound", "q");
    EXPECT_EQ("q", selected("BindList"));
    EXPECT_EQ("", selected("NotBound"));
    pick("BindList", "MOUSE3");
    EXPECT_EQ("MOUSE3", selected("NotBound"));
    EXPECT_EQ("", selected("PreBound"));
    pick("BindList", "F1");
    EXPECT_EQ("", selected("NotBound"));
    EXPECT_EQ("F1", selected("PreBound"));
}

TEST_F(BindWizard, AsksForWhatIsMissing) {
    open();
    fake.dialogs.expectInform("Please select a config file!");
    click("cmdOK");
    type("txtCFGFileName", ui::PathText(config));
    fake.dialogs.expectInform("Please select a script file!");
    click("cmdOK");
    type("txtSCRFileName", ui::PathText(script));
    fake.dialogs.expectInform("Please select a key!");
    click("cmdOK");
    EXPECT_TRUE(form->isVisible());
}

TEST_F(BindWizard, BindsAFreeKeyAndCloses) {
    open({config, script});
    pick("NotBound", "F5");
    expectDone();
    click("cmdOK");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(QDialog::Accepted, form->result());
    EXPECT_EQ("", form->statusText());
    EXPECT_EQ(
        "bind \"Q\" \"x y\"\nbind \"F1\" \"x y\"\nbind \"F5\" \"exec player.vtn\"\r\n",
        game.content("config.cfg"));
}

TEST_F(BindWizard, ReplacesABindingOnYes) {
    open({config, script});
    pick("PreBound", "q");
    expectReplaceQuestion(ui::Answer::Yes);
    expectDone();
    click("cmdOK");
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ("Line 1 was replaced: bind \"Q\" \"x y\"", form->statusText());
    EXPECT_EQ("bind \"q\" \"exec player.vtn\"\r\nbind \"F1\" \"x y\"\r\n", game.content("config.cfg"));
}

TEST_F(BindWizard, ChangesNothingOnNoAndStaysOpen) {
    open({config, script});
    pick("PreBound", "q");
    expectReplaceQuestion(ui::Answer::No);
    click("cmdOK");
    EXPECT_TRUE(form->isVisible());
    EXPECT_EQ("q", selected("BindList"));
    EXPECT_EQ("bind \"Q\" \"x y\"\nbind \"F1\" \"x y\"\n", game.content("config.cfg"));
}

TEST_F(BindWizard, LooksAtTheFileOnceMoreBeforeItBinds) {
    open({config, script});
    pick("NotBound", "w");
    game.put("config.cfg", "bind \"w\" \"x y\"\n");
    expectReplaceQuestion(ui::Answer::No);
    click("cmdOK");
    EXPECT_EQ(Strings({"w"}), entries("PreBound"));
    EXPECT_EQ("w", selected("PreBound"));
}

TEST_F(BindWizard, StaysOpenAfterAFailure) {
    open({config, script});
    pick("NotBound", "w");
    fake.files.failFrom(support::FailingFiles::Step::Look);
    fake.dialogs.expectWarning(
        "Could not look \"" + ui::PathText(config) + "\": injected failure.\nThe config file, " +
        ui::PathText(config) + ", was not changed.");
    click("cmdOK");
    EXPECT_TRUE(form->isVisible());
}

TEST_F(BindWizard, KeepsFileNamesThatAreNoText) {
    // Bytes that are no characters cannot be shown, but where names are bytes they are the file's name.
    script = game.put(ui::PathFromText("g\xFCnther.vtn"), "");
    open({config, script});
    pick("NotBound", "F5");
    expectDone();
    click("cmdOK");
    EXPECT_EQ(
        "bind \"Q\" \"x y\"\nbind \"F1\" \"x y\"\nbind \"F5\" \"exec " + ui::PathText(script.filename()) +
            "\"\r\n",
        game.content("config.cfg"));
}

TEST_F(BindWizard, IsCancelledByEscape) {
    open({config, script});
    pick("NotBound", "F5");
    QTest::keyClick(form.get(), Qt::Key_Escape);
    EXPECT_FALSE(form->isVisible());
    EXPECT_EQ(QDialog::Rejected, form->result());
    EXPECT_EQ("bind \"Q\" \"x y\"\nbind \"F1\" \"x y\"\n", game.content("config.cfg"));
}

TEST_F(BindWizard, IsUsedByKeyboardAlone) {
    open({config, script});
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(form->focusWidget(), key, modifiers);
    };
    EXPECT_TRUE(find<QLineEdit>("txtCFGFileName")->hasFocus());
    press(Qt::Key_K, Qt::AltModifier);
    EXPECT_TRUE(find<QListWidget>("BindList")->hasFocus());
    EXPECT_EQ("", selected("BindList")) << "no key is chosen by walking past the list";
    press(Qt::Key_End);
    EXPECT_EQ("MOUSE3", selected("BindList"));
    press(Qt::Key_Tab);
    EXPECT_TRUE(find<QListWidget>("NotBound")->hasFocus());
    EXPECT_EQ("MOUSE3", selected("BindList"));
    expectDone();
    press(Qt::Key_Return);
    EXPECT_FALSE(form->isVisible());
}

TEST_F(BindWizard, OpensItsFileDialogsByKeyboard) {
    open();
    // A button that its mnemonic presses takes a moment to come up again.
    expectOpenConfig(std::nullopt);
    QTest::keyClick(form->focusWidget(), Qt::Key_C, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return fake.dialogs.left() == 0; }));
    expectOpenScript(std::nullopt);
    QTest::keyClick(form->focusWidget(), Qt::Key_H, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return fake.dialogs.left() == 0; }));
    QTest::keyClick(form->focusWidget(), Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(find<QLineEdit>("txtSCRFileName")->hasFocus());
}
