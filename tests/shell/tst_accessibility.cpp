// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "AccessWindow.h"

#include "shell/AltKeys.h"
#include "shell/StatusLine.h"

#include <QHelpEvent>
#include <QToolTip>
#include <set>

using editing::Page;

namespace {

class Announcements : public Access {};

TEST_F(Access, EverythingInTheWindowHasARoleAndAName) {
    startOn(Page::Name);
    EXPECT_GT(spoken::ExpectAllNamed(*window), 100);
}

TEST_F(Access, EverythingInTheDialogsHasARoleAndAName) {
    startOn(Page::Name);
    std::set<std::string> seen;
    throughAllDialogs([&seen](QDialog& dialog) {
        EXPECT_FALSE(dialog.accessibleName().isEmpty() && dialog.windowTitle().isEmpty());
        EXPECT_GT(spoken::ExpectAllNamed(dialog), 7);
        seen.insert(dialog.objectName().toStdString());
    });
    EXPECT_EQ(
        seen, (std::set<std::string>{
                  "frmAbout", "frmAniWiz", "frmBindWiz", "frmGetChar", "frmNewCharSet", "frmOptions",
                  "frmRankings", "frmSaveMessages"}));
}

TEST_F(Access, TheGridNamesEveryGlyph) {
    startOn(Page::Name);
    const QAccessibleTableInterface* const table = access("ImgGrid")->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(access("ImgGrid")->role(), QAccessible::Table);
    EXPECT_EQ(table->rowCount(), 16);
    EXPECT_EQ(table->columnCount(), 16);
    EXPECT_EQ(access("ImgGrid")->childCount(), 256);
    EXPECT_EQ(cellName("ImgGrid", 9, 1), "code 145, ornate right bracket, second color");
    EXPECT_EQ(cellName("ImgGrid", 14, 1), "code 225, a, second color");
    EXPECT_EQ(cellName("ImgGrid", 2, 0), "blank");
    EXPECT_EQ(cell("ImgGrid", 9, 1)->role(), QAccessible::Cell);
    EXPECT_EQ(cell("ImgGrid", 9, 1)->tableCellInterface()->rowIndex(), 9);
    EXPECT_EQ(cell("ImgGrid", 9, 1)->tableCellInterface()->columnIndex(), 1);
    const QPoint corner = find("ImgGrid")->mapToGlobal(QPoint(16, 144));
    EXPECT_EQ(cell("ImgGrid", 9, 1)->rect(), QRect(corner, QSize(16, 16)));
    EXPECT_EQ(access("ImgGrid")->childAt(corner.x(), corner.y()), cell("ImgGrid", 9, 1));
}

TEST_F(Access, TheGridsMarkedGlyphIsSelected) {
    startOn(Page::Name);
    type("a");
    EXPECT_TRUE(cell("ImgGrid", 6, 1)->state().selected);
    EXPECT_FALSE(cell("ImgGrid", 6, 1)->state().focused) << "the keyboard is on the page";
    type("b");
    EXPECT_FALSE(cell("ImgGrid", 6, 1)->state().selected);
    EXPECT_TRUE(cell("ImgGrid", 6, 2)->state().selected);
}

TEST_F(Access, PressingACellOfTheGridPlacesItsGlyph) {
    startOn(Page::Name);
    ASSERT_NE(cell("ImgGrid", 4, 1)->actionInterface(), nullptr);
    cell("ImgGrid", 4, 1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([this] { return workspace().documents.name.cells[0] == 'A'; }));
}

TEST_F(Access, EveryControlWithAKeyOfItsOwnTellsIt) {
    startOn(Page::Animation);
    find<shell::StatusLine>("statusbar")->offerRestore();
    for (const shell::AltKey& key : shell::AltKeys()) {
        if (!key.control.empty()) {
            const std::string control(key.control);
            const std::string description = find(control.c_str())->accessibleDescription().toStdString();
            EXPECT_NE(description.find(shell::AltKeysOf(control)), std::string::npos)
                << control << ": " << description;
        }
    }
}

TEST_F(Access, ThePagesNameTheirCells) {
    startOn(Page::Name);
    type("ab");
    EXPECT_EQ(access("NamePic")->childCount(), 15);
    EXPECT_EQ(cellName("NamePic", 0, 0), "code 97, a");
    EXPECT_EQ(cellName("NamePic", 0, 1), "code 98, b");
    EXPECT_EQ(cellName("NamePic", 0, 2), "blank");
    EXPECT_EQ(spoken::Text(access("NamePic"), QAccessible::Value), "Name: ab");
    workspace().documents.messages.cells[31 + 1] = 225;
    EXPECT_EQ(access("MacPic")->childCount(), 93);
    EXPECT_EQ(cellName("MacPic", 1, 1), "code 225, a, second color");
    EXPECT_EQ(access("MacPic")->tableInterface()->rowDescription(1).toStdString(), "Middle message:  a");
    EXPECT_EQ(access("AniPic")->childCount(), 15 * 15);
    EXPECT_EQ(access("AniPic")->tableInterface()->rowDescription(14).toStdString(), "Name 15: blank");
}

TEST_F(Access, TheAnimationsCellsAreThoseOfTheNamesInUse) {
    startOn(Page::Animation);
    find<QScrollBar>("AniTotalScroll")->setValue(90);
    EXPECT_EQ(access("AniPic")->childCount(), 90 * 15);
    QAccessibleInterface* const last = cell("AniPic", 89, 14);
    EXPECT_TRUE(last->isValid());
    EXPECT_TRUE(last->state().offscreen);
    find<QScrollBar>("AniTotalScroll")->setValue(15);
    EXPECT_FALSE(last->isValid());
    EXPECT_EQ(access("AniPic")->tableInterface()->cellAt(89, 14), nullptr);
}

TEST_F(Access, TheCursorCellHasTheFocus) {
    startOn(Page::Name);
    EXPECT_TRUE(typingGoesOn());
    EXPECT_TRUE(cell("NamePic", 0, 0)->state().focused);
    EXPECT_TRUE(cell("NamePic", 0, 0)->state().selected);
    EXPECT_EQ(access("NamePic")->focusChild(), cell("NamePic", 0, 0));
    press(Qt::Key_End);
    EXPECT_FALSE(cell("NamePic", 0, 0)->state().focused);
    EXPECT_TRUE(cell("NamePic", 0, 14)->state().focused);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(window.get())->focusChild(), cell("NamePic", 0, 14))
        << "the window leads there too";
}

TEST_F(Access, TheFocusFollowsThePageInView) {
    startOn(Page::Name);
    for (const char* page : {"mnuView_2", "mnuView_1", "mnuView_0"}) {
        choose(page);
        EXPECT_TRUE(typingGoesOn()) << page;
    }
    choose("mnuView_2");
    EXPECT_TRUE(cell("MacPic", 0, 0)->state().focused);
    EXPECT_FALSE(cell("NamePic", 0, 0)->state().focused);
    choose("mnuView_1");
    EXPECT_TRUE(cell("AniPic", 14, 0)->state().focused);
}

TEST_F(Announcements, TellsOfTheCursorAndOfWhatIsTyped) {
    startOn(Page::Name);
    type("ab");
    listener.clear();
    press(Qt::Key_Home);
    EXPECT_TRUE(listener.heard("focus code 97, a"));
    press(Qt::Key_Right);
    EXPECT_TRUE(listener.heard("focus code 98, b"));
    listener.clear();
    type("x");
    EXPECT_TRUE(listener.heard("name code 120, x"));
    EXPECT_TRUE(listener.heard("focus blank"));
    listener.clear();
    workspace().settings.modes.insert = true;
    press(Qt::Key_Home);
    type("z");
    EXPECT_TRUE(listener.heard("name code 122, z"));
    EXPECT_TRUE(listener.heard("name code 120, x")) << "what was pushed on has changed too";
}

TEST_F(Announcements, TellsOfTheGameLinesThatReadOtherwise) {
    const auto hears = [this](const char* line) {
        return QTest::qWaitFor([&] { return listener.heard(std::string("label ") + line); });
    };
    startOn(Page::Name);
    type("a");
    ASSERT_TRUE(hears("Quake2: kept"));
    listener.clear();
    clickGlyph('b' + 128);
    ASSERT_TRUE(hears("Quake2: others see: ab, in one color"));
    EXPECT_FALSE(listener.heard("label Quake: kept")) << "that one reads as before";
}

TEST_F(Announcements, TellsOfNoCellThatStayedAsItWas) {
    startOn(Page::Messages);
    press(Qt::Key_Down);
    listener.clear();
    type("x");
    EXPECT_EQ(listener.count("name"), 1);
    EXPECT_EQ(listener.count("data"), 0);
    workspace().settings.modes.insert = true;
    listener.clear();
    type("z");
    EXPECT_EQ(listener.count("name"), 30) << "the cells from the second to the last one";
    EXPECT_EQ(listener.count("data"), 0);
}

TEST_F(Announcements, TellsOfTheMarkedGlyph) {
    startOn(Page::Name);
    listener.clear();
    type("a");
    EXPECT_TRUE(listener.heard("selected code 97, a"));
}

TEST_F(Announcements, TellsOfRowsThatComeIntoUse) {
    startOn(Page::Animation);
    listener.clear();
    find<QScrollBar>("AniTotalScroll")->setValue(16);
    EXPECT_EQ(listener.count("rows"), 1);
    find<QScrollBar>("AniTotalScroll")->setValue(15);
    EXPECT_EQ(listener.count("rows"), 2);
}

TEST_F(Announcements, TellsOfTheCellWhenAnotherPageComesIntoView) {
    startOn(Page::Name);
    type("a");
    press(Qt::Key_Home);
    choose("mnuView_2");
    listener.clear();
    choose("mnuView_0");
    EXPECT_TRUE(QTest::qWaitFor([this] { return listener.heard("focus code 97, a"); }));
    const auto& events = listener.events();
    const auto last = std::find_if(
        events.rbegin(), events.rend(), [](const std::string& event) { return !event.starts_with("label"); });
    EXPECT_EQ(*last, "focus code 97, a") << "the cell has the last word";
}

TEST_F(Announcements, TellsOfAWholePageOnce) {
    startOn(Page::Messages);
    listener.clear();
    choose("mnuNewMessages");
    EXPECT_EQ(listener.count("data"), 1);
    EXPECT_EQ(listener.count("name"), 0);
}

TEST_F(Announcements, SaysNothingWhileNobodyListens) {
    startOn(Page::Name);
    listener.stopListening();
    type("abc");
    press(Qt::Key_Home);
    choose("mnuView_1");
    for (const char* ofThePrograms : {"name ", "selected ", "data", "rows"}) {
        EXPECT_EQ(listener.count(ofThePrograms), 0) << ofThePrograms;
    }
}

TEST_F(Access, MovingTheScreenReadersCellMovesTheCursor) {
    startOn(Page::Messages);
    cell("MacPic", 2, 30)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([this] { return workspace().documents.messages.currentMessage == 3; }));
    EXPECT_EQ(workspace().documents.messages.cursorPos, 31);
}

TEST_F(Access, SaysWhichGlyphsBreakAScript) {
    startOn(Page::Name);
    workspace().documents.name.cells[2] = 13;
    EXPECT_EQ(
        spoken::Text(cell("NamePic", 0, 2), QAccessible::Description),
        "Glyph 13 breaks the line that it is saved in");
    EXPECT_EQ(spoken::Text(cell("NamePic", 0, 1), QAccessible::Description), "");
    const auto toolTipAt = [this](const char* picture, QPoint pixel) {
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
        QHelpEvent help(QEvent::ToolTip, pixel, find(picture)->mapToGlobal(pixel));
        QApplication::sendEvent(find(picture), &help);
        return QToolTip::isVisible() ? QToolTip::text().toStdString() : std::string();
    };
    EXPECT_EQ(
        toolTipAt("NamePic", {40, 8}), "13: right arrow head, carriage return\nNo key types it; color "
                                       "2: 141\nPlaced as 141: it breaks its line");
    EXPECT_EQ(toolTipAt("NamePic", {8, 8}), "");
    choose("mnuView_2");
    workspace().documents.messages.cells[31] = 10;
    EXPECT_EQ(
        toolTipAt("MacPic", {8, 24}),
        "10: blank, line feed\nNo key types it\nBreaks the line that it is saved in");
    EXPECT_EQ(
        toolTipAt("ImgGrid", {24, 152}),
        "145: ornate right bracket, second color\nNo key types it\nColor 1: 17");
}

TEST_F(Access, GlyphButtonsSayTheirGlyphAndTheirKeys) {
    startOn(Page::Name);
    EXPECT_EQ(named("cmdFavorite_0"), "Favorite glyph 1: code 16, ornate left bracket");
    EXPECT_EQ(named("cmdFrequent_2"), "Frequent glyph 3: blank");
    EXPECT_EQ(
        spoken::Text(access("cmdFavorite_0"), QAccessible::Description),
        "Click to place this character, Right click to change (Alt+1, Alt+Shift+1)");
    EXPECT_EQ(
        find("cmdFavorite_0")->toolTip(),
        QStringLiteral("Click to place this character, Right click to change"));
    EXPECT_EQ(access("cmdFavorite_0")->role(), QAccessible::Button);
    type("ccc");
    press(Qt::Key_9, Qt::AltModifier);
    EXPECT_EQ(named("cmdFrequent_0"), "Frequent glyph 1: code 99, c");
    access("cmdFavorite_0")->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([this] { return workspace().documents.name.cells[3] == 16; }));
}

TEST_F(Access, TabsSayWhichPageIsInView) {
    startOn(Page::Name);
    EXPECT_EQ(access("picTab_0")->role(), QAccessible::PageTab);
    EXPECT_TRUE(access("picTab_0")->state().selected);
    EXPECT_FALSE(access("picTab_2")->state().selected);
    access("picTab_2")->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([this] { return workspace().page() == Page::Messages; }));
    EXPECT_TRUE(access("picTab_2")->state().selected);
}

TEST_F(Access, TheDirectionPadIsFourButtons) {
    startOn(Page::Name);
    QAccessibleInterface* const pad = access("imgDir");
    ASSERT_EQ(pad->childCount(), 4);
    std::vector<std::string> names;
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(pad->child(i)->role(), QAccessible::Button);
        names.push_back(spoken::Text(pad->child(i), QAccessible::Name));
    }
    EXPECT_EQ(names, (std::vector<std::string>{"Up", "Left", "Down", "Right"}));
    pad->child(3)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([this] { return column() == 2; }));
}

TEST_F(Access, ModesAndNumbersAreToldAsTheyAre) {
    startOn(Page::Animation);
    EXPECT_EQ(access("cmdKey_1")->role(), QAccessible::CheckBox);
    EXPECT_FALSE(access("cmdKey_1")->state().checked);
    press(Qt::Key_Insert);
    EXPECT_TRUE(access("cmdKey_1")->state().checked);
    EXPECT_EQ(named("lblCurPos"), "1,15");
    EXPECT_EQ(spoken::Text(access("lblCurPos"), QAccessible::Description), "Cursor position");
    EXPECT_EQ(spoken::Text(access("lblAniTotalNum"), QAccessible::Description), "The total names");
    EXPECT_EQ(spoken::Text(access("cmdName_2"), QAccessible::Description), "Move current name up (Ctrl+Up)");
}

TEST_F(Access, ThePickersChosenGlyphHasTheFocus) {
    startOn(Page::Name);
    openAndUse<editing::frmGetChar>(
        [this] { press(Qt::Key_1, Qt::AltModifier | Qt::ShiftModifier); },
        [this](editing::frmGetChar& picker) {
            auto* const grid = picker.findChild<QWidget*>(QStringLiteral("ImgGrid"));
            ASSERT_TRUE(QTest::qWaitFor([grid] { return QApplication::focusWidget() == grid; }));
            QTest::keyClick(grid, Qt::Key_Right);
            EXPECT_TRUE(listener.heard("focus code 17, ornate right bracket"));
            EXPECT_TRUE(
                QAccessible::queryAccessibleInterface(grid)->tableInterface()->cellAt(1, 1)->state().focused);
        });
}

} // namespace
