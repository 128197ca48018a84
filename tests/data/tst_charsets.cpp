// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/InstalledSets.h"
#include "glyphs/GifPicture.h"
#include "glyphs/mdlData.h"
#include "support/ToolRun.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr int Side = glyphs::ArtworkCell;
constexpr int SetCount = 4;

/// Which pixels of a glyph are drawn, row by row.
using Mask = std::bitset<Side * Side>;
using Edge = std::bitset<Side>;

std::vector<glyphs::CharSetRecord> installedSets() {
    const std::string list = support::FileContent(PROGRAM_DIR "/vtmtc.dat");
    EXPECT_EQ(list.size() % glyphs::CharSetRecordSize, 0U);
    std::vector<glyphs::CharSetRecord> records;
    for (std::size_t at = 0; at + glyphs::CharSetRecordSize <= list.size(); at += glyphs::CharSetRecordSize) {
        records.push_back(
            glyphs::DecodeCharSetRecord(std::string_view(list).substr(at, glyphs::CharSetRecordSize)));
    }
    return records;
}

ui::Picture artworkOf(int slot) {
    const std::string store = support::FileContent(PROGRAM_DIR "/vtmgrid.dat");
    const auto picture = glyphs::DecodeGif(std::string_view(store).substr(
        static_cast<std::size_t>(slot) * glyphs::ArtworkSlotSize, glyphs::ArtworkSlotSize));
    EXPECT_TRUE(picture) << picture.failure().message;
    return picture ? picture.value() : ui::Picture();
}

std::string nameOf(const ::testing::TestParamInfo<int>& info) {
    constexpr std::array<const char*, SetCount> Names = {"Classic", "Quake2", "Legible", "Ember"};
    return Names[static_cast<std::size_t>(info.param)];
}

/// The drawings of one of the sets.
class CharSetArtwork : public ::testing::TestWithParam<int> {
protected:
    void SetUp() override {
        artwork = artworkOf(GetParam());
        ASSERT_EQ(artwork.width(), 128);
        ASSERT_EQ(artwork.height(), 128);
    }

    [[nodiscard]] ui::Pixel pixel(int code, int x, int y) const {
        return artwork.pixel(code % 16 * Side + x, code / 16 * Side + y);
    }

    [[nodiscard]] Mask maskOf(int code) const {
        Mask mask;
        for (int at = 0; at < Side * Side; ++at) {
            mask[static_cast<std::size_t>(at)] = pixel(code, at % Side, at / Side) != 0;
        }
        return mask;
    }

    [[nodiscard]] Edge column(int code, int x) const {
        Edge edge;
        for (int y = 0; y < Side; ++y) {
            edge[static_cast<std::size_t>(y)] = pixel(code, x, y) != 0;
        }
        return edge;
    }

    [[nodiscard]] Edge row(int code, int y) const {
        Edge edge;
        for (int x = 0; x < Side; ++x) {
            edge[static_cast<std::size_t>(x)] = pixel(code, x, y) != 0;
        }
        return edge;
    }

    /// Red, green and blue of the drawn pixels on average.
    [[nodiscard]] std::array<int, 3> colourOf(int code) const {
        std::array<int, 3> sum{};
        const int count = std::max(1, static_cast<int>(maskOf(code).count()));
        for (int at = 0; at < Side * Side; ++at) {
            const ui::Pixel value = pixel(code, at % Side, at / Side);
            sum[0] += static_cast<int>(value >> 16U & 0xFFU);
            sum[1] += static_cast<int>(value >> 8U & 0xFFU);
            sum[2] += static_cast<int>(value & 0xFFU);
        }
        return {sum[0] / count, sum[1] / count, sum[2] / count};
    }

    void expectJoinsRight(int left, int right) const {
        EXPECT_TRUE(column(left, Side - 1).any()) << left << " does not reach its right edge";
        EXPECT_EQ(column(left, Side - 1), column(right, 0)) << left << " beside " << right;
    }

    void expectJoinsBelow(int upper, int lower) const {
        EXPECT_TRUE(row(upper, Side - 1).any()) << upper << " does not reach its lower edge";
        EXPECT_EQ(row(upper, Side - 1), row(lower, 0)) << upper << " above " << lower;
    }

    ui::Picture artwork;
};

INSTANTIATE_TEST_SUITE_P(Sets, CharSetArtwork, ::testing::Range(0, SetCount), nameOf);

} // namespace

TEST(CharSets, ListAndStoreHoldTheSameSets) {
    EXPECT_EQ(support::FileContent(PROGRAM_DIR "/vtmtc.dat").size(), SetCount * 154U);
    EXPECT_EQ(support::FileContent(PROGRAM_DIR "/vtmgrid.dat").size(), SetCount * 10000U);
    int position = 0;
    for (const glyphs::CharSetRecord& record : installedSets()) {
        EXPECT_EQ(record.listIndex, position);
        EXPECT_EQ(record.artworkSlot, position);
        ++position;
    }
}

TEST(CharSets, AreKnownAsShipped) {
    std::vector<std::string> names;
    for (const glyphs::CharSetRecord& record : installedSets()) {
        names.push_back(glyphs::ShownText(record.name));
    }
    EXPECT_EQ(names, std::vector<std::string>(artwork::ShippedSets.begin(), artwork::ShippedSets.end()));
}

TEST(CharSets, HaveNamesOfTheirOwnAndNoAddress) {
    std::set<std::string> names;
    for (const glyphs::CharSetRecord& record : installedSets()) {
        names.insert(record.name);
        EXPECT_NE(record.name.front(), ' ');
        EXPECT_EQ(glyphs::WebAddressText(record), "") << "they come from nowhere else";
    }
    EXPECT_EQ(names.size(), static_cast<std::size_t>(SetCount));
}

TEST(CharSets, TheFirstOneIsTheClassic) {
    const std::vector<glyphs::CharSetRecord> sets = installedSets();
    ASSERT_FALSE(sets.empty());
    EXPECT_EQ(sets.front().name, "Classic Stone                                     ");
}

TEST_P(CharSetArtwork, DrawsNothingInTheBlanks) {
    for (const int code : {10, 12, 32, 138, 140, 160}) {
        EXPECT_TRUE(maskOf(code).none()) << code;
    }
}

TEST_P(CharSetArtwork, DrawsEveryOtherGlyph) {
    const std::set<int> blanks = {10, 12, 32, 138, 140, 160};
    for (int code = 0; code < 256; ++code) {
        EXPECT_TRUE(blanks.contains(code) || maskOf(code).count() >= 4) << code;
    }
}

TEST_P(CharSetArtwork, FillsTheSolidBlocks) {
    EXPECT_TRUE(maskOf(11).all());
    EXPECT_TRUE(maskOf(139).all());
}

TEST_P(CharSetArtwork, ShowsColourPartnersInTheSameShape) {
    for (int code = 33; code <= 127; ++code) {
        EXPECT_EQ(maskOf(code), maskOf(code + 128)) << code;
    }
    for (int code = 4; code <= 31; ++code) {
        EXPECT_EQ(maskOf(code), maskOf(code + 128)) << code;
    }
}

TEST_P(CharSetArtwork, TellsTheTwoColoursApart) {
    for (int code = 33; code <= 127; ++code) {
        const auto first = colourOf(code);
        const auto second = colourOf(code + 128);
        int distance = 0;
        for (std::size_t channel = 0; channel < first.size(); ++channel) {
            distance += std::abs(first[channel] - second[channel]);
        }
        EXPECT_GE(distance, 100) << code;
    }
}

TEST_P(CharSetArtwork, StandsOutFromABlackBackground) {
    for (int code = 33; code <= 255; ++code) {
        if (code > 127 && code < 161) {
            continue;
        }
        const auto [red, green, blue] = colourOf(code);
        EXPECT_GE((299 * red + 587 * green + 114 * blue) / 1000, 75) << code;
    }
}

TEST_P(CharSetArtwork, KeepsLettersApart) {
    for (int code = 33; code <= 126; ++code) {
        EXPECT_TRUE(column(code, Side - 1).none()) << code << " touches its right edge";
        EXPECT_TRUE(row(code, Side - 1).none()) << code << " touches its lower edge";
    }
}

TEST_P(CharSetArtwork, GivesEveryCharacterAShapeOfItsOwn) {
    for (int code = 33; code <= 126; ++code) {
        for (int other = code + 1; other <= 126; ++other) {
            EXPECT_NE(maskOf(code), maskOf(other)) << code << " and " << other;
        }
    }
}

TEST_P(CharSetArtwork, JoinsTheFrame) {
    for (const auto& [left, right] : {std::pair(1, 2), {1, 6}, {6, 6}, {6, 2}, {3, 4}, {3, 6}, {6, 4}}) {
        expectJoinsRight(left, right);
    }
    for (const auto& [upper, lower] : {std::pair(1, 3), {1, 7}, {7, 7}, {7, 3}, {2, 4}, {2, 7}, {7, 4}}) {
        expectJoinsBelow(upper, lower);
    }
}

TEST_P(CharSetArtwork, ClosesTheFrameAtItsCorners) {
    for (const int code : {1, 2, 6}) {
        EXPECT_TRUE(row(code, 0).none()) << code;
    }
    for (const int code : {3, 4, 6}) {
        EXPECT_TRUE(row(code, Side - 1).none()) << code;
    }
    for (const int code : {1, 3, 7}) {
        EXPECT_TRUE(column(code, 0).none()) << code;
    }
    for (const int code : {2, 4, 7}) {
        EXPECT_TRUE(column(code, Side - 1).none()) << code;
    }
}

TEST_P(CharSetArtwork, MakesABlockOfTwoHalves) {
    EXPECT_EQ(maskOf(8).count(), 32U);
    EXPECT_TRUE(row(8, 3).all());
    EXPECT_EQ(maskOf(9), ~maskOf(8));
}

TEST_P(CharSetArtwork, JoinsTheRuler) {
    for (const int second : {0, 128}) {
        for (const auto& [left, right] : {std::pair(29, 30), {30, 30}, {30, 31}, {29, 31}}) {
            expectJoinsRight(left + second, right + second);
        }
    }
}

TEST_P(CharSetArtwork, JoinsTheSlider) {
    for (const auto& [left, right] :
         {std::pair(128, 129), {129, 129}, {129, 130}, {128, 131}, {129, 131}, {131, 129}, {131, 130}}) {
        expectJoinsRight(left, right);
    }
    EXPECT_NE(maskOf(129), maskOf(131));
}

TEST_P(CharSetArtwork, GrowsFromDotToBullet) {
    EXPECT_LT(maskOf(0).count(), maskOf(28).count());
    EXPECT_LT(maskOf(14).count(), maskOf(5).count());
    EXPECT_LT(maskOf(5).count(), maskOf(15).count());
}

TEST_P(CharSetArtwork, PointsTheArrowHeads) {
    for (int code : {13, 127}) {
        std::vector<std::size_t> heights;
        for (int x = 0; x < Side; ++x) {
            if (column(code, x).any()) {
                heights.push_back(column(code, x).count());
            }
        }
        if (code == 127) {
            std::reverse(heights.begin(), heights.end());
        }
        EXPECT_GE(heights.front(), 3U) << code;
        EXPECT_EQ(heights.back(), 1U) << code;
    }
}

TEST_P(CharSetArtwork, MirrorsTheBrackets) {
    for (int x = 0; x < Side; ++x) {
        EXPECT_EQ(column(16, x), column(17, Side - 1 - x)) << x;
    }
    EXPECT_GE(maskOf(16).count(), 20U);
}

TEST_P(CharSetArtwork, DrawsSmallGoldenDigits) {
    for (int code = 18; code <= 27; ++code) {
        EXPECT_TRUE(row(code, 0).none() && row(code, Side - 1).none()) << code;
        EXPECT_NE(colourOf(code), colourOf(code + 128)) << code;
        for (const int shade : {code, code + 128}) {
            const auto [red, green, blue] = colourOf(shade);
            EXPECT_GT(red, green) << shade;
            EXPECT_GT(green, blue + 20) << shade;
        }
        for (int other = code + 1; other <= 27; ++other) {
            EXPECT_NE(maskOf(code), maskOf(other)) << code << " and " << other;
        }
    }
}
