// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "cli/Arguments.h"
#include "cli/NamedDirectory.h"
#include "support/TempProgramDirectory.h"

#include <gtest/gtest.h>

#include <array>

namespace {

using Words = std::vector<std::string>;

constexpr std::array<cli::Option, 3> Known{{{"--help", false}, {"--size", true}, {"--set", true}}};

cli::Arguments Parsed(const Words& arguments) {
    const auto parsed = cli::ParseArguments(arguments, Known);
    EXPECT_TRUE(parsed) << parsed.failure().message;
    return parsed ? parsed.value() : cli::Arguments();
}

std::string RefusalOf(const Words& arguments) {
    const auto parsed = cli::ParseArguments(arguments, Known);
    return parsed ? "none" : parsed.failure().message;
}

} // namespace

TEST(Arguments, OptionsStandAnywhereAndTakeTheirValueEitherWay) {
    const cli::Arguments arguments = Parsed({"in", "--size", "64", "out", "--set=2"});
    EXPECT_EQ(arguments.words, (Words{"in", "out"}));
    EXPECT_EQ(arguments.value("--size"), "64");
    EXPECT_EQ(arguments.value("--set"), "2");
    EXPECT_EQ(arguments.value("--help"), std::nullopt);
    EXPECT_FALSE(arguments.has("--help"));
    EXPECT_TRUE(Parsed({"-h"}).has("--help"));
    EXPECT_EQ(Parsed({"--size="}).value("--size"), "");
    EXPECT_EQ(Parsed({"--set", "a=b"}).value("--set"), "a=b");
}

TEST(Arguments, TwoDashesEndTheOptions) {
    EXPECT_EQ(Parsed({"--size", "1", "--", "--set", "-"}).words, (Words{"--set", "-"}));
    EXPECT_EQ(Parsed({"-", ""}).words, (Words{"-", ""}));
}

TEST(Arguments, WhatIsNotKnownIsRefused) {
    EXPECT_EQ(RefusalOf({"--colour"}), "unknown option \"--colour\"");
    EXPECT_EQ(RefusalOf({"-x"}), "unknown option \"-x\"");
    EXPECT_EQ(RefusalOf({"--colour=red"}), "unknown option \"--colour\"");
    EXPECT_EQ(RefusalOf({"--size"}), "the option \"--size\" needs a value");
    EXPECT_EQ(RefusalOf({"--help=1"}), "the option \"--help\" takes no value");
    EXPECT_EQ(RefusalOf({"--size", "1", "--size=2"}), "the option \"--size\" is given twice");
}

TEST(Arguments, NumbersAreWholeWordsWithinBounds) {
    EXPECT_EQ(cli::NumberIn("7", 1, 9), 7);
    EXPECT_EQ(cli::NumberIn("1", 1, 9), 1);
    EXPECT_EQ(cli::NumberIn("9", 1, 9), 9);
    for (const char* word : {"0", "10", "", "7 ", " 7", "+7", "7x", "-1", "99999999999999999999"}) {
        EXPECT_EQ(cli::NumberIn(word, 1, 9), std::nullopt) << word;
    }
}

TEST(NamedDirectory, HoldsEverything) {
    const support::TempFolder folder;
    const cli::NamedDirectory directory(folder.path());
    EXPECT_EQ(directory.folder(), folder.path());
    EXPECT_TRUE(directory.writable());
    EXPECT_EQ(directory.toRead("vtmtc.dat"), folder / "vtmtc.dat");
    EXPECT_EQ(directory.toWrite("vtmtc.dat"), folder / "vtmtc.dat");
    EXPECT_FALSE(cli::NamedDirectory("/nonexistent").writable());
    EXPECT_EQ(cli::NamedDirectory("/nonexistent").toWrite("vtmtc.dat"), "/nonexistent/vtmtc.dat");
}
