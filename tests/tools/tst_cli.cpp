// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "cli/Arguments.h"
#include "cli/NamedDirectory.h"
#include "cli/TerminalText.h"
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

TEST(TerminalText, LeavesWhatIsOnlyShown) {
    const std::string words = "A \"name\", 100 % \xC3\xA4\xE2\x82\xAC\xF0\x9F\x8E\xAE ~";
    EXPECT_EQ(cli::TerminalText(words), words);
    EXPECT_EQ(cli::TerminalText(""), "");
}

TEST(TerminalText, NeutralisesWhatATerminalActsOn) {
    EXPECT_EQ(cli::TerminalText("a\x1b[31mred\x1b[0m"), "a?[31mred?[0m");
    EXPECT_EQ(cli::TerminalText("one\ntwo\r\n\tthree"), "one?two???three");
    EXPECT_EQ(cli::TerminalText("\x1b]0;title\a\b\x7f"), "?]0;title???");
    EXPECT_EQ(
        cli::TerminalText("\xC2\x9B"
                          "31m \xC2\x85"),
        "?31m ?")
        << "the controls behind those of ASCII";
    EXPECT_EQ(
        cli::TerminalText("\xE2\x80\xA8 \xE2\x80\xAE"
                          "cod.exe \xE2\x81\xA6"),
        "? ?cod.exe ?");
    EXPECT_EQ(cli::TerminalText(std::string_view("a\0b", 3)), "a?b");
}

TEST(TerminalText, NeutralisesBytesThatAreNotUtf8) {
    EXPECT_EQ(
        cli::TerminalText("\x9B"
                          "31m"),
        "?31m");
    EXPECT_EQ(cli::TerminalText("h\xE4user"), "h?user");
    EXPECT_EQ(cli::TerminalText("\xC3"), "?");
    EXPECT_EQ(cli::TerminalText("\xE2\x82"), "??");
    EXPECT_EQ(
        cli::TerminalText("\xC0\x9B \xE0\x82\x9B \xED\xA0\x80 \xF5\x80\x80\x80 \xF4\x90\x80\x80"),
        "?? ??? ??? ???? ????");
}
