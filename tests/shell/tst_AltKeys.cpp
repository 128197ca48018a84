// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/AltKeys.h"

#include "editing/mdlKey.h"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <tuple>

using shell::AltCommand;
using shell::AltKey;
using shell::FindAltKey;

namespace {

ui::KeyStroke withAlt(int virtualKey, bool isShift = false) {
    ui::KeyStroke stroke;
    stroke.virtualKey = virtualKey;
    stroke.isAlt = true;
    stroke.isShift = isShift;
    return stroke;
}

TEST(AltKeys, EachRowIsFoundByItsOwnStroke) {
    for (const AltKey& key : shell::AltKeys()) {
        for (const bool isShift : {false, true}) {
            const bool fits =
                key.shift == AltKey::Shift::Either || (key.shift == AltKey::Shift::Down) == isShift;
            if (fits) {
                EXPECT_EQ(FindAltKey(withAlt(key.virtualKey, isShift)), &key) << key.keys;
            }
        }
    }
}

TEST(AltKeys, LeavesTheLettersOfTheMenusAlone) {
    for (const char letter : {'E', 'F', 'H', 'O', 'T', 'V'}) {
        EXPECT_EQ(FindAltKey(withAlt(letter)), nullptr) << letter;
        EXPECT_EQ(FindAltKey(withAlt(letter, true)), nullptr) << letter;
    }
}

TEST(AltKeys, LeavesTheKeysOfTheDesktopAlone) {
    for (const int key :
         {ui::KeyF1 + 3, +ui::KeyTab, +ui::KeyEscape, +ui::KeySpace, +ui::KeyAlt, +ui::KeyNone}) {
        EXPECT_EQ(FindAltKey(withAlt(key)), nullptr) << key;
    }
}

TEST(AltKeys, WantsAltAndNoCtrl) {
    ui::KeyStroke stroke = withAlt('G');
    EXPECT_NE(FindAltKey(stroke), nullptr);
    stroke.isCtrl = true;
    EXPECT_EQ(FindAltKey(stroke), nullptr);
    stroke.isCtrl = false;
    stroke.isAlt = false;
    EXPECT_EQ(FindAltKey(stroke), nullptr);
}

TEST(AltKeys, NeverTypeAGlyph) {
    const editing::KeyMap map = editing::DefaultKeyMap();
    for (const AltKey& key : shell::AltKeys()) {
        EXPECT_EQ(
            editing::RouteKey(withAlt(key.virtualKey), {}, map, editing::NumberPadRule::Desktop),
            editing::KeyAction())
            << key.keys;
    }
}

TEST(AltKeys, PlusAndMinusDoNotAskForShift) {
    for (const bool isShift : {false, true}) {
        EXPECT_EQ(FindAltKey(withAlt(ui::KeyEquals, isShift))->command, AltCommand::MoreNames);
        EXPECT_EQ(FindAltKey(withAlt(ui::KeyMinus, isShift))->command, AltCommand::FewerNames);
    }
    EXPECT_EQ(FindAltKey(withAlt(ui::KeyPadAdd))->command, AltCommand::MoreNames);
    EXPECT_EQ(FindAltKey(withAlt(ui::KeyPadSubtract))->command, AltCommand::FewerNames);
}

TEST(AltKeys, ReadAsPeopleWriteThem) {
    EXPECT_EQ(shell::AltKeysOf("cmdFavorite_0"), "Alt+1, Alt+Shift+1");
    EXPECT_EQ(shell::AltKeysOf("cmdFavorite_4"), "Alt+5, Alt+Shift+5");
    EXPECT_EQ(shell::AltKeysOf("cmdFrequent_2"), "Alt+8");
    EXPECT_EQ(shell::AltKeysOf("cmdCalcFrequent"), "Alt+9");
    EXPECT_EQ(shell::AltKeysOf("AniTotalScroll"), "Alt+Plus, Alt+Minus");
    EXPECT_EQ(shell::AltKeysOf("cmdName_0"), "");
}

} // namespace
