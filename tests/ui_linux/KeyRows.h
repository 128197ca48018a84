// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/KeyStroke.h"
#include "ui/linux/KeyFacts.h"

#include <gtest/gtest.h>
#include <ostream>
#include <vector>

namespace ui {

inline void PrintTo(const KeyStroke& press, std::ostream* out) {
    *out << press.virtualKey << (press.isShift ? " shift" : "") << (press.isCtrl ? " ctrl" : "")
         << (press.isAlt ? " alt" : "") << (press.isRepeat ? " repeat" : "")
         << (press.isOnNumberPad ? " pad" : "");
}

} // namespace ui

/// A press of a real keyboard.
inline ui::native::KeyFacts Real(int key, unsigned scanCode, bool shift = false) {
    ui::native::KeyFacts facts;
    facts.key = key;
    facts.scanCode = scanCode;
    facts.shift = shift;
    return facts;
}

/// A press that no keyboard made.
inline ui::native::KeyFacts Synthetic(int key, bool shift = false) {
    return Real(key, 0, shift);
}

/// A press and what it is to count as.
struct KeyRow {
    const char* name;
    ui::native::KeyFacts facts;
    int virtualKey;
    bool shift = false;
};

inline void CheckRows(const std::vector<KeyRow>& rows) {
    for (const KeyRow& row : rows) {
        const ui::KeyStroke press = ui::native::TranslateKey(row.facts);
        EXPECT_EQ(press.virtualKey, row.virtualKey) << row.name;
        if (row.virtualKey != 0) {
            EXPECT_EQ(press.isShift, row.shift) << row.name;
        }
    }
}
