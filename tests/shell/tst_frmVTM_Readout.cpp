// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "MainWindow.h"
#include "shell/GlyphButton.h"
#include "ui/qt/CellMarks.h"

#include <QHelpEvent>
#include <QLineEdit>
#include <QMenu>
#include <QStatusBar>
#include <QToolTip>

using editing::Page;

namespace {

class Readout : public MainWindow {
protected:
    /// Whether a line of the readout comes to say this.
    [[nodiscard]] bool says(int line, const char* text) const {
        auto* const label = find<QLabel>(("lblReadout_" + std::to_string(line)).c_str());
        return QTest::qWaitFor([&] { return label->text() == QLatin1String(text); });
    }

    void hoverGlyph(int code) const { hover("ImgGrid", {code % 16 * 16 + 8, code / 16 * 16 + 8}); }

    void leave(const char* name) const {
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(find(name), &leave);
    }

    [[nodiscard]] QString toolTipOf(const char* name, QPoint at = {8, 8}) const {
        return toolTipOf(find(name), at);
    }

    [[nodiscard]] static QString toolTipOf(QWidget* widget, QPoint at) {
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
        QHelpEvent event(QEvent::ToolTip, at, widget->mapToGlobal(at));
        QApplication::sendEvent(widget, &event);
        return QToolTip::text();
    }

    [[nodiscard]] QLineEdit& field() const { return *find<QLineEdit>("txtFind"); }

    void look(const char* words) const {
        press(Qt::Key_I, Qt::AltModifier);
        QTest::keyClicks(&field(), QLatin1String(words));
    }
};

TEST_F(Readout, TellsOfTheGlyphUnderTheCursor) {
    startOn(Page::Name);
    EXPECT_TRUE(says(0, "32: blank"));
    type("g");
    press(Qt::Key_Left);
    EXPECT_TRUE(says(0, "103: g"));
    EXPECT_TRUE(says(1, "Key: G"));
    EXPECT_TRUE(says(2, "Color 2: 231"));
}

TEST_F(Readout, TellsNothingAsLongAsThereAreNoGlyphs) {
    std::filesystem::remove(fake.directory.files / "vtmgrid.dat");
    window = std::make_unique<shell::frmVTM>(fake.platform);
    EXPECT_FALSE(window->Form_Load({}).ok());
    // The message that says so waits, and timers run meanwhile.
    QTest::qWait(1);
    EXPECT_EQ(text("lblReadout_0"), " ");
}

TEST_F(Readout, TellsOfTheGlyphUnderThePointerUntilItLeaves) {
    startOn(Page::Name);
    hoverGlyph(34);
    EXPECT_TRUE(says(0, "34: double quote"));
    EXPECT_TRUE(says(2, "Not placed: it ends the text"));
    leave("ImgGrid");
    EXPECT_TRUE(says(0, "32: blank"));
}

TEST_F(Readout, TellsOfGlyphsOfPagesAndButtonsUnderThePointer) {
    startOn(Page::Name);
    type("g");
    hover("NamePic", {8, 8});
    EXPECT_TRUE(says(0, "103: g"));
    leave("NamePic");
    EXPECT_TRUE(says(0, "32: blank"));
    QEnterEvent enter({4, 4}, {4, 4}, {4, 4});
    QApplication::sendEvent(find("cmdFavorite_1"), &enter);
    EXPECT_TRUE(says(0, "86: capital V"));
    leave("cmdFavorite_1");
    EXPECT_TRUE(says(0, "32: blank"));
}

TEST_F(Readout, FollowsTheCursorOnceSomebodyTypes) {
    startOn(Page::Name);
    hoverGlyph(16);
    EXPECT_TRUE(says(0, "16: ornate left bracket"));
    press(Qt::Key_Home);
    EXPECT_TRUE(says(0, "32: blank"));
}

TEST_F(Readout, SaysAnewWhatTheTypingColourChanges) {
    startOn(Page::Name);
    hoverGlyph('g');
    EXPECT_TRUE(says(1, "Key: G"));
    find<QAbstractButton>("cmdKey_0")->click();
    EXPECT_TRUE(says(1, "Key: G, without Color 2"));
}

TEST_F(Readout, CanBeHiddenAndIsRemembered) {
    startOn(Page::Name);
    EXPECT_TRUE(find("readout")->isVisible());
    choose("mnuViewReadout");
    EXPECT_FALSE(find("readout")->isVisible());
    window->close();
    EXPECT_EQ(fake.settings.read("view", "readout"), "False");
    start();
    EXPECT_FALSE(find("readout")->isVisible());
    EXPECT_FALSE(find<QAction>("mnuViewReadout")->isChecked());
}

TEST_F(Readout, IsWhatToolTipsSay) {
    startOn(Page::Name);
    type("g");
    const QString facts = QStringLiteral("103: g\nKey: G\nColor 2: 231");
    EXPECT_EQ(toolTipOf("ImgGrid", {7 * 16 + 8, 6 * 16 + 8}), facts);
    EXPECT_TRUE(toolTipOf("NamePic").endsWith(facts));
    EXPECT_EQ(toolTipOf("NamePic", {40, 8}), find("NamePic")->toolTip());
    EXPECT_EQ(
        toolTipOf("cmdFavorite_1"), "Click to place this character, Right click to change (Alt+2, "
                                    "Alt+Shift+2)\n86: capital V\nKey: Shift+V\nColor 2: 214");
    EXPECT_EQ(find("cmdFavorite_1")->toolTip(), "Click to place this character, Right click to change");
    EXPECT_TRUE(toolTipOf("cmdCalcFrequent").endsWith("(Alt+9)"));
}

TEST_F(Readout, IsWhatThePickerSays) {
    startOn(Page::Name);
    QString told;
    QTimer::singleShot(0, window.get(), [&] {
        QWidget* const picker = QApplication::activeModalWidget();
        ASSERT_NE(picker, nullptr);
        told = toolTipOf(picker->findChild<QWidget*>(QStringLiteral("ImgGrid")), {8, 24});
        picker->close();
    });
    press(Qt::Key_G, Qt::AltModifier);
    EXPECT_EQ(told, "16: ornate left bracket\nNo key types it\nColor 2: 144");
}

TEST_F(Readout, ShowsTheGlyphOfTheRightButton) {
    startOn(Page::Name);
    auto* const right = find<shell::GlyphButton>("cmdRightGlyph");
    EXPECT_EQ(right->glyph(), 5);
    clickGlyph(16, Qt::RightButton);
    EXPECT_EQ(right->glyph(), 16);
    click("cmdRightGlyph", {10, 10});
    EXPECT_EQ(row().front(), 16);
}

TEST_F(Readout, FindsAGlyphAndPlacesIt) {
    startOn(Page::Name);
    look("gold dig 7");
    auto* const shade = find("ImgGrid")->findChild<ui::qt::CellMarks*>();
    ASSERT_NE(shade, nullptr);
    EXPECT_EQ(shade->cells(), (std::vector<ui::Rect>{{9 * 16, 16, 16, 16}, {9 * 16, 9 * 16, 16, 16}}));
    EXPECT_EQ(text("lblFound"), "1 of 2: glyph 25, gold digit 7");
    EXPECT_EQ(row(), std::string(15, ' '));
    QTest::keyClick(&field(), Qt::Key_Down);
    EXPECT_EQ(text("lblFound"), "2 of 2: glyph 153, gold digit 7, second color");
    QTest::keyClick(&field(), Qt::Key_Down);
    QTest::keyClick(&field(), Qt::Key_Up);
    QTest::keyClick(&field(), Qt::Key_Return);
    EXPECT_EQ(static_cast<unsigned char>(row().front()), 153);
    EXPECT_FALSE(field().isVisible());
    EXPECT_FALSE(shade->isVisible());
    EXPECT_TRUE(find("NamePic")->hasFocus());
}

TEST_F(Readout, LeavesEverythingAsItWasWhenNothingIsFound) {
    startOn(Page::Name);
    look("heart");
    EXPECT_EQ(text("lblFound"), "No glyph fits");
    QTest::keyClick(&field(), Qt::Key_Return);
    EXPECT_TRUE(field().isVisible());
    QTest::keyClick(&field(), Qt::Key_Escape);
    EXPECT_FALSE(field().isVisible());
    EXPECT_EQ(row(), std::string(15, ' '));
    type("x");
    EXPECT_EQ(row().front(), 'x');
}

TEST_F(Readout, SaysWhyAFoundGlyphIsNotPlaced) {
    startOn(Page::Name);
    look("tilde");
    QTest::keyClick(&field(), Qt::Key_Return);
    EXPECT_EQ(row(), std::string(15, ' '));
    EXPECT_TRUE(window->findChild<QStatusBar*>()->currentMessage().startsWith("Not placed: "));
}

TEST_F(Readout, OpensTheFieldWhereTheReadoutIsHidden) {
    startOn(Page::Name);
    choose("mnuViewReadout");
    choose("mnuViewFindGlyph");
    EXPECT_TRUE(field().isVisible());
    QTest::keyClick(&field(), Qt::Key_Escape);
    EXPECT_FALSE(find("readout")->isVisible());
}

TEST_F(Readout, ClosesTheFieldWhenThePageIsUsed) {
    startOn(Page::Name);
    look("gold");
    click("NamePic", {8, 8});
    EXPECT_FALSE(field().isVisible());
    EXPECT_TRUE(find("NamePic")->hasFocus());
}

TEST_F(Readout, KeysThatAClosedMenuStillGetsReachTheField) {
    startOn(Page::Name);
    auto* const menu = find<QMenu>("mnuView");
    find<QAction>("mnuViewFindGlyph")->trigger();
    QTest::keyClicks(menu, QStringLiteral("gold"));
    EXPECT_EQ(field().text(), "gold");
    EXPECT_EQ(row(), std::string(15, ' '));
}

} // namespace
