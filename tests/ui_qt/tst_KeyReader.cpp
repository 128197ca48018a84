// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/KeyReader.h"

#include <QKeyEvent>
#include <gtest/gtest.h>

namespace {

using ui::qt::KeyReader;

constexpr unsigned InsertCode = 118;

QKeyEvent Insert(QEvent::Type type, bool isRepeat = false, unsigned scanCode = InsertCode) {
    return QKeyEvent(type, Qt::Key_Insert, Qt::NoModifier, scanCode, 0, 0, QString(), isRepeat);
}

TEST(KeyReader, TellsARepeatFromAPress) {
    KeyReader keys;
    EXPECT_FALSE(keys.press(Insert(QEvent::KeyPress)).isRepeat);
    EXPECT_TRUE(keys.press(Insert(QEvent::KeyPress)).isRepeat) << "held, whatever the toolkit says";
    keys.release(Insert(QEvent::KeyRelease));
    EXPECT_FALSE(keys.press(Insert(QEvent::KeyPress)).isRepeat);
}

TEST(KeyReader, PassesOverReleasesThatAreRepeats) {
    KeyReader keys;
    EXPECT_EQ(keys.press(Insert(QEvent::KeyPress)).virtualKey, ui::KeyInsert);
    keys.release(Insert(QEvent::KeyRelease, true));
    EXPECT_TRUE(keys.press(Insert(QEvent::KeyPress, true)).isRepeat);
    EXPECT_TRUE(keys.press(Insert(QEvent::KeyPress)).isRepeat);
}

TEST(KeyReader, BelievesTheToolkitToo) {
    KeyReader keys;
    EXPECT_TRUE(keys.press(Insert(QEvent::KeyPress, true)).isRepeat);
}

TEST(KeyReader, TakesEverySyntheticPressForANewOne) {
    KeyReader keys;
    EXPECT_FALSE(keys.press(Insert(QEvent::KeyPress, false, 0)).isRepeat);
    EXPECT_FALSE(keys.press(Insert(QEvent::KeyPress, false, 0)).isRepeat);
}

TEST(KeyReader, ForgetsKeysWhoseReleaseItWillNotHear) {
    KeyReader keys;
    EXPECT_FALSE(keys.press(Insert(QEvent::KeyPress)).isRepeat);
    keys.forgetHeldKeys();
    EXPECT_FALSE(keys.press(Insert(QEvent::KeyPress)).isRepeat);
}

} // namespace
