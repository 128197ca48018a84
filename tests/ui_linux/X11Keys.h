// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "X11Input.h"
#include "ui/qt/KeyTranslation.h"

#include <QTest>
#include <gtest/gtest.h>
#include <optional>
#include <vector>

inline constexpr unsigned ShiftCode = 50;
inline constexpr unsigned CtrlCode = 37;
inline constexpr unsigned AltCode = 64;
inline constexpr unsigned AltGrCode = 108;
inline constexpr unsigned SuperCode = 133;
inline constexpr unsigned NumLockCode = 77;
inline constexpr unsigned CapsLockCode = 66;

/// A real press and what it is to count as.
struct SeenPress {
    const char* name;
    unsigned scanCode;
    std::vector<unsigned> held;
    int virtualKey;
    bool isShift = false;
    bool isOnNumberPad = false;
};

class X11Keys : public testing::Test {
protected:
    void SetUp() override {
        if (!X11Input::IsAvailable()) {
            GTEST_SKIP() << "libXtst.so.6 is not installed";
        }
        // As the window of the editor has it: dead keys come as keys.
        m_window.setAttribute(Qt::WA_InputMethodEnabled, false);
        m_window.resize(100, 100);
        m_window.show();
        m_window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
        m_window.setFocus();
    }

    void TearDown() override { EXPECT_TRUE(X11Input::chooseLayout(QStringLiteral("us"))); }

    /// What the last key of a chord counts as.
    std::optional<ui::KeyStroke> strokeOf(const SeenPress& press) {
        m_keys.presses.clear();
        m_keys.releases.clear();
        for (const unsigned held : press.held) {
            X11Input::press(held);
        }
        X11Input::click(press.scanCode);
        for (const unsigned held : press.held) {
            X11Input::release(held);
        }
        const std::size_t expected = press.held.size() + 1;
        if (!QTest::qWaitFor([&] { return m_keys.releases.size() >= expected; })) {
            ADD_FAILURE() << press.name << ": the keys did not come";
            return {};
        }
        for (const auto& event : m_keys.presses) {
            if (event->nativeScanCode() == press.scanCode) {
                return ui::qt::TranslateKey(*event);
            }
        }
        return {};
    }

    void check(const std::vector<SeenPress>& presses) {
        for (const SeenPress& press : presses) {
            const auto stroke = strokeOf(press);
            ASSERT_TRUE(stroke) << press.name;
            EXPECT_EQ(stroke->virtualKey, press.virtualKey) << press.name;
            EXPECT_EQ(stroke->isOnNumberPad, press.isOnNumberPad) << press.name;
            if (press.virtualKey != 0 && !press.isOnNumberPad) {
                EXPECT_EQ(stroke->isShift, press.isShift) << press.name;
            }
        }
    }

    QWidget m_window;
    KeyRecorder m_keys{m_window};
};
