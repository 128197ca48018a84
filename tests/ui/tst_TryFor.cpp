// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/TryFor.h"

#include <chrono>
#include <gtest/gtest.h>
#include <thread>

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
    int attempts = 0;
    const auto fail = [&attempts] {
        ++attempts;
        std::this_thread::sleep_for(30ms);
        return false;
    };
    EXPECT_FALSE(TryFor(30ms, 1ms, fail));
    EXPECT_EQ(attempts, 1);
}
