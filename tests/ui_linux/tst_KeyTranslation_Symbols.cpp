// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "KeyRows.h"

#include <QKeyEvent>
#include <array>
#include <string>

namespace {

using ui::KeyStroke;
using ui::native::FactsOf;
using ui::native::KeyFacts;
using ui::native::TranslateKey;

/// A press that shows a printable ASCII character, whose symbol has the character's own number.
KeyFacts ShownKey(char character, unsigned scanCode, bool shift = false) {
    KeyFacts facts = Real(QChar::fromLatin1(character).toUpper().unicode(), scanCode, shift);
    facts.symbol = static_cast<unsigned char>(character);
    return facts;
}

KeyFacts AltGr(KeyFacts facts) {
    facts.altGr = true;
    return facts;
}

KeyFacts AltGr(int key, unsigned symbol, unsigned scanCode) {
    KeyFacts facts = AltGr(Real(key, scanCode));
    facts.symbol = symbol;
    return facts;
}

TEST(TranslateKey, TakesAnAsciiSymbolOfAltGrForTheUsKeyThatBearsIt) {
    CheckRows({
        {"de @", AltGr(ShownKey('@', 24)), 50, true},
        {"de [", AltGr(ShownKey('[', 17)), 219, false},
        {"de ]", AltGr(ShownKey(']', 18)), 221, false},
        {"de {", AltGr(ShownKey('{', 16)), 219, true},
        {"de }", AltGr(ShownKey('}', 19)), 221, true},
        {"de backslash", AltGr(ShownKey('\\', 20)), 220, false},
        {"de |", AltGr(ShownKey('|', 94)), 220, true},
        {"de ~", AltGr(ShownKey('~', 35)), 192, true},
        {"fr #", AltGr(ShownKey('#', 12)), 51, true},
        {"fr `", AltGr(ShownKey('`', 16)), 192, false},
        {"fr ^", AltGr(ShownKey('^', 18)), 54, true},
        {"cz &", AltGr(ShownKey('&', 16)), 55, true},
        {"br ^ with Shift", AltGr(ShownKey('^', 48, true)), 54, true},
        {"us intl ' with Shift", AltGr(ShownKey('\'', 48, true)), 222, false},
        {"a digit", AltGr(ShownKey('1', 10)), 49, false},
        {"a space", AltGr(ShownKey(' ', 65)), 32, false},
        {"a letter", AltGr(ShownKey('a', 38)), 65, false},
        {"a capital", AltGr(ShownKey('A', 38, true)), 65, true},
        {"a capital without Shift", AltGr(ShownKey('A', 38)), 65, true},
        {"a letter on the number pad", AltGr(ShownKey('a', 79)), 65, false},
        {"its number is not known", AltGr(Real(Qt::Key_At, 24)), 50, true},
        {"no keyboard made it", AltGr(Synthetic(Qt::Key_At)), 50, false},
    });
}

TEST(TranslateKey, TakesADeadKeyOfAltGrForTheSymbolThatItStandsFor) {
    CheckRows({
        {"se ~", AltGr(Qt::Key_Dead_Tilde, 0xFE53, 35), 192, true},
        {"be acute", AltGr(Qt::Key_Dead_Acute, 0xFE51, 48), 222, false},
        {"pt grave", AltGr(Qt::Key_Dead_Grave, 0xFE50, 51), 192, false},
        {"no circumflex", AltGr(Qt::Key_Dead_Circumflex, 0xFE52, 48), 54, true},
        {"ring", AltGr(Qt::Key_Dead_Abovering, 0xFE58, 34), 0},
    });
}

TEST(TranslateKey, TypesNothingElseWhileAltGrIsHeld) {
    CheckRows({
        {"euro", AltGr(0x20AC, 0x20AC, 26), 0},
        {"micro", AltGr(0xB5, 0xB5, 58), 0},
        {"pl a with tail", AltGr(0x104, 0x1B1, 38), 0},
        {"an i without a dot, which the toolkit calls I", AltGr(Qt::Key_I, 0x2B9, 31), 0},
        {"space that does not break", AltGr(Qt::Key_nobreakspace, 0xA0, 65), 0},
        {"Insert", AltGr(Qt::Key_Insert, 0xFF63, 118), 0},
        {"Insert whose symbol is not known", AltGr(Real(Qt::Key_Insert, 118)), 0},
        {"Left", AltGr(Qt::Key_Left, 0xFF51, 113), 0},
        {"Return", AltGr(Qt::Key_Return, 0xFF0D, 36), 0},
        {"F1", AltGr(Qt::Key_F1, 0xFFBE, 67), 0},
        {"Num Lock", AltGr(Qt::Key_NumLock, 0xFF7F, 77), 0},
        {"pad 7", AltGr(Qt::Key_7, 0xFFB7, 79), 0},
        {"AltGr again", AltGr(Qt::Key_AltGr, 0xFE03, 108), 0},
    });
}

TEST(TranslateKey, TypesNothingWhileBothKindsOfAltAreHeld) {
    KeyFacts both = AltGr(ShownKey('@', 24));
    both.alt = true;
    EXPECT_EQ(TranslateKey(both), (KeyStroke{0, false, false, true}));
    KeyFacts digit = AltGr(ShownKey('[', 17));
    digit.alt = true;
    EXPECT_EQ(TranslateKey(digit).virtualKey, 0);
    KeyFacts super = AltGr(ShownKey('@', 24));
    super.meta = true;
    EXPECT_EQ(TranslateKey(super).virtualKey, 0);
}

TEST(TranslateKey, HearsOfAltGrInTwoWays) {
    const auto press = [](Qt::Key key, Qt::KeyboardModifiers held, unsigned symbol, unsigned nativeHeld) {
        return FactsOf(QKeyEvent(QEvent::KeyPress, key, held, 26, symbol, nativeHeld));
    };
    constexpr auto Euro = static_cast<Qt::Key>(0x20AC);
    EXPECT_TRUE(press(Euro, Qt::GroupSwitchModifier, 0x20AC, 0).altGr);
    EXPECT_TRUE(press(Euro, Qt::NoModifier, 0x20AC, 0x80).altGr);
    EXPECT_TRUE(press(Euro, Qt::NoModifier, 0x20AC, 0x92).altGr) << "Caps Lock and Num Lock are on";
    EXPECT_FALSE(press(Qt::Key_E, Qt::NoModifier, 'e', 0x12).altGr);
    EXPECT_FALSE(press(Qt::Key_E, Qt::AltModifier, 'e', 0x08).altGr);
    EXPECT_EQ(TranslateKey(press(Euro, Qt::NoModifier, 0x20AC, 0x80)).virtualKey, 0);
    EXPECT_EQ(TranslateKey(press(Qt::Key_At, Qt::NoModifier, '@', 0x80)), (KeyStroke{50, true}));
}

TEST(TranslateKey, GivesACapitalWithoutShiftTheShiftThatItShows) {
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        const auto small = static_cast<char>(letter - 'A' + 'a');
        CheckRows({
            {"capital", ShownKey(letter, 9), letter, true},
            {"capital with Shift", ShownKey(letter, 9, true), letter, true},
            {"small", ShownKey(small, 9), letter, false},
            {"small with Shift", ShownKey(small, 9, true), letter, true},
        });
    }
    CheckRows({
        {"no keyboard made it", ShownKey('H', 0), 72, false},
    });
    // Held with Ctrl, a key without Latin letters is called as on a US keyboard.
    KeyFacts cyrillic = Real(Qt::Key_A, 38);
    cyrillic.symbol = 0x6E6;
    EXPECT_EQ(TranslateKey(cyrillic), (KeyStroke{65, false}));
}

TEST(TranslateKey, LeavesCapitalsOfCapsLockToTheCaseMode) {
    KeyFacts facts = ShownKey('A', 38);
    facts.capsLock = true;
    EXPECT_EQ(TranslateKey(facts), (KeyStroke{65, false}));
    facts = ShownKey('a', 38, true);
    facts.capsLock = true;
    EXPECT_EQ(TranslateKey(facts), (KeyStroke{65, true}));
    EXPECT_TRUE(FactsOf(QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, 38, 'A', 0x2)).capsLock);
    EXPECT_FALSE(FactsOf(QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, 38, 'A', 0x11)).capsLock);
}

TEST(TranslateKey, KeepsTheKeyOfACombinationThatAVirtualKeyboardSends) {
    KeyFacts ctrl = ShownKey('A', 38);
    ctrl.ctrl = true;
    EXPECT_EQ(TranslateKey(ctrl), (KeyStroke{65, true, true}));
    ctrl = ShownKey('a', 38);
    ctrl.ctrl = true;
    EXPECT_EQ(TranslateKey(ctrl), (KeyStroke{65, false, true}));
    KeyFacts alt = ShownKey('f', 10);
    alt.alt = true;
    EXPECT_EQ(TranslateKey(alt), (KeyStroke{70, false, false, true})) << "at the place of the key 1";
    alt = ShownKey('r', 9, true);
    alt.alt = true;
    EXPECT_EQ(TranslateKey(alt), (KeyStroke{82, true, false, true}));
}

TEST(TranslateKey, TakesACharacterForItselfWhereverAVirtualKeyboardHasIt) {
    const std::string signs = R"(!"#$%&'()*+-/0123456789:;<=>?@[\]^_`{|}~ az)";
    constexpr std::array<unsigned, 8> PlacesOfOtherKeys{79, 83, 84, 91, 90, 82, 191, 194};
    for (const char sign : signs) {
        const KeyStroke expected = TranslateKey(ShownKey(sign, 9));
        EXPECT_NE(expected.virtualKey, 0) << sign;
        for (const unsigned place : PlacesOfOtherKeys) {
            EXPECT_EQ(TranslateKey(ShownKey(sign, place)), expected) << sign << place;
        }
    }
}

TEST(TranslateKey, TakesANamedKeyForItselfWhereverAVirtualKeyboardHasIt) {
    const auto symbolOf = [](int key, unsigned symbol, unsigned scanCode) {
        KeyFacts facts = Real(key, scanCode);
        facts.symbol = symbol;
        return TranslateKey(facts);
    };
    EXPECT_EQ(symbolOf(Qt::Key_Return, 0xFF0D, 83), (KeyStroke{13}));
    EXPECT_EQ(symbolOf(Qt::Key_Backspace, 0xFF08, 79), (KeyStroke{8}));
    EXPECT_EQ(symbolOf(Qt::Key_Left, 0xFF51, 90), (KeyStroke{37}));
    EXPECT_EQ(symbolOf(Qt::Key_F1, 0xFFBE, 84), (KeyStroke{112}));
    EXPECT_EQ(symbolOf(Qt::Key_Return, 0xFF0D, 192), (KeyStroke{13}));
    EXPECT_EQ(symbolOf(Qt::Key_7, 0xFFB7, 13), (KeyStroke{103, false, false, false, true}));
    EXPECT_EQ(symbolOf(Qt::Key_7, 0xFFB7, 83), (KeyStroke{103, false, false, false, true}));
    EXPECT_EQ(symbolOf(Qt::Key_Plus, 0xFFAB, 83), (KeyStroke{107, false, false, false, true}));
}

TEST(TranslateKey, KeepsThePadOfARealKeyboardByItsPlace) {
    const auto symbolOf = [](int key, unsigned symbol, unsigned scanCode) {
        KeyFacts facts = Real(key, scanCode);
        facts.symbol = symbol;
        return TranslateKey(facts);
    };
    EXPECT_EQ(symbolOf(Qt::Key_Comma, ',', 91), (KeyStroke{110, false, false, false, true})) << "de";
    EXPECT_EQ(symbolOf(Qt::Key_Period, '.', 91), (KeyStroke{110, false, false, false, true}));
    EXPECT_EQ(symbolOf(0x6F4, 0x10006F4, 83), (KeyStroke{100, false, false, false, true})) << "a Persian 4";
    EXPECT_EQ(symbolOf(Qt::Key_Tools, 0x1008FF81, 191), (KeyStroke{124}));
}

} // namespace
