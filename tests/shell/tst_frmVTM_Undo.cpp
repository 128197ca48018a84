// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include "animation/frmAniWiz.h"
#include "support/PaintedPages.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>
#include <QMenu>
#include <QPushButton>
#include <QStatusBar>
#include <QTimer>
#include <random>
#include <string>
#include <vector>

using editing::Page;

namespace {

const std::string Blanks(15, ' ');

/// Edit > Undo and Redo.
class Undoing : public MainWindow {
protected:
    void undo() const { press(Qt::Key_Backspace, Qt::AltModifier); }

    void redo() const { press(Qt::Key_Backspace, Qt::AltModifier | Qt::ShiftModifier); }

    /// What the Edit menu offers, "-" for an entry that is not to be had: "Undo Typing, -".
    [[nodiscard]] std::string offers() const {
        const auto caption = [this](const char* entry, const char* alone) {
            const auto* const action = find<QAction>(entry);
            const std::string text = action->text().remove(QLatin1Char('&')).toStdString();
            if (!action->isEnabled()) {
                EXPECT_EQ(text, alone);
                return std::string("-");
            }
            return text;
        };
        return caption("mnuEditUndo", "Undo") + ", " + caption("mnuEditRedo", "Redo");
    }

    [[nodiscard]] editing::AnimationDocument& animation() const { return workspace().documents.animation; }

    [[nodiscard]] bool isShown() const {
        return support::ArePaintedLike(workspace().documents, workspace().pictures, workspace().atlas);
    }

    [[nodiscard]] int bar(const char* name) const { return find<QScrollBar>(name)->value(); }
};

} // namespace

TEST_F(Undoing, StandsBelowTheOtherEntriesAndIsNotToBeHadAtFirst) {
    startOn(Page::Name);
    QStringList entries;
    for (const QAction* entry : find<QMenu>("mnuEdit")->actions()) {
        const QObject* const named = entry->menu() != nullptr ? static_cast<QObject*>(entry->menu()) : entry;
        entries.append(entry->isSeparator() ? QStringLiteral("---") : named->objectName());
    }
    EXPECT_EQ(
        entries.join(QLatin1Char(' ')).toStdString(),
        "mnuEditCut mnuEditCopy mnuEditPaste --- mnuEditCopyAsText mnuEditCopyAsPicture mnuEditPasteText --- "
        "mnuEditUndo mnuEditRedo");
    EXPECT_EQ(find<QAction>("mnuEditUndo")->shortcut(), QKeySequence(QStringLiteral("Alt+Backspace")));
    EXPECT_EQ(find<QAction>("mnuEditRedo")->shortcut(), QKeySequence(QStringLiteral("Alt+Shift+Backspace")));
    EXPECT_EQ(offers(), "-, -");
    undo();
    redo();
    EXPECT_EQ(row(), Blanks);
}

TEST_F(Undoing, TakesTypingBackInRunsWithTheKeysAndWithTheMenu) {
    startOn(Page::Name);
    type("quake");
    press(Qt::Key_Home);
    press(Qt::Key_Q, Qt::ShiftModifier);
    EXPECT_EQ(offers(), "Undo Typing, -");
    fake.sounds.waves.clear();
    window->statusBar()->showMessage(QStringLiteral("Line 3 was replaced: name"));
    undo();
    EXPECT_EQ(row(), "quake" + std::string(10, ' '));
    EXPECT_EQ(column(), 1);
    EXPECT_EQ(bar("NameScroll"), 1);
    EXPECT_EQ(offers(), "Undo Typing, Redo Typing");
    choose("mnuEditUndo");
    EXPECT_EQ(row(), Blanks);
    EXPECT_EQ(offers(), "-, Redo Typing");
    redo();
    EXPECT_EQ(row(), "quake" + std::string(10, ' '));
    EXPECT_EQ(column(), 6);
    EXPECT_EQ(bar("NameScroll"), 6);
    EXPECT_EQ(text("lblCurPos").toStdString(), "6");
    choose("mnuEditRedo");
    EXPECT_EQ(row(), "Quake" + std::string(10, ' '));
    EXPECT_EQ(offers(), "Undo Typing, -");
    EXPECT_TRUE(isShown());
    EXPECT_TRUE(fake.sounds.waves.empty());
    EXPECT_EQ(window->statusBar()->currentMessage(), QStringLiteral("Line 3 was replaced: name"));
    EXPECT_TRUE(find("NamePic")->hasFocus());
}

TEST_F(Undoing, IsChosenFromTheOpenMenuByItsLetter) {
    startOn(Page::Messages);
    type("hi");
    press(Qt::Key_E, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_U);
    EXPECT_EQ(row(), std::string(31, ' '));
    press(Qt::Key_E, Qt::AltModifier);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_R);
    EXPECT_EQ(row(), "hi" + std::string(29, ' '));
    type("5");
    EXPECT_EQ(row(), "hi5" + std::string(28, ' ')) << "typing goes to the page again";
}

TEST_F(Undoing, EndsARunOfTypingWhereverTheCursorIsMoved) {
    startOn(Page::Name);
    const auto expectTwoRuns = [this](const std::function<void()>& move) {
        type("a");
        move();
        type("b");
        undo();
        EXPECT_EQ(row()[0], 'a');
        EXPECT_EQ(row().find('b'), std::string::npos);
        undo();
        EXPECT_EQ(row(), Blanks);
        workspace().documents.name.cursorPos = 1;
    };
    expectTwoRuns([this] { find<QScrollBar>("NameScroll")->setValue(5); });
    expectTwoRuns([this] { click("NamePic", {100, 8}); });
    expectTwoRuns([this] { click("imgDir", {find("imgDir")->width() / 2, 3}); });
    expectTwoRuns([this] {
        choose("mnuView_2");
        choose("mnuView_0");
    });
    expectTwoRuns([this] { choose("mnuEditCopy"); });
    // A glyph that was not picked after all.
    expectTwoRuns([this] {
        QTimer::singleShot(0, window.get(), [] {
            auto* const picker = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(picker, nullptr);
            picker->reject();
        });
        press(Qt::Key_G, Qt::AltModifier);
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    });
}

TEST_F(Undoing, TakesStampsBackWhereTheyWerePut) {
    startOn(Page::Name);
    type("ab");
    clickGlyph('c');
    find<QScrollBar>("NameScroll")->setValue(9);
    click("NamePic", {3 * 16 + 8, 8}, Qt::RightButton);
    EXPECT_EQ(row()[3], workspace().rightButtonGlyph);
    EXPECT_EQ(column(), 5);
    undo();
    EXPECT_EQ(row(), "abc" + std::string(12, ' '));
    EXPECT_EQ(column(), 4) << "where it was put";
    undo();
    EXPECT_EQ(row(), Blanks) << "the glyph of the grid went on with what was typed";
}

TEST_F(Undoing, NamesEveryCommandAndTakesItBack) {
    const ui::Path script =
        fake.directory.files.put("one.vtn", "// Name File Created by Vortigo\r\nname \"loaded\"\r\n");
    fake.settings.write("NameFiles", "RecentFile1", ui::PathText(script));
    startOn(Page::Name);
    workspace().settings.promptNames = false;
    const auto expect = [this](const char* name, const std::function<void()>& command) {
        const editing::Documents before = workspace().documents;
        command();
        EXPECT_EQ(find<QAction>("mnuEditUndo")->text().toStdString(), std::string("&Undo ") + name);
        const editing::Documents after = workspace().documents;
        EXPECT_NE(after, before) << name;
        fake.sounds.waves.clear();
        choose("mnuEditUndo");
        EXPECT_EQ(workspace().documents, before) << name;
        EXPECT_TRUE(isShown()) << name;
        choose("mnuEditRedo");
        EXPECT_EQ(workspace().documents, after) << name;
        EXPECT_TRUE(isShown()) << name;
        EXPECT_TRUE(fake.sounds.waves.empty()) << name;
    };
    const auto entry = [this](const char* action) {
        return [this, action] {
            choose(action);
        };
    };
    expect("Typing", [this] { type("Ab1"); });
    expect("Delete", [this] { press(Qt::Key_Backspace); });
    expect("Cut", entry("mnuEditCut"));
    expect("Paste", entry("mnuEditPaste"));
    expect("Align Right", entry("mnuFormatAlignRight"));
    expect("Align Center", entry("acenter"));
    expect("Align Left", entry("mnuFormatAlignLeft"));
    expect("Lower To Upper Case", entry("ucase"));
    expect("Upper To Lower Case", entry("mnuFormatUpperToLowerCase"));
    expect("Switch Case", entry("mnuFormatSwitchCase"));
    expect("Color1 To Color2", entry("mnuFormatColor1ToColor2"));
    expect("Color2 To Color1", entry("mnuFormatColor2ToColor1"));
    expect("Switch Color", entry("mnuFormatSwitchColor"));
    expect("Reverse Character Order", entry("mnuFormatReverseCharacters"));
    fake.dialogs.expectInform("Done! " + ui::PathText(script) + " was read succesfully.");
    expect("Load", entry("mnuRecentNameFiles_0"));
    expect("New", entry("mnuNewName"));
    choose("mnuView_1");
    expect("Paste", entry("paste"));
    expect("Move Name", [this] { click("cmdName_2", {5, 5}); });
    expect("Move Name", [this] { press(Qt::Key_Down, Qt::ControlModifier); });
    expect("Insert Name", [this] { press(Qt::Key_Insert, Qt::ControlModifier); });
    expect("Delete Name", [this] { click("cmdName_1", {5, 5}); });
    expect("Total", [this] { press(Qt::Key_Plus, Qt::AltModifier); });
    expect("Ticks", [this] {
        press(Qt::Key_L, Qt::AltModifier);
        QAbstractItemView* const list = find<QComboBox>("TickList")->view();
        QTest::keyClick(list, Qt::Key_End);
        QTest::keyClick(list, Qt::Key_Return);
    });
    expect("Reverse Name Order", entry("mnuFormatReverseNameOrder"));
    type("   x");
    expect("Align Left", entry("mnuFormatAlignLeft"));
}

TEST_F(Undoing, TakesABuiltAnimationBackAtOnce) {
    startOn(Page::Animation);
    type("Thistle");
    const auto before = animation();
    choose("mnuView_0");
    chooseAndUse<animation::frmAniWiz>("mnuToolsAnimationWizard", [](animation::frmAniWiz& wizard) {
        wizard.findChild<QComboBox*>(QStringLiteral("cmboPos_1"))->setCurrentIndex(1);
        QTest::mouseClick(wizard.findChild<QPushButton*>(QStringLiteral("cmdBuild")), Qt::LeftButton);
    });
    EXPECT_EQ(offers(), "Undo Wizard, -");
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    undo();
    EXPECT_EQ(offers(), "Undo Typing, Redo Wizard");
    EXPECT_EQ(animation(), before);
    EXPECT_EQ(workspace().page(), Page::Animation);
    EXPECT_TRUE(isShown());
}

TEST_F(Undoing, ShowsThePageThatItChangesWithoutASound) {
    startOn(Page::Name);
    type("n");
    choose("mnuView_2");
    type("m");
    choose("mnuView_1");
    fake.sounds.waves.clear();
    undo();
    EXPECT_EQ(workspace().page(), Page::Messages);
    EXPECT_TRUE(find("pgeMessages")->isVisible());
    EXPECT_EQ(window->windowTitle().toStdString(), "Vortigo [Messages]");
    EXPECT_EQ(row(), std::string(31, ' '));
    undo();
    EXPECT_EQ(workspace().page(), Page::Name);
    EXPECT_EQ(row(), Blanks);
    choose("mnuView_1");
    fake.sounds.waves.clear();
    redo();
    EXPECT_EQ(workspace().page(), Page::Name);
    EXPECT_EQ(row()[0], 'n');
    EXPECT_TRUE(fake.sounds.waves.empty());
    EXPECT_TRUE(isShown());
}

TEST_F(Undoing, GoesOnWhileItsKeyIsHeld) {
    startOn(Page::Name);
    for (int i = 0; i < 4; ++i) {
        type("x");
        press(Qt::Key_Right);
    }
    QWidget* const focus = window->focusWidget();
    QTest::sendKeyEvent(QTest::Press, focus, Qt::Key_Backspace, QString(), Qt::AltModifier);
    EXPECT_EQ(row().find_last_of('x'), 4U);
    for (int i = 0; i < 2; ++i) {
        QKeyEvent override(QEvent::ShortcutOverride, Qt::Key_Backspace, Qt::AltModifier, QString(), true);
        QApplication::sendEvent(focus, &override);
        QTest::sendKeyEvent(QTest::Press, focus, Qt::Key_Backspace, QString(), Qt::AltModifier);
    }
    QTest::sendKeyEvent(QTest::Release, focus, Qt::Key_Backspace, QString(), Qt::AltModifier);
    EXPECT_EQ(row(), 'x' + std::string(14, ' '));
    EXPECT_TRUE(find<QAction>("mnuEditUndo")->autoRepeat());
    EXPECT_TRUE(find<QAction>("mnuEditRedo")->autoRepeat());
}

TEST_F(Undoing, StartsWithWhatTheStartHasLoaded) {
    const ui::Path script =
        fake.directory.files.put("one.vtn", "// Name File Created by Vortigo\r\nname \"loaded\"\r\n");
    const ui::Path folder = std::filesystem::current_path();
    start({" /name " + ui::PathText(script)});
    std::filesystem::current_path(folder);
    const editing::Documents loaded = workspace().documents;
    EXPECT_EQ(loaded.name.cells[0], 'l');
    EXPECT_EQ(offers(), "-, -");
    undo();
    EXPECT_EQ(workspace().documents, loaded);
}

TEST_F(Undoing, LeavesWhatIsNoDocumentAlone) {
    startOn(Page::Name);
    type("ab");
    choose("mnuEditCut");
    const auto clipboard = workspace().editClipboard.cells;
    press(Qt::Key_Insert);
    clickGlyph(145, Qt::RightButton);
    const auto settings = workspace().settings;
    undo();
    undo();
    EXPECT_EQ(workspace().editClipboard.cells, clipboard);
    EXPECT_TRUE(workspace().settings.modes.insert);
    EXPECT_EQ(workspace().settings.favourites, settings.favourites);
    EXPECT_EQ(workspace().settings.frequent, settings.frequent);
    EXPECT_EQ(workspace().rightButtonGlyph, 145);
}

TEST_F(Undoing, TakesARandomSessionBackAndDoesItAgain) {
    startOn(Page::Name);
    workspace().settings.promptNames = false;
    workspace().settings.promptMessages = false;
    const auto oneOf = [](const auto& choices, int n) {
        return choices.at(static_cast<std::size_t>(n) % choices.size());
    };
    const std::vector<std::function<void(int)>> commands{
        [this](int n) { press(static_cast<Qt::Key>(Qt::Key_A + n % 26)); },
        [this](int n) { press(static_cast<Qt::Key>(Qt::Key_A + n % 26), Qt::ShiftModifier); },
        [this](int) { press(Qt::Key_Space); },
        [this](int n) { clickGlyph(33 + n % 90); },
        [this](int n) { press(n % 2 == 0 ? Qt::Key_Backspace : Qt::Key_Delete); },
        [&](int n) {
            press(oneOf(std::array{Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End}, n));
        },
        [this](int) { press(Qt::Key_Insert); },
        [&](int n) {
            choose(oneOf(std::array{"mnuView_0", "mnuView_1", "mnuView_2"}, n));
        },
        [&](int n) {
            choose(oneOf(std::array{"mnuEditCut", "mnuEditCopy", "mnuEditPaste"}, n));
        },
        [&](int n) {
            choose(oneOf(
                std::array{"mnuFormatAlignRight", "mnuFormatSwitchCase", "mnuFormatReverseNameOrder"}, n));
        },
        [this](int n) { press(n % 2 == 0 ? Qt::Key_Insert : Qt::Key_Delete, Qt::ControlModifier); },
        [this](int n) { press(n % 2 == 0 ? Qt::Key_Up : Qt::Key_Down, Qt::ControlModifier); },
        [this](int n) { press(n % 2 == 0 ? Qt::Key_Plus : Qt::Key_Minus, Qt::AltModifier); },
        [this](int n) { find<QScrollBar>("AniTotalScroll")->setValue(15 + n % 76); },
        [this](int n) {
            click("AniPic", {n % 240, n % 200}, Qt::RightButton);
        },
    };
    std::mt19937 random(12);
    for (int i = 0; i < 400; ++i) {
        const auto draw = static_cast<std::size_t>(random());
        commands[draw % commands.size()](static_cast<int>(random() % 1000));
        ASSERT_TRUE(isShown()) << i;
    }
    const auto contentOf = [](editing::Documents documents) {
        for (const Page page : {Page::Name, Page::Animation, Page::Messages}) {
            editing::CursorOf(documents, page).column = 1;
            editing::CursorOf(documents, page).row = 1;
        }
        return documents;
    };
    const editing::Documents end = contentOf(workspace().documents);
    int steps = 0;
    while (find<QAction>("mnuEditUndo")->isEnabled()) {
        undo();
        ++steps;
        ASSERT_TRUE(isShown()) << steps;
    }
    EXPECT_GT(steps, 100);
    EXPECT_EQ(contentOf(workspace().documents), contentOf(editing::Documents()));
    while (find<QAction>("mnuEditRedo")->isEnabled()) {
        redo();
        --steps;
        ASSERT_TRUE(isShown()) << steps;
    }
    EXPECT_EQ(contentOf(workspace().documents), end);
}
