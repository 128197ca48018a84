// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/RankingsWindow.h"

namespace {

struct RankingsStrip : support::RankingsWindow {
    /// Takes hold of the strip and lets it go elsewhere.
    void drag(QPoint by) const {
        auto& strip = hand().find<QWidget>("AniPic");
        const QPoint from(20, 5);
        QTest::mousePress(&strip, Qt::LeftButton, {}, from);
        // The strip comes along, and with it the place of the pointer in it.
        const QPoint to = strip.mapToGlobal(from) + by;
        QTest::mouseMove(&strip, strip.mapFromGlobal(to));
        QTest::mouseRelease(&strip, Qt::LeftButton, {}, strip.mapFromGlobal(to));
    }

    [[nodiscard]] QPoint place() const { return geometry("AniPicBox").topLeft(); }
};

} // namespace

TEST_F(RankingsStrip, IsDraggedToAnotherLine) {
    open();
    EXPECT_EQ(form->line(), std::nullopt);
    drag({-31, 47});
    EXPECT_EQ(place(), QPoint(192 + 240 - 31, 76 + 176 + 47));
    EXPECT_EQ(form->line(), (animation::BoardLine{240 - 31, 176 + 47}));
    hand().click("cmdToEnd");
    EXPECT_EQ(shownName(), 15);
    // It is let go: the pointer alone moves nothing.
    const QPoint before = place();
    QTest::mouseMove(&hand().find<QWidget>("AniPic"), QPoint(40, 9));
    EXPECT_EQ(place(), before);
}

TEST_F(RankingsStrip, StaysInTheWindow) {
    open();
    drag({-5000, 5000});
    EXPECT_EQ(place(), QPoint(0, geometry("picPlayer").top() - 16));
}

TEST_F(RankingsStrip, OpensOnTheLineThatWasChosen) {
    chosenLine = animation::BoardLine{100, 50};
    open();
    EXPECT_EQ(place(), QPoint(192 + 100, 76 + 50));
    EXPECT_EQ(form->line(), chosenLine);
    form->resize(1400, 1300);
    QCoreApplication::processEvents();
    EXPECT_EQ(place(), QPoint(60 + 200, 130 + 100)) << "with the screenshot";
    QTest::mouseDClick(&hand().find<QWidget>("AniPic"), Qt::LeftButton);
    EXPECT_EQ(place(), QPoint(60 + 480, 130 + 352));
    EXPECT_EQ(form->line(), std::nullopt);
}

TEST_F(RankingsStrip, IsMovedByKeys) {
    open();
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    const QPoint before = place();
    for (const Qt::Key key :
         {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up}) {
        QTest::keyClick(form->focusWidget(), key, Qt::ControlModifier);
    }
    EXPECT_EQ(place(), before + QPoint(1, 2));
    EXPECT_EQ(shownName(), 1) << "these keys show no other name";
    QTest::keyClick(form->focusWidget(), Qt::Key_Home, Qt::ControlModifier);
    EXPECT_EQ(place(), before);
    EXPECT_EQ(form->line(), std::nullopt);
}

TEST_F(RankingsStrip, MovesByAPixelOfTheScreenOverAReducedScreenshot) {
    putScreenShot("large.bmp", 1920, 1080);
    open("large.bmp");
    const QPoint before = place();
    drag({10, -7});
    EXPECT_EQ(place(), before + QPoint(10, -7));
    EXPECT_EQ(form->line(), (animation::BoardLine{840 + 20, 396 - 14}));
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    QTest::keyClick(form->focusWidget(), Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(place(), before + QPoint(9, -7));
}
