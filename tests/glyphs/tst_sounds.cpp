// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/mdlPaint.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string_view>
#include <vector>

namespace {

constexpr int Numbers[] = {101, 102, 103, 104};
constexpr std::size_t HeaderSize = 44;

class RecordingPlayer final : public ui::SoundPlayer {
public:
    void play(std::string_view wave) override { played.push_back(wave); }

    std::vector<std::string_view> played;
};

std::uint32_t numberAt(std::string_view bytes, std::size_t at, int width) {
    std::uint32_t value = 0;
    for (int byte = width - 1; byte >= 0; --byte) {
        value = value << 8U | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(byte)]);
    }
    return value;
}

std::vector<int> samplesOf(std::string_view wave) {
    std::vector<int> samples;
    for (std::size_t at = HeaderSize; at + 1 < wave.size(); at += 2) {
        samples.push_back(static_cast<std::int16_t>(numberAt(wave, at, 2)));
    }
    return samples;
}

int peakOf(std::string_view wave) {
    int peak = 0;
    for (const int sample : samplesOf(wave)) {
        peak = std::max(peak, std::abs(sample));
    }
    return peak;
}

double milliseconds(std::string_view wave) {
    return static_cast<double>(samplesOf(wave).size()) * 1000 / numberAt(wave, 24, 4);
}

std::vector<std::string_view> playedWith(const glyphs::SoundOptions& options, std::vector<int> numbers) {
    RecordingPlayer player;
    for (const int number : numbers) {
        glyphs::PlaySoundResource(player, options, number);
    }
    return player.played;
}

} // namespace

TEST(SoundWave, IsAMonoSixteenBitRiffWave) {
    for (const int number : Numbers) {
        SCOPED_TRACE(number);
        const std::string_view wave = glyphs::SoundWave(number);
        ASSERT_GT(wave.size(), HeaderSize);
        EXPECT_EQ(wave.substr(0, 4), "RIFF");
        EXPECT_EQ(numberAt(wave, 4, 4), wave.size() - 8);
        EXPECT_EQ(wave.substr(8, 8), "WAVEfmt ");
        EXPECT_EQ(numberAt(wave, 16, 4), 16U);
        EXPECT_EQ(numberAt(wave, 20, 2), 1U) << "PCM";
        EXPECT_EQ(numberAt(wave, 22, 2), 1U) << "channels";
        EXPECT_EQ(numberAt(wave, 24, 4), 44100U);
        EXPECT_EQ(numberAt(wave, 28, 4), 88200U) << "bytes a second";
        EXPECT_EQ(numberAt(wave, 32, 2), 2U) << "bytes a sample";
        EXPECT_EQ(numberAt(wave, 34, 2), 16U) << "bits a sample";
        EXPECT_EQ(wave.substr(36, 4), "data");
        EXPECT_EQ(numberAt(wave, 40, 4), wave.size() - HeaderSize);
    }
}

TEST(SoundWave, LastsThirtyToHundredAndFiftyMilliseconds) {
    for (const int number : Numbers) {
        SCOPED_TRACE(number);
        EXPECT_GE(milliseconds(glyphs::SoundWave(number)), 30);
        EXPECT_LE(milliseconds(glyphs::SoundWave(number)), 150);
    }
}

TEST(SoundWave, IsQuietButAudible) {
    for (const int number : Numbers) {
        SCOPED_TRACE(number);
        EXPECT_GT(peakOf(glyphs::SoundWave(number)), 1000);
        EXPECT_LT(peakOf(glyphs::SoundWave(number)), 32768 / 5);
    }
}

TEST(SoundWave, OfAPlacedGlyphIsTheShortestAndSoftest) {
    const std::string_view placed = glyphs::SoundWave(101);
    EXPECT_LE(milliseconds(placed), 40);
    EXPECT_LT(peakOf(placed), 32768 / 12);
    for (const int number : {102, 103, 104}) {
        SCOPED_TRACE(number);
        EXPECT_LT(placed.size(), glyphs::SoundWave(number).size());
        EXPECT_LT(peakOf(placed), peakOf(glyphs::SoundWave(number)));
    }
}

TEST(SoundWave, StartsAndEndsInSilence) {
    for (const int number : Numbers) {
        SCOPED_TRACE(number);
        const std::vector<int> samples = samplesOf(glyphs::SoundWave(number));
        ASSERT_GT(samples.size(), 100U);
        EXPECT_LE(std::abs(samples.front()), 8);
        EXPECT_EQ(samples.back(), 0);
        for (std::size_t at = samples.size() - 20; at < samples.size(); ++at) {
            EXPECT_LE(std::abs(samples[at]), 8) << "sample " << at;
        }
    }
}

TEST(SoundWave, HasNoJumpsAndNoOffset) {
    for (const int number : Numbers) {
        SCOPED_TRACE(number);
        const std::string_view wave = glyphs::SoundWave(number);
        const std::vector<int> samples = samplesOf(wave);
        const int peak = peakOf(wave);
        double sum = 0;
        int before = 0;
        for (const int sample : samples) {
            EXPECT_LT(std::abs(sample - before), peak / 2);
            before = sample;
            sum += sample;
        }
        EXPECT_LT(std::abs(sum / static_cast<double>(samples.size())), peak / 20.0);
    }
}

TEST(SoundWave, DiffersFromEveryOther) {
    std::set<std::string_view> waves;
    for (const int number : Numbers) {
        waves.insert(glyphs::SoundWave(number));
    }
    EXPECT_EQ(waves.size(), 4U);
}

TEST(SoundWave, IsEmptyForOtherNumbers) {
    for (const int number : {-1, 0, 1, 100, 105, 1000}) {
        EXPECT_TRUE(glyphs::SoundWave(number).empty()) << number;
    }
}

TEST(PlaySoundResource, PlaysEachSoundWhenItsOptionIsOn) {
    const std::vector<std::string_view> played = playedWith({true, true, true, true}, {101, 102, 103, 104});
    ASSERT_EQ(played.size(), 4U);
    for (std::size_t index = 0; index < 4; ++index) {
        EXPECT_EQ(played[index], glyphs::SoundWave(101 + static_cast<int>(index)));
    }
}

TEST(PlaySoundResource, IsSilentForTheSoundWhoseOptionIsOff) {
    for (std::size_t off = 0; off < 4; ++off) {
        SCOPED_TRACE(off);
        glyphs::SoundOptions options = {true, true, true, true};
        options[off] = false;
        std::vector<std::string_view> expected;
        for (std::size_t index = 0; index < 4; ++index) {
            if (index != off) {
                expected.push_back(glyphs::SoundWave(101 + static_cast<int>(index)));
            }
        }
        EXPECT_EQ(playedWith(options, {101, 102, 103, 104}), expected);
    }
}

TEST(PlaySoundResource, RepaintsSoundWhilePlacingIsSilent) {
    const std::vector<std::string_view> played = playedWith({false, true, true, true}, {101, 104});
    ASSERT_EQ(played.size(), 1U);
    EXPECT_EQ(played[0], glyphs::SoundWave(104));
}

TEST(PlaySoundResource, PlaysNothingWhenAllOptionsAreOff) {
    EXPECT_TRUE(playedWith({false, false, false, false}, {101, 102, 103, 104}).empty());
}

TEST(PlaySoundResource, IgnoresNumbersWithoutAWave) {
    EXPECT_TRUE(playedWith({true, true, true, true}, {0, 100, 105, -1}).empty());
    EXPECT_TRUE(playedWith({false, false, false, false}, {0, 100, 105, -1}).empty());
}
