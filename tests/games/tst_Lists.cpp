// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "games/Lists.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::string NamesText(const std::vector<std::string_view>& names) {
    return games::ListText(names);
}

std::string NumberText(const std::vector<int>& numbers) {
    return games::NumbersText(numbers);
}

} // namespace

TEST(Lists, AreReadAsPeopleWriteThem) {
    EXPECT_EQ(NamesText({}), "");
    EXPECT_EQ(NamesText({"Quake"}), "Quake");
    EXPECT_EQ(NamesText({"Quake", "Quake2"}), "Quake and Quake2");
    EXPECT_EQ(NamesText({"a", "b", "c"}), "a, b and c");
}

TEST(Lists, NumbersThatFollowEachOtherAreOne) {
    EXPECT_EQ(NumberText({7}), "7");
    EXPECT_EQ(NumberText({1, 2}), "1 and 2");
    EXPECT_EQ(NumberText({1, 2, 3}), "1 to 3");
    EXPECT_EQ(NumberText({1, 2, 3, 4, 7, 9}), "1 to 4, 7 and 9");
    EXPECT_EQ(NumberText({2, 4, 5, 8, 9, 10}), "2, 4, 5 and 8 to 10");
}
