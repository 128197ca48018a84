// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include <QToolButton>

using editing::Page;

namespace {

class ModesOfTyping : public MainWindow {};

TEST_F(ModesOfTyping, FollowTheLockKeysAndKeepTheKeyboardInStep) {
    startOn(Page::Name);
    fake.lockKeys.changes.clear();
    press(Qt::Key_NumLock);
    EXPECT_FALSE(workspace().settings.modes.numberPad);
    EXPECT_FALSE(find<QToolButton>("cmdKey_3")->isChecked());
    press(Qt::Key_CapsLock);
    EXPECT_TRUE(workspace().settings.modes.upperCase);
    EXPECT_TRUE(find<QToolButton>("cmdKey_2")->isChecked());
    const std::vector<std::pair<ui::LockKey, bool>> expected{
        {ui::LockKey::Num, false}, {ui::LockKey::Caps, true}};
    EXPECT_EQ(fake.lockKeys.changes, expected);
    press(Qt::Key_1);
    EXPECT_EQ(row(), "!" + std::string(14, ' ')) << "case mode shifts every key";
}

TEST_F(ModesOfTyping, FollowTheirButtonsAndKeepTheKeyboardInStep) {
    startOn(Page::Name);
    fake.lockKeys.changes.clear();
    QTest::mouseClick(find("cmdKey_0"), Qt::LeftButton);
    EXPECT_TRUE(workspace().settings.modes.typingColour);
    const std::vector<std::pair<ui::LockKey, bool>> expected{{ui::LockKey::Scroll, true}};
    EXPECT_EQ(fake.lockKeys.changes, expected);
    type("a");
    EXPECT_EQ(workspace().documents.name.cells[0], 225);
}

TEST_F(ModesOfTyping, FollowAnotherProgramThatTurnsALock) {
    startOn(Page::Name);
    fake.lockKeys.changes.clear();
    fake.lockKeys.turned(ui::LockKey::Num, false);
    EXPECT_FALSE(workspace().settings.modes.numberPad);
    EXPECT_FALSE(find<QToolButton>("cmdKey_3")->isChecked());
    fake.lockKeys.turned(ui::LockKey::Caps, true);
    EXPECT_TRUE(workspace().settings.modes.upperCase);
    EXPECT_TRUE(find<QToolButton>("cmdKey_2")->isChecked());
    fake.lockKeys.turned(ui::LockKey::Caps, true);
    EXPECT_TRUE(workspace().settings.modes.upperCase) << "it is told what the lock is, not that it changed";
    EXPECT_TRUE(fake.lockKeys.changes.empty()) << "the keyboard is left to the other program";
    press(Qt::Key_1);
    EXPECT_EQ(row(), "!" + std::string(14, ' '));
}

TEST_F(ModesOfTyping, AreLeftAloneWhenTheWindowIsGone) {
    startOn(Page::Name);
    window.reset();
    EXPECT_FALSE(fake.lockKeys.turned);
}

} // namespace
