// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include "shell/GlyphButton.h"
#include "support/LetterKeys.h"
#include "ui/qt/MarkerShape.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTimer>
#include <QToolButton>
#include <QWindow>

using editing::Page;
using ui::qt::MarkerShape;

namespace {

const std::string Blanks14(14, ' ');

class Keys : public MainWindow {};

class Menus : public MainWindow {};

class Mouse : public MainWindow {
protected:
    /// The pixel in the middle of an arrow of the direction pad; column and row in its block of 3 x 2 keys.
    static QPoint arrow(int column, int row) { return {column * 28 + 13, row * 28 + 13}; }
};

class Markers : public MainWindow {};

TEST_F(Keys, TheNumberPadTypesItsOwnDigitsAndSigns) {
    startOn(Page::Name);
    press(Qt::Key_0, Qt::KeypadModifier);
    press(Qt::Key_9, Qt::KeypadModifier);
    press(Qt::Key_Asterisk, Qt::KeypadModifier);
    press(Qt::Key_Plus, Qt::KeypadModifier);
    press(Qt::Key_Minus, Qt::KeypadModifier);
    press(Qt::Key_Period, Qt::KeypadModifier);
    press(Qt::Key_Slash, Qt::KeypadModifier);
    EXPECT_EQ(row(), "\x12\x1b*+-./" + std::string(8, ' '));
}

TEST_F(Keys, TheNumberPadMovesTheCursorWithoutItsLock) {
    startOn(Page::Name);
    type("abc");
    press(Qt::Key_Left, Qt::KeypadModifier);
    EXPECT_EQ(column(), 3);
    press(Qt::Key_Home, Qt::KeypadModifier);
    EXPECT_EQ(column(), 1);
    press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(row(), "abc" + std::string(12, ' '));
}

TEST_F(Keys, TheFunctionKeysTypeTheirGlyphsAndOpenNothing) {
    startOn(Page::Name);
    for (const Qt::Key key :
         {Qt::Key_F1, Qt::Key_F2, Qt::Key_F3, Qt::Key_F4, Qt::Key_F5, Qt::Key_F6, Qt::Key_F7, Qt::Key_F8,
          Qt::Key_F9, Qt::Key_F10, Qt::Key_F11, Qt::Key_F12}) {
        press(key);
    }
    EXPECT_EQ(row(), "\x80\x81\x83\x82\x1d\x1e\x1f" + std::string(8, ' '));
    EXPECT_EQ(column(), 13);
    EXPECT_TRUE(fake.launcher.launches.empty()) << "the first of them is no help key";
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(Keys, NoButtonIsPressedByAKeyAfterItWasClicked) {
    startOn(Page::Name);
    QTest::mouseClick(find("cmdKey_1"), Qt::LeftButton);
    QTest::mouseClick(find("cmdCalcFrequent"), Qt::LeftButton);
    QTest::mouseClick(find<QToolButton>("aleft"), Qt::LeftButton);
    fake.sounds.waves.clear();
    QWidget* focus = window->focusWidget();
    ASSERT_NE(focus, nullptr);
    QTest::keyClick(focus, Qt::Key_Space);
    QTest::keyClick(focus, Qt::Key_Tab);
    QTest::keyClick(focus, Qt::Key_X);
    EXPECT_EQ(row(), "x" + std::string(14, ' '));
    EXPECT_EQ(played(101), 3);
    EXPECT_EQ(played(104), 0);
    EXPECT_TRUE(workspace().settings.modes.insert);
}

TEST_F(Keys, CtrlWithALetterTypesABlankAndIsNoShortcut) {
    startOn(Page::Name);
    type("abcd");
    press(Qt::Key_Home);
    press(Qt::Key_S, Qt::ControlModifier);
    press(Qt::Key_Z, Qt::ControlModifier);
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(row(), "   d" + std::string(11, ' '));
    EXPECT_TRUE(window->isVisible());
}

TEST_F(Keys, CtrlWithDeleteOnTheMessagesPageShowsTheAnimationAndRemovesAName) {
    startOn(Page::Messages);
    workspace().documents.animation.nameCount = 17;
    press(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(workspace().page(), Page::Animation);
    EXPECT_EQ(workspace().documents.animation.nameCount, 16);
}

TEST_F(Menus, OpenWithAltAndTheirLetter) {
    startOn(Page::Name);
    const std::array<std::pair<Qt::Key, const char*>, 6> expected{
        {{Qt::Key_F, "mnuFile"},
         {Qt::Key_E, "mnuEdit"},
         {Qt::Key_O, "mnuFormat"},
         {Qt::Key_V, "mnuView"},
         {Qt::Key_T, "mnuTools"},
         {Qt::Key_H, "mnuHelpMenu"}}};
    for (const auto& [key, name] : expected) {
        press(key, Qt::AltModifier);
        const QWidget* shown = QApplication::activePopupWidget();
        ASSERT_NE(shown, nullptr) << name;
        EXPECT_EQ(shown->objectName(), QLatin1String(name));
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
        QTest::keyClick(window->focusWidget(), Qt::Key_Escape);
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    }
}

TEST_F(Menus, OpenByTheirPlaceOnAKeyboardWithoutLatinLetters) {
    startOn(Page::Name);
    using support::PressLetterKey;
    PressLetterKey(*window->focusWidget(), 'F', u'\u0410', Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(QApplication::activePopupWidget()->objectName(), QStringLiteral("mnuFile"));
    PressLetterKey(*QApplication::activePopupWidget(), 'S', u'\u042B', Qt::NoModifier);
    EXPECT_EQ(QApplication::activePopupWidget()->objectName(), QStringLiteral("mnuSave"));
    PressLetterKey(*QApplication::activePopupWidget(), 'N', u'\u0422', Qt::NoModifier);
    EXPECT_EQ(QApplication::activePopupWidget()->objectName(), QStringLiteral("mnuSaveName"));
    while (QWidget* const menu = QApplication::activePopupWidget()) {
        menu->close();
    }
    EXPECT_EQ(row(), ' ' + Blanks14);
}

TEST_F(Menus, LeaveTheKeysThatReachThemTooLateToTheWindow) {
    startOn(Page::Name);
    auto* const edit = window->findChild<QMenu*>(QStringLiteral("mnuEdit"));
    const auto pressLate = [&](Qt::Key key, Qt::KeyboardModifiers held, const QString& text) {
        QKeyEvent event(QEvent::KeyPress, key, held, text);
        QApplication::sendEvent(edit, &event);
    };
    press(Qt::Key_E, Qt::AltModifier);
    QTest::keyClick(edit, Qt::Key_C);
    ASSERT_FALSE(edit->isVisible());
    pressLate(Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
    EXPECT_EQ(row(), 'a' + Blanks14);
    pressLate(Qt::Key_V, Qt::AltModifier, QStringLiteral("v"));
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(QApplication::activePopupWidget()->objectName(), QStringLiteral("mnuView"));
    QApplication::activePopupWidget()->close();
}

TEST_F(Menus, LeaveTheTextOfTheStatusLineAlone) {
    startOn(Page::Name);
    QStatusBar* const line = window->statusBar();
    line->showMessage(QStringLiteral("Line 3 was replaced: name"));
    press(Qt::Key_F, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
    EXPECT_EQ(line->currentMessage(), QStringLiteral("Line 3 was replaced: name"));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    QTest::keyClick(window->focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(line->currentMessage(), QStringLiteral("Line 3 was replaced: name"));
}

TEST_F(Menus, KeepTheirKeysWhileTheyAreOpen) {
    startOn(Page::Name);
    press(Qt::Key_V, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_M);
    EXPECT_EQ(workspace().page(), Page::Messages);
    EXPECT_EQ(workspace().documents.name.cells[0], ' ');
    EXPECT_EQ(row(), std::string(31, ' '));
    type("m");
    EXPECT_EQ(row(), "m" + std::string(30, ' ')) << "typing goes to the page again";
}

/// Opens File > New, of which the first gets the keyboard only then.
class LateMenus : public MainWindow {
protected:
    void SetUp() override {
        startOn(Page::Name);
        type("ab");
        press(Qt::Key_F, Qt::AltModifier);
        ASSERT_TRUE(menu("mnuFile")->isVisible());
        QTest::keyClick(menu("mnuFile"), Qt::Key_N);
        ASSERT_TRUE(menu("mnuFileNew")->isVisible());
        QWindow* const first = menu("mnuFile")->windowHandle();
        first->requestActivate();
        ASSERT_TRUE(QTest::qWaitFor([first] { return QGuiApplication::focusWindow() == first; }));
    }

    [[nodiscard]] QMenu* menu(const char* name) const { return find<QMenu>(name); }

    /// Moves the mouse to an entry of a menu and clicks it, as the window system does.
    void clickEntry(const char* menuName, QAction* action) const {
        QWindow* const shown = menu(menuName)->windowHandle();
        const QPoint entry = menu(menuName)->actionGeometry(action).center();
        for (int left = QApplication::startDragDistance(); left >= 0; --left) {
            QTest::mouseMove(shown, entry - QPoint(left, 0));
        }
        QTest::mouseClick(shown, Qt::LeftButton, Qt::NoModifier, entry);
    }
};

TEST_F(LateMenus, TakeALetterInnermost) {
    QTest::keyClick(menu("mnuFile")->windowHandle(), Qt::Key_N);
    EXPECT_EQ(row(), ' ' + Blanks14) << "a new name";
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(LateMenus, TakeAClickInnermost) {
    clickEntry("mnuFileNew", find<QAction>("mnuNewName"));
    EXPECT_EQ(row(), ' ' + Blanks14) << "a new name";
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(LateMenus, TakeAClickFurtherOut) {
    clickEntry("mnuFile", menu("mnuSave")->menuAction());
    EXPECT_TRUE(menu("mnuSave")->isVisible());
    EXPECT_FALSE(menu("mnuFileNew")->isVisible());
    EXPECT_EQ(row(), "ab" + std::string(13, ' '));
    while (QWidget* const open = QApplication::activePopupWidget()) {
        open->close();
    }
}

TEST_F(Menus, AreAllThatTheMenuBarOffers) {
    startOn(Page::Name);
    QWidget* const bar = window->menuBar();
    const QPoint pixel(bar->width() - 4, bar->height() / 2);
    QContextMenuEvent event(QContextMenuEvent::Mouse, pixel, bar->mapToGlobal(pixel));
    QApplication::sendEvent(bar, &event);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "nothing there hides the toolbar";
}

TEST_F(Menus, OfTheToolbarPopUpAtTheirButtons) {
    startOn(Page::Name);
    const std::array<std::pair<const char*, const char*>, 3> expected{
        {{"fnew", "mnuFileNew"}, {"fopen", "mnuLoad"}, {"fsave", "mnuSave"}}};
    for (const auto& [key, name] : expected) {
        auto* button = find<QToolButton>(key);
        QString shown;
        QPoint corner;
        QTimer::singleShot(0, [&shown, &corner] {
            QWidget* popup = QApplication::activePopupWidget();
            ASSERT_NE(popup, nullptr);
            shown = popup->objectName();
            corner = popup->pos();
            popup->close();
        });
        QTest::mouseClick(button, Qt::LeftButton);
        EXPECT_EQ(shown, QLatin1String(name));
        EXPECT_EQ(corner, button->mapToGlobal(QPoint(0, button->height())));
        EXPECT_FALSE(button->isDown());
    }
}

TEST_F(Mouse, ARightPressStampsOnTheOtherPagesToo) {
    startOn(Page::Messages);
    clickGlyph(145, Qt::RightButton);
    click("MacPic", {30 * 16 + 3, 2 * 16 + 3}, Qt::RightButton);
    EXPECT_EQ(row(3), std::string(30, ' ') + "\x91");
    choose("mnuView_1");
    click("AniPic", {3, 3}, Qt::RightButton);
    EXPECT_EQ(row(1), "\x91" + Blanks14);
}

TEST_F(Mouse, ARightPressInsertsInInsertMode) {
    startOn(Page::Name);
    type("ab");
    press(Qt::Key_Insert);
    clickGlyph('#', Qt::RightButton);
    click("NamePic", {3, 3}, Qt::RightButton);
    EXPECT_EQ(row(), "#ab" + std::string(12, ' '));
    EXPECT_EQ(column(), 1) << "inserting leaves the cursor on the new glyph";
    click("NamePic", {14 * 16 + 3, 3}, Qt::RightButton);
    click("NamePic", {14 * 16 + 3, 3}, Qt::RightButton);
    EXPECT_EQ(row(), "#ab" + std::string(11, ' ') + '#') << "the last cell is replaced";
    EXPECT_EQ(column(), 15);
    press(Qt::Key_Backspace);
    EXPECT_EQ(row(), "#ab" + std::string(10, ' ') + "# ");
    EXPECT_EQ(column(), 14);
}

TEST_F(Mouse, AHeldArrowOfTheDirectionPadRepeatsUntilItIsLetGo) {
    startOn(Page::Name);
    press(Qt::Key_End);
    QWidget* pad = find("imgDir");
    QTest::mousePress(pad, Qt::LeftButton, Qt::NoModifier, arrow(0, 1));
    EXPECT_EQ(column(), 14) << "the press itself moves the cursor";
    EXPECT_TRUE(QTest::qWaitFor([this] { return column() <= 11; }));
    QTest::mouseRelease(pad, Qt::LeftButton, Qt::NoModifier, arrow(0, 1));
    EXPECT_FALSE(find<QTimer>("imgTimer")->isActive());
    EXPECT_EQ(text("lblCurPos"), QString::number(column()));
}

TEST_F(Mouse, AHeldArrowStopsWhenAMenuGetsTheRelease) {
    startOn(Page::Messages);
    QTest::mousePress(find("imgDir"), Qt::LeftButton, Qt::NoModifier, arrow(2, 1));
    press(Qt::Key_F, Qt::AltModifier);
    QWidget* const menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    QTest::mouseRelease(menu, Qt::LeftButton, Qt::NoModifier, {-5, -5});
    EXPECT_TRUE(QTest::qWaitFor([this] { return !find<QTimer>("imgTimer")->isActive(); }));
    EXPECT_LT(column(), 31) << "it did not run to the end of the row";
    menu->close();
}

TEST_F(Mouse, AHeldScrollBarStopsWhenAMenuGetsTheRelease) {
    startOn(Page::Animation);
    auto* const bar = find<QScrollBar>("AniTotalScroll");
    const QPoint arrowToTheRight(bar->width() - 4, bar->height() / 2);
    QTest::mousePress(bar, Qt::LeftButton, Qt::NoModifier, arrowToTheRight);
    EXPECT_TRUE(QTest::qWaitFor([bar] { return bar->value() > 16; })) << "it repeats while it is held";
    press(Qt::Key_F, Qt::AltModifier);
    QWidget* const menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    QTest::mouseRelease(menu, Qt::LeftButton, Qt::NoModifier, {-5, -5});
    const int total = bar->value();
    // The cursor blinks twice: long enough for many more steps.
    int blinks = 0;
    QObject::connect(find<QTimer>("tmrCursor"), &QTimer::timeout, menu, [&blinks] { ++blinks; });
    EXPECT_TRUE(QTest::qWaitFor([&blinks] { return blinks == 2; }));
    EXPECT_LE(bar->value(), total + 1);
    menu->close();
}

TEST_F(Mouse, TheDirectionPadMovesInAllFourDirectionsWithinThePage) {
    startOn(Page::Messages);
    QWidget* pad = find("imgDir");
    const auto clickArrow = [pad](QPoint pixel) {
        QTest::mouseClick(pad, Qt::LeftButton, Qt::NoModifier, pixel);
    };
    clickArrow(arrow(2, 1));
    clickArrow(arrow(1, 1));
    EXPECT_EQ(column(), 2);
    EXPECT_EQ(workspace().documents.messages.currentMessage, 2);
    clickArrow(arrow(0, 1));
    clickArrow(arrow(0, 1));
    clickArrow(arrow(1, 0));
    clickArrow(arrow(1, 0));
    EXPECT_EQ(column(), 1);
    EXPECT_EQ(workspace().documents.messages.currentMessage, 1);
}

TEST_F(Mouse, AFavouriteComesUpAgainWhenItsPickerOpens) {
    startOn(Page::Name);
    bool wasDown = true;
    QTimer::singleShot(0, [this, &wasDown] {
        wasDown = find<shell::GlyphButton>("cmdFavorite_1")->isDown();
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    });
    QTest::mousePress(find("cmdFavorite_1"), Qt::RightButton);
    EXPECT_FALSE(wasDown);
    EXPECT_FALSE(find<shell::GlyphButton>("cmdFavorite_1")->isDown()) << "the release never comes";
}

TEST_F(Mouse, TheGlyphPickedForAFavouriteIsPlacedAndSaved) {
    startOn(Page::Name);
    QTimer::singleShot(0, [] {
        QWidget* picker = QApplication::activeModalWidget();
        QTest::mouseClick(
            picker->findChild<QWidget*>(QStringLiteral("ImgGrid")), Qt::LeftButton, {}, {88, 104});
        QTest::keyClick(picker, Qt::Key_Return);
    });
    QTest::mousePress(find("cmdFavorite_1"), Qt::RightButton);
    EXPECT_EQ(workspace().settings.favourites[1], 6 * 16 + 5);
    QTest::mousePress(find("cmdFavorite_1"), Qt::LeftButton);
    EXPECT_EQ(row(), "e" + Blanks14);
    window->close();
    EXPECT_EQ(fake.settings.read("options", "fav2"), "101");
}

TEST_F(Mouse, ThePointersAreThoseOfTheSettings) {
    fake.settings.write("options", "cursor1", "2");
    fake.settings.write("options", "cursor2", "1");
    fake.settings.write("options", "cursor3", "0");
    fake.settings.write("options", "cursor4", "2");
    startOn(Page::Name);
    EXPECT_EQ(find("ImgGrid")->cursor().shape(), Qt::CrossCursor);
    EXPECT_EQ(find("NamePic")->cursor().shape(), Qt::ArrowCursor);
    EXPECT_FALSE(find("AniPic")->testAttribute(Qt::WA_SetCursor)) << "it has the window's";
    EXPECT_EQ(find("MacPic")->cursor().shape(), Qt::CrossCursor);
}

TEST_F(Markers, OfTheGridAndOfThePageInViewBlink) {
    startOn(Page::Name);
    auto* timer = find<QTimer>("tmrCursor");
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 500);
    auto* grid = find<MarkerShape>("GridPosShape");
    auto* name = find<MarkerShape>("NamePosShape");
    auto* messages = find<MarkerShape>("MacPosShape");
    const MarkerShape::Style still = messages->style();
    timer->setInterval(1);
    for (const auto style : {MarkerShape::Style::Dotted, MarkerShape::Style::Dashed}) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return grid->style() == style && name->style() == style; }));
    }
    EXPECT_EQ(messages->style(), still) << "the page is not in view";
}

} // namespace
