// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/FailingFiles.h"
#include "support/InChild.h"
#include "ui/FileWriter.h"
#include "ui/WriterFiles.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using support::EntriesIn;
using support::FailingFiles;
using support::New;
using support::Old;
using support::TempFolder;
using support::Writer;
using ui::Links;
using ui::WriteFile;

struct stat FactsOf(const ui::Path& path) {
    struct stat facts {};

    EXPECT_EQ(::stat(path.c_str(), &facts), 0) << path;
    return facts;
}

TEST_F(Writer, KeepsPermissionsAndOwner) {
    putOld();
    const bool isSuperuser = ::geteuid() == 0;
    if (isSuperuser) {
        ASSERT_EQ(::chown(path.c_str(), 1234, 5678), 0);
    }
    // The system takes the set-user-ID bit from a file that anybody but the superuser writes.
    const ::mode_t mode = isSuperuser ? 04751 : 01751;
    ASSERT_EQ(::chmod(path.c_str(), mode), 0);
    const struct stat before = FactsOf(path);
    ASSERT_EQ(before.st_mode & 07777U, mode);
    EXPECT_TRUE(WriteFile(files, path, New));
    const struct stat after = FactsOf(path);
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
    EXPECT_NE(after.st_ino, before.st_ino);
}

TEST_F(Writer, WritesWhatALinkLeadsTo) {
    const TempFolder other;
    other.put("real", Old);
    std::filesystem::create_symlink(other / "real", path);
    EXPECT_TRUE(WriteFile(files, path, New));
    EXPECT_TRUE(std::filesystem::is_symlink(path));
    EXPECT_EQ(other.content("real"), New);
    EXPECT_EQ(EntriesIn(other), 1);
    std::filesystem::remove(other / "real");
    EXPECT_TRUE(WriteFile(files, path, Old)) << "a link that leads nowhere yet";
    EXPECT_TRUE(std::filesystem::is_symlink(path));
    EXPECT_EQ(other.content("real"), Old);
}

TEST_F(Writer, PutsTheFileInPlaceOfALinkWhereThatIsWanted) {
    folder.put("victim", Old);
    std::filesystem::create_symlink("victim", path);
    EXPECT_TRUE(WriteFile(files, path, New, Links::Replace));
    EXPECT_EQ(folder.content("victim"), Old);
    EXPECT_FALSE(std::filesystem::is_symlink(path));
    EXPECT_EQ(content(), New);
    EXPECT_EQ(EntriesIn(folder), 2);
}

TEST_F(Writer, LeavesADeviceWhereItIs) {
    if (::access("/dev/full", W_OK) != 0) {
        GTEST_SKIP() << "no /dev/full here";
    }
    std::filesystem::create_symlink("/dev/full", folder / "full");
    const auto written = WriteFile(files, folder / "full", New);
    ASSERT_FALSE(written);
    EXPECT_EQ(
        written.failure().message,
        "Could not write \"" + ui::PathText(folder / "full") + "\": No space left on device.");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "full"));
    EXPECT_TRUE(WriteFile(files, "/dev/null", New));
}

TEST_F(Writer, KeepsCopiesForTheUserAlone) {
    putWithTwoNames();
    files.failFrom(FailingFiles::Step::Write, 3);
    ASSERT_FALSE(WriteFile(files, path, New));
    EXPECT_EQ(FactsOf(folder / copyIn(folder)).st_mode & 0777U, 0600U);
    EXPECT_TRUE(ui::WritePrivateCopy(disk, folder / "a", New));
    EXPECT_EQ(FactsOf(folder / "a").st_mode & 0777U, 0600U);
}

/// What somebody meets who is not the superuser.
class WriterOfAnotherUser : public Writer {
protected:
    WriterOfAnotherUser() {
        putOld();
        EXPECT_EQ(::chmod(path.c_str(), 0666), 0);
        EXPECT_EQ(::chmod(folder.path().c_str(), 0555), 0);
        EXPECT_EQ(::chmod(spare.path().c_str(), 0777), 0);
    }

    static int asSomebody(const std::function<int()>& run) {
        return support::InChild([&] { return ::geteuid() == 0 && ::setuid(65534) != 0 ? 2 : run(); });
    }
};

TEST_F(WriterOfAnotherUser, KeepsTheCopyElsewhereWhereTheFolderTakesNone) {
    EXPECT_EQ(0, asSomebody([&] { return WriteFile(disk, path, New) ? 0 : 1; }));
    EXPECT_EQ(content(), New);
    EXPECT_EQ(EntriesIn(spare), 0);
    folder.put("a.vtn", Old);
    EXPECT_EQ(0, asSomebody([&] {
                  FailingFiles failing(disk);
                  failing.failFrom(FailingFiles::Step::Resize);
                  return WriteFile(failing, path, New) ? 1 : 0;
              }));
    EXPECT_EQ(spare.content(copyIn(spare)), Old);
}

TEST_F(WriterOfAnotherUser, WritesNothingOverOfWhichItCanKeepNoCopy) {
    ASSERT_EQ(::chmod(spare.path().c_str(), 0555), 0);
    EXPECT_EQ(0, asSomebody([&] {
                  const auto written = WriteFile(disk, path, New);
                  return !written && written.failure().message.ends_with(
                                         ": Permission denied.\n\"" + ui::PathText(path) +
                                         "\" was not changed, as no copy of it could be made first.")
                             ? 0
                             : 1;
              }));
    EXPECT_EQ(content(), Old);
    EXPECT_EQ(0, asSomebody([&] { return WriteFile(disk, path, New, Links::Replace) ? 1 : 0; }));
    EXPECT_EQ(content(), Old);
}

TEST_F(WriterOfAnotherUser, NeedsNoCopyOfAnEmptyFile) {
    ASSERT_EQ(::chmod(spare.path().c_str(), 0555), 0);
    folder.put("a.vtn", "");
    EXPECT_EQ(0, asSomebody([&] { return WriteFile(disk, path, New) ? 0 : 1; }));
    EXPECT_EQ(content(), New);
}

TEST_F(WriterOfAnotherUser, KeepsTheOwnerOfAFile) {
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    const struct stat before = FactsOf(path);
    EXPECT_EQ(0, asSomebody([&] { return WriteFile(disk, path, New) ? 0 : 1; }));
    EXPECT_EQ(content(), New);
    EXPECT_EQ(FactsOf(path).st_uid, before.st_uid);
    EXPECT_EQ(EntriesIn(folder), 1);
}

} // namespace
