// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/FailingFiles.h"
#include "support/TempProgramDirectory.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

using support::FailingFiles;
using support::TempFolder;
using Step = FailingFiles::Step;

TEST(FailingFiles, FailsTheStepThatItIsToldTo) {
    const TempFolder folder;
    ui::DiskFiles disk;
    FailingFiles files(disk);
    files.failOnce(Step::Write, 2);
    EXPECT_TRUE(ui::WriteFile(files, folder / "a", "one"));
    const auto second = ui::WriteFile(files, folder / "b", "two");
    ASSERT_FALSE(second);
    EXPECT_EQ(
        second.failure().message, "Could not write \"" + (folder / "b").native() + "\": injected failure.");
    EXPECT_TRUE(ui::WriteFile(files, folder / "c", "three"));
    EXPECT_EQ(files.count(Step::Write), 3);
    EXPECT_EQ(folder.content("a"), "one");
    EXPECT_EQ(folder.content("c"), "three");
}

TEST(FailingFiles, FailsFromAStepOn) {
    const TempFolder folder;
    ui::DiskFiles disk;
    FailingFiles files(disk);
    files.failFrom(Step::Open, 2);
    EXPECT_TRUE(ui::WriteFile(files, folder / "a", "one"));
    EXPECT_FALSE(ui::WriteFile(files, folder / "b", "two"));
    EXPECT_FALSE(ui::WriteFile(files, folder / "c", "three"));
    files.failNothing();
    EXPECT_TRUE(ui::WriteFile(files, folder / "c", "three"));
}

TEST(FailingFiles, WritesWhatFitsOnAFullDisk) {
    const TempFolder folder;
    ui::DiskFiles disk;
    FailingFiles files(disk);
    files.failWritesAfter(4);
    EXPECT_FALSE(ui::WriteFile(files, folder / "a", "123456"));
    EXPECT_EQ(folder.content("a"), "1234");
}

TEST(FailingFiles, RemembersTheStepsInOrder) {
    const TempFolder folder;
    ui::DiskFiles disk;
    FailingFiles files(disk);
    EXPECT_TRUE(ui::WriteFileAtomically(files, folder / "a", "one"));
    EXPECT_EQ(files.read(folder / "a").value(), "one");
    EXPECT_TRUE(files.remove(folder / "a"));
    const std::vector<std::string> expected = {"open a.new",     "write a.new", "flush a.new", "close a.new",
                                               "rename a.new a", "read a",      "remove a"};
    EXPECT_EQ(files.steps(), expected);
}

} // namespace
