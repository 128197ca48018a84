// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/KeyTranslation.h"
#include "ui/qt/Text.h"

#include <QKeyEvent>
#include <gtest/gtest.h>
#include <windows.h>

namespace {

using ui::KeyStroke;
using ui::qt::TranslateKey;

constexpr quint32 LeftControl = 0x08;
constexpr quint32 RightAlt = 0x80;
constexpr quint32 Extended = 0x01000000;

/// A press as the toolkit passes a message on.
KeyStroke Press(
    int key, Qt::KeyboardModifiers held, quint32 virtualKey, quint32 nativeHeld = 0,
    const QString& text = {}) {
    constexpr quint32 SomeScanCode = 1;
    return TranslateKey(QKeyEvent(QEvent::KeyPress, key, held, SomeScanCode, virtualKey, nativeHeld, text));
}

TEST(QtKeys, HaveTheNumbersOfTheMessage) {
    EXPECT_EQ(Press(Qt::Key_Q, {}, 'Q'), (KeyStroke{.virtualKey = 'Q'}));
    EXPECT_EQ(Press(Qt::Key_Slash, Qt::ShiftModifier, '7'), (KeyStroke{.virtualKey = '7', .isShift = true}))
        << "what the layout makes of it does not matter";
    EXPECT_EQ(
        Press(Qt::Key_Backtab, Qt::ShiftModifier, VK_TAB),
        (KeyStroke{.virtualKey = ui::KeyTab, .isShift = true}));
    EXPECT_EQ(Press(Qt::Key_Meta, {}, VK_LWIN).virtualKey, ui::KeyNone);
    EXPECT_EQ(Press(Qt::Key_D, Qt::MetaModifier, 'D').virtualKey, ui::KeyNone);
}

TEST(QtKeys, TellTheNumberPadByTheMessage) {
    EXPECT_EQ(
        Press(Qt::Key_Home, {}, VK_HOME), (KeyStroke{.virtualKey = ui::KeyHome, .isOnNumberPad = true}));
    EXPECT_EQ(Press(Qt::Key_Home, {}, VK_HOME, Extended), (KeyStroke{.virtualKey = ui::KeyHome}));
    EXPECT_EQ(
        Press(Qt::Key_4, Qt::KeypadModifier, VK_NUMPAD4),
        (KeyStroke{.virtualKey = 100, .isOnNumberPad = true}));
}

TEST(QtKeys, KnowAltGrFromCtrlAndAlt) {
    const auto both = Qt::ControlModifier | Qt::AltModifier;
    EXPECT_EQ(Press(Qt::Key_Q, both, 'Q'), (KeyStroke{.virtualKey = 'Q', .isCtrl = true, .isAlt = true}));
    EXPECT_EQ(Press(Qt::Key_Q, both, 'Q', LeftControl | RightAlt).isAlt, false);
}

TEST(QtKeys, TypedByAProgramAreThoseThatTypeTheSame) {
    EXPECT_EQ(
        Press(Qt::Key_A, {}, VK_PACKET, 0, QStringLiteral("A")),
        (KeyStroke{.virtualKey = 'A', .isShift = true}));
}

TEST(QtKeys, OfNoKeyboardAreWhatTheToolkitCallsThem) {
    const auto made = [](int key, Qt::KeyboardModifiers held = {}) {
        return TranslateKey(QKeyEvent(QEvent::KeyPress, key, held));
    };
    EXPECT_EQ(made(Qt::Key_A), (KeyStroke{.virtualKey = 'A'}));
    EXPECT_EQ(made(Qt::Key_A, Qt::ShiftModifier), (KeyStroke{.virtualKey = 'A', .isShift = true}));
    EXPECT_EQ(made(Qt::Key_Exclam, Qt::ShiftModifier), (KeyStroke{.virtualKey = '1', .isShift = true}));
    EXPECT_EQ(made(Qt::Key_F5), (KeyStroke{.virtualKey = 116}));
    EXPECT_EQ(made(Qt::Key_4, Qt::KeypadModifier), (KeyStroke{.virtualKey = 100, .isOnNumberPad = true}));
    EXPECT_EQ(
        made(Qt::Key_Left, Qt::KeypadModifier),
        (KeyStroke{.virtualKey = ui::KeyLeft, .isOnNumberPad = true}));
    EXPECT_EQ(
        made(Qt::Key_Plus, Qt::KeypadModifier),
        (KeyStroke{.virtualKey = ui::KeyPadAdd, .isOnNumberPad = true}));
    EXPECT_EQ(made(Qt::Key_Dead_Acute), (KeyStroke{.virtualKey = ui::KeyApostrophe}));
    EXPECT_EQ(made(Qt::Key_Super_L).virtualKey, ui::KeyNone);
}

TEST(QtText, HasPathsInTheSystemsWay) {
    const QString text = QStringLiteral("C:/my games/\u00E9.vtn");
    EXPECT_EQ(ui::qt::ToPath(text).native(), L"C:\\my games\\\u00E9.vtn");
    EXPECT_EQ(ui::qt::FromPath(ui::qt::ToPath(text)), QStringLiteral("C:\\my games\\\u00E9.vtn"));
    const ui::Path half(L"half \xD83D.vtn");
    EXPECT_EQ(ui::qt::ToPath(ui::qt::FromPath(half)), half);
}

} // namespace
