// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/TempProgramDirectory.h"
#include "support/ToolRun.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const std::string Tone = "sine 0 440 440 5 20 1\n";

std::string sound(int number) {
    return "sound " + std::to_string(number) + " 60 0.1\n";
}

class MkSounds : public ::testing::Test {
protected:
    support::ToolRun compile(const std::string& source) {
        return support::RunProgram(
            MKSOUNDS, {ui::PathText(folder.put("source.txt", source)), ui::PathText(folder / "out.cpp")});
    }

    void expectRefusal(const std::string& source, const std::string& message) {
        const support::ToolRun run = compile(source);
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_EQ(run.errors, ui::PathText(folder / "source.txt") + message + "\n");
        EXPECT_FALSE(folder.has("out.cpp"));
    }

    support::TempFolder folder;
};

} // namespace

TEST_F(MkSounds, WritesTheSameSourceEveryTime) {
    const std::string source = sound(101) + Tone + sound(102) + "noise 5 3000 500 1 9 0.5\n" + sound(103) +
                               "triangle 0 300 600 2 30 1\n" + sound(104) + Tone + Tone;
    EXPECT_EQ(compile(source).exitCode, 0);
    const std::string first = folder.content("out.cpp");
    EXPECT_EQ(compile(source).exitCode, 0);
    EXPECT_EQ(folder.content("out.cpp"), first);
    EXPECT_NE(first.find("std::string_view SoundWave(int number)"), std::string::npos);
}

TEST_F(MkSounds, RefusesAnIncompleteSet) {
    expectRefusal("", ": expected the sounds 101 to 104");
    expectRefusal(
        sound(101) + Tone + sound(102) + Tone + sound(104) + Tone, ": expected the sounds 101 to 104");
}

TEST_F(MkSounds, RefusesASoundWithoutTones) {
    expectRefusal(
        sound(101) + Tone + sound(102) + sound(103) + Tone + sound(104) + Tone, ": sound 102 has no tones");
}

TEST_F(MkSounds, RefusesASoundThatIsThereTwice) {
    expectRefusal(sound(101) + Tone + sound(101), ":3: sound 101 is there twice");
}

TEST_F(MkSounds, RefusesASoundOfAnotherNumber) {
    expectRefusal("sound 105 60 0.1\n", ":1: \"105\" is not a number from 101 to 104");
}

TEST_F(MkSounds, RefusesAnIncompleteLine) {
    expectRefusal("sound 101 60\n", ":1: expected: sound NUMBER LENGTH PEAK");
    const std::string expected = ":3: expected: sine, triangle or noise START FROM TO ATTACK FALL LEVEL";
    expectRefusal("# Heading\n" + sound(101) + "sine 0 440\n", expected);
    expectRefusal("# Heading\n" + sound(101) + "square 0 440 440 5 20 1\n", expected);
}

TEST_F(MkSounds, RefusesAToneBeforeTheFirstSound) {
    expectRefusal(Tone, ":1: a tone before the first sound");
}

TEST_F(MkSounds, RefusesNumbersOutOfRange) {
    expectRefusal("sound 101 5000 0.1\n", ":1: \"5000\" is not a number from 20 to 500");
    expectRefusal("sound 101 60 1.5\n", ":1: \"1.5\" is not a number from 0.01 to 1");
    expectRefusal(sound(101) + "sine 0 x 440 5 20 1\n", ":2: \"x\" is not a number from 20 to 20000");
    expectRefusal(sound(101) + "sine 55 440 440 5 20 1\n", ":2: \"55\" is not a number from 0 to 52");
    expectRefusal(sound(101) + "sine 0 440 440 nan 20 1\n", ":2: \"nan\" is not a number from 0 to 500");
}
