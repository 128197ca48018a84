// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/CommandLine.h"

#include "shell/Product.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using editing::Page;

struct Expected {
    Page kind;
    std::string folder;
    std::string file;
    Page shown;
};

void expectFile(const std::optional<shell::CommandLineFile>& found, const Expected& expected) {
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->kind, expected.kind);
    EXPECT_EQ(ui::PathText(found->folder), expected.folder);
    EXPECT_EQ(ui::PathText(found->file), expected.file);
    EXPECT_EQ(found->shown, expected.shown);
}

void expectParsed(std::string_view commandLine, const Expected& expected) {
    SCOPED_TRACE(commandLine);
    expectFile(shell::ParseCommandLine(commandLine), expected);
}

shell::StartFiles started(const std::vector<std::string>& arguments) {
    return shell::ReadArguments(arguments);
}

} // namespace

TEST(CommandLine, PrintsHelpAndVersionOnlyWhenAskedForNothingElse) {
    EXPECT_EQ(
        shell::TextToPrint(std::vector<std::string>{"--version"}),
        "vtm " + std::string(shell::ProductVersion) + "\n");
    const auto help = shell::TextToPrint(std::vector<std::string>{"--help"});
    ASSERT_TRUE(help);
    for (const char* part :
         {"vtm \" /name FILE\"", "vtm \" /animation FILE\"", "vtm \" /macro FILE\"", "--help", "--version"}) {
        EXPECT_NE(help->find(part), std::string::npos) << part;
    }
    for (const std::vector<std::string>& others :
         {std::vector<std::string>{},
          {"--helpful"},
          {" /name --help"},
          {" /name", "--help"},
          {"--help", "x"}}) {
        EXPECT_FALSE(shell::TextToPrint(others));
    }
}

TEST(CommandLine, IsAdvisedAsItIsRead) {
    const std::string advice(shell::HowToLoad);
    const std::size_t quote = advice.find('"');
    EXPECT_TRUE(shell::ParseCommandLine(advice.substr(quote)));
}

TEST(CommandLine, EachSwitchLoadsItsKind) {
    expectParsed(" /animation /dir/x.vta", {Page::Animation, "/dir", "x.vta", Page::Name});
    expectParsed(" /name /dir/x.vtn", {Page::Name, "/dir", "x.vtn", Page::Animation});
    expectParsed(" /macro /dir/x.vtm", {Page::Messages, "/dir", "x.vtm", Page::Messages});
}

TEST(CommandLine, AfterAnAnimationTheNamePageIsShownAndAfterANameTheAnimationPage) {
    EXPECT_EQ(static_cast<int>(shell::ParseCommandLine(" /animation a.vta")->shown), 0);
    EXPECT_EQ(static_cast<int>(shell::ParseCommandLine(" /name a.vtn")->shown), 1);
    EXPECT_EQ(static_cast<int>(shell::ParseCommandLine(" /macro a.vtm")->shown), 2);
}

TEST(CommandLine, WhatTheFileAssociationStartsIsTakenFromBetweenTheQuotes) {
    expectParsed("\" /name /dir/x.vtn\"", {Page::Name, "/dir", "x.vtn", Page::Animation});
    expectParsed(
        "/opt/vtm/VTM \" /animation /a b/c d.vta\"", {Page::Animation, "/a b", "c d.vta", Page::Name});
}

TEST(CommandLine, OnlyTheTextBetweenTheFirstTwoQuotesCounts) {
    expectParsed("\" /name a.vtn\" \" /macro b.vtm\"", {Page::Name, "", "a.vtn", Page::Animation});
    EXPECT_FALSE(shell::ParseCommandLine("\"nothing\" /name a.vtn"));
    EXPECT_FALSE(shell::ParseCommandLine("\"\" /name a.vtn"));
}

TEST(CommandLine, ASingleQuoteIsAnOrdinaryCharacter) {
    expectParsed(" /name 6\" nails.vtn", {Page::Name, "", "6\" nails.vtn", Page::Animation});
}

TEST(CommandLine, ASwitchWithoutABlankBeforeItLoadsNothing) {
    EXPECT_FALSE(shell::ParseCommandLine("/name x.vtn"));
    EXPECT_FALSE(shell::ParseCommandLine("/animation x.vta"));
    EXPECT_FALSE(shell::ParseCommandLine("/macro x.vtm"));
}

TEST(CommandLine, ASwitchWithoutABlankAfterItLoadsNothing) {
    EXPECT_FALSE(shell::ParseCommandLine(" /name"));
    EXPECT_FALSE(shell::ParseCommandLine(" /name/dir/x.vtn"));
}

TEST(CommandLine, SwitchesAreCaseSensitive) {
    EXPECT_FALSE(shell::ParseCommandLine(" /Name x.vtn"));
    EXPECT_FALSE(shell::ParseCommandLine(" /NAME x.vtn"));
}

TEST(CommandLine, AFileWithoutASwitchLoadsNothing) {
    EXPECT_FALSE(shell::ParseCommandLine("/dir/x.vtn"));
    EXPECT_FALSE(shell::ParseCommandLine(" "));
    EXPECT_FALSE(shell::ParseCommandLine(" /other x.vtn"));
}

TEST(CommandLine, NameAndAnimationIsTreatedAsAnAnimation) {
    expectParsed(" /name /animation x.vta", {Page::Animation, " ", "namex.vta", Page::Name});
    expectParsed(" /animation /d/a /name b", {Page::Animation, "/d/a ", "name b", Page::Name});
    expectParsed(" /macro /d/a /name b", {Page::Name, " /macro /d", "ab", Page::Animation});
}

TEST(CommandLine, OnlyTheFirstOccurrenceOfTheSwitchIsCutOut) {
    expectParsed(" /name a /name b", {Page::Name, "a ", "name b", Page::Animation});
}

TEST(CommandLine, WhatStandsBeforeTheSwitchIsJoinedToWhatStandsAfterIt) {
    expectParsed("/dir/ /name x.vtn", {Page::Name, "/dir", "x.vtn", Page::Animation});
    expectParsed("abc /name def", {Page::Name, "", "abcdef", Page::Animation});
}

TEST(CommandLine, ThePathIsSplitAtItsLastSlash) {
    expectParsed(" /name x.vtn", {Page::Name, "", "x.vtn", Page::Animation});
    expectParsed(" /name /x.vtn", {Page::Name, "/", "x.vtn", Page::Animation});
    expectParsed(" /name a/b/x.vtn", {Page::Name, "a/b", "x.vtn", Page::Animation});
    expectParsed(" /name /a/b/", {Page::Name, "/a/b", "", Page::Animation});
}

TEST(CommandLine, ArgumentsAreJoinedByOneBlankWithoutQuotes) {
    const std::vector<std::string> arguments = {" /name", "/p/a b.vtn", ""};
    EXPECT_EQ(shell::JoinArguments(arguments), " /name /p/a b.vtn ");
    EXPECT_EQ(shell::JoinArguments({}), "");
}

TEST(CommandLine, WithoutArgumentsTheIntroFilesAreLoaded) {
    EXPECT_TRUE(started({}).intro);
    EXPECT_FALSE(started({}).file);
    EXPECT_TRUE(started({""}).intro);
}

TEST(CommandLine, AnyArgumentKeepsTheIntroFilesAway) {
    EXPECT_FALSE(started({"/p/x.vtn"}).intro);
    EXPECT_FALSE(started({"/p/x.vtn"}).file);
    EXPECT_FALSE(started({" "}).intro);
    EXPECT_FALSE(started({"", ""}).intro);
}

TEST(CommandLine, ASwitchAndItsPathInOneArgument) {
    expectFile(started({" /name /p/x.vtn"}).file, {Page::Name, "/p", "x.vtn", Page::Animation});
}

TEST(CommandLine, ASwitchTypedAtTheFrontWithoutQuotesLoadsNothing) {
    EXPECT_FALSE(started({"/name", "x.vtn"}).file);
    EXPECT_FALSE(started({"/name", "x.vtn"}).intro);
}

TEST(CommandLine, ASwitchAndItsPathInTwoArguments) {
    expectFile(started({" /name", "/p/a b.vtn"}).file, {Page::Name, "/p", "a b.vtn", Page::Animation});
    expectFile(started({" /animation", "x.vta"}).file, {Page::Animation, "", "x.vta", Page::Name});
    expectFile(started({" /macro", "/x.vtm"}).file, {Page::Messages, "/", "x.vtm", Page::Messages});
}

TEST(CommandLine, APathThatIsAnArgumentOfItsOwnIsTakenAsItIs) {
    expectFile(
        started({" /name", "/p/the \"best\" name.vtn"}).file,
        {Page::Name, "/p", "the \"best\" name.vtn", Page::Animation});
    expectFile(
        started({" /name", "/p/a /animation b.vtn"}).file,
        {Page::Name, "/p/a ", "animation b.vtn", Page::Animation});
}

TEST(CommandLine, ASwitchThatAnOpenerTookApartWithItsQuotes) {
    expectFile(started({"\"", "/name\"", "/p/a b.vtn"}).file, {Page::Name, "/p", "a b.vtn", Page::Animation});
    expectFile(
        started({"\"", "/animation\"", "/p/\"x\".vta"}).file,
        {Page::Animation, "/p", "\"x\".vta", Page::Name});
    expectFile(
        started({"\"", "/macro\"", "/p/a /name b.vtm"}).file,
        {Page::Messages, "/p/a ", "name b.vtm", Page::Messages});
    EXPECT_FALSE(started({"\"", "/other\"", "/p/x.vtn"}).file);
    EXPECT_FALSE(started({"\"", "\"", "/p/x.vtn"}).file);
    EXPECT_FALSE(started({"\"", "/name\"", "/p/a", "b.vtn"}).file);
}

TEST(CommandLine, SeveralArgumentsArePutTogetherAgain) {
    expectFile(started({" /name", "/p/a", "b.vtn"}).file, {Page::Name, "/p", "a b.vtn", Page::Animation});
    expectFile(started({"", "/name", "b.vtn"}).file, {Page::Name, "", "b.vtn", Page::Animation});
}

TEST(CommandLine, TheIntroFilesAreLoadedAnimationFirst) {
    std::vector<std::string> names;
    for (const Page page : editing::StartOrder) {
        names.emplace_back(editing::KindOf(page).introFile);
    }
    EXPECT_EQ(names, (std::vector<std::string>{"intro.vta", "intro.vtn", "intro.vtm"}));
}
