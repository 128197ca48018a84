// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/RankingsWindow.h"

#include <QElapsedTimer>
#include <QImage>
#include <QPointer>
#include <QPushButton>
#include <QTimer>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr std::array<const char*, 5> IdleButtons = {
    "cmdPlay", "cmdRewind", "cmdToBegin", "cmdToEnd", "cmdForward"};

using Rankings = support::RankingsWindow;

} // namespace

TEST_F(Rankings, CarryTheirTexts) {
    open();
    EXPECT_EQ(form->objectName().toStdString(), "frmRankings");
    const std::vector<std::array<const char*, 3>> buttons = {
        {"cmdPlay", "Play", "Start"},
        {"cmdStop", "Stop", "Stop"},
        {"cmdToBegin", "I<", "Beginning"},
        {"cmdRewind", "<<", "Previous Name"},
        {"cmdForward", ">>", "Next Name"},
        {"cmdToEnd", ">I", "End"},
        {"cmdQuit", "OK", ""}};
    for (const auto& [name, text, toolTip] : buttons) {
        EXPECT_EQ(hand().text<QPushButton>(name), text);
        EXPECT_EQ(hand().toolTip(name), toolTip) << name;
        EXPECT_TRUE(hand().find<QPushButton>(name).isEnabled()) << name;
    }
    EXPECT_EQ(hand().find<QTimer>("AniTimer").interval(), 50);
    EXPECT_EQ(hand().find<QTimer>("AniTimer").timerType(), Qt::PreciseTimer);
    EXPECT_FALSE(isPlaying());
}

TEST_F(Rankings, LayTheStripOverTheBoard) {
    open();
    EXPECT_EQ(geometry("picScreenShot"), QRect(192, 76, 640, 480));
    EXPECT_EQ(geometry("AniPicBox"), QRect(192 + 240, 76 + 176, 240, 16));
    const QRect player = geometry("picPlayer");
    EXPECT_EQ(player.top(), 691);
    EXPECT_EQ(player.left(), (1024 - player.width()) / 2);
    const QRect quit = geometry("cmdQuit");
    EXPECT_EQ(quit.topLeft(), QPoint(984, 728));
    EXPECT_TRUE(form->rect().contains(quit));
    EXPECT_LE(quit.width(), 40);
    form->resize(1300, 900);
    QCoreApplication::processEvents();
    EXPECT_EQ(geometry("picScreenShot"), QRect(170, 90, 960, 720)) << "its pixels are doubled";
    EXPECT_EQ(geometry("AniPicBox"), QRect(170 + 360, 90 + 264, 360, 24));
    EXPECT_EQ(geometry("cmdQuit").topLeft(), QPoint(1260, 860));
}

TEST_F(Rankings, EnlargeScreenshotAndStripTogether) {
    open("shot.bmp", {1400, 1300});
    EXPECT_EQ(geometry("picScreenShot"), QRect(60, 130, 1280, 960));
    EXPECT_EQ(geometry("AniPicBox"), QRect(60 + 480, 130 + 352, 480, 32));
    hand().click("cmdToEnd");
    EXPECT_EQ(hand().find<ui::qt::PictureWidget>("AniPic").y(), -14 * 32);
    EXPECT_EQ(hand().find<ui::qt::PictureWidget>("AniPic").size(), QSize(480, 15 * 32));
}

TEST_F(Rankings, ReduceAScreenshotThatIsLargerThanTheWindow) {
    putScreenShot("large.bmp", 1920, 1080);
    open("large.bmp");
    EXPECT_EQ(geometry("picScreenShot"), QRect(32, 76, 960, 540));
    EXPECT_EQ(geometry("AniPicBox"), QRect(32 + 360, 76 + 194, 240, 16)) << "which is not reduced";
    hand().click("cmdToEnd");
    EXPECT_EQ(hand().find<ui::qt::PictureWidget>("AniPic").y(), -14 * 16);
}

TEST_F(Rankings, ShowEachNameAloneOverAScreenshotThatIsReducedByThree) {
    desk.animation().nameCount = 90;
    for (int name = 1; name <= 90; ++name) {
        desk.setName(name, std::string(15, static_cast<char>(33 + 2 * name)));
    }
    desk.paint();
    putScreenShot("large.bmp", 3840, 2160);
    open("large.bmp", {1920, 1080});
    const QRect strip = geometry("AniPicBox");
    EXPECT_EQ(strip, QRect(320 + 520, 108 + 258, 240, 16));
    for (int name = 1; name <= 90; ++name) {
        hand().click("cmdForward");
        EXPECT_EQ(hand().find<ui::qt::PictureWidget>("AniPic").y(), -(name - 1) * strip.height());
        const QImage shown = hand().find<QWidget>("AniPicBox").grab().toImage();
        EXPECT_EQ(shown.convertToFormat(QImage::Format_RGB32), paintedName(name)) << name;
    }
}

TEST_F(Rankings, HoldTheNamesInTheirOwnPixels) {
    desk.animation().nameCount = 90;
    desk.fillNames(90);
    for (const int side : {1, 16, 64}) {
        putScreenShot("tiny.bmp", side, side);
        open("tiny.bmp", {1920, 1080});
        hand().click("cmdToEnd");
        const auto& picture = hand().find<ui::qt::PictureWidget>("AniPic");
        const QRect strip = geometry("AniPicBox");
        EXPECT_TRUE(form->rect().contains(strip)) << side;
        EXPECT_EQ(picture.y(), -89 * strip.height());
        EXPECT_EQ(picture.picture()->width(), 240) << "they are not enlarged there";
        EXPECT_EQ(picture.picture()->height(), 90 * 16);
        const QImage shown =
            hand().find<QWidget>("AniPicBox").grab().toImage().convertToFormat(QImage::Format_RGB32);
        EXPECT_EQ(shown.scaled(240, 16), paintedName(90)) << side;
    }
}

// Run a second time for a screen of scale 1.5.
TEST_F(Rankings, NeverMixPixelsWhateverTheScaleOfTheScreen) {
    QImage chequered(640, 480, QImage::Format_RGB32);
    for (int y = 0; y < chequered.height(); ++y) {
        for (int x = 0; x < chequered.width(); ++x) {
            chequered.setPixelColor(x, y, (x / 2 + y / 2) % 2 == 0 ? Qt::darkGreen : Qt::white);
        }
    }
    ASSERT_TRUE(
        chequered.save(QString::fromStdString((platform.directory.files / "shot.bmp").string()), "BMP"));
    open();
    const double scale = form->devicePixelRatioF();
    const QImage image = form->grab().toImage();
    const QRect shown = geometry("picScreenShot");
    const auto pixel = [scale](int place) {
        return static_cast<int>(std::ceil(place * scale));
    };
    const QRect board(
        QPoint(pixel(shown.left()), pixel(shown.top())),
        QPoint(pixel(shown.right()) - 1, pixel(shown.bottom()) - 1));
    const QRect line = geometry("AniPicBox");
    // Two pixels of the picture are three of such a screen: the blocks stay whole.
    const int block = static_cast<int>(2 * scale);
    int changes = 0;
    for (int y = board.top(); y < pixel(line.top()) - 2; y += block) {
        int run = 0;
        for (int x = board.left(); x <= board.right(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            ASSERT_TRUE(colour == QColor(Qt::darkGreen) || colour == QColor(Qt::white))
                << x << ',' << y << ' ' << colour.name().toStdString();
            if (x > board.left() && colour != image.pixelColor(x - 1, y)) {
                EXPECT_TRUE(run == block || changes == 0) << x << ',' << y;
                run = 0;
                ++changes;
            }
            ++run;
        }
        changes = 0;
    }
}

TEST_F(Rankings, ShowTheNamesAsTheyWerePaintedAtOpening) {
    open();
    const auto strip = [this] {
        return hand().find<QWidget>("AniPicBox").grab().toImage().convertToFormat(QImage::Format_RGB32);
    };
    const QImage first = paintedName(1);
    const QImage ninth = paintedName(9);
    EXPECT_EQ(strip(), first);
    desk.setName(9, "changed since");
    desk.paint();
    hand().click("cmdForward");
    for (int name = 2; name <= 9; ++name) {
        hand().click("cmdForward");
    }
    EXPECT_EQ(strip(), ninth);
}

TEST_F(Rankings, OpenOnTheFirstRowAndGoRound) {
    open();
    EXPECT_EQ(shownName(), 1);
    hand().click("cmdForward");
    EXPECT_EQ(shownName(), 1) << "the last name is the current one at first";
    hand().click("cmdForward");
    EXPECT_EQ(shownName(), 2);
    hand().click("cmdToEnd");
    EXPECT_EQ(shownName(), 15);
    hand().click("cmdForward");
    EXPECT_EQ(shownName(), 1);
    hand().click("cmdRewind");
    EXPECT_EQ(shownName(), 15);
    hand().click("cmdRewind");
    EXPECT_EQ(shownName(), 14);
    hand().click("cmdToBegin");
    EXPECT_EQ(shownName(), 1);
}

TEST_F(Rankings, PlayFromTheFirstToTheLastName) {
    open();
    QElapsedTimer clock;
    clock.start();
    hand().click("cmdPlay");
    EXPECT_TRUE(isPlaying());
    EXPECT_EQ(shownName(), 1);
    for (const char* name : IdleButtons) {
        EXPECT_FALSE(hand().find<QWidget>(name).isEnabled()) << name;
    }
    EXPECT_TRUE(hand().find<QWidget>("cmdStop").isEnabled());
    EXPECT_TRUE(hand().find<QWidget>("cmdQuit").isEnabled());
    int last = 1;
    while (isPlaying() && clock.elapsed() < 20000) {
        QTest::qWait(5);
        EXPECT_GE(shownName(), last);
        last = shownName();
    }
    EXPECT_GE(clock.elapsed(), 14 * 50 - 5);
    EXPECT_EQ(shownName(), 15);
    for (const char* name : IdleButtons) {
        EXPECT_TRUE(hand().find<QWidget>(name).isEnabled()) << name;
    }
}

TEST_F(Rankings, KeepTheScriptsTimeWhenTheirEventsComeLate) {
    open();
    hand().click("cmdPlay");
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 400) {
        // The window hears nothing for eight ticks.
    }
    QCoreApplication::processEvents();
    EXPECT_GE(shownName(), 8);
    EXPECT_TRUE(waitForEnd());
}

TEST_F(Rankings, PlayTheirSoundWhenItsOptionIsOn) {
    animation::SetAllTicks(desk.animation(), 0);
    open();
    hand().click("cmdPlay");
    ASSERT_EQ(platform.sounds.waves.size(), 1U);
    EXPECT_EQ(platform.sounds.waves[0], glyphs::SoundWave(103));
    desk.soundOptions = {true, true, false, true};
    open();
    hand().click("cmdPlay");
    hand().click("cmdForward");
    EXPECT_EQ(platform.sounds.waves.size(), 1U);
}

TEST_F(Rankings, RunThroughNamesWithoutTicksAtOnce) {
    animation::SetAllTicks(desk.animation(), 0);
    open();
    hand().click("cmdPlay");
    EXPECT_FALSE(isPlaying());
    EXPECT_EQ(shownName(), 15);
    EXPECT_TRUE(hand().find<QWidget>("cmdPlay").isEnabled());
}

TEST_F(Rankings, EndOnTheLastNameAfterTheWaitWhenStopped) {
    animation::SetAllTicks(desk.animation(), 6);
    open();
    hand().click("cmdPlay");
    hand().click("cmdStop");
    EXPECT_TRUE(isPlaying());
    EXPECT_EQ(shownName(), 1);
    EXPECT_TRUE(waitForEnd());
    EXPECT_EQ(shownName(), 15);
    EXPECT_TRUE(hand().find<QWidget>("cmdPlay").isEnabled());
}

TEST_F(Rankings, OnlyMoveTheCurrentNameWhenStoppedWhileIdle) {
    open();
    hand().click("cmdStop");
    EXPECT_EQ(shownName(), 1);
    EXPECT_FALSE(isPlaying());
    hand().click("cmdForward");
    EXPECT_EQ(shownName(), 15);
}

TEST_F(Rankings, PlayAgain) {
    animation::SetAllTicks(desk.animation(), 0);
    animation::SetTicks(desk.animation(), 1, 1);
    open();
    for (int round = 0; round < 3; ++round) {
        hand().click("cmdPlay");
        EXPECT_TRUE(isPlaying());
        EXPECT_TRUE(waitForEnd());
        EXPECT_EQ(shownName(), 15);
    }
}

TEST_F(Rankings, CloseWhilePlaying) {
    animation::SetAllTicks(desk.animation(), 1000);
    for (const bool byKey : {false, true}) {
        open();
        int result = -1;
        QTimer::singleShot(0, form.get(), [&] {
            hand().click("cmdPlay");
            EXPECT_TRUE(isPlaying());
            if (byKey) {
                QTest::keyClick(form.get(), Qt::Key_Escape);
            } else {
                hand().click("cmdQuit");
            }
        });
        result = form->exec();
        EXPECT_EQ(result, byKey ? QDialog::Rejected : QDialog::Accepted);
        EXPECT_FALSE(form->isVisible());
        EXPECT_FALSE(isPlaying());
    }
}

TEST_F(Rankings, DestroyedWhilePlayingLeaveNoTimerBehind) {
    open();
    hand().click("cmdPlay");
    ASSERT_TRUE(isPlaying());
    const QPointer<QTimer> timer = &hand().find<QTimer>("AniTimer");
    form.reset();
    QCoreApplication::processEvents();
    EXPECT_TRUE(timer.isNull());
}

TEST_F(Rankings, NeverChangeTheAnimation) {
    const editing::AnimationDocument before = desk.animation();
    open();
    hand().click("cmdPlay");
    hand().click("cmdStop");
    EXPECT_TRUE(waitForEnd());
    hand().click("cmdRewind");
    hand().click("cmdQuit");
    EXPECT_EQ(desk.animation().nameGlyphs, before.nameGlyphs);
    EXPECT_EQ(desk.animation().nameTicks, before.nameTicks);
    EXPECT_EQ(desk.animation().currentName, before.currentName);
    EXPECT_EQ(desk.animation().nameCount, before.nameCount);
}

TEST_F(Rankings, SayOnceThatNoScreenshotIsChosen) {
    platform.dialogs.expectWarning(
        "There is no screen shot chosen to display.\nPlease go to the options and select a new screen shot.");
    open("");
    EXPECT_TRUE(QTest::qWaitFor([this] { return platform.dialogs.left() == 0; }));
    form->resize(900, 700);
    form->resize(950, 720);
    QCoreApplication::processEvents();
    EXPECT_EQ(platform.dialogs.calls().size(), 1U);
    EXPECT_TRUE(geometry("picScreenShot").isEmpty());
    hand().click("cmdToEnd");
    EXPECT_EQ(shownName(), 15);
    hand().click("cmdPlay");
    EXPECT_TRUE(isPlaying());
}

TEST_F(Rankings, SayOnceThatTheScreenshotIsMissing) {
    platform.dialogs.expectWarning("The chosen screen shot, gone.bmp, was not found in the VTM directory.\n"
                                   "Please go to the options and select a new screen shot.");
    open("gone.bmp");
    EXPECT_TRUE(QTest::qWaitFor([this] { return platform.dialogs.left() == 0; }));
    hand().click("cmdQuit");
    EXPECT_EQ(platform.dialogs.calls().size(), 1U);
}

TEST_F(Rankings, LeaveTheBackgroundEmptyWhenThePictureCannotBeRead) {
    platform.directory.files.put("bad.bmp", "BM and then nothing of a picture");
    open("bad.bmp");
    QCoreApplication::processEvents();
    EXPECT_TRUE(platform.dialogs.calls().empty());
    EXPECT_TRUE(geometry("picScreenShot").isEmpty());
}

TEST_F(Rankings, TakeAnAbsolutePath) {
    const support::TempFolder other;
    QImage image(320, 240, QImage::Format_RGB32);
    image.fill(Qt::darkBlue);
    ASSERT_TRUE(image.save(QString::fromStdString((other / "s.bmp").string()), "BMP"));
    open((other / "s.bmp").string());
    EXPECT_EQ(geometry("picScreenShot"), QRect(112, 76, 800, 600)) << "two and a half times its size";
    EXPECT_EQ(geometry("AniPicBox"), QRect(112 + 100, 76 + 220, 600, 40));
}

TEST_F(Rankings, CanBeWorkedWithTheKeyboardAlone) {
    animation::SetAllTicks(desk.animation(), 2);
    open();
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    EXPECT_TRUE(hand().find<QWidget>("cmdPlay").hasFocus());
    QTest::keyClick(form->focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(isPlaying());
    EXPECT_TRUE(hand().find<QWidget>("cmdStop").hasFocus());
    QTest::keyClick(form->focusWidget(), Qt::Key_Space);
    EXPECT_TRUE(waitForEnd());
    EXPECT_EQ(shownName(), 15);
    EXPECT_TRUE(hand().find<QWidget>("cmdPlay").hasFocus());
    std::vector<std::string> order;
    for (int i = 0; i < 9; ++i) {
        order.push_back(form->focusWidget()->objectName().toStdString());
        QTest::keyClick(form->focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(
        order, (std::vector<std::string>{
                   "cmdPlay", "cmdStop", "cmdToBegin", "cmdRewind", "cmdForward", "cmdToEnd", "chkAgain",
                   "cmboPace", "cmdQuit"}));
}
