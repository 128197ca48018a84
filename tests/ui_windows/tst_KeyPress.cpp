// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/windows/KeyPress.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace {

using ui::KeyStroke;
using ui::native::KeyPress;
using ui::native::TranslateKey;

TEST(KeyPress, HasTheSystemsNumberAndWhatIsHeld) {
    EXPECT_EQ(TranslateKey({.virtualKey = 'Q'}), (KeyStroke{.virtualKey = 'Q'}));
    EXPECT_EQ(
        TranslateKey({.virtualKey = '7', .shift = true}), (KeyStroke{.virtualKey = '7', .isShift = true}));
    EXPECT_EQ(
        TranslateKey({.virtualKey = VK_OEM_3, .ctrl = true, .isRepeat = true}),
        (KeyStroke{.virtualKey = ui::KeyBackquote, .isCtrl = true, .isRepeat = true}));
    EXPECT_EQ(
        TranslateKey({.virtualKey = VK_F5, .alt = true}), (KeyStroke{.virtualKey = 116, .isAlt = true}));
    EXPECT_EQ(
        TranslateKey({.virtualKey = VK_TAB, .shift = true}),
        (KeyStroke{.virtualKey = ui::KeyTab, .isShift = true}));
    for (const int key :
         {VK_CANCEL, VK_BACK, VK_PAUSE, VK_CAPITAL, VK_ESCAPE, VK_SPACE, VK_APPS, VK_NUMLOCK, VK_SCROLL,
          VK_F24, VK_OEM_1, VK_OEM_7}) {
        EXPECT_EQ(TranslateKey({.virtualKey = key}).virtualKey, key);
    }
}

TEST(KeyPress, TellsTheNumberPadApart) {
    EXPECT_EQ(
        TranslateKey({.virtualKey = VK_NUMPAD7}), (KeyStroke{.virtualKey = 103, .isOnNumberPad = true}));
    EXPECT_EQ(
        TranslateKey({.virtualKey = VK_HOME}), (KeyStroke{.virtualKey = ui::KeyHome, .isOnNumberPad = true}));
    EXPECT_EQ(
        TranslateKey({.virtualKey = VK_HOME, .isExtended = true}), (KeyStroke{.virtualKey = ui::KeyHome}));
    EXPECT_EQ(
        TranslateKey({.virtualKey = VK_INSERT, .isExtended = true}),
        (KeyStroke{.virtualKey = ui::KeyInsert}));
    EXPECT_TRUE(TranslateKey({.virtualKey = VK_CLEAR}).isOnNumberPad);
    EXPECT_EQ(TranslateKey({.virtualKey = VK_RETURN}), (KeyStroke{.virtualKey = ui::KeyEnter}));
    EXPECT_TRUE(TranslateKey({.virtualKey = VK_RETURN, .isExtended = true}).isOnNumberPad);
    EXPECT_EQ(
        TranslateKey({.virtualKey = VK_DIVIDE, .isExtended = true}),
        (KeyStroke{.virtualKey = ui::KeyPadDivide, .isOnNumberPad = true}));
}

TEST(KeyPress, CountsWhatAltGrTypesAsTheUsKey) {
    const KeyPress at{.virtualKey = 'Q', .ctrl = true, .alt = true, .altGr = true, .typed = U'@'};
    EXPECT_EQ(TranslateKey(at), (KeyStroke{.virtualKey = '2', .isShift = true}));
    EXPECT_EQ(
        TranslateKey({.virtualKey = 'E', .ctrl = true, .alt = true, .altGr = true, .typed = U'\u20AC'}),
        KeyStroke{});
    EXPECT_EQ(TranslateKey({.virtualKey = 'K', .ctrl = true, .alt = true, .altGr = true}), KeyStroke{});
    EXPECT_EQ(
        TranslateKey({.virtualKey = 'K', .ctrl = true, .alt = true}),
        (KeyStroke{.virtualKey = 'K', .isCtrl = true, .isAlt = true}))
        << "both held are no AltGr";
}

TEST(KeyPress, CountsADeadKeyAsTheSymbolThatItStandsFor) {
    EXPECT_EQ(
        TranslateKey({.virtualKey = VK_OEM_5, .typed = U'^', .isDead = true}),
        (KeyStroke{.virtualKey = '6', .isShift = true}));
    EXPECT_EQ(
        TranslateKey({.virtualKey = VK_OEM_6, .typed = U'\'', .isDead = true}),
        (KeyStroke{.virtualKey = ui::KeyApostrophe}));
    EXPECT_EQ(TranslateKey({.virtualKey = VK_OEM_6, .typed = U'\u02C7', .isDead = true}), KeyStroke{});
    EXPECT_EQ(
        TranslateKey({.virtualKey = VK_OEM_5, .typed = U'#'}), (KeyStroke{.virtualKey = ui::KeyBackslash}))
        << "a key of the layout that is not dead keeps its number";
}

TEST(KeyPress, CountsKeysThatNoUsKeyboardHasAsWhatTheyType) {
    EXPECT_EQ(
        TranslateKey({.virtualKey = VK_OEM_102, .typed = U'<'}),
        (KeyStroke{.virtualKey = ui::KeyComma, .isShift = true}));
    EXPECT_EQ(
        TranslateKey({.virtualKey = VK_PACKET, .typed = U'A'}),
        (KeyStroke{.virtualKey = 'A', .isShift = true}));
    for (const int key :
         {VK_LWIN, VK_RWIN, VK_SNAPSHOT, VK_SLEEP, VK_VOLUME_UP, VK_PROCESSKEY, VK_KANA, 0xFF}) {
        EXPECT_EQ(TranslateKey({.virtualKey = key}).virtualKey, ui::KeyNone) << key;
    }
    EXPECT_EQ(TranslateKey({.virtualKey = 'D', .meta = true}).virtualKey, ui::KeyNone);
}

TEST(KeyPress, AsksTheLayout) {
    KeyPress press{.virtualKey = VK_OEM_1, .scanCode = 0x27};
    EXPECT_TRUE(ui::native::MayBeDead(press.virtualKey));
    EXPECT_FALSE(ui::native::MayBeDead('A'));
    ui::native::AskWhatIsTyped(press);
    EXPECT_EQ(press.typed, U';');
    EXPECT_FALSE(press.isDead);
    KeyPress none{.virtualKey = VK_F1, .scanCode = 0x3B};
    ui::native::AskWhatIsTyped(none);
    EXPECT_EQ(none.typed, U'\0');
}

} // namespace
