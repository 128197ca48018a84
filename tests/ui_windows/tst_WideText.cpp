// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/windows/WideText.h"

#include <gtest/gtest.h>

namespace {

using ui::native::NarrowText;
using ui::native::WideText;

TEST(WideText, IsUtf8OnTheNarrowSide) {
    EXPECT_EQ(NarrowText(L"a\u00E9\u20AC"), "a\xC3\xA9\xE2\x82\xAC");
    EXPECT_EQ(NarrowText(L"\xD83D\xDE00"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(WideText("a\xC3\xA9\xE2\x82\xAC"), L"a\u00E9\u20AC");
    EXPECT_EQ(WideText("\xF0\x9F\x98\x80"), L"\xD83D\xDE00");
    EXPECT_EQ(NarrowText(L""), "");
    EXPECT_EQ(WideText(""), L"");
}

TEST(WideText, KeepsEveryUnitOfAName) {
    for (unsigned unit = 1; unit < 0x10000; ++unit) {
        const std::wstring name{L'a', static_cast<wchar_t>(unit), L'b'};
        ASSERT_EQ(WideText(NarrowText(name)), name) << unit;
    }
    const std::wstring backwards = L"\xDE00\xD83D";
    EXPECT_EQ(WideText(NarrowText(backwards)), backwards);
}

TEST(WideText, ReplacesEachByteThatIsNoText) {
    EXPECT_EQ(
        WideText("a\xFF"
                 "b"),
        L"a\uFFFD"
        L"b");
    EXPECT_EQ(WideText("\xC3"), L"\uFFFD");
    EXPECT_EQ(WideText("\xC0\x80"), L"\uFFFD\uFFFD") << "too long";
    EXPECT_EQ(WideText("\xE0\x80\x80"), L"\uFFFD\uFFFD\uFFFD") << "too long";
    EXPECT_EQ(WideText("\xF4\x90\x80\x80"), L"\uFFFD\uFFFD\uFFFD\uFFFD") << "beyond the last character";
    EXPECT_EQ(WideText("\xE2\x82"), L"\uFFFD\uFFFD");
    EXPECT_EQ(
        WideText("\xE2"
                 "a"),
        L"\uFFFD"
        L"a");
}

} // namespace
