// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/KeyboardLayout.h"

#include "editing/mdlKey.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>

namespace editing {

namespace {

bool Overlap(const DrawnKey& a, const DrawnKey& b) {
    return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
           b.top < a.top + a.height;
}

std::string CapTowards(int virtualKey, int columns, int rows) {
    const auto place = KeyTowards(DrawnKeyOf(KeyIndex(virtualKey)), columns, rows);
    return place ? std::string(KeyboardKeys()[*place].cap) : "none";
}

} // namespace

TEST(KeyboardLayout, HasEveryKeyOfTheKeyMapOnce) {
    std::map<std::size_t, int> times;
    for (const DrawnKey& key : KeyboardKeys()) {
        if (key.use == DrawnKeyUse::Mapped) {
            ++times[key.key];
        }
    }
    EXPECT_EQ(times.size(), MappedKeys);
    for (std::size_t key = 0; key < MappedKeys; ++key) {
        EXPECT_EQ(times[key], 1) << KeyNames()[key];
        EXPECT_EQ(KeyboardKeys().at(DrawnKeyOf(key)).key, key);
    }
}

TEST(KeyboardLayout, LaysNoKeyOverAnother) {
    const auto& keys = KeyboardKeys();
    for (std::size_t i = 0; i < keys.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            EXPECT_FALSE(Overlap(keys[i], keys[j])) << keys[i].cap << ", " << keys[j].cap;
        }
    }
}

TEST(KeyboardLayout, EndsWhereItsLastKeysEnd) {
    int right = 0;
    int bottom = 0;
    for (const DrawnKey& key : KeyboardKeys()) {
        EXPECT_GE(key.left, 0);
        EXPECT_GE(key.top, 0);
        EXPECT_GE(key.width, KeyQuarters) << key.cap;
        EXPECT_GE(key.height, KeyQuarters) << key.cap;
        right = std::max(right, key.left + key.width);
        bottom = std::max(bottom, key.top + key.height);
    }
    EXPECT_EQ(KeyboardWidth(), right);
    EXPECT_EQ(KeyboardHeight(), bottom);
}

TEST(KeyboardLayout, ItsRowsEndAtOneEdge) {
    std::map<int, int> ends; // by the top of the row
    for (const DrawnKey& key : KeyboardKeys()) {
        if (key.left < 60) {
            ends[key.top] = std::max(ends[key.top], key.left + key.width);
        }
    }
    EXPECT_EQ(ends.size(), 6U);
    for (const auto& [top, end] : ends) {
        EXPECT_EQ(end, 60) << top;
    }
}

TEST(KeyboardLayout, AKeyIsFoundByItsCap) {
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        EXPECT_EQ(KeyboardKeys()[DrawnKeyOf(KeyIndex(letter))].cap, std::string(1, letter));
    }
    EXPECT_EQ(KeyboardKeys()[DrawnKeyOf(KeyIndex(KeyPad0 + 7))].cap, "7");
    EXPECT_EQ(KeyboardKeys()[DrawnKeyOf(KeyIndex(KeyF16))].cap, "F16");
}

TEST(KeyboardLayout, ArrowsLeadToTheKeyBeside) {
    EXPECT_EQ(CapTowards(KeyA, 1, 0), "S");
    EXPECT_EQ(CapTowards(KeyA, 0, -1), "Q");
    EXPECT_EQ(CapTowards(KeyA, 0, 1), "Z");
    EXPECT_EQ(CapTowards(KeyA, -1, 0), "none");
    EXPECT_EQ(CapTowards(KeyEscape, 0, -1), "none");
    EXPECT_EQ(CapTowards(KeyEscape, 0, 1), "`");
    EXPECT_EQ(CapTowards(KeyEquals, 1, 0), "/") << "the number pad follows";
    EXPECT_EQ(CapTowards(KeySpace, 1, 0), "0");
    EXPECT_EQ(CapTowards(KeySpace, 0, 1), "none");
    EXPECT_EQ(CapTowards(KeyPad0, 0, -1), "1");
}

TEST(KeyboardLayout, ArrowsReachEveryKey) {
    std::set<std::size_t> reached{DrawnKeyOf(0)};
    std::vector<std::size_t> fresh{DrawnKeyOf(0)};
    while (!fresh.empty()) {
        const std::size_t place = fresh.back();
        fresh.pop_back();
        for (const auto& [columns, rows] : {std::pair(1, 0), {-1, 0}, {0, 1}, {0, -1}}) {
            if (const auto next = KeyTowards(place, columns, rows); next && reached.insert(*next).second) {
                fresh.push_back(*next);
            }
        }
    }
    EXPECT_EQ(reached.size(), MappedKeys);
}

} // namespace editing
