// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/FailingFiles.h"
#include "support/TempProgramDirectory.h"
#include "ui/Files.h"

#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using support::FailingFiles;
using support::TempFolder;
using ui::DiskFiles;
using Mode = ui::Files::OpenMode;

std::string AllBytes() {
    std::string bytes;
    for (int i = 0; i < 256; ++i) {
        bytes.push_back(static_cast<char>(i));
    }
    return bytes;
}

TEST(DiskFiles, ReadsEveryByteAsItIs) {
    const TempFolder folder;
    const DiskFiles files;
    folder.put("a", AllBytes() + "\r\n\x1A");
    EXPECT_EQ(files.read(folder / "a").value(), AllBytes() + "\r\n\x1A");
}

TEST(DiskFiles, ReadsAnEmptyFile) {
    const TempFolder folder;
    folder.put("a", "");
    EXPECT_EQ(DiskFiles().read(folder / "a").value(), "");
}

TEST(DiskFiles, NamesTheMissingFileAndTheCause) {
    const TempFolder folder;
    const auto read = DiskFiles().read(folder / "gone.vtn");
    ASSERT_FALSE(read);
    EXPECT_EQ(
        read.failure().message,
        "Could not open \"" + (folder / "gone.vtn").native() + "\": No such file or directory.");
}

TEST(DiskFiles, RefusesAFolder) {
    const TempFolder folder;
    const auto read = DiskFiles().read(folder.path());
    ASSERT_FALSE(read);
    EXPECT_EQ(read.failure().message, "Could not read \"" + folder.path().native() + "\": Is a directory.");
    EXPECT_FALSE(DiskFiles().exists(folder.path()));
}

TEST(DiskFiles, DoesNotWaitForANamedPipe) {
    const TempFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    const auto read = DiskFiles().read(folder / "pipe");
    ASSERT_FALSE(read);
    EXPECT_EQ(
        read.failure().message, "Could not read \"" + (folder / "pipe").native() + "\": it is not a file.");
    EXPECT_FALSE(DiskFiles().open(folder / "pipe", Mode::Truncate));
    EXPECT_FALSE(DiskFiles().exists(folder / "pipe"));
}

TEST(DiskFiles, RefusesADevice) {
    EXPECT_FALSE(DiskFiles().read("/dev/zero"));
}

TEST(DiskFiles, ReadsUpToTheGreatestSize) {
    const TempFolder folder;
    folder.put("a", "");
    std::filesystem::resize_file(folder / "a", ui::Files::MaxFileSize);
    EXPECT_EQ(DiskFiles().read(folder / "a").value().size(), ui::Files::MaxFileSize);
    std::filesystem::resize_file(folder / "a", ui::Files::MaxFileSize + 1);
    const auto read = DiskFiles().read(folder / "a");
    ASSERT_FALSE(read);
    EXPECT_EQ(read.failure().message, "Could not read \"" + (folder / "a").native() + "\": File too large.");
}

TEST(DiskFiles, RefusesAHugeFileWithoutLoadingIt) {
    const TempFolder folder;
    folder.put("a", "");
    // A sparse file: were it loaded, there would not be the memory for it.
    std::filesystem::resize_file(folder / "a", std::uintmax_t{1} << 40U);
    EXPECT_FALSE(DiskFiles().read(folder / "a"));
}

TEST(DiskFiles, ReportsWhatMayNotBeRead) {
    if (::geteuid() == 0) {
        GTEST_SKIP() << "the superuser may read everything";
    }
    const TempFolder folder;
    folder.put("a", "secret");
    std::filesystem::permissions(folder / "a", std::filesystem::perms::none);
    const auto read = DiskFiles().read(folder / "a");
    ASSERT_FALSE(read);
    EXPECT_EQ(
        read.failure().message, "Could not open \"" + (folder / "a").native() + "\": Permission denied.");
}

TEST(DiskFiles, ReportsAFolderThatIsNotThere) {
    const TempFolder folder;
    DiskFiles files;
    const auto written = ui::WriteFile(files, folder / "gone/a", "x");
    ASSERT_FALSE(written);
    EXPECT_EQ(
        written.failure().message,
        "Could not open \"" + (folder / "gone/a").native() + "\": No such file or directory.");
}

TEST(DiskFiles, ReportsAFullDisk) {
    if (!std::filesystem::exists("/dev/full")) {
        GTEST_SKIP() << "no /dev/full here";
    }
    DiskFiles files;
    const auto written = ui::WriteFile(files, "/dev/full", "x");
    ASSERT_FALSE(written);
    EXPECT_EQ(written.failure().message, "Could not write \"/dev/full\": No space left on device.");
}

TEST(DiskFiles, TruncatesInPlaceKeepingLinksAndPermissions) {
    const TempFolder folder;
    DiskFiles files;
    folder.put("a", "a long old content");
    std::filesystem::permissions(
        folder / "a", std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    std::filesystem::create_hard_link(folder / "a", folder / "hard");
    std::filesystem::create_symlink(folder / "a", folder / "soft");
    EXPECT_TRUE(ui::WriteFile(files, folder / "soft", AllBytes()));
    EXPECT_EQ(folder.content("a"), AllBytes());
    EXPECT_EQ(folder.content("hard"), AllBytes());
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "soft"));
    EXPECT_EQ(
        std::filesystem::status(folder / "a").permissions(),
        std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST(DiskFiles, AppendsToWhatIsThere) {
    const TempFolder folder;
    DiskFiles files;
    EXPECT_TRUE(ui::WriteFile(files, folder / "a", "one", Mode::Append));
    EXPECT_TRUE(ui::WriteFile(files, folder / "a", "two", Mode::Append));
    EXPECT_EQ(folder.content("a"), "onetwo");
}

TEST(DiskFiles, CreatesOnlyWhatIsNotThere) {
    const TempFolder folder;
    DiskFiles files;
    EXPECT_TRUE(ui::WriteFile(files, folder / "a", "one", Mode::CreateNew));
    const auto again = ui::WriteFile(files, folder / "a", "two", Mode::CreateNew);
    ASSERT_FALSE(again);
    EXPECT_EQ(again.failure().message, "Could not create \"" + (folder / "a").native() + "\": File exists.");
    EXPECT_EQ(folder.content("a"), "one");
    std::filesystem::create_symlink(folder / "nowhere", folder / "dangling");
    EXPECT_FALSE(ui::WriteFile(files, folder / "dangling", "two", Mode::CreateNew));
}

TEST(DiskFiles, CreatesWhatNobodyElseMayRead) {
    const TempFolder folder;
    DiskFiles files;
    EXPECT_TRUE(ui::WriteFile(files, folder / "a", "one", Mode::CreatePrivate));
    EXPECT_EQ(
        std::filesystem::status(folder / "a").permissions(),
        std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    const auto again = ui::WriteFile(files, folder / "a", "two", Mode::CreatePrivate);
    ASSERT_FALSE(again);
    EXPECT_EQ(again.failure().message, "Could not create \"" + (folder / "a").native() + "\": File exists.");
    EXPECT_EQ(folder.content("a"), "one");
}

TEST(DiskFiles, RemovesAndRenames) {
    const TempFolder folder;
    DiskFiles files;
    folder.put("a", "one");
    folder.put("b", "two");
    EXPECT_TRUE(files.rename(folder / "a", folder / "b"));
    EXPECT_FALSE(folder.has("a"));
    EXPECT_EQ(folder.content("b"), "one");
    EXPECT_TRUE(files.remove(folder / "b"));
    const auto again = files.remove(folder / "b");
    ASSERT_FALSE(again);
    EXPECT_EQ(
        again.failure().message,
        "Could not delete \"" + (folder / "b").native() + "\": No such file or directory.");
    EXPECT_FALSE(files.rename(folder / "a", folder / "b"));
}

TEST(DiskFiles, ExistsFollowsLinks) {
    const TempFolder folder;
    folder.put("a", "one");
    std::filesystem::create_symlink(folder / "a", folder / "link");
    std::filesystem::create_symlink(folder / "nowhere", folder / "dangling");
    EXPECT_TRUE(DiskFiles().exists(folder / "link"));
    EXPECT_FALSE(DiskFiles().exists(folder / "dangling"));
    EXPECT_FALSE(DiskFiles().exists(folder / "b"));
}

TEST(OverwriteFile, WritesInPlace) {
    const TempFolder folder;
    DiskFiles files;
    folder.put("a", "old and longer");
    std::filesystem::create_hard_link(folder / "a", folder / "b");
    EXPECT_TRUE(ui::OverwriteFile(files, folder / "a", "new"));
    EXPECT_EQ(folder.content("b"), "new");
    EXPECT_TRUE(ui::OverwriteFile(files, folder / "c", "new"));
    EXPECT_EQ(folder.content("c"), "new");
}

TEST(OverwriteFile, PutsBackWhatWasThereWhateverFails) {
    using Step = FailingFiles::Step;
    for (const Step step : {Step::Open, Step::Write, Step::Close}) {
        const TempFolder folder;
        DiskFiles disk;
        FailingFiles files(disk);
        folder.put("a", "old");
        files.failOnce(step);
        EXPECT_FALSE(ui::OverwriteFile(files, folder / "a", "new and longer"));
        EXPECT_EQ(folder.content("a"), "old");
        files.failOnce(step);
        EXPECT_FALSE(ui::OverwriteFile(files, folder / "b", "new and longer"));
        EXPECT_FALSE(folder.has("b"));
    }
}

TEST(OverwriteFile, LeavesAloneWhatCannotBeOpened) {
    const TempFolder folder;
    DiskFiles disk;
    FailingFiles files(disk);
    folder.put("a", "old");
    files.failOnce(FailingFiles::Step::Open);
    EXPECT_FALSE(ui::OverwriteFile(files, folder / "a", "new"));
    EXPECT_EQ(files.count(FailingFiles::Step::Open), 1) << "another program may have written it by now";
    EXPECT_EQ(folder.content("a"), "old");
}

TEST(OverwriteFile, LeavesADeviceWhereItIs) {
    if (::access("/dev/full", W_OK) != 0) {
        GTEST_SKIP() << "no /dev/full here";
    }
    const TempFolder folder;
    DiskFiles files;
    std::filesystem::create_symlink("/dev/full", folder / "full");
    EXPECT_FALSE(ui::OverwriteFile(files, folder / "full", "new"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "full"));
}

TEST(WriteFileAtomically, ReplacesTheWholeFile) {
    const TempFolder folder;
    DiskFiles files;
    folder.put("a", "old");
    EXPECT_TRUE(ui::WriteFileAtomically(files, folder / "a", "new"));
    EXPECT_EQ(folder.content("a"), "new");
    EXPECT_FALSE(folder.has("a.new"));
}

TEST(WriteFileAtomically, KeepsTheOldFileWhateverFails) {
    using Step = FailingFiles::Step;
    for (const Step step : {Step::Open, Step::Write, Step::Flush, Step::Close, Step::Rename}) {
        const TempFolder folder;
        DiskFiles disk;
        FailingFiles files(disk);
        folder.put("a", "old");
        files.failOnce(step);
        EXPECT_FALSE(ui::WriteFileAtomically(files, folder / "a", "new"));
        EXPECT_EQ(folder.content("a"), "old");
        EXPECT_FALSE(folder.has("a.new"));
    }
}

TEST(PathText, KeepsForeignBytes) {
    EXPECT_EQ(ui::PathText("/tmp/\xFF.vtn"), "/tmp/\xFF.vtn");
}

TEST(DiskFiles, KnowsAFileByAllItsNames) {
    const TempFolder folder;
    const DiskFiles files;
    folder.put("a", "x");
    folder.put("b", "x");
    std::filesystem::create_symlink(folder / "a", folder / "soft");
    std::filesystem::create_hard_link(folder / "a", folder / "hard");
    EXPECT_TRUE(files.sameFile(folder / "a", folder / "a"));
    EXPECT_TRUE(files.sameFile(folder / "a", folder / "." / "soft"));
    EXPECT_TRUE(files.sameFile(folder / "hard", folder / "soft"));
    EXPECT_TRUE(files.sameFile(folder.path(), folder / "."));
    EXPECT_FALSE(files.sameFile(folder / "a", folder / "b"));
    EXPECT_FALSE(files.sameFile(folder / "a", folder / "gone"));
    EXPECT_FALSE(files.sameFile(folder / "gone", folder / "gone"));
}

TEST(DiskFiles, LocksAFolderForOneAtATime) {
    const TempFolder folder;
    const TempFolder other;
    DiskFiles files;
    auto lock = files.lockFolder(folder.path());
    ASSERT_TRUE(lock);
    EXPECT_TRUE(files.lockFolder(other.path()));
    const auto second = files.lockFolder(folder / ".");
    ASSERT_FALSE(second);
    EXPECT_EQ(
        second.failure().message,
        "Could not lock \"" + (folder / ".").native() + "\": another program is writing in it.");
    lock = ui::Failure{"released"};
    EXPECT_TRUE(files.lockFolder(folder.path()));
}

TEST(DiskFiles, CannotLockAFolderThatIsNotThere) {
    const TempFolder folder;
    const auto lock = DiskFiles().lockFolder(folder / "gone");
    ASSERT_FALSE(lock);
    EXPECT_EQ(
        lock.failure().message,
        "Could not lock \"" + (folder / "gone").native() + "\": No such file or directory.");
}

TEST(DiskFiles, FlushesNewFilesOfTheCurrentFolderToo) {
    const TempFolder folder;
    DiskFiles files;
    const auto old = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    {
        auto file = files.open("new", Mode::CreateNew);
        ASSERT_TRUE(file);
        EXPECT_TRUE(file.value()->write("x"));
        EXPECT_TRUE(file.value()->flush());
        EXPECT_TRUE(file.value()->close());
    }
    std::filesystem::current_path(old);
    EXPECT_EQ(folder.content("new"), "x");
}

} // namespace
