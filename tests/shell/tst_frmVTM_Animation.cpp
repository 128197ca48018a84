// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include "animation/frmAniWiz.h"
#include "animation/frmRankings.h"

#include <QComboBox>
#include <QPushButton>
#include <QStatusBar>
#include <algorithm>
#include <array>
#include <functional>
#include <random>
#include <vector>

using editing::Page;

namespace {

class Animation : public MainWindow {
protected:
    [[nodiscard]] editing::AnimationDocument& animation() const { return workspace().documents.animation; }

    [[nodiscard]] std::string name(int row) const {
        std::string text;
        for (const glyphs::GlyphCode code : animation().name(row)) {
            text.push_back(static_cast<char>(code));
        }
        return text.substr(0, text.find_last_not_of(' ') + 1);
    }

    /// Whether the picture shows the names in use.
    [[nodiscard]] bool pictureIsTrue() const {
        const ui::Picture& painted = workspace().pictures.animation.pixels();
        ui::Picture expected = painted;
        for (int row = 1; row <= animation().nameCount; ++row) {
            for (int column = 1; column <= editing::NameLength; ++column) {
                glyphs::PaintGlyph(
                    expected, workspace().atlas, animation().rows().cell(row, column), column, row);
            }
        }
        return painted == expected;
    }

    static void press(QWidget& form, const char* button) {
        QTest::mouseClick(form.findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
    }

    /// Whether bars, labels, list and marker of the page show the document, and the picture its names.
    void expectPageIsTrue() const {
        const editing::AnimationDocument& shown = animation();
        EXPECT_EQ(find<QScrollBar>("AniTotalScroll")->value(), shown.nameCount);
        EXPECT_EQ(text("lblAniTotalNum").toInt(), shown.nameCount);
        EXPECT_EQ(find<QScrollBar>("AniScroll")->maximum(), shown.nameCount);
        EXPECT_EQ(find<QScrollBar>("AniScroll")->value(), shown.currentName);
        EXPECT_EQ(text("lblAniNameNum").toInt(), shown.currentName);
        EXPECT_EQ(find<QScrollBar>("AniNameScroll")->value(), shown.cursorPos);
        EXPECT_EQ(find<QComboBox>("ThisTickList")->currentText().toInt(), shown.ticks(shown.currentName));
        EXPECT_EQ(text("lblCurPos"), QStringLiteral("%1,%2").arg(shown.cursorPos).arg(shown.currentName));
        EXPECT_EQ(
            find("AniPosShape")->pos(), QPoint((shown.cursorPos - 1) * 16, (shown.currentName - 1) * 16));
        const QScrollBar* const view = find<QScrollBar>("VScroll1");
        EXPECT_EQ(view->maximum(), shown.nameCount - 14);
        EXPECT_EQ(text("lblNum_0").toInt(), view->value());
        EXPECT_EQ(text("lblNum_1").toInt(), view->value() + 14);
        EXPECT_EQ(find("AniPic")->y(), (1 - view->value()) * 16);
        EXPECT_TRUE(pictureIsTrue());
    }

    /// Loads a script of the recent files, which declares `names` and holds `lines` of them.
    void load(int names, int lines) {
        std::string script = "// Animation File Created by Vortigo\r\n// " + std::to_string(names) +
                             " Names In The Animation Sequence\r\n";
        for (int line = 1; line <= lines; ++line) {
            script += "name \"row " + std::to_string(line) + "\"\r\n";
            script += line % 3 == 0 ? "" : "wait; wait; wait;\r\n";
        }
        const ui::Path path = fake.directory.files.put("recent.vta", script);
        fake.dialogs.expectInform("Done! " + ui::PathText(path) + " was read succesfully.");
        choose("mnuRecentAniFiles_0");
    }

    std::string status() const { return window->statusBar()->currentMessage().toStdString(); }
};

TEST_F(Animation, TheWizardsBuildShowsThePageAndPaintsItWhole) {
    startOn(Page::Name);
    const auto before = animation().nameGlyphs;
    std::ranges::copy(std::u16string(u"Thistle"), animation().rows().row(15).begin());
    chooseAndUse<animation::frmAniWiz>("mnuToolsAnimationWizard", [](animation::frmAniWiz& wizard) {
        wizard.findChild<QComboBox*>(QStringLiteral("cmboPos_1"))->setCurrentIndex(1);
        press(wizard, "cmdBuild");
    });
    EXPECT_EQ(workspace().page(), Page::Animation);
    EXPECT_NE(animation().nameGlyphs, before);
    EXPECT_EQ(name(15), "Thistle");
    EXPECT_TRUE(pictureIsTrue());
    EXPECT_EQ(played(104), 1);
    EXPECT_EQ(animation().nameCount, 15);
}

TEST_F(Animation, TheStatusLineTellsOfBuiltNamesThatAreNotInUse) {
    startOn(Page::Animation);
    const auto build = [this](int startName) {
        chooseAndUse<animation::frmAniWiz>(
            "mnuToolsAnimationWizard", [startName](animation::frmAniWiz& wizard) {
                wizard.findChild<QComboBox*>(QStringLiteral("cmboPos_1"))->setCurrentIndex(1);
                wizard.findChild<QScrollBar*>(QStringLiteral("StartNameScroll"))->setValue(startName);
                press(wizard, "cmdBuild");
            });
    };
    build(20);
    EXPECT_EQ(status(), "Names 20 to 34 were built but are not in use: raise the total to 34.");
    build(1);
    EXPECT_EQ(status(), "");
}

TEST_F(Animation, ACancelledWizardChangesNothing) {
    startOn(Page::Name);
    const auto before = animation().nameGlyphs;
    chooseAndUse<animation::frmAniWiz>("mnuToolsAnimationWizard", [](animation::frmAniWiz& wizard) {
        wizard.findChild<QComboBox*>(QStringLiteral("cmboPos_1"))->setCurrentIndex(1);
        press(wizard, "cmdCancel");
    });
    EXPECT_EQ(workspace().page(), Page::Name);
    EXPECT_EQ(animation().nameGlyphs, before);
    EXPECT_EQ(played(104), 0);
}

TEST_F(Animation, TheViewerPlaysOverTheScreenshotOfTheSettings) {
    startOn(Page::Animation);
    workspace().settings.screenshot = "nowhere.bmp";
    animation().nameTicks.fill(0);
    fake.dialogs.expectWarning("The chosen screen shot, nowhere.bmp, was not found in the VTM directory.\n"
                               "Please go to the options and select a new screen shot.");
    chooseAndUse<animation::frmRankings>("mnuToolsAnimationViewer", [this](animation::frmRankings& viewer) {
        EXPECT_TRUE(QTest::qWaitFor([this] { return fake.dialogs.left() == 0; }));
        press(viewer, "cmdPlay");
        EXPECT_EQ(played(103), 1);
        const int row = viewer.findChild<QWidget*>(QStringLiteral("AniPicBox"))->height();
        EXPECT_GE(row, 16);
        EXPECT_EQ(viewer.findChild<QWidget*>(QStringLiteral("AniPic"))->y(), -14 * row);
    });
    EXPECT_EQ(workspace().page(), Page::Animation);
}

TEST_F(Animation, TheViewersNameStaysWhereItWasPutOnAScreenshot) {
    startOn(Page::Animation);
    workspace().settings.screenshot = "nowhere.bmp";
    QPoint put;
    for (const bool isFirst : {true, false}) {
        fake.dialogs.expectWarning(
            "The chosen screen shot, nowhere.bmp, was not found in the VTM directory.\n"
            "Please go to the options and select a new screen shot.");
        chooseAndUse<animation::frmRankings>("mnuToolsAnimationViewer", [&](animation::frmRankings& viewer) {
            EXPECT_TRUE(QTest::qWaitFor([this] { return fake.dialogs.left() == 0; }));
            EXPECT_TRUE(QTest::qWaitForWindowActive(&viewer));
            const auto* const strip = viewer.findChild<QWidget*>(QStringLiteral("AniPicBox"));
            const QPoint before = strip->pos();
            if (isFirst) {
                QTest::keyClick(&viewer, Qt::Key_Down, Qt::ControlModifier);
                EXPECT_EQ(strip->x(), before.x());
                EXPECT_GT(strip->y(), before.y());
                put = strip->pos();
            }
            EXPECT_EQ(strip->pos(), put);
        });
    }
    ASSERT_EQ(workspace().settings.previewLines.size(), 1U);
    EXPECT_EQ(workspace().settings.previewLines.front().screenShot, "nowhere.bmp");
}

TEST_F(Animation, AScriptThatIsAbandonedLeavesAWordInTheStatusLine) {
    startOn(Page::Animation);
    const ui::Path path = fake.directory.files.put(
        "long.vta", "// Animation File Created by Vortigo\r\n// 20 Names In The Animation Sequence\r\n"
                    "name \"short\"\r\nname \"much longer than a name\"\r\n");
    support::ExpectedFileDialog dialog;
    dialog.title = "Select the Script file";
    dialog.initialName = "*.vta";
    dialog.filters = {{"VTM Animation Script (*.vta;*.scr)", {"*.vta", "*.scr"}}};
    fake.dialogs.expectOpen(dialog, path);
    choose("mnuFileLoadAniFromScriptFile");
    EXPECT_EQ(name(1), "short");
    EXPECT_EQ(animation().nameCount, 20);
    EXPECT_EQ(text("lblAniTotalNum").toStdString(), "20");
    EXPECT_EQ(played(104), 0);
    EXPECT_EQ(
        status(), "Reading \"" + path.string() +
                      "\" stopped at line 4: its name has more than 15 glyphs. "
                      "Names 1 and 2 stand in the animation and not on the screen.");
    choose("mnuNewAni");
    EXPECT_EQ(status(), "") << "all names are shown now";
}

TEST_F(Animation, NamesThatComeIntoUseByAnAbandonedScriptAreShownAsTheyWere) {
    startOn(Page::Animation);
    animation().nameGlyphs[static_cast<std::size_t>(17 * editing::NameLength)] = 'B';
    std::string lines;
    for (int line = 1; line <= 20; ++line) {
        lines += "name \"A\"\r\n";
    }
    const ui::Path path = fake.directory.files.put(
        "long.vta", "// Animation File Created by Vortigo\r\n// 25 Names In The Animation Sequence\r\n" +
                        lines + "name \"much longer than a name\"\r\n");
    const auto cell = [this](int row) {
        const ui::Picture& page = workspace().pictures.animation.pixels();
        ui::Picture glyph(glyphs::CellSide, glyphs::CellSide);
        glyphs::BlitCells(
            glyph, 0, 0, glyphs::CellSide, glyphs::CellSide, page, 0, (row - 1) * glyphs::CellSide);
        return glyph;
    };
    const auto glyphOf = [this](glyphs::GlyphCode code) {
        ui::Picture glyph(glyphs::CellSide, glyphs::CellSide);
        glyphs::PaintGlyph(glyph, workspace().atlas, code, 1, 1);
        return glyph;
    };
    fake.dialogs.expectOpen(
        {.title = "Select the Script file",
         .initialName = "*.vta",
         .filters = {{"VTM Animation Script (*.vta;*.scr)", {"*.vta", "*.scr"}}}},
        path);
    choose("mnuFileLoadAniFromScriptFile");
    EXPECT_EQ(animation().nameCount, 25);
    EXPECT_EQ(name(18), "A") << "what was read";
    EXPECT_EQ(cell(15), glyphOf(' '));
    EXPECT_EQ(cell(16), glyphOf(' '));
    EXPECT_EQ(cell(18), glyphOf('B')) << "what is shown";
    EXPECT_EQ(cell(25), glyphOf(' '));
}

TEST_F(Animation, TheToolTipOfTheStatusLineHoldsWhatTheLineIsTooShortFor) {
    startOn(Page::Animation);
    window->statusBar()->showMessage(QStringLiteral("Line 3 was replaced: echo <b>"));
    EXPECT_EQ(window->statusBar()->toolTip(), QStringLiteral("<p>Line 3 was replaced: echo &lt;b&gt;</p>"))
        << "the line may be too short for it";
    window->statusBar()->clearMessage();
    EXPECT_EQ(window->statusBar()->toolTip(), QString());
}

TEST_F(Animation, AScriptThatCannotBeOpenedOrMadeIsNamedInTheStatusLine) {
    startOn(Page::Animation);
    support::ExpectedFileDialog dialog;
    dialog.title = "Select the Script file";
    dialog.initialName = "*.vta";
    dialog.filters = {{"VTM Animation Script (*.vta;*.scr)", {"*.vta", "*.scr"}}};
    const ui::Path path = fake.directory.files / "gone.vta";
    fake.dialogs.expectOpen(dialog, path);
    choose("mnuFileLoadAniFromScriptFile");
    EXPECT_NE(status().find(path.string()), std::string::npos) << status();

    dialog.title = "";
    fake.dialogs.expectSave(dialog, path);
    fake.dialogs.expectGameQuestion("Is this animation to be used in Quake2?", ui::Answer::Yes);
    fake.files.failOnce(support::FailingFiles::Step::Create);
    choose("mnuFileSaveAni_0");
    EXPECT_NE(status().find(path.string()), std::string::npos) << status();
    EXPECT_TRUE(workspace().recent.of(Page::Animation).empty());
}

TEST_F(Animation, TheNameButtonsWorkOnTheListAndKeepTheViewTrue) {
    startOn(Page::Animation);
    type("last");
    press(*window, "cmdName_0");
    EXPECT_EQ(animation().nameCount, 16);
    EXPECT_EQ(name(15), "");
    EXPECT_EQ(name(16), "last");
    EXPECT_EQ(text("lblAniTotalNum").toStdString(), "16");
    press(*window, "cmdName_3");
    EXPECT_EQ(name(15), "last");
    EXPECT_EQ(animation().currentName, 16);
    EXPECT_EQ(text("lblCurPos").toStdString(), "5,16");
    press(*window, "cmdName_1");
    EXPECT_EQ(animation().nameCount, 15);
    EXPECT_EQ(text("lblCurPos").toStdString(), "1,15");
    press(*window, "cmdName_2");
    EXPECT_EQ(name(14), "last");
    EXPECT_EQ(text("lblCurPos").toStdString(), "1,14");
    EXPECT_TRUE(pictureIsTrue());
}

TEST_F(Animation, RaisingTheTotalShowsWhatTheHiddenRowsHold) {
    startOn(Page::Animation);
    std::ranges::copy(std::u16string(u"hidden"), animation().rows().row(16).begin());
    find<QScrollBar>("AniTotalScroll")->setValue(17);
    EXPECT_EQ(animation().nameCount, 17);
    EXPECT_TRUE(pictureIsTrue());
}

TEST_F(Animation, ThePageIsTrueAfterAnyActionsInAnyOrder) {
    fake.settings.write("options", "prompt1", "False");
    fake.settings.write("AnimFiles", "RecentFile1", ui::PathText(fake.directory.files / "recent.vta"));
    startOn(Page::Animation);
    std::mt19937 random(4711);
    const auto pick = [&random](int first, int last) {
        return std::uniform_int_distribution<int>(first, last)(random);
    };
    const auto oneOf = [&pick](const auto& list) {
        return list[static_cast<std::size_t>(pick(0, static_cast<int>(std::size(list)) - 1))];
    };
    const std::array buttons = {"cmdName_0", "cmdName_1", "cmdName_2", "cmdName_3"};
    const std::array keys = {Qt::Key_Up,     Qt::Key_Down,   Qt::Key_Left,      Qt::Key_Right,
                             Qt::Key_Return, Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_X};
    const std::array listKeys = {Qt::Key_Up, Qt::Key_Down, Qt::Key_Insert, Qt::Key_Delete};
    const std::array entries = {
        "mnuNewAni",
        "mnuFormatAlignRight",
        "mnuFormatSwitchColor",
        "mnuFormatSwitchCase",
        "mnuFormatReverseNameOrder",
        "mnuEditCut",
        "mnuEditCopy",
        "mnuEditPaste"};
    const std::vector<std::function<void()>> actions = {
        [&] { find<QScrollBar>("AniTotalScroll")->setValue(pick(15, 90)); },
        [&] { find<QScrollBar>("AniScroll")->setValue(pick(1, 90)); },
        [&] { find<QScrollBar>("AniNameScroll")->setValue(pick(1, 15)); },
        [&] { find<QScrollBar>("VScroll1")->setValue(pick(1, 76)); },
        [&] { press(*window, oneOf(buttons)); },
        [&] { MainWindow::press(oneOf(keys)); },
        [&] { MainWindow::press(oneOf(listKeys), Qt::ControlModifier); },
        [&] {
            const int top = find<QScrollBar>("VScroll1")->value() - 1;
            click(
                "AniPic", {pick(0, 239), top * 16 + pick(0, 239)},
                pick(0, 1) == 0 ? Qt::LeftButton : Qt::RightButton);
        },
        [&] {
            Q_EMIT find<QComboBox>(pick(0, 1) == 0 ? "TickList" : "ThisTickList")->activated(pick(0, 15));
        },
        [&] { choose(oneOf(entries)); },
        [&] { load(pick(15, 90), pick(0, 90)); },
        [&] {
            chooseAndUse<animation::frmAniWiz>(
                "mnuToolsAnimationWizard", [&pick](animation::frmAniWiz& wizard) {
                    wizard.findChild<QComboBox*>(QStringLiteral("cmboPos_1"))->setCurrentIndex(pick(1, 20));
                    wizard.findChild<QComboBox*>(QStringLiteral("cmboColor"))->setCurrentIndex(pick(0, 5));
                    wizard.findChild<QScrollBar*>(QStringLiteral("StartNameScroll"))->setValue(pick(1, 76));
                    press(wizard, "cmdBuild");
                });
        },
    };
    for (int step = 0; step < 400; ++step) {
        const int action = pick(0, static_cast<int>(actions.size()) - 1);
        SCOPED_TRACE("step " + std::to_string(step) + ", action " + std::to_string(action));
        actions[static_cast<std::size_t>(action)]();
        expectPageIsTrue();
        ASSERT_FALSE(HasFailure());
    }
}

} // namespace
