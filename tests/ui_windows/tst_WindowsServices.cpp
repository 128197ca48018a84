// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/TempProgramDirectory.h"
#include "ui/windows/ClipboardText.h"
#include "ui/windows/LockState.h"
#include "ui/windows/ShellOpen.h"
#include "ui/windows/WaveSounds.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace {

using support::TempFolder;
using ui::LockKey;
using ui::native::LockState;

/// What is on the clipboard in a format, with the zero that ends it.
std::string OnClipboard(UINT format) {
    std::string bytes;
    EXPECT_NE(::OpenClipboard(nullptr), FALSE);
    HANDLE memory = ::GetClipboardData(format);
    const void* place = memory == nullptr ? nullptr : ::GlobalLock(memory);
    if (place != nullptr) {
        bytes.assign(static_cast<const char*>(place), ::GlobalSize(memory));
        ::GlobalUnlock(memory);
    }
    ::CloseClipboard();
    return bytes;
}

std::string EveryByte() {
    std::string bytes;
    for (int byte = 1; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

TEST(ClipboardText, HoldsEveryByteAsItIs) {
    ASSERT_TRUE(ui::native::PutClipboardBytes(EveryByte()));
    EXPECT_EQ(OnClipboard(CF_TEXT).substr(0, 256), EveryByte() + '\0');
}

TEST(ClipboardText, HoldsOneCharacterAByteForUnicode) {
    ASSERT_TRUE(ui::native::PutClipboardBytes(EveryByte()));
    const std::string wide = OnClipboard(CF_UNICODETEXT);
    ASSERT_GE(wide.size(), 512U);
    for (int byte = 1; byte < 256; ++byte) {
        const auto place = static_cast<std::size_t>(byte - 1) * 2;
        EXPECT_EQ(static_cast<unsigned char>(wide[place]), byte);
        EXPECT_EQ(wide[place + 1], '\0');
    }
    EXPECT_EQ(wide.substr(510, 2), std::string(2, '\0'));
}

TEST(ClipboardText, TakesThePlaceOfWhatWasThere) {
    ASSERT_TRUE(ui::native::PutClipboardBytes("a longer text"));
    ASSERT_TRUE(ui::native::PutClipboardBytes("b"));
    EXPECT_EQ(OnClipboard(CF_TEXT).substr(0, 2), std::string("b\0", 2));
    ASSERT_TRUE(ui::native::PutClipboardBytes(""));
    EXPECT_EQ(OnClipboard(CF_TEXT).substr(0, 1), std::string(1, '\0'));
}

TEST(ShellOpen, TellsTheSystemsCode) {
    const TempFolder folder;
    EXPECT_EQ(ui::native::ShellOpen(folder / "gone.url"), 2);
    EXPECT_EQ(ui::native::ShellOpen(folder.put("a.no-such-type", "")), 31);
}

TEST(ShellOpen, OpensWhatTheSystemKnows) {
    EXPECT_GE(ui::native::ShellOpen(LR"(C:\windows\system32\hostname.exe)"), 33);
}

TEST(WaveSounds, ArePlayedWithoutWaiting) {
    // Without a device there is silence, and nobody waits for it.
    const std::string noWave = "no wave";
    ui::native::WaveSounds sounds;
    const auto before = ::GetTickCount64();
    sounds.play(noWave);
    sounds.play({});
    EXPECT_LT(::GetTickCount64() - before, 5000U);
    EXPECT_FALSE(ui::native::StartWave({}));
}

/// A window with the keyboard.
class LockStates : public testing::Test {
protected:
    LockStates()
        : window(::CreateWindowExW(
              0, L"STATIC", L"locks", WS_VISIBLE | WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr,
              nullptr, nullptr)) {
        ::SetForegroundWindow(window);
        ::SetFocus(window);
        pump();
    }

    ~LockStates() override { ::DestroyWindow(window); }

    /// Handles what has come; how many presses of keys there were, the own ones left out.
    int pump() {
        int presses = 0;
        MSG message{};
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            const bool isOwn = state.isOwnPress(message.message, static_cast<int>(message.wParam));
            presses += message.message == WM_KEYDOWN && !isOwn ? 1 : 0;
            ::DispatchMessageW(&message);
        }
        return presses;
    }

    LockState state;
    HWND window;
};

TEST_F(LockStates, AreTurnedWithoutAPressThatAnybodySees) {
    for (const LockKey key : {LockKey::Caps, LockKey::Num, LockKey::Scroll}) {
        const bool before = state.isOn(key);
        state.turn(key, !before);
        EXPECT_EQ(state.isOn(key), !before) << "at once";
        EXPECT_EQ(pump(), 0);
        EXPECT_EQ(state.isOn(key), !before);
        EXPECT_EQ((::GetKeyState(ui::native::VirtualKeyOf(key)) & 1) != 0, !before);
        state.turn(key, !before);
        EXPECT_EQ(pump(), 0);
        EXPECT_EQ(state.isOn(key), !before) << "it was already";
        state.turn(key, before);
        state.turn(key, !before);
        state.turn(key, before);
        EXPECT_EQ(pump(), 0);
        EXPECT_EQ(state.isOn(key), before);
    }
}

TEST_F(LockStates, OfInsertIsInTheTable) {
    for (const bool isOn : {true, false, true, false}) {
        state.turn(LockKey::Insert, isOn);
        EXPECT_EQ(pump(), 0);
        EXPECT_EQ(state.isOn(LockKey::Insert), isOn);
    }
}

TEST_F(LockStates, FollowTheUsersPress) {
    const bool before = state.isOn(LockKey::Scroll);
    ::keybd_event(VK_SCROLL, 0x46, 0, 0);
    ::keybd_event(VK_SCROLL, 0x46, KEYEVENTF_KEYUP, 0);
    EXPECT_EQ(pump(), 1);
    EXPECT_EQ(state.isOn(LockKey::Scroll), !before);
    state.turn(LockKey::Scroll, before);
    EXPECT_EQ(pump(), 0);
    EXPECT_EQ(state.isOn(LockKey::Scroll), before);
}

} // namespace
