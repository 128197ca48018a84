// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "MainWindow.h"
#include "editing/PagePanel.h"
#include "shell/GameLines.h"
#include "ui/qt/CellMarks.h"
#include "ui/qt/LineLabel.h"
#include "ui/qt/PictureWidget.h"

#include <QHelpEvent>
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <QToolTip>

namespace {

using editing::Page;

class Games : public MainWindow {
protected:
    /// Starts on a page and waits for the lines.
    void startWithLines(Page page) {
        startOn(page);
        ASSERT_TRUE(QTest::qWaitFor([this] { return lines() != nullptr; }));
    }

    [[nodiscard]] shell::GameLines* lines() const { return window->findChild<shell::GameLines*>(); }

    /// Waits until the line of a family reads so.
    [[nodiscard]] testing::AssertionResult tells(int family, const QString& text) const {
        const auto* label = window->findChild<ui::qt::LineLabel*>(QStringLiteral("lblGame_%1").arg(family));
        if (QTest::qWaitFor([&] { return label->isVisible() && label->text() == text; })) {
            return testing::AssertionSuccess();
        }
        return testing::AssertionFailure() << label->text().toStdString();
    }

    /// Waits until the lines are up to date.
    void settle() const { QTest::qWait(0); }

    [[nodiscard]] std::size_t marks(const char* picture) const {
        const auto* marks = find(picture)->findChild<ui::qt::CellMarks*>();
        return marks == nullptr || !marks->isVisible() ? 0 : marks->cells().size();
    }
};

} // namespace

TEST_F(Games, TheLinesComeWithTheFirstGlyph) {
    startWithLines(Page::Name);
    settle();
    EXPECT_FALSE(lines()->isVisible());
    type("bob");
    EXPECT_TRUE(tells(0, QStringLiteral("kept")));
    EXPECT_TRUE(tells(1, QStringLiteral("kept")));
    EXPECT_TRUE(tells(2, QStringLiteral("kept")));
    EXPECT_EQ(marks("NamePic"), 0U);
    for (int i = 0; i < 3; ++i) {
        press(Qt::Key_Backspace);
    }
    EXPECT_TRUE(QTest::qWaitFor([this] { return !lines()->isVisible(); }));
}

TEST_F(Games, ALineLeadsToItsCellWhichIsMarked) {
    startWithLines(Page::Name);
    type("bob");
    clickGlyph('#');
    ASSERT_TRUE(QTest::qWaitFor([this] { return marks("NamePic") == 1; }));
    press(Qt::Key_Home);
    ASSERT_EQ(column(), 1);
    QTest::mouseClick(find("lblGame_1"), Qt::LeftButton);
    EXPECT_EQ(column(), 4);
    EXPECT_TRUE(find("NamePic")->hasFocus());
    QTest::mouseClick(find("lblGame_0"), Qt::LeftButton);
    EXPECT_EQ(column(), 4) << "that line is about no cell";
    press(Qt::Key_Delete);
    EXPECT_TRUE(QTest::qWaitFor([this] { return marks("NamePic") == 0; }));
}

TEST_F(Games, AltKGoesFromMarkToMark) {
    startWithLines(Page::Name);
    for (const int code : {'#', 'a', ';', 'b'}) {
        clickGlyph(code);
    }
    ASSERT_TRUE(QTest::qWaitFor([this] { return marks("NamePic") == 2; }));
    press(Qt::Key_K, Qt::AltModifier);
    EXPECT_EQ(column(), 1) << "behind the last mark comes the first";
    press(Qt::Key_K, Qt::AltModifier);
    EXPECT_EQ(column(), 3);
}

TEST_F(Games, WhatOthersSeeIsDrawnAndHeard) {
    startWithLines(Page::Name);
    clickGlyph(16);
    type("bob");
    ASSERT_TRUE(tells(2, QStringLiteral("others see:")));
    const auto* shown = find<ui::qt::PictureWidget>("picShown_2");
    ASSERT_TRUE(shown->isVisible());
    constexpr int Border = 1;
    const int side = shown->height();
    EXPECT_EQ(side % glyphs::ArtworkCell, 0);
    EXPECT_EQ(shown->pos(), QPoint(Border, Border));
    const QImage framed = shown->parentWidget()->grab().toImage();
    EXPECT_EQ(framed.size(), QSize(3 * side + 2 * Border, side + 2 * Border));
    for (const QPoint corner : {QPoint(0, 0), QPoint(framed.width() - 1, framed.height() - 1)}) {
        EXPECT_EQ(framed.pixel(corner), ui::OpaqueBlack) << "glyphs do not touch a light window";
    }
    ui::Picture expected = *shown->picture();
    for (int i = 0; i < 3; ++i) {
        glyphs::PaintGlyph(expected, workspace().atlas, static_cast<glyphs::GlyphCode>("bob"[i]), i + 1, 1);
    }
    EXPECT_EQ(*shown->picture(), expected);
    EXPECT_EQ(find("lblGame_2")->accessibleName(), QStringLiteral("Quake2: others see: bob"));
}

TEST_F(Games, ARowThatLosesItsColorsIsHeardToDoSo) {
    startWithLines(Page::Name);
    clickGlyph('b' + 128);
    ASSERT_TRUE(tells(2, QStringLiteral("others see:")));
    EXPECT_EQ(find("lblGame_2")->accessibleName(), QStringLiteral("Quake2: others see: b, in one color"));
    EXPECT_EQ(
        find("lblGame_2")->accessibleDescription(),
        QStringLiteral("others see: b, in one color (Yamagi Quake II 8.20, run)"));
}

TEST_F(Games, TheRowThatOthersSeeIsAsLargeAsThereIsRoomBehindItsText) {
    startWithLines(Page::Messages);
    settle();
    QFont font;
    font.setPixelSize(glyphs::CellSide);
    find("lblGame_2")->setFont(font);
    const int narrowest = window->minimumSizeHint().width();
    for (int i = 0; i < 30; ++i) {
        press(Qt::Key_A);
    }
    editing::CursorOf(workspace().documents, Page::Messages).rows.row(1)[30] = '\r';
    press(Qt::Key_Home);
    ASSERT_TRUE(tells(2, QStringLiteral("players see:")));
    const auto* shown = find<ui::qt::PictureWidget>("picShown_2");
    const QWidget& frame = *shown->parentWidget();
    const QWidget& row = *frame.parentWidget();
    EXPECT_EQ(window->minimumSizeHint().width(), narrowest);
    const int small = shown->height();
    EXPECT_LE(frame.geometry().right(), row.rect().right());
    window->resize(3 * window->width(), window->height());
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown->height() > small; }));
    EXPECT_LE(frame.geometry().right(), row.rect().right());
    window->resize(narrowest, window->height());
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown->height() == small; }));
}

TEST_F(Games, WhatMoreThereIsStandsOverTheWholeLine) {
    startWithLines(Page::Name);
    clickGlyph('#');
    ASSERT_TRUE(QTest::qWaitFor([this] { return marks("NamePic") == 1; }));
    const QWidget& row = *find("lblGame_1")->parentWidget();
    for (QWidget* const part : row.findChildren<QLabel*>()) {
        QHelpEvent event(QEvent::ToolTip, {2, 2}, part->mapToGlobal(QPoint(2, 2)));
        QCoreApplication::sendEvent(part, &event);
        EXPECT_TRUE(QToolTip::text().contains(QStringLiteral("(MVDSV"))) << part->objectName().toStdString();
        QToolTip::hideText();
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
    }
}

TEST_F(Games, ThePageInViewIsTold) {
    startWithLines(Page::Name);
    clickGlyph('#');
    ASSERT_TRUE(QTest::qWaitFor([this] { return marks("NamePic") == 1; }));
    choose("mnuView_2");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !lines()->isVisible(); }));
    type("hi");
    EXPECT_TRUE(tells(0, QStringLiteral("kept")));
}

TEST_F(Games, TheUserChoosesTheGamesAndTheChoiceIsRemembered) {
    startWithLines(Page::Name);
    type("bob");
    ASSERT_TRUE(tells(1, QStringLiteral("kept")));
    choose("mnuViewGames_1");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !find("lblGame_1")->isVisible(); }));
    EXPECT_TRUE(find("lblGame_0")->isVisible());
    EXPECT_FALSE(find<QAction>("mnuViewGames_1")->isChecked());
    ASSERT_TRUE(window->Form_Unload().ok());
    EXPECT_EQ(fake.settings.read("games", "played"), "Quake Quake2");
    startWithLines(Page::Name);
    EXPECT_EQ(workspace().settings.games, (games::FamilyChoice{true, false, true}));
    EXPECT_FALSE(find<QAction>("mnuViewGames_1")->isChecked());
    EXPECT_TRUE(find<QAction>("mnuViewGames_2")->isChecked());
}

TEST_F(Games, WithoutAGameTheWindowIsAsIfThereWereNone) {
    fake.settings.write("games", "played", "");
    startWithLines(Page::Name);
    const QSize before = window->sizeHint();
    clickGlyph('#');
    settle();
    EXPECT_FALSE(lines()->isVisible());
    EXPECT_EQ(marks("NamePic"), 0U);
    EXPECT_EQ(window->sizeHint(), before);
}

TEST_F(Games, NobodyWhoDoesNotChooseHasASectionForIt) {
    startWithLines(Page::Name);
    ASSERT_TRUE(window->Form_Unload().ok());
    EXPECT_FALSE(fake.settings.read("games", "played").has_value());
}

TEST_F(Games, TheButtonOpensTheListOfGames) {
    startWithLines(Page::Name);
    type("bob");
    ASSERT_TRUE(tells(0, QStringLiteral("kept")));
    bool isOpen = false;
    QTimer::singleShot(0, window.get(), [&] {
        auto* const list = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(list, nullptr);
        isOpen = list->objectName() == QLatin1String("mnuViewGames") && list->actions().size() == 3;
        list->close();
    });
    QTest::mouseClick(find("cmdGames"), Qt::LeftButton);
    EXPECT_TRUE(isOpen);
}
