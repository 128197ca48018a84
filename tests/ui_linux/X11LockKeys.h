// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "X11Input.h"
#include "ui/linux/X11Keyboard.h"
#include "ui/linux/XkbLockKeys.h"

#include <QGuiApplication>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <gtest/gtest.h>
#include <memory>

class X11LockKeys : public testing::Test {
protected:
    using LockKey = ui::LockKey;
    using XkbLockKeys = ui::native::XkbLockKeys;
    using X11Keyboard = ui::native::X11Keyboard;
    using Lock = X11Keyboard::Lock;

    void SetUp() override {
        ASSERT_NE(m_keyboard, nullptr);
        m_keyboard->setLocked(Lock::Caps, false);
        m_keyboard->setLocked(Lock::Num, false);
        m_keyboard->setScrollLight(false);
        m_window.resize(100, 100);
    }

    void TearDown() override {
        m_window.hide();
        X11Input::dropFocus();
        EXPECT_TRUE(QTest::qWaitFor([] { return QGuiApplication::focusWindow() == nullptr; }));
        m_keyboard->setLocked(Lock::Caps, false);
        m_keyboard->setLocked(Lock::Num, false);
        m_keyboard->setScrollLight(false);
    }

    void show() {
        m_window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&m_window));
        X11Input::giveFocus(m_window);
        ASSERT_TRUE(
            QTest::qWaitFor([this] { return QGuiApplication::focusWindow() == m_window.windowHandle(); }));
    }

    static constexpr unsigned CapsLock = 66;
    static constexpr unsigned NumLock = 77;
    static constexpr unsigned ScrollLock = 78;

    /// Shows the window and waits until the locks are those of the program.
    void showAndEnter(const XkbLockKeys& locks) {
        show();
        ASSERT_TRUE(QTest::qWaitFor([&locks] { return !locks.findChild<QTimer*>()->isActive(); }));
    }

    /// Presses a lock key, which the program follows, and waits until it is up again.
    void clickFollowed(XkbLockKeys& locks, unsigned scanCode, LockKey key, bool on) {
        m_keys.presses.clear();
        m_keys.releases.clear();
        X11Input::press(scanCode);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !m_keys.presses.empty(); }));
        locks.setLocked(key, on);
        X11Input::release(scanCode);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !m_keys.releases.empty(); }));
    }

    [[nodiscard]] bool caps() const { return m_keyboard->isLocked(Lock::Caps); }

    [[nodiscard]] bool num() const { return m_keyboard->isLocked(Lock::Num); }

    [[nodiscard]] bool scroll() const { return m_keyboard->scrollLight(); }

    std::unique_ptr<X11Keyboard> m_keyboard = X11Keyboard::Connect();
    QWidget m_window;
    KeyRecorder m_keys{m_window};
};
