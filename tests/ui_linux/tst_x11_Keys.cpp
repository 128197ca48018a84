// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "X11Keys.h"
#include "ui/qt/KeyReader.h"

namespace {

TEST_F(X11Keys, AreTakenFromAUsKeyboard) {
    ASSERT_TRUE(X11Input::chooseLayout(QStringLiteral("us")));
    check({
        {"a", 38, {}, 65},
        {"A", 38, {ShiftCode}, 65, true},
        {"Ctrl+A", 38, {CtrlCode}, 65},
        {"1", 10, {}, 49},
        {"!", 10, {ShiftCode}, 49, true},
        {"apostrophe", 48, {}, 222},
        {"quotation mark", 48, {ShiftCode}, 222, true},
        {"backquote", 49, {}, 192},
        {"tilde", 49, {ShiftCode}, 192, true},
        {"backslash", 51, {}, 220},
        {"question mark", 61, {ShiftCode}, 191, true},
        {"Space", 65, {}, 32},
        {"Tab", 23, {}, 9},
        {"Shift+Tab", 23, {ShiftCode}, 9, true},
        {"Ctrl+Shift+Tab", 23, {CtrlCode, ShiftCode}, 9, true},
        {"Return", 36, {}, 13},
        {"Escape", 9, {}, 27},
        {"Backspace", 22, {}, 8},
        {"Insert", 118, {}, 45},
        {"Ctrl+Insert", 118, {CtrlCode}, 45},
        {"Delete", 119, {}, 46},
        {"Home", 110, {}, 36},
        {"End", 115, {}, 35},
        {"Page Up", 112, {}, 33},
        {"Page Down", 117, {}, 34},
        {"Left", 113, {}, 37},
        {"Up", 111, {}, 38},
        {"Right", 114, {}, 39},
        {"Down", 116, {}, 40},
        {"Pause", 127, {}, 19},
        {"Break", 127, {CtrlCode}, 3},
        {"Scroll Lock", 78, {}, 145},
        {"Menu", 135, {}, 93},
        {"F1", 67, {}, 112},
        {"F12", 96, {}, 123},
        {"F13", 191, {}, 124},
        {"F16", 194, {}, 127},
        {"Print", 107, {}, 0},
        {"Super", SuperCode, {}, 0},
        {"Super+A", 38, {SuperCode}, 0},
        {"louder", 123, {}, 0},
    });
}

TEST_F(X11Keys, AreTakenFromTheNumberPad) {
    ASSERT_TRUE(X11Input::chooseLayout(QStringLiteral("us")));
    check({
        {"4 without Num Lock", 83, {}, 37, false, true},
        {"5 without Num Lock", 84, {}, 12, false, true},
        {"7 without Num Lock", 79, {}, 36, false, true},
        {"decimal without Num Lock", 91, {}, 46, false, true},
        {"Enter", 104, {}, 13, false, true},
        {"multiply", 63, {}, 106, false, true},
        {"add", 86, {}, 107, false, true},
        {"subtract", 82, {}, 109, false, true},
        {"divide", 106, {}, 111, false, true},
        {"Num Lock", NumLockCode, {}, 144, false, false},
        {"4", 83, {}, 100, false, true},
        {"0", 90, {}, 96, false, true},
        {"5", 84, {}, 101, false, true},
        {"7", 79, {}, 103, false, true},
        {"decimal", 91, {}, 110, false, true},
        {"Shift+4", 83, {ShiftCode}, 37, false, true},
        {"Num Lock again", NumLockCode, {}, 144, false, false},
        {"Left again", 83, {}, 37, false, true},
    });
}

TEST_F(X11Keys, AreTakenFromAGermanKeyboard) {
    ASSERT_TRUE(X11Input::chooseLayout(QStringLiteral("de")));
    check({
        {"z stands where us y does", 29, {}, 90},
        {"y stands where us z does", 52, {}, 89},
        {"Shift+7", 16, {ShiftCode}, 191, false},
        {"Shift+0", 19, {ShiftCode}, 187, false},
        {"Shift+2", 11, {ShiftCode}, 222, true},
        {"Shift+3", 12, {ShiftCode}, 51, true},
        {"sharp s", 20, {}, 189, false},
        {"Shift+sharp s", 20, {ShiftCode}, 191, true},
        {"plus", 35, {}, 187, true},
        {"asterisk", 35, {ShiftCode}, 56, true},
        {"number sign", 51, {}, 51, true},
        {"apostrophe", 51, {ShiftCode}, 222, false},
        {"o with two dots", 47, {}, 186, false},
        {"O with two dots", 47, {ShiftCode}, 186, true},
        {"less", 94, {}, 188, true},
        {"minus", 61, {}, 189, false},
        {"dead circumflex", 49, {}, 54, true},
        {"a after the dead key", 38, {}, 65},
        {"dead acute", 21, {}, 222, false},
        {"dead grave", 21, {ShiftCode}, 192, false},
        {"AltGr", AltGrCode, {}, 0},
        {"AltGr+Q", 24, {AltGrCode}, 50, true},
        {"AltGr+E", 26, {AltGrCode}, 0},
        {"AltGr+Insert", 118, {AltGrCode}, 0},
        {"AltGr+left Alt+Q", 24, {AltGrCode, AltCode}, 0},
        {"pad decimal", 91, {}, 46, false, true},
    });
}

TEST_F(X11Keys, AreTakenFromAFrenchKeyboard) {
    ASSERT_TRUE(X11Input::chooseLayout(QStringLiteral("fr")));
    check({
        {"a stands where us q does", 24, {}, 65},
        {"q stands where us a does", 38, {}, 81},
        {"m stands where us semicolon does", 47, {}, 77},
        {"1", 10, {}, 55, true},
        {"Shift+1", 10, {ShiftCode}, 49, false},
        {"2", 11, {}, 50, false},
        {"Shift+2", 11, {ShiftCode}, 50, false},
        {"4", 13, {}, 222, false},
        {"Caps Lock", CapsLockCode, {}, 20},
        {"1 with Caps Lock", 10, {}, 55, true},
        {"a with Caps Lock", 24, {}, 65, false},
        {"Caps Lock again", CapsLockCode, {}, 20},
        {"exclamation mark", 61, {}, 49, true},
        {"dead circumflex", 34, {}, 54, true},
        {"AltGr", AltGrCode, {}, 0},
    });
}

TEST_F(X11Keys, AreTakenFromARussianKeyboard) {
    ASSERT_TRUE(X11Input::chooseLayout(QStringLiteral("ru")));
    check({
        {"short i", 24, {}, 81},
        {"Shift+short i", 24, {ShiftCode}, 81, true},
        {"be", 59, {}, 188},
        {"ya", 52, {}, 90},
        {"io", 49, {}, 192},
        {"zhe", 47, {}, 186},
        {"kha", 34, {}, 219},
        {"1", 10, {}, 49},
        {"Shift+1", 10, {ShiftCode}, 49, true},
        {"Shift+2", 11, {ShiftCode}, 222, true},
        {"Ctrl+ef", 38, {CtrlCode}, 65},
    });
}

TEST_F(X11Keys, RepeatWhileTheyAreHeld) {
    ASSERT_TRUE(X11Input::chooseLayout(QStringLiteral("us")));
    constexpr unsigned InsertCode = 118;
    constexpr std::size_t Repeats = 15;
    ui::qt::KeyReader reader;
    X11Input::press(InsertCode);
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_keys.presses.size() > Repeats; }));
    EXPECT_TRUE(m_keys.releases.empty());
    X11Input::release(InsertCode);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !m_keys.releases.empty(); }));
    EXPECT_EQ(m_keys.releases.size(), 1U);
    EXPECT_FALSE(reader.press(*m_keys.presses[0]).isRepeat);
    for (std::size_t i = 1; i < m_keys.presses.size(); ++i) {
        EXPECT_TRUE(reader.press(*m_keys.presses[i]).isRepeat) << i;
    }
    reader.release(*m_keys.releases[0]);
    EXPECT_FALSE(reader.press(*m_keys.presses[0]).isRepeat);
}

} // namespace
