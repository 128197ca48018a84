// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "cli/Arguments.h"
#include "cli/ProgramFolder.h"
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

std::string Refusal(const Words& arguments) {
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
    EXPECT_EQ(Refusal({"--colour"}), "unknown option \"--colour\"");
    EXPECT_EQ(Refusal({"-x"}), "unknown option \"-x\"");
    EXPECT_EQ(Refusal({"--colour=red"}), "unknown option \"--colour\"");
    EXPECT_EQ(Refusal({"--size"}), "the option \"--size\" needs a value");
    EXPECT_EQ(Refusal({"--help=1"}), "the option \"--help\" takes no value");
    EXPECT_EQ(Refusal({"--size", "1", "--size=2"}), "the option \"--size\" is given twice");
}

TEST(Arguments, NumbersAreWholeWordsWithinBounds) {
    EXPECT_EQ(cli::NumberIn("7", 1, 9), 7);
    EXPECT_EQ(cli::NumberIn("1", 1, 9), 1);
    EXPECT_EQ(cli::NumberIn("9", 1, 9), 9);
    for (const char* word : {"0", "10", "", "7 ", " 7", "+7", "7x", "-1", "99999999999999999999"}) {
        EXPECT_EQ(cli::NumberIn(word, 1, 9), std::nullopt) << word;
    }
}

TEST(ProgramFolder, IsTheExecutablesFolder) {
    const support::TempFolder prefix;
    (void)prefix.put("bin/vtmtc.dat", "");
    (void)prefix.put("share/vtm/vtmtc.dat", "");
    const cli::ProgramFolder folder(prefix / "bin" / "vtm-charset", prefix / "data");
    EXPECT_EQ(folder.folder(), prefix / "bin");
    EXPECT_TRUE(folder.writable());
    EXPECT_EQ(folder.toRead("vtmtc.dat"), prefix / "bin" / "vtmtc.dat");
    EXPECT_EQ(folder.toWrite("vtmtc.dat"), prefix / "bin" / "vtmtc.dat");
}

TEST(ProgramFolder, OfAnInstalledProgramLiesInShare) {
    const support::TempFolder prefix;
    (void)prefix.put("bin/vtm-charset", "");
    (void)prefix.put("share/vtm/vtmtc.dat", "");
    EXPECT_EQ(
        cli::ProgramFolder(prefix / "bin" / "vtm-charset", prefix / "data").folder(),
        prefix / "share" / "vtm");
}

TEST(ProgramFolder, TheUsersDataFolderStandsInWhereItCannotBeWritten) {
    const support::TempFolder data;
    const cli::ProgramFolder folder("/nonexistent/bin/vtm-charset", data.path());
    EXPECT_FALSE(folder.writable());
    EXPECT_EQ(folder.toRead("vtmtc.dat"), "/nonexistent/bin/vtmtc.dat");
    EXPECT_EQ(folder.toWrite("vtmtc.dat"), data / "vtm" / "vtmtc.dat");
    EXPECT_TRUE(std::filesystem::is_directory(data / "vtm"));
    (void)data.put("vtm/vtmtc.dat", "");
    EXPECT_EQ(folder.toRead("vtmtc.dat"), data / "vtm" / "vtmtc.dat");
}

TEST(ProgramFolder, NothingStandsInForAFolderThatTheUserNames) {
    const cli::ProgramFolder folder(ui::Path("/nonexistent"));
    EXPECT_EQ(folder.toRead("vtmtc.dat"), "/nonexistent/vtmtc.dat");
    EXPECT_EQ(folder.toWrite("vtmtc.dat"), "/nonexistent/vtmtc.dat");
    const cli::ProgramFolder homeless("/nonexistent/bin/vtm-charset", ui::Path());
    EXPECT_EQ(homeless.toWrite("vtmtc.dat"), "/nonexistent/bin/vtmtc.dat");
}
