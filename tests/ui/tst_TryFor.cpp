// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/TryFor.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;
using ui::TryFor;

TEST(TryFor, StopsAtTheFirstSuccess) {
    int attempts = 0;
    EXPECT_TRUE(TryFor(1h, 0ms, [&] { return ++attempts == 3; }));
    EXPECT_EQ(attempts, 3);
}

TEST(TryFor, TriesOnceWithoutPatience) {
    int attempts = 0;
    const auto fail = [&] {
        ++attempts;
        return false;
    };
    EXPECT_FALSE(TryFor(0ms, 1h, fail));
    EXPECT_EQ(attempts, 1);
}

TEST(TryFor, GoesByTheClockAndNotByThePauses) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(TryFor(30ms, 1ms, [] { return false; }));
    EXPECT_GE(std::chrono::steady_clock::now() - start, 30ms);
}
