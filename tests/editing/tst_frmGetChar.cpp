// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/frmGetChar.h"

#include "EditWorld.h"
#include "glyphs/mdlPaint.h"
#include "ui/qt/MarkerShape.h"
#include "ui/qt/PictureWidget.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>
#include <utility>
#include <vector>

namespace editing {

namespace {

using ui::qt::MarkerShape;
using ui::qt::PictureWidget;

class GlyphPicker : public testing::Test {
protected:
    void open(GlyphCode start) {
        m_picker = std::make_unique<frmGetChar>(start, m_atlas.cells, ui::OpaquePixel(0, 255, 0));
        m_picker->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_picker.get()));
    }

    [[nodiscard]] frmGetChar& picker() { return *m_picker; }

    template <class Widget>
    [[nodiscard]] Widget& control(const char* name) {
        auto* widget = m_picker->findChild<Widget*>(QString::fromLatin1(name));
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }

    void click(const char* name) { QTest::mouseClick(&control<QPushButton>(name), Qt::LeftButton); }

    /// Presses a button on the middle of a glyph's cell.
    void press(int code, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(&control<PictureWidget>("ImgGrid"), button, {}, middle(code));
    }

    void drag(int from, QPoint to) {
        auto* grid = &control<PictureWidget>("ImgGrid");
        QTest::mousePress(grid, Qt::LeftButton, {}, middle(from));
        QMouseEvent move(
            QEvent::MouseMove, to, grid->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(grid, &move);
        QTest::mouseRelease(grid, Qt::LeftButton, {}, to);
    }

    static QPoint middle(int code) { return {code % 16 * 16 + 8, code / 16 * 16 + 8}; }

    /// The glyph that the frame stands on; -1 when there is no frame.
    [[nodiscard]] int marked() {
        const auto& marker = control<MarkerShape>("GridPosShape");
        return marker.isVisible() ? marker.y() / 16 * 16 + marker.x() / 16 : -1;
    }

    [[nodiscard]] QString readout() { return control<QLabel>("lblChosen").text(); }

    /// What the picker returns when it is confirmed now.
    [[nodiscard]] GlyphCode confirmed() {
        click("cmdOK");
        EXPECT_EQ(m_picker->result(), QDialog::Accepted);
        EXPECT_FALSE(m_picker->isVisible());
        return m_picker->glyph();
    }

private:
    glyphs::GlyphAtlas m_atlas = glyphs::BuildAtlas(DistinctArtwork(), ui::OpaqueBlack);
    std::unique_ptr<frmGetChar> m_picker;
};

TEST_F(GlyphPicker, ShowsTheGridWithTheStartGlyphMarked) {
    open(145);
    const auto& grid = control<PictureWidget>("ImgGrid");
    EXPECT_EQ(grid.size(), QSize(256, 256));
    EXPECT_EQ(*grid.picture(), glyphs::BuildAtlas(DistinctArtwork(), ui::OpaqueBlack).cells);
    EXPECT_EQ(control<MarkerShape>("GridPosShape").geometry(), QRect(16, 144, 16, 16));
    EXPECT_EQ(marked(), 145);
    EXPECT_EQ(confirmed(), 145);
}

TEST_F(GlyphPicker, TabGoesFromTheGridToAllButtons) {
    open('A');
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "ImgGrid");
    QStringList reached;
    for (int i = 0; i < 4; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        reached.append(QApplication::focusWidget()->objectName());
    }
    reached.sort();
    EXPECT_EQ(reached, (QStringList{"ImgGrid", "cmdCancel", "cmdOK", "cmdReset"}));
}

TEST_F(GlyphPicker, MarksNothingAtFirstWhenThereIsNoStartGlyph) {
    open(0);
    EXPECT_EQ(marked(), -1);
    press(86);
    EXPECT_EQ(marked(), 86);
    EXPECT_EQ(confirmed(), 86);
}

TEST_F(GlyphPicker, ReturnsNothingWhenNothingWasPicked) {
    open(0);
    EXPECT_EQ(confirmed(), 0);
}

TEST_F(GlyphPicker, PicksWithAnyMouseButton) {
    open(65);
    for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        press(100 + static_cast<int>(button), button);
        EXPECT_EQ(marked(), 100 + static_cast<int>(button));
    }
}

TEST_F(GlyphPicker, FollowsADragButNotAMereMove) {
    open(65);
    drag(70, middle(200));
    EXPECT_EQ(marked(), 200);
    QTest::mouseMove(&control<PictureWidget>("ImgGrid"), middle(90));
    EXPECT_EQ(marked(), 200);
    drag(70, {-5, 300});
    EXPECT_EQ(marked(), 70);
}

TEST_F(GlyphPicker, KeepsTheChoiceOnGlyphsThatMayNotBePicked) {
    open(65);
    for (const int code : {0, 34, 126, 127, 162, 254, 255}) {
        press(code);
        EXPECT_EQ(marked(), 65) << code;
    }
    EXPECT_EQ(confirmed(), 65);
}

TEST_F(GlyphPicker, TakesTheOtherArrowHeadForTheCarriageReturn) {
    open(65);
    press(13);
    EXPECT_EQ(marked(), 141);
    EXPECT_EQ(confirmed(), 141);
}

TEST_F(GlyphPicker, StartsOnAGlyphThatCouldNotBePicked) {
    open(34);
    EXPECT_EQ(marked(), 34);
    EXPECT_EQ(confirmed(), 34);
}

TEST_F(GlyphPicker, ReturnsTheStartGlyphWhenItIsCancelled) {
    open(65);
    press(90);
    click("cmdCancel");
    EXPECT_EQ(picker().result(), QDialog::Rejected);
    EXPECT_FALSE(picker().isVisible());
    EXPECT_EQ(picker().glyph(), 65);
}

TEST_F(GlyphPicker, IsCancelledByEscape) {
    open(65);
    press(90);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(picker().isVisible());
    EXPECT_EQ(picker().glyph(), 65);
}

TEST_F(GlyphPicker, IsConfirmedByEnterWhereverTheFocusIs) {
    for (const char* name : {"ImgGrid", "cmdOK", "cmdCancel", "cmdReset"}) {
        open(65);
        press(90);
        auto& widget = control<QWidget>(name);
        widget.setFocus();
        ASSERT_TRUE(widget.hasFocus()) << name;
        QTest::keyClick(&widget, Qt::Key_Return);
        EXPECT_FALSE(picker().isVisible()) << name;
        EXPECT_EQ(picker().glyph(), 90) << name;
    }
}

TEST_F(GlyphPicker, GoesBackToTheStartGlyphWithReset) {
    open(65);
    press(90);
    click("cmdReset");
    EXPECT_EQ(marked(), 65);
    EXPECT_TRUE(picker().isVisible());
    EXPECT_EQ(confirmed(), 65);
}

TEST_F(GlyphPicker, KeepsTheChoiceOnResetWhenThereIsNoStartGlyph) {
    open(0);
    press(90);
    click("cmdReset");
    EXPECT_EQ(marked(), 90);
}

TEST_F(GlyphPicker, BlinksBetweenDottedAndSolid) {
    open(65);
    auto& marker = control<MarkerShape>("GridPosShape");
    auto& timer = control<QTimer>("tmrCursor");
    EXPECT_TRUE(timer.isActive());
    EXPECT_EQ(marker.style(), MarkerShape::Style::Solid);
    timer.setInterval(1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return marker.style() == MarkerShape::Style::Dotted; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return marker.style() == MarkerShape::Style::Solid; }));
}

TEST_F(GlyphPicker, IsMovedWithTheArrowKeys) {
    open(65);
    const auto type = [](Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key);
    };
    type(Qt::Key_Right);
    EXPECT_EQ(marked(), 66);
    type(Qt::Key_Down);
    EXPECT_EQ(marked(), 82);
    type(Qt::Key_Left);
    EXPECT_EQ(marked(), 81);
    type(Qt::Key_Up);
    EXPECT_EQ(marked(), 65);
    type(Qt::Key_Return);
    EXPECT_EQ(picker().glyph(), 65);
}

TEST_F(GlyphPicker, GoesToTheEndsOfTheRowAndTheColumn) {
    open(65);
    const auto type = [](Qt::Key key) {
        QTest::keyClick(QApplication::focusWidget(), key);
    };
    type(Qt::Key_End);
    EXPECT_EQ(marked(), 79);
    type(Qt::Key_PageDown);
    EXPECT_EQ(marked(), 239) << "255 may not be picked";
    type(Qt::Key_Home);
    EXPECT_EQ(marked(), 224);
    type(Qt::Key_PageUp);
    EXPECT_EQ(marked(), 16) << "nor may 0";
    type(Qt::Key_Up);
    EXPECT_EQ(marked(), 16);
}

TEST_F(GlyphPicker, JumpsToATypedCharacterAndThenToItsOtherColour) {
    open(5);
    const auto type = [](char character) {
        QTest::keyClick(QApplication::focusWidget(), character);
    };
    type('q');
    EXPECT_EQ(marked(), 'q');
    type('q');
    EXPECT_EQ(marked(), 'q' + 128);
    type('A');
    EXPECT_EQ(marked(), 'A' + 128) << "the colour stays";
    type('A');
    EXPECT_EQ(marked(), 'A');
    type(' ');
    EXPECT_EQ(marked(), 32);
    type('"');
    EXPECT_EQ(marked(), 32) << "a glyph that may not be picked";
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_NE(QApplication::focusWidget()->objectName(), "ImgGrid");
    type('7');
    EXPECT_EQ(marked(), '7') << "wherever the focus is";
    EXPECT_TRUE(picker().isVisible());
}

TEST_F(GlyphPicker, TakesTheGlyphOfADoubleClick) {
    open(65);
    auto& grid = control<PictureWidget>("ImgGrid");
    QTest::mouseDClick(&grid, Qt::LeftButton, {}, middle(34));
    EXPECT_TRUE(picker().isVisible()) << "that one may not be picked";
    QTest::mouseDClick(&grid, Qt::RightButton, {}, middle(90));
    EXPECT_TRUE(picker().isVisible());
    QTest::mouseDClick(&grid, Qt::LeftButton, {}, middle(13));
    EXPECT_FALSE(picker().isVisible());
    EXPECT_EQ(picker().result(), QDialog::Accepted);
    EXPECT_EQ(picker().glyph(), 141);
}

TEST_F(GlyphPicker, GivesTheKeysBackToTheGridAfterReset) {
    open(65);
    press(90);
    click("cmdReset");
    EXPECT_EQ(QApplication::focusWidget()->objectName(), "ImgGrid");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    EXPECT_EQ(marked(), 66);
}

TEST_F(GlyphPicker, SaysWhichGlyphIsChosen) {
    open(0);
    EXPECT_EQ(readout(), QStringLiteral("No glyph chosen"));
    press(16);
    EXPECT_EQ(readout(), QStringLiteral("Glyph 16"));
    press('a');
    EXPECT_EQ(readout(), QStringLiteral("Glyph 97\na"));
    press('&' + 128);
    EXPECT_EQ(readout(), QStringLiteral("Glyph 166\n& in color 2"));
    EXPECT_EQ(control<PictureWidget>("ImgGrid").accessibleDescription(), readout());
}

TEST_F(GlyphPicker, ReadsOutTheFirstAndTheLastCharacter) {
    const std::vector<std::pair<int, const char*>> readouts{
        {32, "Glyph 32"},
        {33, "Glyph 33\n!"},
        {126, "Glyph 126\n~"},
        {127, "Glyph 127"},
        {128, "Glyph 128"},
        {160, "Glyph 160"},
        {161, "Glyph 161\n! in color 2"},
        {254, "Glyph 254\n~ in color 2"},
        {255, "Glyph 255"}};
    for (const auto& [code, expected] : readouts) {
        open(static_cast<GlyphCode>(code));
        EXPECT_EQ(readout().toStdString(), expected);
    }
}

TEST_F(GlyphPicker, ShowsTheChosenGlyphEnlarged) {
    open(65);
    press(90);
    const ui::Picture* enlarged = control<PictureWidget>("picChosen").picture();
    const ui::Picture* grid = control<PictureWidget>("ImgGrid").picture();
    ASSERT_EQ(enlarged->width(), 64);
    for (int i = 0; i < 64; ++i) {
        EXPECT_EQ(enlarged->pixel(i, i), grid->pixel(10 * 16 + i / 4, 5 * 16 + i / 4));
    }
}

TEST_F(GlyphPicker, GivesItsAnswerToTheCaller) {
    const ui::Picture grid(256, 256);
    const auto answer = [&](GlyphCode start, Qt::Key key) {
        QTimer::singleShot(0, [key] {
            auto* dialog = QApplication::activeModalWidget();
            ASSERT_NE(dialog, nullptr);
            auto* picture = dialog->findChild<PictureWidget*>(QStringLiteral("ImgGrid"));
            QTest::mouseClick(picture, Qt::LeftButton, {}, middle(90));
            QTest::keyClick(picture, key);
        });
        return PickGlyph(start, grid, ui::OpaqueBlack, nullptr);
    };
    EXPECT_EQ(answer(65, Qt::Key_Return), 90);
    EXPECT_EQ(answer(65, Qt::Key_Escape), 65);
    EXPECT_EQ(answer(0, Qt::Key_Escape), 0);
}

} // namespace

} // namespace editing
