// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/ToolRun.h"
#include "tools/CharSetCommandRun.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>

namespace {

using support::MakeSets;

class PosixCharSetCommand : public support::CharSetCommand {};

} // namespace

TEST_F(PosixCharSetCommand, NamesOfFilesHoldNothingThatATerminalActsOn) {
    expectHarmlessRefusal({"add", "New", ui::PathText(folder.put(actedOn + ".png", "none"))});
    std::filesystem::create_directory(folder / actedOn);
    expectHarmlessRefusal({"--directory", ui::PathText(folder / actedOn), "list"});
    (void)folder.put(actedOn + "/vtmtc.dat", MakeSets(1).list);
    EXPECT_EQ(run({"--directory", ui::PathText(folder / actedOn), "list"}), 0);
    EXPECT_EQ(output.str().find_first_of("\x1b\a\r"), std::string::npos) << output.str();
    EXPECT_EQ(std::ranges::count(output.str(), '\n'), 3) << output.str();
}

TEST_F(PosixCharSetCommand, ExportsToTheNameThatWasGivenAndToNoOther) {
    const support::TempFolder place;
    const std::string file = ui::PathText(place / "y.png");
    place.put("y.png.new", "mine");
    place.put("precious", "mine too");
    std::filesystem::create_symlink("precious", place / "y.png");
    EXPECT_EQ(run({"export", "1", file}), 0);
    EXPECT_EQ(place.content("y.png.new"), "mine");
    EXPECT_EQ(place.content("precious"), "mine too");
    EXPECT_TRUE(place.content("y.png").starts_with("\x89PNG"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(place.path()), {}), 3);
}

TEST(PosixCharSetProgram, SaysThatAFileMayNotBecomeSoLarge) {
    const support::TempFolder folder;
    const std::string file = ui::PathText(folder.put("out.png", "old"));
    const support::ToolRun run = support::RunProgram(
        "/bin/sh", {"-c", R"(ulimit -f 1; exec "$0" "$@")", VTM_CHARSET, "export", "1", file});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "vtm-charset: Could not write \"" + file + "\": File too large.\n");
    EXPECT_EQ(folder.content("out.png"), "old");
}
