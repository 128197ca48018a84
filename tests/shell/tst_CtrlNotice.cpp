// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/CtrlNotice.h"

#include "editing/mdlKey.h"

#include <gtest/gtest.h>

using shell::CtrlNotice;

namespace {

ui::KeyStroke Ctrl(int virtualKey) {
    ui::KeyStroke stroke;
    stroke.virtualKey = virtualKey;
    stroke.isCtrl = true;
    return stroke;
}

} // namespace

TEST(CtrlNotice, TellsOfAStrayBlankAndWhereItIsChanged) {
    EXPECT_EQ(
        CtrlNotice().of(Ctrl('S'), 32),
        "Ctrl+S typed a blank. What keys type is set in Tools > Configure > Key Mapping.");
    EXPECT_EQ(
        CtrlNotice().of(Ctrl(editing::KeyTab), 32),
        "Ctrl+Tab typed a blank. What keys type is set in Tools > Configure > Key Mapping.");
    EXPECT_EQ(
        CtrlNotice().of(Ctrl(editing::KeyMenu), 32),
        "Ctrl+this key typed a blank. What keys type is set in Tools > Configure > Key Mapping.");
}

TEST(CtrlNotice, SaysNothingOfWhatIsMeant) {
    CtrlNotice notice;
    EXPECT_EQ(notice.of(Ctrl('S'), 115), "") << "the user has given the key a glyph";
    EXPECT_EQ(notice.of(Ctrl(editing::KeySpace), 32), "");
    ui::KeyStroke plain;
    plain.virtualKey = 'S';
    EXPECT_EQ(notice.of(plain, 32), "");
}

TEST(CtrlNotice, IsToldThreeTimes) {
    CtrlNotice notice;
    for (int time = 1; time <= 3; ++time) {
        EXPECT_NE(notice.of(Ctrl('Z'), 32), "") << time;
        EXPECT_EQ(notice.of(Ctrl('Z'), 90), "");
    }
    EXPECT_EQ(notice.of(Ctrl('Z'), 32), "");
    EXPECT_EQ(notice.of(Ctrl('S'), 32), "");
}
