// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/RankingsWindow.h"

#include "games/Timetable.h"

#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>

#include <utility>

namespace {

struct RankingsPlayer : support::RankingsWindow {
    void press(Qt::Key key) const { QTest::keyClick(form->focusWidget(), key); }

    void openActive() {
        open();
        form->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    }

    [[nodiscard]] std::string place() const { return hand().text<QLabel>("lblPlace"); }

    [[nodiscard]] std::string time() const { return hand().text<QLabel>("lblTime"); }

    [[nodiscard]] std::string reason() const {
        const auto& label = hand().find<QLabel>("lblReason");
        return label.isVisible() ? label.text().toStdString() : "";
    }
};

} // namespace

TEST_F(RankingsPlayer, TellTheNameItsTicksAndTheTime) {
    animation::SetAllTicks(desk.animation(), 2);
    animation::SetTicks(desk.animation(), 3, 1);
    open();
    EXPECT_EQ(place(), "1 of 15, 2 ticks");
    EXPECT_EQ(time(), "0.00 s");
    for (int name = 1; name <= 3; ++name) {
        hand().click("cmdForward");
    }
    EXPECT_EQ(place(), "3 of 15, 1 tick");
    EXPECT_EQ(time(), "0.20 s") << "when it comes";
    hand().click("cmdToEnd");
    EXPECT_EQ(place(), "15 of 15, 2 ticks");
    EXPECT_EQ(time(), "1.35 s");
    hand().click("cmdPlay");
    EXPECT_EQ(place(), "15 of 15, 2 ticks") << "as long as it is shown";
    EXPECT_EQ(time(), "0.00 s");
    EXPECT_TRUE(waitForEnd());
    EXPECT_EQ(time(), "1.35 s");
}

TEST_F(RankingsPlayer, StandStillWhileTheTextsChange) {
    animation::SetTicks(desk.animation(), 12, 15);
    open();
    const QRect before = geometry("picPlayer");
    for (int name = 1; name <= 15; ++name) {
        hand().click("cmdForward");
        QCoreApplication::processEvents();
        EXPECT_EQ(geometry("picPlayer"), before);
        const auto& label = hand().find<QLabel>("lblPlace");
        EXPECT_GE(label.width(), label.sizeHint().width());
    }
}

TEST_F(RankingsPlayer, GoFromNameToNameByKeys) {
    openActive();
    press(Qt::Key_Right);
    EXPECT_EQ(shownName(), 1) << "as by the button";
    press(Qt::Key_Right);
    EXPECT_EQ(shownName(), 2);
    press(Qt::Key_End);
    EXPECT_EQ(shownName(), 15);
    press(Qt::Key_Left);
    EXPECT_EQ(shownName(), 14);
    press(Qt::Key_Home);
    EXPECT_EQ(shownName(), 1);
    press(Qt::Key_Left);
    EXPECT_EQ(shownName(), 15);
    EXPECT_TRUE(hand().find<QWidget>("cmdPlay").hasFocus()) << "the keyboard stays";
}

TEST_F(RankingsPlayer, IgnoreTheKeysOfDisabledButtons) {
    animation::SetAllTicks(desk.animation(), 1000);
    openActive();
    press(Qt::Key_Space);
    ASSERT_TRUE(isPlaying());
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_End, Qt::Key_Left}) {
        press(key);
        EXPECT_EQ(shownName(), 1);
    }
}

TEST_F(RankingsPlayer, PlayAndStopBySpaceWhereverTheMouseWas) {
    animation::SetAllTicks(desk.animation(), 4);
    openActive();
    hand().click("cmdForward");
    hand().click("chkAgain");
    press(Qt::Key_Space);
    EXPECT_TRUE(isPlaying());
    press(Qt::Key_Space);
    EXPECT_TRUE(waitForEnd());
    EXPECT_EQ(shownName(), 15);
    // Without the keyboard in any control.
    form->focusWidget()->clearFocus();
    QTest::keyClick(form.get(), Qt::Key_Space);
    EXPECT_TRUE(isPlaying());
    QTest::keyClick(form.get(), Qt::Key_Space);
    EXPECT_TRUE(waitForEnd());
}

TEST_F(RankingsPlayer, PlayAgainAndAgainUntilStopped) {
    animation::SetAllTicks(desk.animation(), 0);
    animation::SetTicks(desk.animation(), 1, 1);
    animation::SetTicks(desk.animation(), 15, 1);
    open();
    EXPECT_FALSE(hand().find<QCheckBox>("chkAgain").isChecked());
    hand().click("chkAgain");
    hand().click("cmdPlay");
    for (int round = 0; round < 3; ++round) {
        EXPECT_TRUE(QTest::qWaitFor([this] { return shownName() == 15; }));
        EXPECT_TRUE(isPlaying());
        EXPECT_TRUE(QTest::qWaitFor([this] { return shownName() == 1; }));
    }
    EXPECT_EQ(platform.sounds.waves.size(), 1U) << "it began once";
    hand().click("cmdStop");
    EXPECT_TRUE(waitForEnd());
    EXPECT_EQ(shownName(), 15);
    EXPECT_TRUE(hand().find<QWidget>("cmdPlay").isEnabled());
}

TEST_F(RankingsPlayer, OfferThePacesOfTheGamesThatArePlayed) {
    games = {true, false, true};
    open();
    auto& pace = hand().find<QComboBox>("cmboPace");
    std::vector<std::string> texts;
    for (int i = 0; i < pace.count(); ++i) {
        texts.push_back(pace.itemText(i).toStdString());
    }
    EXPECT_EQ(texts, (std::vector<std::string>{"50 ms a tick", "Quake, 14 ms", "Quake2, 17 ms"}));
    EXPECT_EQ(pace.currentIndex(), 0);
    hand().click("cmdToEnd");
    EXPECT_EQ(time(), "0.70 s");
    pace.setFocus();
    QTest::keyClick(&pace, Qt::Key_Down);
    EXPECT_EQ(hand().find<QTimer>("AniTimer").interval(), 14);
    EXPECT_EQ(time(), "0.20 s");
    games = {};
    open();
    EXPECT_TRUE(hand().find<QComboBox>("cmboPace").isHidden()) << "there is nothing to choose";
}

TEST_F(RankingsPlayer, KeepThePaceOfAGame) {
    animation::SetAllTicks(desk.animation(), 5);
    open();
    hand().find<QComboBox>("cmboPace").setCurrentIndex(2);
    QElapsedTimer clock;
    clock.start();
    hand().click("cmdPlay");
    while (clock.elapsed() < 400) {
        // The window hears nothing for thirty ticks.
    }
    QCoreApplication::processEvents();
    EXPECT_GE(shownName(), 7);
    EXPECT_TRUE(waitForEnd());
    EXPECT_GE(clock.elapsed(), 14 * 5 * games::PaceOf(games::Family::QuakeWorld).tick - 5);
}

TEST_F(RankingsPlayer, SayWhyThereIsNoPicture) {
    open();
    EXPECT_EQ(reason(), "");
    platform.dialogs.expectWarning(
        "There is no screen shot chosen to display.\nPlease go to the options and select a new screen shot.");
    open("");
    EXPECT_TRUE(QTest::qWaitFor([this] { return platform.dialogs.left() == 0; }));
    EXPECT_EQ(reason(), "No screen shot is chosen.");
    platform.dialogs.expectWarning("The chosen screen shot, gone.bmp, was not found in the VTM directory.\n"
                                   "Please go to the options and select a new screen shot.");
    open("gone.bmp");
    EXPECT_TRUE(QTest::qWaitFor([this] { return platform.dialogs.left() == 0; }));
    EXPECT_EQ(reason(), "There is no file gone.bmp.");
    const auto path = platform.directory.files.put("bad.bmp", "BM and then nothing of a picture");
    open("bad.bmp");
    EXPECT_TRUE(reason().starts_with(path.string() + " cannot be shown: ")) << reason();
    EXPECT_FALSE(geometry("lblReason").intersects(geometry("AniPicBox")));
}

TEST_F(RankingsPlayer, KeepClearOfTheOkButtonInNarrowWindows) {
    for (const QSize size : {QSize(1920, 1080), QSize(800, 600), QSize(683, 512)}) {
        open("shot.bmp", size);
        EXPECT_FALSE(geometry("picPlayer").intersects(geometry("cmdQuit"))) << size.width();
        EXPECT_TRUE(form->rect().contains(geometry("picPlayer"))) << size.width();
    }
}

TEST_F(RankingsPlayer, StandInTheOrderOfTab) {
    open();
    int right = 0;
    for (const char* name :
         {"cmdPlay", "cmdStop", "cmdToBegin", "cmdRewind", "cmdForward", "cmdToEnd", "chkAgain",
          "cmboPace"}) {
        const auto& control = hand().find<QWidget>(name);
        const int left = control.mapTo(form.get(), QPoint()).x();
        EXPECT_GE(left, right) << name;
        right = left + control.width();
    }
    EXPECT_GE(geometry("cmdQuit").left(), right);
}

TEST_F(RankingsPlayer, AreDarkAndFlatWhateverTheDesktopsColours) {
    open();
    for (const char* name : {"cmdStop", "cmdForward", "cmdQuit"}) {
        const QImage image = hand().find<QWidget>(name).grab().toImage();
        const QColor left = image.pixelColor(4, image.height() / 2);
        EXPECT_LT(left.lightness(), 60) << name;
        EXPECT_EQ(left, image.pixelColor(4, 4)) << name << " has no shading";
    }
}
