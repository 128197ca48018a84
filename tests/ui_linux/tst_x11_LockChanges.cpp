// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "X11LockKeys.h"

#include <QDialog>
#include <utility>
#include <vector>

namespace {

/// Locks that another program turns, an on-screen keyboard for instance.
class X11LockChanges : public X11LockKeys {
protected:
    static constexpr unsigned CapsModifier = 0x02;
    static constexpr unsigned NumModifier = 0x10;

    void SetUp() override {
        X11LockKeys::SetUp();
        if (!X11Input::IsAvailable()) {
            GTEST_SKIP() << "libXtst.so.6 is not installed";
        }
    }

    /// Has the window's program want no Caps Lock but Num Lock, and follow what is turned.
    void enter(XkbLockKeys& locks) {
        locks.setLocked(LockKey::Caps, false);
        locks.setLocked(LockKey::Num, true);
        locks.onTurned([this](LockKey key, bool on) { m_turned.emplace_back(key, on); });
        showAndEnter(locks);
    }

    /// Waits until everything has come that happened up to now.
    void waitForEvents() {
        constexpr unsigned A = 38;
        m_keys.releases.clear();
        X11Input::click(A);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !m_keys.releases.empty(); }));
    }

    std::vector<std::pair<LockKey, bool>> m_turned;
};

using Turned = std::vector<std::pair<ui::LockKey, bool>>;

TEST_F(X11LockChanges, AreTakenOver) {
    XkbLockKeys locks;
    enter(locks);
    X11Input::lockAsAnotherProgram(NumModifier, false);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_turned.empty(); }));
    X11Input::lockAsAnotherProgram(CapsModifier, true);
    EXPECT_TRUE(QTest::qWaitFor([this] { return m_turned.size() == 2; }));
    EXPECT_EQ(m_turned, (Turned{{LockKey::Num, false}, {LockKey::Caps, true}}));
    waitForEvents();
    EXPECT_TRUE(caps() && !num()) << "nobody turns them back";
    X11Input::dropFocus();
    EXPECT_TRUE(QTest::qWaitFor([] { return QGuiApplication::focusWindow() == nullptr; }));
    EXPECT_TRUE(caps() && !num()) << "they belong to the user";
    m_keyboard->setLocked(Lock::Caps, false);
    showAndEnter(locks);
    EXPECT_TRUE(caps() && !num()) << "they belong to the program as well";
    EXPECT_EQ(m_turned.size(), 2U);
}

TEST_F(X11LockChanges, AreTakenOverTogether) {
    XkbLockKeys locks;
    enter(locks);
    X11Input::lockAsAnotherProgram(NumModifier | CapsModifier, false);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !m_turned.empty(); }));
    EXPECT_EQ(m_turned, (Turned{{LockKey::Num, false}}));
}

TEST_F(X11LockChanges, AreKeptOfALockThatTheProgramWantsNothingOf) {
    XkbLockKeys locks;
    locks.onTurned([this](LockKey key, bool on) { m_turned.emplace_back(key, on); });
    showAndEnter(locks);
    X11Input::lockAsAnotherProgram(CapsModifier, true);
    waitForEvents();
    X11Input::dropFocus();
    EXPECT_TRUE(QTest::qWaitFor([] { return QGuiApplication::focusWindow() == nullptr; }));
    EXPECT_TRUE(caps());
    EXPECT_TRUE(m_turned.empty());
}

TEST_F(X11LockChanges, AreTakenOverByNobodyAnyMore) {
    XkbLockKeys locks;
    enter(locks);
    locks.onTurned({});
    X11Input::lockAsAnotherProgram(CapsModifier, true);
    waitForEvents();
    EXPECT_TRUE(caps());
    EXPECT_TRUE(m_turned.empty());
}

TEST_F(X11LockChanges, AreNotWhatTheProgramSetsItself) {
    XkbLockKeys locks;
    enter(locks);
    for (const bool on : {true, false, true, true, false}) {
        for (const LockKey key : {LockKey::Scroll, LockKey::Insert, LockKey::Caps, LockKey::Num}) {
            locks.setLocked(key, on);
        }
    }
    waitForEvents();
    EXPECT_TRUE(m_turned.empty());
}

TEST_F(X11LockChanges, AreNotWhatKeysTurn) {
    XkbLockKeys locks;
    enter(locks);
    clickFollowed(locks, CapsLock, LockKey::Caps, true);
    clickFollowed(locks, NumLock, LockKey::Num, false);
    X11Input::click(ScrollLock);
    X11Input::click(CapsLock);
    waitForEvents();
    EXPECT_TRUE(m_turned.empty());
    EXPECT_TRUE(caps() && !num());
}

TEST_F(X11LockChanges, BelongToTheUserWhileAnotherWindowHasTheFocus) {
    XkbLockKeys locks;
    enter(locks);
    X11Input::dropFocus();
    // The toolkit has not noticed yet.
    X11Input::lockAsAnotherProgram(CapsModifier, true);
    EXPECT_TRUE(QTest::qWaitFor([] { return QGuiApplication::focusWindow() == nullptr; }));
    X11Input::lockAsAnotherProgram(CapsModifier, true);
    X11Input::giveFocus(m_window);
    EXPECT_TRUE(QTest::qWaitFor([this] { return num() && !caps(); }));
    EXPECT_TRUE(m_turned.empty());
    X11Input::dropFocus();
    EXPECT_TRUE(QTest::qWaitFor([this] { return caps() && !num(); }));
}

TEST_F(X11LockChanges, BelongToTheUserInADialog) {
    XkbLockKeys locks;
    enter(locks);
    QDialog dialog(&m_window);
    dialog.setModal(true);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    X11Input::giveFocus(dialog);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !num(); }));
    X11Input::lockAsAnotherProgram(CapsModifier, true);
    dialog.hide();
    X11Input::giveFocus(m_window);
    EXPECT_TRUE(QTest::qWaitFor([this] { return num() && !caps(); }));
    EXPECT_TRUE(m_turned.empty());
}

TEST_F(X11LockChanges, OfAProgramThatIsSlowToPutThemBackAreTheUsers) {
    XkbLockKeys locks;
    locks.setLocked(LockKey::Caps, false);
    locks.setLocked(LockKey::Num, true);
    locks.onTurned([this](LockKey key, bool on) { m_turned.emplace_back(key, on); });
    X11Input::lockAsAnotherProgram(CapsModifier, true);
    show();
    // The toolkit tells a program 100 ms late that the focus is gone.
    bool isPutBack = false;
    QTimer::singleShot(130, [&isPutBack] {
        X11Input::lockAsAnotherProgram(CapsModifier | NumModifier, false);
        isPutBack = true;
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return isPutBack && num(); }));
    EXPECT_FALSE(caps());
    EXPECT_TRUE(m_turned.empty());
    X11Input::dropFocus();
    EXPECT_TRUE(QTest::qWaitFor([] { return QGuiApplication::focusWindow() == nullptr; }));
    EXPECT_TRUE(!num() && !caps());
}

} // namespace
