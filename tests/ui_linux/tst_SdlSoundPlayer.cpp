// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/Environment.h"
#include "support/TempProgramDirectory.h"
#include "ui/linux/SdlAudio.h"
#include "ui/linux/SdlSoundPlayer.h"

#include <QTest>
#include <algorithm>
#include <chrono>
#include <csignal>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/stat.h>

namespace {

using support::TempFolder;
using ui::native::ReadWave;
using ui::native::SdlAudio;
using ui::native::SdlSoundPlayer;
using namespace std::chrono_literals;

std::string Number(unsigned value, int size) {
    std::string bytes;
    for (int i = 0; i < size; ++i) {
        bytes.push_back(static_cast<char>(value >> (8 * i) & 0xFFU));
    }
    return bytes;
}

std::string Chunk(const std::string& name, const std::string& content) {
    return name + Number(static_cast<unsigned>(content.size()), 4) + content +
           std::string(content.size() % 2, '\0');
}

std::string Format(unsigned code, unsigned channels, unsigned rate, unsigned bits) {
    const unsigned frame = channels * bits / 8;
    return Chunk(
        "fmt ", Number(code, 2) + Number(channels, 2) + Number(rate, 4) + Number(rate * frame, 4) +
                    Number(frame, 2) + Number(bits, 2));
}

std::string Riff(const std::string& chunks) {
    return "RIFF" + Number(static_cast<unsigned>(chunks.size() + 4), 4) + "WAVE" + chunks;
}

/// Samples that no silence and no other seed has.
std::string Samples(std::size_t size, unsigned seed) {
    std::string samples;
    for (unsigned i = 0; i < size; ++i) {
        samples.push_back(static_cast<char>((i * 37 + i / 7 * seed) % 200 + 20));
    }
    return samples;
}

std::string Wave(unsigned channels, unsigned rate, unsigned bits, const std::string& samples) {
    return Riff(Format(1, channels, rate, bits) + Chunk("data", samples));
}

TEST(ReadWave, FindsTheSamples) {
    const std::string wave = Wave(1, 22050, 8, "abcdef");
    const auto found = ReadWave(wave);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->rate, 22050);
    EXPECT_EQ(found->channels, 1);
    EXPECT_EQ(found->sampleBytes, 1);
    EXPECT_EQ(found->samples, "abcdef");
}

TEST(ReadWave, PassesOverChunksThatItDoesNotKnow) {
    const std::string wave =
        Riff(Chunk("LIST", "odd") + Format(1, 2, 44100, 16) + Chunk("fact", "1234") + Chunk("data", "abcd"));
    const auto found = ReadWave(wave);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->channels, 2);
    EXPECT_EQ(found->sampleBytes, 2);
    EXPECT_EQ(found->samples, "abcd");
}

TEST(ReadWave, TellsHowLongItTakes) {
    const std::string wave = Wave(2, 1000, 16, std::string(4000, 'x'));
    EXPECT_EQ(ReadWave(wave)->duration(), 1000ms);
}

TEST(ReadWave, RefusesWhatIsNoPlainWave) {
    const std::string good = Wave(1, 22050, 8, "abcdef");
    EXPECT_FALSE(ReadWave(""));
    EXPECT_FALSE(ReadWave("RIFF"));
    EXPECT_FALSE(ReadWave(Riff("")));
    EXPECT_FALSE(ReadWave("RIFX" + good.substr(4)));
    EXPECT_FALSE(ReadWave(Riff(Chunk("data", "abcd"))));
    EXPECT_FALSE(ReadWave(Riff(Format(1, 1, 22050, 8))));
    EXPECT_FALSE(ReadWave(Riff(Format(2, 1, 22050, 8) + Chunk("data", "abcd"))));
    EXPECT_FALSE(ReadWave(Riff(Format(1, 1, 22050, 24) + Chunk("data", "abcd"))));
    EXPECT_FALSE(ReadWave(Riff(Format(1, 0, 22050, 8) + Chunk("data", "abcd"))));
    EXPECT_FALSE(ReadWave(Riff(Format(1, 1, 0, 8) + Chunk("data", "abcd"))));
    EXPECT_FALSE(ReadWave(Riff(Chunk("fmt ", "short") + Chunk("data", "abcd"))));
}

TEST(ReadWave, SurvivesEveryTruncation) {
    const std::string good = Riff(Chunk("LIST", "odd") + Format(1, 1, 22050, 8) + Chunk("data", "abcdef"));
    for (std::size_t size = 0; size < good.size(); ++size) {
        const auto found = ReadWave(std::string_view(good).substr(0, size));
        EXPECT_TRUE(!found || std::string_view("abcdef").starts_with(found->samples)) << size;
    }
    EXPECT_TRUE(ReadWave(good));
    std::string endless = good;
    endless.replace(good.find("LIST") + 4, 4, "\xFF\xFF\xFF\xFF");
    EXPECT_FALSE(ReadWave(endless));
}

/// How many threads this program has.
std::ptrdiff_t Threads() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

/// Sounds that are really played, if the library is there.
class SdlSoundTest : public testing::Test {
protected:
    void SetUp() override {
        if (::dlopen("libSDL2-2.0.so.0", RTLD_NOW | RTLD_LOCAL) == nullptr) {
            GTEST_SKIP() << "libSDL2-2.0.so.0 is not installed";
        }
    }

    void TearDown() override {
        // A player waits a moment for its thread and then leaves it behind: the next test must not count it.
        EXPECT_TRUE(QTest::qWaitFor([this] { return Threads() <= m_threads; }, 20000));
    }

private:
    std::ptrdiff_t m_threads = Threads();
};

/// Sends what would be heard into a file.
class SoundFile {
public:
    [[nodiscard]] std::string heard() const { return m_folder.has("sound") ? m_folder.content("sound") : ""; }

    /// Whether this program has the device.
    [[nodiscard]] bool isOpen() const {
        std::error_code gone;
        const std::filesystem::directory_iterator descriptors("/proc/self/fd");
        return std::any_of(begin(descriptors), end(descriptors), [&](const auto& descriptor) {
            return std::filesystem::read_symlink(descriptor, gone) == m_folder / "sound";
        });
    }

    [[nodiscard]] bool hasHeard(const std::string& samples) const {
        return QTest::qWaitFor([&] { return heard().find(samples) != std::string::npos; }, 20000);
    }

private:
    TempFolder m_folder;
    Environment m_driver{"SDL_AUDIODRIVER", "disk"};
    Environment m_file{"SDL_DISKAUDIOFILE", (m_folder / "sound").c_str()};
};

TEST_F(SdlSoundTest, PlaysTheExactSamples) {
    for (const unsigned bits : {8U, 16U}) {
        const SoundFile file;
        const std::string samples = Samples(1764, bits);
        const std::string wave = Wave(1, 22050, bits, samples);
        SdlSoundPlayer player;
        player.play(wave);
        EXPECT_TRUE(file.hasHeard(samples)) << bits << " bits";
    }
}

TEST_F(SdlSoundTest, PlaysSoundsOfDifferentKindsInTurn) {
    const SoundFile file;
    const std::string first = Samples(800, 3);
    const std::string second = Samples(1600, 5);
    const std::string firstWave = Wave(1, 11025, 8, first);
    const std::string secondWave = Wave(2, 22050, 16, second);
    {
        SdlAudio audio;
        EXPECT_GT(audio.play(firstWave), 0ms);
        EXPECT_TRUE(audio.isOpen());
        EXPECT_TRUE(QTest::qWaitFor([&] { return file.heard().find(first) != std::string::npos; }, 20000));
        EXPECT_GT(audio.play(secondWave), 0ms);
        EXPECT_TRUE(QTest::qWaitFor([&] { return file.heard().find(second) != std::string::npos; }, 20000));
        audio.close();
        EXPECT_FALSE(audio.isOpen());
    }
}

TEST_F(SdlSoundTest, LetsANewSoundTakeThePlaceOfTheOldOne) {
    const SoundFile file;
    const std::string longOne = Samples(22050 * 4, 3);
    const std::string shortOne = Samples(900, 11);
    const std::string longWave = Wave(1, 22050, 8, longOne);
    const std::string shortWave = Wave(1, 22050, 8, shortOne);
    SdlSoundPlayer player;
    player.play(longWave);
    EXPECT_TRUE(file.hasHeard(longOne.substr(0, 512)));
    player.play(shortWave);
    EXPECT_TRUE(file.hasHeard(shortOne));
    EXPECT_EQ(file.heard().find(longOne), std::string::npos);
}

TEST_F(SdlSoundTest, PlaysOnlyTheLastOfManyAtOnce) {
    const SoundFile file;
    const std::string last = Samples(900, 13);
    const std::string wave = Wave(1, 22050, 8, Samples(900, 3));
    const std::string lastWave = Wave(1, 22050, 8, last);
    SdlSoundPlayer player;
    for (int i = 0; i < 1000; ++i) {
        player.play(wave);
    }
    player.play(lastWave);
    EXPECT_TRUE(file.hasHeard(last));
}

TEST_F(SdlSoundTest, GivesTheDeviceBackAfterAWhile) {
    const SoundFile file;
    const std::string samples = Samples(900, 17);
    const std::string wave = Wave(1, 22050, 8, samples);
    SdlSoundPlayer player;
    player.play(wave);
    EXPECT_TRUE(file.hasHeard(samples));
    EXPECT_TRUE(file.isOpen());
    EXPECT_TRUE(QTest::qWaitFor([&] { return !file.isOpen(); }, 20000));
    player.play(wave);
    EXPECT_TRUE(QTest::qWaitFor([&] { return file.isOpen(); }, 20000));
}

TEST(SdlSoundPlayer, StartsNothingBeforeTheFirstSound) {
    const auto before = Threads();
    const SdlSoundPlayer player;
    EXPECT_EQ(Threads(), before);
}

TEST_F(SdlSoundTest, LeavesTheSignalsAlone) {
    const SoundFile file;
    const std::string samples = Samples(900, 19);
    const std::string wave = Wave(1, 22050, 8, samples);
    SdlSoundPlayer player;
    player.play(wave);
    EXPECT_TRUE(file.hasHeard(samples));
    for (const int number : {SIGINT, SIGTERM}) {
        struct sigaction action {};

        ::sigaction(number, nullptr, &action);
        EXPECT_EQ(action.sa_handler, SIG_DFL) << number;
    }
}

TEST_F(SdlSoundTest, IsSilentWithoutADevice) {
    const std::string wave = Wave(1, 22050, 8, Samples(900, 23));
    for (const char* driver : {"alsa", "no such driver"}) {
        const Environment chosen("SDL_AUDIODRIVER", driver);
        const Environment device("AUDIODEV", "no such device");
        testing::internal::CaptureStderr();
        SdlAudio audio;
        EXPECT_EQ(audio.play(wave), 0ms);
        EXPECT_FALSE(audio.isOpen());
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << driver;
    }
}

TEST_F(SdlSoundTest, IgnoresWhatIsNoWave) {
    const SoundFile file;
    SdlSoundPlayer player;
    player.play("");
    player.play("no wave at all");
    const std::string samples = Samples(900, 29);
    const std::string wave = Wave(1, 22050, 8, samples);
    player.play(wave);
    EXPECT_TRUE(file.hasHeard(samples));
}

TEST_F(SdlSoundTest, NeverMakesTheCallerWaitForADeviceThatHangs) {
    const TempFolder folder;
    // Nobody reads from the pipe, so that opening the device does not return.
    const ui::Path pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    const Environment driver("SDL_AUDIODRIVER", "disk");
    const Environment target("SDL_DISKAUDIOFILE", pipe.c_str());
    static const std::string wave = Wave(1, 22050, 8, Samples(900, 31));
    const auto before = Threads();
    const auto start = std::chrono::steady_clock::now();
    {
        SdlSoundPlayer player;
        for (int i = 0; i < 1000; ++i) {
            player.play(wave);
        }
        EXPECT_LT(std::chrono::steady_clock::now() - start, 200ms);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, 2s);
    // The thread that was left behind comes to its end before the pipe goes.
    const int reader = ::open(pipe.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    EXPECT_GE(reader, 0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Threads() == before; }, 20000));
    ::close(reader);
}

} // namespace
