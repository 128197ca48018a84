// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/mdlKey.h"

#include "EditWorld.h"
#include "support/FakePlatform.h"

#include <algorithm>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace editing {

namespace {

using Rule = NumberPadRule;

GlyphCode Plain(int virtualKey) {
    return KeyToGlyph(DefaultKeyMap(), virtualKey, false, false);
}

GlyphCode Shifted(int virtualKey) {
    return KeyToGlyph(DefaultKeyMap(), virtualKey, true, false);
}

TEST(DefaultKeyMap, TypesLettersInBothCases) {
    for (int letter = 0; letter < 26; ++letter) {
        EXPECT_EQ(Plain(65 + letter), 97 + letter);
        EXPECT_EQ(Shifted(65 + letter), 65 + letter);
    }
}

TEST(DefaultKeyMap, TypesDigitsAndTheSymbolsAboveThem) {
    const std::vector<int> symbols{41, 33, 64, 35, 36, 37, 94, 38, 42, 40};
    for (int digit = 0; digit < 10; ++digit) {
        EXPECT_EQ(Plain(48 + digit), 48 + digit);
        EXPECT_EQ(Shifted(48 + digit), symbols[static_cast<std::size_t>(digit)]);
    }
}

TEST(DefaultKeyMap, TypesTheGamesDigitsOnTheNumberPad) {
    for (int digit = 0; digit < 10; ++digit) {
        EXPECT_EQ(Plain(96 + digit), 18 + digit);
        EXPECT_EQ(Shifted(96 + digit), 18 + digit);
    }
}

TEST(DefaultKeyMap, HasTheseGlyphsOnTheOtherKeys) {
    struct Row {
        int virtualKey;
        GlyphCode plain;
        GlyphCode shifted;
    };

    const std::vector<Row> rows{
        {9, 32, 32},    {13, 32, 32},   {19, 32, 32},   {27, 32, 32},  {32, 32, 32},   {106, 42, 42},
        {107, 43, 43},  {109, 45, 45},  {110, 46, 46},  {111, 47, 47}, {112, 128, 32}, {113, 129, 32},
        {114, 131, 32}, {115, 130, 32}, {116, 29, 32},  {117, 30, 32}, {118, 31, 32},  {119, 32, 32},
        {120, 32, 32},  {121, 32, 32},  {122, 32, 32},  {123, 32, 32}, {124, 32, 32},  {125, 32, 32},
        {126, 32, 32},  {127, 32, 32},  {192, 39, 126}, {189, 45, 95}, {187, 61, 43},  {219, 91, 123},
        {221, 93, 125}, {186, 59, 58},  {222, 96, 32},  {188, 44, 60}, {190, 46, 62},  {191, 47, 63},
        {220, 92, 124},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(Plain(row.virtualKey), row.plain) << row.virtualKey;
        EXPECT_EQ(Shifted(row.virtualKey), row.shifted) << row.virtualKey;
    }
}

TEST(DefaultKeyMap, TypesABlankWithCtrlOnEveryKey) {
    for (const KeyGlyphs& row : DefaultKeyMap()) {
        EXPECT_EQ(row[2], 32);
    }
}

TEST(DefaultKeyMap, NeverTypesADoubleQuote) {
    for (const KeyGlyphs& row : DefaultKeyMap()) {
        for (const GlyphCode code : row) {
            EXPECT_NE(code, 34);
            EXPECT_NE(code, 162);
        }
    }
}

TEST(KeyIndex, CountsEachKeyOnce) {
    std::set<std::size_t> indexes;
    for (const int key : {9,   13,  19,  27,  32,  106, 107, 109, 110, 111, 192,
                          189, 187, 219, 221, 186, 222, 188, 190, 191, 220}) {
        indexes.insert(KeyIndex(key));
    }
    for (int key = 48; key <= 57; ++key) {
        indexes.insert(KeyIndex(key));
    }
    for (int key = 65; key <= 90; ++key) {
        indexes.insert(KeyIndex(key));
    }
    for (int key = 96; key <= 105; ++key) {
        indexes.insert(KeyIndex(key));
    }
    for (int key = 112; key <= 127; ++key) {
        indexes.insert(KeyIndex(key));
    }
    EXPECT_EQ(indexes.size(), 83U);
    EXPECT_EQ(*indexes.rbegin(), 82U);
}

TEST(KeyIndex, FollowsTheOrderOfTheNames) {
    EXPECT_EQ(KeyIndex(9), 0U);
    EXPECT_EQ(KeyIndex(13), 1U);
    EXPECT_EQ(KeyIndex(32), 4U);
    EXPECT_EQ(KeyIndex('A'), 5U);
    EXPECT_EQ(KeyIndex('Z'), 30U);
    EXPECT_EQ(KeyIndex('0'), 31U);
    EXPECT_EQ(KeyIndex('9'), 40U);
    EXPECT_EQ(KeyIndex(96), 41U);
    EXPECT_EQ(KeyIndex(105), 50U);
    EXPECT_EQ(KeyIndex(106), 51U);
    EXPECT_EQ(KeyIndex(109), 53U);
    EXPECT_EQ(KeyIndex(112), 56U);
    EXPECT_EQ(KeyIndex(127), 71U);
    EXPECT_EQ(KeyIndex(192), 72U);
    EXPECT_EQ(KeyIndex(189), 73U);
    EXPECT_EQ(KeyIndex(187), 74U);
    EXPECT_EQ(KeyIndex(219), 75U);
    EXPECT_EQ(KeyIndex(221), 76U);
    EXPECT_EQ(KeyIndex(186), 77U);
    EXPECT_EQ(KeyIndex(222), 78U);
    EXPECT_EQ(KeyIndex(188), 79U);
    EXPECT_EQ(KeyIndex(190), 80U);
    EXPECT_EQ(KeyIndex(191), 81U);
    EXPECT_EQ(KeyIndex(220), 82U);
}

TEST(KeyIndex, GivesTheRowOfTabToEveryOtherKey) {
    for (const int key : {12, 93, 108, 128, 135, 193, 223, 255, 1000, -1}) {
        EXPECT_EQ(KeyIndex(key), 0U) << key;
    }
}

TEST(KeyNames, AreListedInTheOrderOfTheRows) {
    const auto& names = KeyNames();
    ASSERT_EQ(names.size(), 83U);
    const std::vector<std::string_view> first{"Tab", "Return", "Pause", "Escape", "SpaceBar"};
    EXPECT_TRUE(std::equal(first.begin(), first.end(), names.begin()));
    EXPECT_EQ(names[KeyIndex('A')], "A");
    EXPECT_EQ(names[KeyIndex('M')], "M");
    EXPECT_EQ(names[KeyIndex('Z')], "Z");
    EXPECT_EQ(names[KeyIndex('0')], "0");
    EXPECT_EQ(names[KeyIndex('9')], "9");
    EXPECT_EQ(names[KeyIndex(96)], "NumPad 0");
    EXPECT_EQ(names[KeyIndex(105)], "NumPad 9");
    const std::vector<std::string_view> pad{"NumPad *", "NumPad +", "NumPad -", "NumPad .", "NumPad /"};
    EXPECT_TRUE(std::equal(pad.begin(), pad.end(), names.begin() + 51));
    EXPECT_EQ(names[KeyIndex(112)], "F1");
    EXPECT_EQ(names[KeyIndex(121)], "F10");
    EXPECT_EQ(names[KeyIndex(127)], "F16");
    const std::vector<std::string_view> last{"`", "-", "=", "[", "]", ";", "'", ",", ".", "/", "\\"};
    EXPECT_TRUE(std::equal(last.begin(), last.end(), names.begin() + 72));
    EXPECT_EQ(std::set<std::string_view>(names.begin(), names.end()).size(), 83U);
}

TEST(KeyToGlyph, TakesTheShiftedColumnBeforeTheOneOfCtrl) {
    KeyMap map = DefaultKeyMap();
    map[KeyIndex('A')] = {1, 2, 3};
    EXPECT_EQ(KeyToGlyph(map, 'A', false, false), 1);
    EXPECT_EQ(KeyToGlyph(map, 'A', true, false), 2);
    EXPECT_EQ(KeyToGlyph(map, 'A', false, true), 3);
    EXPECT_EQ(KeyToGlyph(map, 'A', true, true), 2);
}

/// Key strokes against the default map, with all modes off and the number pad left to the desktop.
class KeyRouting : public testing::Test {
protected:
    KeyRouting() {
        modes.typingColour = false;
        modes.numberPad = false;
    }

    [[nodiscard]] KeyAction route(const ui::KeyStroke& stroke) const {
        return RouteKey(stroke, modes, map, rule);
    }

    [[nodiscard]] KeyAction plain(int key) const { return route({.virtualKey = key}); }

    [[nodiscard]] KeyAction shift(int key) const { return route({.virtualKey = key, .isShift = true}); }

    [[nodiscard]] KeyAction ctrl(int key) const { return route({.virtualKey = key, .isCtrl = true}); }

    [[nodiscard]] KeyAction pad(int key, bool isShift = false, bool isCtrl = false) const {
        return route({.virtualKey = key, .isShift = isShift, .isCtrl = isCtrl, .isOnNumberPad = true});
    }

    Modes modes;
    KeyMap map = DefaultKeyMap();
    Rule rule = Rule::Desktop;
};

const KeyAction Nothing{};

KeyAction Types(GlyphCode code) {
    return GlyphAction{code};
}

KeyAction Moves(int key) {
    return NavigationAction{key};
}

TEST_F(KeyRouting, TypesTheKeysGlyph) {
    EXPECT_EQ(plain('A'), Types(97));
    EXPECT_EQ(shift('A'), Types(65));
    EXPECT_EQ(plain('1'), Types(49));
    EXPECT_EQ(plain(KeySpace), Types(32));
}

TEST_F(KeyRouting, TypesTheShiftedGlyphsInCaseMode) {
    modes.upperCase = true;
    EXPECT_EQ(plain('A'), Types(65));
    EXPECT_EQ(plain('1'), Types(33));
}

TEST_F(KeyRouting, DoesNotLetShiftAndCaseModeCancelOut) {
    modes.upperCase = true;
    EXPECT_EQ(shift('A'), Types(65));
}

TEST_F(KeyRouting, TypesTheThirdColumnWithCtrl) {
    EXPECT_EQ(ctrl('A'), Types(32));
    map[KeyIndex('A')] = {1, 2, 3};
    EXPECT_EQ(ctrl('A'), Types(3));
    EXPECT_EQ(route({.virtualKey = 'A', .isShift = true, .isCtrl = true}), Types(2));
    modes.upperCase = true;
    EXPECT_EQ(ctrl('A'), Types(2));
}

TEST_F(KeyRouting, TypesABlankForTheShiftedApostrophe) {
    EXPECT_EQ(shift(KeyApostrophe), Types(32));
}

TEST_F(KeyRouting, DoesNotApplyTheTypingColour) {
    modes.typingColour = true;
    EXPECT_EQ(plain('A'), Types(97));
}

TEST_F(KeyRouting, TypesTheFirstRowForKeysWithoutARow) {
    map[0] = {10, 11, 12};
    for (const int key : {KeyTab, KeyMenu, KeyClear, KeyF24}) {
        EXPECT_EQ(plain(key), Types(10)) << key;
        EXPECT_EQ(shift(key), Types(11)) << key;
        EXPECT_EQ(ctrl(key), Types(12)) << key;
    }
}

TEST_F(KeyRouting, TypesNothingForGlyphZero) {
    map[KeyIndex('A')] = {0, 65, 0};
    EXPECT_EQ(plain('A'), Nothing);
    EXPECT_EQ(ctrl('A'), Nothing);
    EXPECT_EQ(shift('A'), Types(65));
}

TEST_F(KeyRouting, IgnoresModifiersAloneAndKeysOfTheDesktop) {
    for (const int key : {KeyNone, KeyShift, KeyCtrl, KeyAlt}) {
        EXPECT_EQ(plain(key), Nothing) << key;
        EXPECT_EQ(shift(key), Nothing) << key;
        EXPECT_EQ(ctrl(key), Nothing) << key;
    }
}

TEST_F(KeyRouting, IgnoresEveryKeyWithAlt) {
    for (int key = 0; key < 256; ++key) {
        EXPECT_EQ(route({.virtualKey = key, .isAlt = true}), Nothing) << key;
        EXPECT_EQ(route({.virtualKey = key, .isCtrl = true, .isAlt = true}), Nothing) << key;
    }
}

TEST_F(KeyRouting, EditsTheNameListWithCtrl) {
    EXPECT_EQ(ctrl(KeyInsert), KeyAction(NameListAction{0}));
    EXPECT_EQ(ctrl(KeyDelete), KeyAction(NameListAction{1}));
    EXPECT_EQ(ctrl(KeyUp), KeyAction(NameListAction{2}));
    EXPECT_EQ(ctrl(KeyDown), KeyAction(NameListAction{3}));
    EXPECT_EQ(route({.virtualKey = KeyUp, .isShift = true, .isCtrl = true}), KeyAction(NameListAction{2}));
}

TEST_F(KeyRouting, NavigatesWithAndWithoutModifiers) {
    for (const int key : {13, 8, 33, 34, 35, 36, 37, 38, 39, 40, 46}) {
        EXPECT_EQ(plain(key), Moves(key)) << key;
        EXPECT_EQ(shift(key), Moves(key)) << key;
    }
    for (const int key : {13, 8, 33, 34, 35, 36, 37, 39}) {
        EXPECT_EQ(ctrl(key), Moves(key)) << key;
    }
}

TEST_F(KeyRouting, SendsTheLockKeysToTheModes) {
    for (const int key : {45, 145, 20, 144}) {
        EXPECT_EQ(plain(key), KeyAction(ModeAction{key})) << key;
        EXPECT_EQ(shift(key), KeyAction(ModeAction{key})) << key;
    }
    EXPECT_EQ(ctrl(145), KeyAction(ModeAction{145}));
}

TEST_F(KeyRouting, RepeatsEverythingButTheLockKeys) {
    EXPECT_EQ(route({.virtualKey = 'A', .isRepeat = true}), Types(97));
    EXPECT_EQ(route({.virtualKey = KeyLeft, .isRepeat = true}), Moves(KeyLeft));
    EXPECT_EQ(
        route({.virtualKey = KeyInsert, .isCtrl = true, .isRepeat = true}), KeyAction(NameListAction{0}));
    for (const int key : {45, 145, 20, 144}) {
        EXPECT_EQ(route({.virtualKey = key, .isRepeat = true}), Nothing) << key;
    }
}

TEST_F(KeyRouting, TakesTheNumberPadAsTheDesktopHasIt) {
    for (const bool flag : {false, true}) {
        modes.numberPad = flag;
        EXPECT_EQ(pad(KeyPad0 + 4), Types(22));
        EXPECT_EQ(pad(KeyLeft), Moves(KeyLeft));
        EXPECT_EQ(pad(KeyPadDecimal), Types(46));
        EXPECT_EQ(pad(KeyDelete), Moves(KeyDelete));
    }
}

TEST_F(KeyRouting, LetsTheModeDecideWhereNumLockIsOutOfReach) {
    rule = Rule::Mode;
    const std::vector<int> moves{45, 35, 40, 34, 37, 12, 39, 36, 38, 33};
    for (int digit = 0; digit < 10; ++digit) {
        const int move = moves[static_cast<std::size_t>(digit)];
        modes.numberPad = true;
        EXPECT_EQ(pad(96 + digit), Types(static_cast<GlyphCode>(18 + digit)));
        EXPECT_EQ(pad(move), Types(static_cast<GlyphCode>(18 + digit)));
        modes.numberPad = false;
        EXPECT_EQ(pad(96 + digit), plain(move));
        EXPECT_EQ(pad(move), plain(move));
    }
    modes.numberPad = true;
    EXPECT_EQ(pad(KeyDelete), Types(46));
    modes.numberPad = false;
    EXPECT_EQ(pad(KeyPadDecimal), Moves(KeyDelete));
}

TEST_F(KeyRouting, MovesTheCursorWithShiftAndTheNumberPad) {
    rule = Rule::Mode;
    modes.numberPad = true;
    EXPECT_EQ(pad(KeyLeft, true), Moves(KeyLeft));
    EXPECT_EQ(pad(KeyPad0 + 4, true), Moves(KeyLeft));
}

TEST_F(KeyRouting, LeavesTheOtherKeysOfTheNumberPadAlone) {
    rule = Rule::Mode;
    for (const bool flag : {false, true}) {
        modes.numberPad = flag;
        EXPECT_EQ(pad(KeyEnter), Moves(KeyEnter));
        EXPECT_EQ(pad(KeyPadAdd), Types(43));
        EXPECT_EQ(pad(KeyPadDivide), Types(47));
        EXPECT_EQ(plain(KeyLeft), Moves(KeyLeft));
        EXPECT_EQ(plain(KeyInsert), KeyAction(ModeAction{KeyInsert}));
    }
}

TEST_F(KeyRouting, EditsTheNameListFromTheNumberPad) {
    EXPECT_EQ(pad(KeyUp, false, true), KeyAction(NameListAction{2}));
    rule = Rule::Mode;
    EXPECT_EQ(pad(KeyPad0, false, true), KeyAction(NameListAction{0}));
}

TEST(ToggleModeKey, FlipsTheModeOfEachLockKey) {
    struct Row {
        int key;
        std::size_t button;
        bool Modes::*flag;
    };

    const std::vector<Row> rows{
        {145, 0, &Modes::typingColour},
        {45, 1, &Modes::insert},
        {20, 2, &Modes::upperCase},
        {144, 3, &Modes::numberPad},
    };
    for (const Row& row : rows) {
        Modes modes;
        const bool before = modes.*row.flag;
        EXPECT_EQ(ToggleModeKey(modes, row.key), row.button);
        EXPECT_EQ(modes.*row.flag, !before);
        EXPECT_EQ(ToggleModeKey(modes, row.key), row.button);
        EXPECT_EQ(modes, Modes());
    }
}

TEST(ToggleModeKey, LeavesTheModesAloneForOtherKeys) {
    Modes modes;
    EXPECT_FALSE(ToggleModeKey(modes, 'A').has_value());
    EXPECT_EQ(modes, Modes());
}

TEST(SetLockKey, SetsTheLockThatMirrorsTheMode) {
    support::FakeLockKeys locks;
    SetLockKey(locks, 145, true);
    SetLockKey(locks, 45, false);
    SetLockKey(locks, 20, true);
    SetLockKey(locks, 144, false);
    SetLockKey(locks, 'A', true);
    using Change = std::pair<ui::LockKey, bool>;
    EXPECT_EQ(
        locks.changes, (std::vector<Change>{
                           {ui::LockKey::Scroll, true},
                           {ui::LockKey::Insert, false},
                           {ui::LockKey::Caps, true},
                           {ui::LockKey::Num, false}}));
}

/// Navigation on the three pages.
class Navigation : public testing::Test {
protected:
    void go(int virtualKey) { world.show(NavigateKey(world.cursor(), virtualKey)); }

    void show(Page page, int row, int column) {
        world.page = page;
        world.cursor().row = row;
        world.cursor().column = column;
    }

    [[nodiscard]] std::pair<int, int> position() { return {world.cursor().row, world.cursor().column}; }

    EditWorld world;
};

TEST_F(Navigation, StaysInTheOneRowOfTheNamePage) {
    show(Page::Name, 1, 7);
    for (const int key : {KeyPageUp, KeyPageDown, KeyUp, KeyDown, KeyEnter}) {
        go(key);
        EXPECT_EQ(position(), std::pair(1, 7)) << key;
    }
    go(KeyLeft);
    EXPECT_EQ(position(), std::pair(1, 6));
    go(KeyRight);
    EXPECT_EQ(position(), std::pair(1, 7));
    go(KeyHome);
    EXPECT_EQ(position(), std::pair(1, 1));
    go(KeyLeft);
    EXPECT_EQ(position(), std::pair(1, 1));
    go(KeyEnd);
    EXPECT_EQ(position(), std::pair(1, 15));
    go(KeyRight);
    EXPECT_EQ(position(), std::pair(1, 15));
}

TEST_F(Navigation, MovesThroughTheNamesInUse) {
    world.documents.animation.nameCount = 20;
    show(Page::Animation, 1, 3);
    go(KeyUp);
    EXPECT_EQ(position(), std::pair(1, 3));
    go(KeyPageDown);
    EXPECT_EQ(position(), std::pair(20, 3));
    go(KeyDown);
    EXPECT_EQ(position(), std::pair(20, 3));
    go(KeyUp);
    EXPECT_EQ(position(), std::pair(19, 3));
    go(KeyDown);
    EXPECT_EQ(position(), std::pair(20, 3));
    go(KeyPageUp);
    EXPECT_EQ(position(), std::pair(1, 3));
    go(KeyEnd);
    EXPECT_EQ(position(), std::pair(1, 15));
    go(KeyRight);
    EXPECT_EQ(position(), std::pair(1, 15));
    go(KeyHome);
    go(KeyLeft);
    EXPECT_EQ(position(), std::pair(1, 1));
}

TEST_F(Navigation, MovesThroughTheThreeMessages) {
    show(Page::Messages, 1, 30);
    go(KeyPageDown);
    go(KeyPageUp);
    go(KeyUp);
    EXPECT_EQ(position(), std::pair(1, 30));
    go(KeyRight);
    go(KeyRight);
    EXPECT_EQ(position(), std::pair(1, 31));
    go(KeyHome);
    EXPECT_EQ(position(), std::pair(1, 1));
    go(KeyEnd);
    EXPECT_EQ(position(), std::pair(1, 31));
    go(KeyDown);
    go(KeyDown);
    go(KeyDown);
    EXPECT_EQ(position(), std::pair(3, 31));
}

TEST_F(Navigation, StartsTheNextRowWithEnter) {
    show(Page::Animation, 14, 9);
    go(KeyEnter);
    EXPECT_EQ(position(), std::pair(15, 1));
    show(Page::Animation, 15, 9);
    go(KeyEnter);
    EXPECT_EQ(position(), std::pair(15, 1));
    show(Page::Messages, 1, 20);
    go(KeyEnter);
    EXPECT_EQ(position(), std::pair(2, 1));
}

TEST_F(Navigation, RemovesTheGlyphAtTheCursorWithDelete) {
    world.setRow(1, "ABCD");
    show(Page::Name, 1, 2);
    go(KeyDelete);
    EXPECT_EQ(world.text(1), "ACD");
    EXPECT_EQ(position(), std::pair(1, 2));
    EXPECT_TRUE(world.isShownLikeDocument());
}

TEST_F(Navigation, RemovesTheGlyphBeforeTheCursorWithBackspace) {
    for (const Page page : {Page::Name, Page::Animation, Page::Messages}) {
        show(page, 1, 3);
        world.setRow(1, "ABCD");
        go(KeyBackspace);
        EXPECT_EQ(world.text(1), "ACD");
        EXPECT_EQ(position(), std::pair(1, 2));
        EXPECT_TRUE(world.isShownLikeDocument());
    }
}

TEST_F(Navigation, DoesNothingForBackspaceInTheFirstColumn) {
    world.setRow(1, "ABCD");
    show(Page::Name, 1, 1);
    go(KeyBackspace);
    EXPECT_EQ(world.text(1), "ABCD");
    EXPECT_EQ(position(), std::pair(1, 1));
    EXPECT_EQ(world.damage(), CellBlock());
}

TEST_F(Navigation, IsSilent) {
    show(Page::Messages, 1, 3);
    for (const int key : {13, 8, 33, 34, 35, 36, 37, 38, 39, 40, 46}) {
        go(key);
    }
    EXPECT_TRUE(world.shown.kinds.empty());
}

} // namespace

TEST(TypingKeys, NamesTheKeysOfAGlyph) {
    KeyMap map = editing::DefaultKeyMap();
    map[KeyIndex(ui::KeyF1 + 4)][0] = 5;
    map[KeyIndex(ui::KeyDigit0 + 7)][2] = 5;
    map[KeyIndex(ui::KeyA)][1] = 5;
    EXPECT_EQ(editing::TypingKeys(map, false, 5), (std::vector<std::string>{"F5", "Shift+A", "Ctrl+7"}));
    EXPECT_TRUE(editing::TypingKeys(map, false, 6).empty());
}

TEST(TypingKeys, GoByTheTypingColour) {
    const KeyMap map = editing::DefaultKeyMap();
    EXPECT_EQ(editing::TypingKeys(map, false, 'g'), std::vector<std::string>{"G"});
    EXPECT_TRUE(editing::TypingKeys(map, false, 'g' + 128).empty());
    EXPECT_TRUE(editing::TypingKeys(map, true, 'g').empty());
    EXPECT_EQ(editing::TypingKeys(map, true, 'g' + 128), std::vector<std::string>{"G"});
    EXPECT_EQ(editing::TypingKeys(map, true, 128), std::vector<std::string>{"F1"});
}

TEST(TypingKeys, LeavesOutWhatNeverTypes) {
    KeyMap map{};
    map[KeyIndex(ui::KeyEnter)] = {7, 7, 7};
    map[KeyIndex(ui::KeyPause)] = {8, 8, 8};
    EXPECT_TRUE(editing::TypingKeys(map, false, 7).empty());
    EXPECT_EQ(editing::TypingKeys(map, false, 8), (std::vector<std::string>{"Pause", "Shift+Pause"}));
    EXPECT_TRUE(editing::TypingKeys(map, false, 0).empty());
}

TEST(TypingKeys, AgreeWithWhatAKeyPressTypes) {
    const KeyMap map = editing::DefaultKeyMap();
    for (int key = 1; key < 223; ++key) {
        for (const bool isCtrl : {false, true}) {
            ui::KeyStroke stroke;
            stroke.virtualKey = key;
            stroke.isCtrl = isCtrl;
            const KeyAction action = RouteKey(stroke, {}, map, editing::NumberPadRule::Desktop);
            const std::size_t place = KeyIndex(key);
            if (key == ui::KeyPause && isCtrl) {
                continue; // the keyboard sends Cancel
            }
            if (std::holds_alternative<editing::GlyphAction>(action) && place != 0) {
                EXPECT_TRUE(editing::CanType(place, isCtrl ? 2 : 0)) << key;
            }
        }
    }
}

} // namespace editing
