// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "X11LockKeys.h"

#include <QDialog>

namespace {

TEST_F(X11LockKeys, CanBeLockedWhereThereAreLocks) {
    const XkbLockKeys locks;
    EXPECT_TRUE(locks.canLock(LockKey::Caps));
    EXPECT_TRUE(locks.canLock(LockKey::Num));
    EXPECT_FALSE(locks.canLock(LockKey::Insert));
    EXPECT_FALSE(locks.canLock(LockKey::Scroll));
}

TEST_F(X11LockKeys, FollowTheProgramWhileItsWindowHasTheFocus) {
    XkbLockKeys locks;
    locks.setLocked(LockKey::Caps, true);
    locks.setLocked(LockKey::Num, true);
    locks.setLocked(LockKey::Scroll, true);
    locks.setLocked(LockKey::Insert, true);
    EXPECT_FALSE(caps() || num() || scroll()) << "before the window is there";
    show();
    EXPECT_TRUE(QTest::qWaitFor([this] { return caps() && num() && scroll(); }));
    locks.setLocked(LockKey::Caps, false);
    EXPECT_FALSE(caps());
    EXPECT_TRUE(num() && scroll());
    locks.setLocked(LockKey::Scroll, false);
    EXPECT_FALSE(scroll());
}

TEST_F(X11LockKeys, FollowTheProgramThatAlreadyHasTheFocus) {
    show();
    XkbLockKeys locks;
    locks.setLocked(LockKey::Caps, true);
    EXPECT_TRUE(QTest::qWaitFor([this] { return caps(); }));
}

TEST_F(X11LockKeys, ArePutBackWhenTheFocusLeaves) {
    m_keyboard->setLocked(Lock::Num, true);
    XkbLockKeys locks;
    locks.setLocked(LockKey::Caps, true);
    locks.setLocked(LockKey::Num, false);
    locks.setLocked(LockKey::Scroll, true);
    show();
    EXPECT_TRUE(QTest::qWaitFor([this] { return caps() && !num() && scroll(); }));
    X11Input::dropFocus();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !caps(); }));
    EXPECT_TRUE(num());
    EXPECT_FALSE(scroll());
    locks.setLocked(LockKey::Caps, false);
    locks.setLocked(LockKey::Caps, true);
    EXPECT_FALSE(caps()) << "set while another program has the focus";
    X11Input::giveFocus(m_window);
    EXPECT_TRUE(QTest::qWaitFor([this] { return caps() && !num() && scroll(); }));
}

TEST_F(X11LockKeys, BelongToTheUserInADialog) {
    XkbLockKeys locks;
    show();
    locks.setLocked(LockKey::Caps, true);
    EXPECT_TRUE(QTest::qWaitFor([this] { return caps(); }));
    {
        QDialog dialog(&m_window);
        dialog.setModal(true);
        dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
        X11Input::giveFocus(dialog);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !caps(); }));
        EXPECT_EQ(QGuiApplication::focusWindow(), dialog.windowHandle());
    }
    X11Input::giveFocus(m_window);
    EXPECT_TRUE(QTest::qWaitFor([this] { return caps(); }));
}

TEST_F(X11LockKeys, AreTheProgramsAtOnceWhenADialogCloses) {
    XkbLockKeys locks;
    locks.setLocked(LockKey::Caps, true);
    showAndEnter(locks);
    QDialog dialog(&m_window);
    dialog.setModal(true);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    X11Input::giveFocus(dialog);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !caps(); }));
    dialog.hide();
    X11Input::giveFocus(m_window);
    ASSERT_TRUE(
        QTest::qWaitFor([this] { return QGuiApplication::focusWindow() == m_window.windowHandle(); }));
    EXPECT_TRUE(caps());
}

TEST_F(X11LockKeys, ArePutBackAtTheEnd) {
    {
        XkbLockKeys locks;
        locks.setLocked(LockKey::Caps, true);
        locks.setLocked(LockKey::Num, true);
        locks.setLocked(LockKey::Scroll, true);
        show();
        EXPECT_TRUE(QTest::qWaitFor([this] { return caps() && num() && scroll(); }));
    }
    EXPECT_FALSE(caps() || num() || scroll());
}

TEST_F(X11LockKeys, AreLeftAloneWhenNothingIsWanted) {
    m_keyboard->setLocked(Lock::Num, true);
    {
        const XkbLockKeys locks;
        showAndEnter(locks);
        EXPECT_TRUE(num() && !caps());
        m_keyboard->setLocked(Lock::Caps, true);
    }
    EXPECT_TRUE(num());
}

TEST_F(X11LockKeys, NeverComeBackAsKeyPresses) {
    if (!X11Input::IsAvailable()) {
        GTEST_SKIP() << "libXtst.so.6 is not installed";
    }
    XkbLockKeys locks;
    showAndEnter(locks);
    m_keys.presses.clear();
    for (const bool on : {true, false, true}) {
        for (const LockKey key : {LockKey::Scroll, LockKey::Insert, LockKey::Caps, LockKey::Num}) {
            locks.setLocked(key, on);
        }
    }
    constexpr unsigned A = 38;
    X11Input::click(A);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_keys.releases.empty(); }));
    ASSERT_EQ(m_keys.presses.size(), 1U);
    EXPECT_EQ(m_keys.presses[0]->text(), QStringLiteral("A"));
    EXPECT_EQ(m_keys.presses[0]->nativeScanCode(), A);
}

TEST_F(X11LockKeys, AgreeWithAPressOfTheKeyItself) {
    if (!X11Input::IsAvailable()) {
        GTEST_SKIP() << "libXtst.so.6 is not installed";
    }
    XkbLockKeys locks;
    locks.setLocked(LockKey::Caps, false);
    showAndEnter(locks);
    for (const bool on : {true, false, true, false}) {
        // The program follows the key while it is still down.
        X11Input::press(CapsLock);
        locks.setLocked(LockKey::Caps, on);
        X11Input::release(CapsLock);
        EXPECT_TRUE(QTest::qWaitFor([this, on] { return caps() == on; })) << on;
    }
}

TEST_F(X11LockKeys, RememberTheKeysThatTheUserPressed) {
    if (!X11Input::IsAvailable()) {
        GTEST_SKIP() << "libXtst.so.6 is not installed";
    }
    XkbLockKeys locks;
    locks.setLocked(LockKey::Caps, false);
    locks.setLocked(LockKey::Num, true);
    show();
    clickFollowed(locks, CapsLock, LockKey::Caps, true);
    clickFollowed(locks, NumLock, LockKey::Num, false);
    EXPECT_TRUE(QTest::qWaitFor([this] { return caps() && !num(); }));
    X11Input::dropFocus();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !caps(); }));
    EXPECT_FALSE(num());
    X11Input::giveFocus(m_window);
    EXPECT_TRUE(QTest::qWaitFor([this] { return caps(); }));
    EXPECT_FALSE(num());
}

TEST_F(X11LockKeys, AreTakenOverFromTheProgramThatHadTheFocusBefore) {
    XkbLockKeys locks;
    locks.setLocked(LockKey::Caps, false);
    locks.setLocked(LockKey::Num, true);
    m_keyboard->setLocked(Lock::Caps, true);
    show();
    // It puts back what the user had, but later than the focus moved.
    m_keyboard->setLocked(Lock::Caps, false);
    m_keyboard->setLocked(Lock::Num, false);
    EXPECT_TRUE(QTest::qWaitFor([this] { return num(); }));
    EXPECT_FALSE(caps());
    X11Input::dropFocus();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !num(); }));
    EXPECT_FALSE(caps());
}

TEST_F(X11LockKeys, AreTakenOverAlsoWhenAModeIsSetAtOnce) {
    XkbLockKeys locks;
    locks.setLocked(LockKey::Caps, false);
    m_keyboard->setLocked(Lock::Caps, true);
    show();
    // The click that gives the focus is on a mode's button.
    locks.setLocked(LockKey::Caps, true);
    m_keyboard->setLocked(Lock::Caps, false);
    EXPECT_TRUE(QTest::qWaitFor([this] { return caps(); }));
    X11Input::dropFocus();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !caps(); }));
}

TEST_F(X11LockKeys, ArePutBackWhenTheFocusLeavesAtOnce) {
    if (!X11Input::IsAvailable()) {
        GTEST_SKIP() << "libXtst.so.6 is not installed";
    }
    XkbLockKeys locks;
    locks.setLocked(LockKey::Caps, false);
    show();
    X11Input::click(CapsLock);
    X11Input::dropFocus();
    EXPECT_TRUE(QTest::qWaitFor([] { return QGuiApplication::focusWindow() == nullptr; }));
    EXPECT_FALSE(caps());
}

TEST_F(X11LockKeys, OfOtherKeysStayWhenOneIsSet) {
    if (!X11Input::IsAvailable()) {
        GTEST_SKIP() << "libXtst.so.6 is not installed";
    }
    XkbLockKeys locks;
    locks.setLocked(LockKey::Caps, false);
    locks.setLocked(LockKey::Num, true);
    showAndEnter(locks);
    clickFollowed(locks, NumLock, LockKey::Num, false);
    clickFollowed(locks, CapsLock, LockKey::Caps, true);
    clickFollowed(locks, ScrollLock, LockKey::Scroll, true);
    EXPECT_TRUE(QTest::qWaitFor([this] { return scroll(); }));
    EXPECT_TRUE(caps() && !num());
}

TEST_F(X11LockKeys, AreUndoneWhenTheProgramDoesNotFollowTheKey) {
    if (!X11Input::IsAvailable()) {
        GTEST_SKIP() << "libXtst.so.6 is not installed";
    }
    XkbLockKeys locks;
    locks.setLocked(LockKey::Caps, false);
    locks.setLocked(LockKey::Num, true);
    locks.setLocked(LockKey::Scroll, true);
    showAndEnter(locks);
    for (const unsigned key : {CapsLock, NumLock, ScrollLock}) {
        m_keys.releases.clear();
        X11Input::click(key);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !m_keys.releases.empty(); }));
        EXPECT_TRUE(!caps() && num() && scroll()) << key;
    }
}

TEST_F(X11LockKeys, LetTheLightFollowTheProgram) {
    if (!X11Input::IsAvailable()) {
        GTEST_SKIP() << "libXtst.so.6 is not installed";
    }
    XkbLockKeys locks;
    locks.setLocked(LockKey::Scroll, true);
    showAndEnter(locks);
    EXPECT_TRUE(scroll());
    for (const bool on : {false, true, false}) {
        clickFollowed(locks, ScrollLock, LockKey::Scroll, on);
        EXPECT_EQ(scroll(), on);
    }
    X11Input::dropFocus();
    EXPECT_TRUE(QTest::qWaitFor([] { return QGuiApplication::focusWindow() == nullptr; }));
    X11Input::giveFocus(m_window);
    EXPECT_TRUE(QTest::qWaitFor([] { return QGuiApplication::focusWindow() != nullptr; }));
    EXPECT_FALSE(scroll());
}

} // namespace
