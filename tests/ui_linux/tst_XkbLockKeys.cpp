// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/linux/XkbLockKeys.h"

#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

namespace {

using ui::LockKey;

TEST(XkbLockKeys, DoesNothingWhereTheWindowSystemIsAnother) {
    ui::native::XkbLockKeys locks;
    QWidget window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for (const LockKey key : {LockKey::Scroll, LockKey::Insert, LockKey::Caps, LockKey::Num}) {
        EXPECT_FALSE(locks.canLock(key));
        locks.setLocked(key, true);
        locks.setLocked(key, false);
    }
}

} // namespace
