// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/KeyTranslation.h"
#include "ui/windows/QtLockKeys.h"
#include "ui/windows/QtRowPainter.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QtTest>
#include <gtest/gtest.h>
#include <vector>
#include <windows.h>

namespace {

using ui::KeyStroke;
using ui::LockKey;

bool IsOn(int virtualKey) {
    return (::GetKeyState(virtualKey) & 1) != 0;
}

/// A press as a keyboard makes it.
void Strike(int virtualKey, DWORD flags = 0) {
    const auto key = static_cast<BYTE>(virtualKey);
    const auto scanCode = static_cast<BYTE>(::MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    ::keybd_event(key, scanCode, flags, 0);
    ::keybd_event(key, scanCode, flags | KEYEVENTF_KEYUP, 0);
}

/// A window that has the keyboard and notes which keys come.
class Listener final : public QWidget {
public:
    std::vector<KeyStroke> strokes;

protected:
    void keyPressEvent(QKeyEvent* event) override { strokes.push_back(ui::qt::TranslateKey(*event)); }
};

class Keyboard : public testing::Test {
protected:
    void SetUp() override {
        ui::native::MakeRowPainter();
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    /// What the window has heard of since it was asked last.
    std::vector<KeyStroke> heard() {
        QTest::qWait(100);
        return std::exchange(window.strokes, {});
    }

    Listener window;
};

TEST_F(Keyboard, TellsWhichKeyItIs) {
    const std::vector<std::pair<std::pair<int, DWORD>, KeyStroke>> keys{
        {{'Q', 0}, {.virtualKey = 'Q'}},
        {{'7', 0}, {.virtualKey = '7'}},
        {{VK_OEM_1, 0}, {.virtualKey = ui::KeySemicolon}},
        {{VK_F5, 0}, {.virtualKey = 116}},
        {{VK_INSERT, KEYEVENTF_EXTENDEDKEY}, {.virtualKey = ui::KeyInsert}},
        {{VK_HOME, KEYEVENTF_EXTENDEDKEY}, {.virtualKey = ui::KeyHome}},
        {{VK_HOME, 0}, {.virtualKey = ui::KeyHome, .isOnNumberPad = true}},
        {{VK_NUMPAD7, 0}, {.virtualKey = 103, .isOnNumberPad = true}},
        {{VK_DIVIDE, KEYEVENTF_EXTENDEDKEY}, {.virtualKey = ui::KeyPadDivide, .isOnNumberPad = true}},
        {{VK_RETURN, KEYEVENTF_EXTENDEDKEY}, {.virtualKey = ui::KeyEnter, .isOnNumberPad = true}},
        {{VK_RETURN, 0}, {.virtualKey = ui::KeyEnter}},
        {{VK_PAUSE, 0}, {.virtualKey = ui::KeyPause}},
    };
    for (const auto& [key, stroke] : keys) {
        Strike(key.first, key.second);
        EXPECT_EQ(heard(), std::vector{stroke}) << key.first;
    }
}

TEST_F(Keyboard, TellsOfTheKeyThatOpensMenusElsewhere) {
    ui::qt::HearEveryKey(window);
    ::keybd_event(VK_SHIFT, 0, 0, 0);
    EXPECT_EQ(heard().size(), 1U) << "the key that is held";
    Strike(VK_F10);
    EXPECT_EQ(heard(), (std::vector{KeyStroke{.virtualKey = VK_F10, .isShift = true}}));
    ::keybd_event(VK_SHIFT, 0, KEYEVENTF_KEYUP, 0);
    Strike(VK_F10);
    EXPECT_EQ(heard(), (std::vector{KeyStroke{.virtualKey = VK_F10}}));
}

TEST_F(Keyboard, LeavesThatKeyToATextWithAMenu) {
    ui::qt::HearEveryKey(window);
    QLineEdit text(&window);
    text.setContextMenuPolicy(Qt::CustomContextMenu);
    bool isOpened = false;
    QObject::connect(&text, &QWidget::customContextMenuRequested, &text, [&isOpened] { isOpened = true; });
    text.show();
    text.setFocus();
    ::keybd_event(VK_SHIFT, 0, 0, 0);
    Strike(VK_F10);
    EXPECT_TRUE(QTest::qWaitFor([&isOpened] { return isOpened; }));
    ::keybd_event(VK_SHIFT, 0, KEYEVENTF_KEYUP, 0);
}

TEST_F(Keyboard, StaysWhenAListFirstShowsAChosenRow) {
    QListWidget list(&window);
    list.addItem(QStringLiteral("row"));
    list.setCurrentRow(0);
    list.setFocus();
    list.show();
    QTest::qWait(100);
    EXPECT_TRUE(window.isActiveWindow());
}

TEST_F(Keyboard, HasTheProgramsLocksInItsWindowAndTheUsersElsewhere) {
    for (const auto& [key, virtualKey] :
         {std::pair(LockKey::Caps, VK_CAPITAL), {LockKey::Num, VK_NUMLOCK}, {LockKey::Scroll, VK_SCROLL}}) {
        const bool users = IsOn(virtualKey);
        {
            ui::native::QtLockKeys locks(true);
            EXPECT_TRUE(locks.canLock(key));
            locks.setLocked(key, !users);
            EXPECT_TRUE(heard().empty()) << "it is no press of a key";
            EXPECT_EQ(IsOn(virtualKey), !users);
            {
                QDialog dialog(&window);
                dialog.setModal(true);
                dialog.show();
                dialog.activateWindow();
                ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
                QTest::qWait(100);
                EXPECT_EQ(IsOn(virtualKey), users) << "in a dialog";
            }
            window.activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
            EXPECT_TRUE(heard().empty());
            EXPECT_EQ(IsOn(virtualKey), !users);
        }
        QTest::qWait(100);
        EXPECT_EQ(IsOn(virtualKey), users) << "after the end";
        window.strokes.clear();
    }
}

TEST_F(Keyboard, TakesBackWhatALockKeyDidThatTheProgramDidNotFollow) {
    ui::native::QtLockKeys locks(true);
    locks.setLocked(LockKey::Caps, true);
    EXPECT_TRUE(heard().empty());
    Strike(VK_CAPITAL);
    EXPECT_EQ(heard(), (std::vector{KeyStroke{.virtualKey = ui::KeyCapsLock}})) << "the user's press";
    EXPECT_TRUE(IsOn(VK_CAPITAL));
    Strike(VK_CAPITAL);
    locks.setLocked(LockKey::Caps, false);
    EXPECT_EQ(heard().size(), 1U);
    EXPECT_FALSE(IsOn(VK_CAPITAL));
}

} // namespace
