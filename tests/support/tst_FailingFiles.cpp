// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/FailingFiles.h"
#include "support/InChild.h"
#include "support/TempProgramDirectory.h"
#include "ui/FileWriter.h"

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
        second.failure().message,
        "Could not write \"" + ui::PathText(folder / "b") + "\": injected failure.");
    EXPECT_TRUE(ui::WriteFile(files, folder / "c", "three"));
    EXPECT_EQ(files.count(Step::Write), 3);
    EXPECT_EQ(folder.content("a"), "one");
    EXPECT_EQ(folder.content("c"), "three");
}

TEST(FailingFiles, FailsFromAStepOn) {
    const TempFolder folder;
    ui::DiskFiles disk;
    FailingFiles files(disk);
    files.failFrom(Step::Create, 2);
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
    auto file = files.open(folder / "a", ui::Files::OpenMode::CreateNew);
    ASSERT_TRUE(file);
    EXPECT_FALSE(file.value()->write("123456"));
    EXPECT_EQ(folder.content("a"), "1234");
}

TEST(FailingFiles, RemembersTheStepsInOrder) {
    const TempFolder folder;
    ui::DiskFiles disk;
    FailingFiles files(disk);
    EXPECT_TRUE(ui::WriteFile(files, folder / "a", "one"));
    EXPECT_EQ(files.read(folder / "a").value(), "one");
    EXPECT_TRUE(files.remove(folder / "a"));
    const std::vector<std::string> expected = {
        "look a", "create a", "write a",    "flush a",
        "read a", "close a",  "rename a a", "folder " + ui::PathText(folder.path().filename()),
        "read a", "remove a"};
    EXPECT_EQ(files.steps(), expected);
}

TEST(FailingFiles, EndsTheProcessAtTheStepThatItIsToldTo) {
    const TempFolder folder;
    ui::DiskFiles disk;
    const auto dieAt = [&](int step) {
        return support::InChild([&] {
            FailingFiles files(disk);
            files.dieAt(step);
            return ui::WritePrivateCopy(files, folder / "a", "123456") ? 0 : 1;
        });
    };
    EXPECT_EQ(dieAt(1), FailingFiles::Death);
    EXPECT_FALSE(folder.has("a"));
    EXPECT_EQ(dieAt(2), FailingFiles::Death);
    EXPECT_EQ(folder.content("a"), "123");
    std::filesystem::remove(folder / "a");
    EXPECT_EQ(dieAt(3), FailingFiles::Death);
    EXPECT_EQ(folder.content("a"), "123456");
    std::filesystem::remove(folder / "a");
    EXPECT_EQ(dieAt(6), 0);
}

} // namespace
