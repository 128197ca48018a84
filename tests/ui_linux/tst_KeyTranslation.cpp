// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "KeyRows.h"
#include "ui/qt/KeyTranslation.h"

#include <QKeyEvent>
#include <array>
#include <string>

namespace {

using ui::KeyStroke;
using ui::native::KeyFacts;
using ui::native::TranslateKey;
using ui::qt::TranslateKey;

KeyFacts Pad(int key, unsigned scanCode, unsigned symbol, bool shift = false) {
    KeyFacts facts = Real(key, scanCode, shift);
    facts.symbol = symbol;
    facts.keypad = true;
    return facts;
}

TEST(TranslateKey, TakesLettersByTheirSymbol) {
    for (int letter = 'A'; letter <= 'Z'; ++letter) {
        CheckRows(
            {{"synthetic", Synthetic(letter), letter}, {"shift", Synthetic(letter, true), letter, true}});
    }
    CheckRows({
        {"us y", Real(Qt::Key_Y, 29), 89},
        {"us z", Real(Qt::Key_Z, 52), 90},
        {"de y stands where us z does", Real(Qt::Key_Y, 52), 89},
        {"de z", Real(Qt::Key_Z, 29), 90},
        {"fr a stands where us q does", Real(Qt::Key_A, 24), 65},
        {"fr q", Real(Qt::Key_Q, 38, true), 81, true},
        {"fr m stands where us semicolon does", Real(Qt::Key_M, 47), 77},
    });
}

TEST(TranslateKey, TakesTheKeysOfAUsKeyboard) {
    CheckRows({
        {"1", Real(Qt::Key_1, 10), 49},
        {"!", Real(Qt::Key_Exclam, 10, true), 49, true},
        {"2", Real(Qt::Key_2, 11), 50},
        {"@", Real(Qt::Key_At, 11, true), 50, true},
        {"3", Real(Qt::Key_3, 12), 51},
        {"#", Real(Qt::Key_NumberSign, 12, true), 51, true},
        {"4", Real(Qt::Key_4, 13), 52},
        {"$", Real(Qt::Key_Dollar, 13, true), 52, true},
        {"5", Real(Qt::Key_5, 14), 53},
        {"%", Real(Qt::Key_Percent, 14, true), 53, true},
        {"6", Real(Qt::Key_6, 15), 54},
        {"^", Real(Qt::Key_AsciiCircum, 15, true), 54, true},
        {"7", Real(Qt::Key_7, 16), 55},
        {"&", Real(Qt::Key_Ampersand, 16, true), 55, true},
        {"8", Real(Qt::Key_8, 17), 56},
        {"*", Real(Qt::Key_Asterisk, 17, true), 56, true},
        {"9", Real(Qt::Key_9, 18), 57},
        {"(", Real(Qt::Key_ParenLeft, 18, true), 57, true},
        {"0", Real(Qt::Key_0, 19), 48},
        {")", Real(Qt::Key_ParenRight, 19, true), 48, true},
        {"-", Real(Qt::Key_Minus, 20), 189},
        {"_", Real(Qt::Key_Underscore, 20, true), 189, true},
        {"=", Real(Qt::Key_Equal, 21), 187},
        {"+", Real(Qt::Key_Plus, 21, true), 187, true},
        {"[", Real(Qt::Key_BracketLeft, 34), 219},
        {"{", Real(Qt::Key_BraceLeft, 34, true), 219, true},
        {"]", Real(Qt::Key_BracketRight, 35), 221},
        {"}", Real(Qt::Key_BraceRight, 35, true), 221, true},
        {";", Real(Qt::Key_Semicolon, 47), 186},
        {":", Real(Qt::Key_Colon, 47, true), 186, true},
        {"'", Real(Qt::Key_Apostrophe, 48), 222},
        {"\"", Real(Qt::Key_QuoteDbl, 48, true), 222, true},
        {"`", Real(Qt::Key_QuoteLeft, 49), 192},
        {"~", Real(Qt::Key_AsciiTilde, 49, true), 192, true},
        {"backslash", Real(Qt::Key_Backslash, 51), 220},
        {"|", Real(Qt::Key_Bar, 51, true), 220, true},
        {",", Real(Qt::Key_Comma, 59), 188},
        {"<", Real(Qt::Key_Less, 59, true), 188, true},
        {".", Real(Qt::Key_Period, 60), 190},
        {">", Real(Qt::Key_Greater, 60, true), 190, true},
        {"/", Real(Qt::Key_Slash, 61), 191},
        {"?", Real(Qt::Key_Question, 61, true), 191, true},
    });
}

TEST(TranslateKey, GivesTheShiftThatTheSymbolNeedsOnAUsKeyboard) {
    CheckRows({
        {"de Shift+7", Real(Qt::Key_Slash, 16, true), 191, false},
        {"de Shift+0", Real(Qt::Key_Equal, 19, true), 187, false},
        {"de +", Real(Qt::Key_Plus, 35), 187, true},
        {"de #", Real(Qt::Key_NumberSign, 51), 51, true},
        {"de Shift+#", Real(Qt::Key_Apostrophe, 51, true), 222, false},
        {"de <", Real(Qt::Key_Less, 94), 188, true},
        {"de Shift+comma", Real(Qt::Key_Semicolon, 59, true), 186, false},
        {"fr 1", Real(Qt::Key_Ampersand, 10), 55, true},
        {"fr Shift+1", Real(Qt::Key_1, 10, true), 49, false},
        {"fr 4", Real(Qt::Key_Apostrophe, 13), 222, false},
        {"fr !", Real(Qt::Key_Exclam, 61), 49, true},
        {"fr Shift+comma", Real(Qt::Key_Question, 58, true), 191, true},
    });
}

TEST(TranslateKey, TakesAForeignSymbolByItsPlaceOnTheKeyboard) {
    CheckRows({
        {"de o with two dots", Real(Qt::Key_Odiaeresis, 47), 186, false},
        {"de O with two dots", Real(Qt::Key_Odiaeresis, 47, true), 186, true},
        {"de sharp s", Real(Qt::Key_ssharp, 20), 189, false},
        {"fr 2", Real(Qt::Key_Eacute, 11), 50, false},
        {"fr squared", Real(Qt::Key_twosuperior, 49), 192, false},
        {"de paragraph sign", Real(Qt::Key_section, 12, true), 51, true},
        {"ru short i", Real(0x419, 24), 81, false},
        {"ru short i, Shift", Real(0x419, 24, true), 81, true},
        {"ru ya", Real(0x42F, 52), 90, false},
        {"ru be", Real(0x411, 59), 188, false},
        {"ru io", Real(0x401, 49), 192, false},
        {"ru zhe", Real(0x416, 47), 186, false},
        {"ru e", Real(0x42D, 48), 222, false},
        {"ru kha", Real(0x425, 34), 219, false},
        {"ru hard sign", Real(0x42A, 35), 221, false},
        {"a place without a character", Real(0x419, 100), 0},
        {"no place at all", Synthetic(0x419), 0},
    });
}

TEST(TranslateKey, KnowsEveryPlaceThatTypesACharacter) {
    constexpr std::array<int, 12> Digits = {49, 50, 51, 52, 53, 54, 55, 56, 57, 48, 189, 187};
    const std::string top = "QWERTYUIOP";
    const std::string middle = "ASDFGHJKL";
    const std::string bottom = "ZXCVBNM";
    constexpr int Foreign = 0x419;
    for (unsigned i = 0; i < Digits.size(); ++i) {
        EXPECT_EQ(TranslateKey(Real(Foreign, 10 + i)).virtualKey, Digits[i]);
    }
    for (unsigned i = 0; i < top.size(); ++i) {
        EXPECT_EQ(TranslateKey(Real(Foreign, 24 + i)).virtualKey, top[i]);
    }
    for (unsigned i = 0; i < middle.size(); ++i) {
        EXPECT_EQ(TranslateKey(Real(Foreign, 38 + i)).virtualKey, middle[i]);
    }
    for (unsigned i = 0; i < bottom.size(); ++i) {
        EXPECT_EQ(TranslateKey(Real(Foreign, 52 + i)).virtualKey, bottom[i]);
    }
    CheckRows({
        {"[", Real(Foreign, 34), 219},
        {"]", Real(Foreign, 35), 221},
        {";", Real(Foreign, 47), 186},
        {"'", Real(Foreign, 48), 222},
        {"`", Real(Foreign, 49), 192},
        {"backslash", Real(Foreign, 51), 220},
        {",", Real(Foreign, 59), 188},
        {".", Real(Foreign, 60), 190},
        {"/", Real(Foreign, 61), 191},
        {"between the rows", Real(Foreign, 50), 0},
    });
}

TEST(TranslateKey, LeavesTheShiftOfSyntheticPressesAsGiven) {
    CheckRows({
        {"!", Synthetic(Qt::Key_Exclam), 49, false},
        {"! with Shift", Synthetic(Qt::Key_Exclam, true), 49, true},
        {"1 with Shift", Synthetic(Qt::Key_1, true), 49, true},
        {"/ with Shift", Synthetic(Qt::Key_Slash, true), 191, true},
        {"Backtab with Shift", Synthetic(Qt::Key_Backtab, true), 9, true},
        {"dead circumflex", Synthetic(Qt::Key_Dead_Circumflex), 54, false},
    });
}

TEST(TranslateKey, TakesTheKeysThatTypeNoCharacter) {
    CheckRows({
        {"Backspace", Real(Qt::Key_Backspace, 22), 8},
        {"Tab", Real(Qt::Key_Tab, 23), 9},
        {"Shift+Tab", Real(Qt::Key_Backtab, 23, true), 9, true},
        {"Return", Real(Qt::Key_Return, 36), 13},
        {"Pause", Real(Qt::Key_Pause, 127), 19},
        {"Caps Lock", Real(Qt::Key_CapsLock, 66), 20},
        {"Escape", Real(Qt::Key_Escape, 9), 27},
        {"Space", Real(Qt::Key_Space, 65), 32},
        {"Shift+Space", Real(Qt::Key_Space, 65, true), 32, true},
        {"Shift+Space of some layouts", Real(Qt::Key_nobreakspace, 65, true), 32, true},
        {"Page Up", Real(Qt::Key_PageUp, 112), 33},
        {"Page Down", Real(Qt::Key_PageDown, 117), 34},
        {"End", Real(Qt::Key_End, 115), 35},
        {"Home", Real(Qt::Key_Home, 110), 36},
        {"Left", Real(Qt::Key_Left, 113), 37},
        {"Up", Real(Qt::Key_Up, 111), 38},
        {"Right", Real(Qt::Key_Right, 114), 39},
        {"Down", Real(Qt::Key_Down, 116), 40},
        {"Insert", Real(Qt::Key_Insert, 118), 45},
        {"Delete", Real(Qt::Key_Delete, 119), 46},
        {"Shift", Real(Qt::Key_Shift, 50, true), 16, true},
        {"Control", Real(Qt::Key_Control, 37), 17},
        {"Alt", Real(Qt::Key_Alt, 64), 18},
        {"Num Lock", Real(Qt::Key_NumLock, 77), 144},
        {"Scroll Lock", Real(Qt::Key_ScrollLock, 78), 145},
        {"Menu", Real(Qt::Key_Menu, 135), 93},
        {"F1", Real(Qt::Key_F1, 67), 112},
        {"F12", Real(Qt::Key_F12, 96), 123},
        {"F13", Synthetic(Qt::Key_F13), 124},
        {"F16", Synthetic(Qt::Key_F16), 127},
        {"F24", Synthetic(Qt::Key_F24), 135},
        {"F13 as the layouts have it", Real(Qt::Key_Tools, 191), 124},
        {"F14 as the layouts have it", Real(Qt::Key_Launch5, 192), 125},
        {"F15 as the layouts have it", Real(Qt::Key_Launch6, 193), 126},
        {"F16 as the layouts have it", Real(Qt::Key_Launch7, 194), 127},
    });
}

TEST(TranslateKey, KnowsBreakByItsSymbol) {
    KeyFacts facts = Real(0, 127);
    facts.symbol = 0xFF6B;
    facts.ctrl = true;
    EXPECT_EQ(TranslateKey(facts).virtualKey, 3);
}

TEST(TranslateKey, CountsDeadKeysAsTheSymbolThatTheyStandFor) {
    CheckRows({
        {"acute", Real(Qt::Key_Dead_Acute, 48), 222, false},
        {"grave", Real(Qt::Key_Dead_Grave, 49), 192, false},
        {"circumflex of a German keyboard", Real(Qt::Key_Dead_Circumflex, 49), 54, true},
        {"tilde", Real(Qt::Key_Dead_Tilde, 49, true), 192, true},
        {"diaeresis", Real(Qt::Key_Dead_Diaeresis, 48, true), 222, true},
    });
}

TEST(TranslateKey, LeavesTheDesktopsKeysAlone) {
    CheckRows({
        {"Super", Real(Qt::Key_Meta, 133), 0},
        {"Super on Wayland", Real(Qt::Key_Super_L, 133), 0},
        {"AltGr", Real(Qt::Key_AltGr, 108), 0},
        {"Compose", Real(Qt::Key_Multi_key, 135), 0},
        {"Print", Real(Qt::Key_Print, 107), 0},
        {"SysRq", Real(Qt::Key_SysReq, 107), 0},
        {"louder", Real(Qt::Key_VolumeUp, 123), 0},
        {"play", Real(Qt::Key_MediaPlay, 172), 0},
        {"microphone", Real(Qt::Key_MicMute, 198), 0},
        {"dead cedilla", Real(Qt::Key_Dead_Cedilla, 34), 0},
        {"dead ring", Real(Qt::Key_Dead_Abovering, 34), 0},
        {"unknown", Real(Qt::Key_unknown, 34), 0},
        {"no key", Real(0, 34), 0},
    });
}

TEST(TranslateKey, TypesNothingWhileSuperIsHeld) {
    KeyFacts super = Real(Qt::Key_A, 38);
    super.meta = true;
    EXPECT_EQ(TranslateKey(super).virtualKey, 0);
}

TEST(TranslateKey, PassesControlAltAndRepetitionOn) {
    KeyFacts facts = Real(Qt::Key_A, 38);
    facts.ctrl = true;
    facts.alt = true;
    facts.autoRepeat = true;
    EXPECT_EQ(TranslateKey(facts), (KeyStroke{65, false, true, true, false, true}));
}

TEST(TranslateKey, TakesTheDigitRowByItsPlaceWhileAltIsHeld) {
    // French: the first key of the row types an ampersand, and the digit with Shift.
    for (const bool isShift : {false, true}) {
        KeyFacts facts = Real(isShift ? Qt::Key_1 : Qt::Key_Ampersand, 10, isShift);
        facts.alt = true;
        const KeyStroke press = TranslateKey(facts);
        EXPECT_EQ(press.virtualKey, '1');
        EXPECT_EQ(press.isShift, isShift);
        EXPECT_TRUE(press.isAlt);
    }
    KeyFacts facts = Real(Qt::Key_Exclam, 10, true);
    facts.alt = true;
    EXPECT_EQ(TranslateKey(facts).virtualKey, '1');
    facts = Real(Qt::Key_W, 52); // a letter stays a letter wherever it lies
    facts.alt = true;
    EXPECT_EQ(TranslateKey(facts).virtualKey, 'W');
}

TEST(TranslateKey, ReadsThePadAsTheKeyboardReportsIt) {
    CheckRows({
        {"0", Pad(Qt::Key_0, 90, 0xFFB0), 96},
        {"1", Pad(Qt::Key_1, 87, 0xFFB1), 97},
        {"5", Pad(Qt::Key_5, 84, 0xFFB5), 101},
        {"9", Pad(Qt::Key_9, 81, 0xFFB9), 105},
        {"decimal point", Pad(Qt::Key_Period, 91, 0xFFAE), 110},
        {"decimal comma", Pad(Qt::Key_Comma, 91, 0xFFAC), 110},
        {"Insert", Pad(Qt::Key_Insert, 90, 0xFF9E), 45},
        {"End", Pad(Qt::Key_End, 87, 0xFF9C), 35},
        {"Down", Pad(Qt::Key_Down, 88, 0xFF99), 40},
        {"Page Down", Pad(Qt::Key_PageDown, 89, 0xFF9B), 34},
        {"Left", Pad(Qt::Key_Left, 83, 0xFF96), 37},
        {"Clear", Pad(Qt::Key_Clear, 84, 0xFF9D), 12},
        {"Right", Pad(Qt::Key_Right, 85, 0xFF98), 39},
        {"Home", Pad(Qt::Key_Home, 79, 0xFF95), 36},
        {"Up", Pad(Qt::Key_Up, 80, 0xFF97), 38},
        {"Page Up", Pad(Qt::Key_PageUp, 81, 0xFF9A), 33},
        {"Delete", Pad(Qt::Key_Delete, 91, 0xFF9F), 46},
        {"Shift+4 comes as Left", Pad(Qt::Key_Left, 83, 0xFF96, true), 37, true},
        {"multiply", Pad(Qt::Key_Asterisk, 63, 0xFFAA), 106},
        {"add", Pad(Qt::Key_Plus, 86, 0xFFAB), 107},
        {"subtract", Pad(Qt::Key_Minus, 82, 0xFFAD), 109},
        {"divide", Pad(Qt::Key_Slash, 106, 0xFFAF), 111},
        {"Enter", Pad(Qt::Key_Enter, 104, 0xFF8D), 13},
    });
}

TEST(TranslateKey, KnowsThePadWithoutTheToolkitSayingSo) {
    KeyFacts symbolOnly = Pad(Qt::Key_4, 83, 0xFFB4);
    symbolOnly.keypad = false;
    EXPECT_EQ(TranslateKey(symbolOnly).virtualKey, 100);
    KeyFacts add = Pad(Qt::Key_Plus, 86, 0xFFAB);
    add.keypad = false;
    EXPECT_EQ(TranslateKey(add).virtualKey, 107);
    // Layouts that put a plain full stop on the pad.
    EXPECT_EQ(TranslateKey(Real(Qt::Key_Period, 91)).virtualKey, 110);
}

TEST(TranslateKey, KnowsThePadInSyntheticPresses) {
    KeyFacts digit = Synthetic(Qt::Key_4);
    digit.keypad = true;
    EXPECT_EQ(TranslateKey(digit), (KeyStroke{100, false, false, false, true}));
    KeyFacts arrow = Synthetic(Qt::Key_Left);
    arrow.keypad = true;
    EXPECT_EQ(TranslateKey(arrow), (KeyStroke{37, false, false, false, true}));
}

TEST(TranslateKey, KeepsThePlainArrowsOffThePad) {
    EXPECT_EQ(TranslateKey(Real(Qt::Key_Left, 113)), (KeyStroke{37}));
    EXPECT_EQ(TranslateKey(Real(Qt::Key_4, 13)), (KeyStroke{52}));
}

TEST(TranslateKey, ReadsTheFactsOfAnEvent) {
    const QKeyEvent event(
        QEvent::KeyPress, Qt::Key_Slash, Qt::ShiftModifier | Qt::ControlModifier, 16, 0x2F, 0,
        QStringLiteral("/"), true);
    EXPECT_EQ(TranslateKey(event), (KeyStroke{191, false, true, false, false, true}));
    const QKeyEvent super(QEvent::KeyPress, Qt::Key_A, Qt::MetaModifier);
    EXPECT_EQ(TranslateKey(super).virtualKey, 0);
    const QKeyEvent pad(QEvent::KeyPress, Qt::Key_4, Qt::KeypadModifier | Qt::AltModifier);
    EXPECT_EQ(TranslateKey(pad), (KeyStroke{100, false, false, true, true}));
}

} // namespace
