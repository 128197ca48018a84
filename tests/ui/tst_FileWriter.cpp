// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/FileWriter.h"

#include "support/FailingFiles.h"
#include "support/InChild.h"
#include "support/TempProgramDirectory.h"

#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

using support::FailingFiles;
using support::TempFolder;
using ui::DiskFiles;
using ui::FileChange;
using ui::FileWritten;
using ui::Links;
using ui::WriteFile;
using Step = FailingFiles::Step;

const std::string Old = "old content\r\n";
const std::string New = "old new\xFF content, which is longer\r\n";

std::ptrdiff_t EntriesIn(const TempFolder& folder) {
    return std::distance(std::filesystem::directory_iterator(folder.path()), {});
}

struct stat FactsOf(const ui::Path& path) {
    struct stat facts {};

    EXPECT_EQ(::stat(path.c_str(), &facts), 0) << path;
    return facts;
}

/// Where files lie that are written in different ways.
class Writer : public testing::Test {
protected:
    TempFolder folder;
    TempFolder spare;
    DiskFiles disk{spare.path()};
    FailingFiles files{disk};
    ui::Path path = folder / "a.vtn";

    void putOld() const { folder.put("a.vtn", Old); }

    /// A file that is written over, as it has two names.
    void putWithTwoNames() const {
        putOld();
        std::filesystem::create_hard_link(path, folder / "b.vtn");
    }

    [[nodiscard]] std::string content() const { return folder.content("a.vtn"); }

    /// The only copy in a folder; fails the test when there is none or there are more.
    static std::string copyIn(const TempFolder& place) {
        std::vector<ui::Path> copies;
        for (const auto& entry : std::filesystem::directory_iterator(place.path())) {
            const auto extension = entry.path().extension();
            if (entry.path().filename().native().starts_with("vtm-copy-") && extension != ".note" &&
                extension != ".told") {
                copies.push_back(entry.path().filename());
            }
        }
        EXPECT_EQ(copies.size(), 1U);
        return copies.size() == 1 ? copies[0].native() : "";
    }
};

TEST_F(Writer, MakesAFile) {
    EXPECT_TRUE(WriteFile(files, path, New));
    EXPECT_EQ(content(), New);
    EXPECT_EQ(EntriesIn(folder), 1);
}

TEST_F(Writer, HasTheNewFileOnTheDiskBeforeItTakesThePlaceOfTheOldOne) {
    putOld();
    EXPECT_TRUE(WriteFile(files, path, New));
    EXPECT_EQ(content(), New);
    EXPECT_EQ(EntriesIn(folder), 1);
    EXPECT_EQ(
        files.steps(),
        (std::vector<std::string>{
            "look a.vtn", "create a.vtn", "write a.vtn", "flush a.vtn", "read a.vtn", "close a.vtn",
            "rename a.vtn a.vtn", "folder " + folder.path().filename().native()}));
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
    for (const bool isHard : {false, true}) {
        std::filesystem::remove(path);
        if (isHard) {
            std::filesystem::create_hard_link(folder / "victim", path);
        } else {
            std::filesystem::create_symlink("victim", path);
        }
        EXPECT_TRUE(WriteFile(files, path, New, Links::Replace));
        EXPECT_EQ(folder.content("victim"), Old);
        EXPECT_FALSE(std::filesystem::is_symlink(path));
        EXPECT_EQ(content(), New);
        EXPECT_EQ(EntriesIn(folder), 2);
    }
}

TEST_F(Writer, LeavesFilesAloneWhoseNamesSomebodyMightGuess) {
    putOld();
    for (const char* name : {"a.vtn.new", "a.vtn.tmp", "a.vtn~", ".a.vtn.swp"}) {
        folder.put(name, "somebody's");
    }
    EXPECT_TRUE(WriteFile(files, path, New));
    for (const char* name : {"a.vtn.new", "a.vtn.tmp", "a.vtn~", ".a.vtn.swp"}) {
        EXPECT_EQ(folder.content(name), "somebody's");
    }
    EXPECT_EQ(EntriesIn(folder), 5);
}

TEST_F(Writer, KeepsAllNamesOfAFile) {
    putWithTwoNames();
    EXPECT_TRUE(WriteFile(files, path, New));
    EXPECT_EQ(folder.content("b.vtn"), New);
    EXPECT_TRUE(WriteFile(files, path, "short"));
    EXPECT_EQ(folder.content("b.vtn"), "short");
    EXPECT_EQ(FactsOf(path).st_nlink, 2U);
    EXPECT_EQ(EntriesIn(folder), 2);
}

TEST_F(Writer, HasACopyOnTheDiskBeforeItWritesOver) {
    putWithTwoNames();
    EXPECT_TRUE(WriteFile(files, path, New));
    std::vector<std::string> steps = files.steps();
    for (std::string& step : steps) {
        if (const auto place = step.find("vtm-copy-"); place != std::string::npos) {
            EXPECT_TRUE(step.ends_with(".vtn") || step.ends_with(".vtn.note")) << step;
            step.replace(place, std::string::npos, step.ends_with(".note") ? "NOTE" : "COPY");
        }
    }
    EXPECT_EQ(
        steps,
        (std::vector<std::string>{"look a.vtn",   "read a.vtn",  "open COPY",
                                  "write COPY",   "flush COPY",  "read COPY",
                                  "close COPY",   "open a.vtn",  "folder " + spare.path().filename().native(),
                                  "open NOTE",    "write NOTE",  "flush NOTE",
                                  "read NOTE",    "close NOTE",  "lock NOTE",
                                  "resize a.vtn", "write a.vtn", "resize a.vtn",
                                  "write a.vtn",  "flush a.vtn", "read a.vtn",
                                  "close a.vtn",  "remove NOTE", "remove COPY"}));
}

TEST_F(Writer, KeepsTheOldFileWhateverFails) {
    for (const bool hasTwoNames : {false, true}) {
        for (const bool forEver : {false, true}) {
            for (const Step step :
                 {Step::Look, Step::Read, Step::Open, Step::Create, Step::Write, Step::Resize, Step::Flush,
                  Step::Close, Step::Rename, Step::Folder}) {
                for (int number = 1; number < 8; ++number) {
                    SCOPED_TRACE(
                        testing::Message()
                        << "step " << static_cast<int>(step) << " number " << number
                        << (hasTwoNames ? " written over" : "") << (forEver ? " for ever" : ""));
                    const TempFolder place;
                    FailingFiles failing(disk);
                    const ui::Path file = place.put("a.vtn", Old);
                    if (hasTwoNames) {
                        std::filesystem::create_hard_link(file, place / "b.vtn");
                    }
                    forEver ? failing.failFrom(step, number) : failing.failOnce(step, number);
                    const auto written = WriteFile(failing, file, New);
                    const std::string now = place.content("a.vtn");
                    if (written) {
                        EXPECT_EQ(now, New);
                        continue;
                    }
                    const std::string& message = written.failure().message;
                    EXPECT_NE(message.find("injected failure."), std::string::npos) << message;
                    if (message.find("may be incomplete") != std::string::npos) {
                        const std::string copy = copyIn(place);
                        EXPECT_EQ(place.content(copy), Old);
                        EXPECT_NE(message.find('"' + (place / copy).native() + '"'), std::string::npos);
                    } else if (message.find("holds what was to be written") != std::string::npos) {
                        EXPECT_EQ(now, New);
                    } else {
                        EXPECT_EQ(now, Old);
                        EXPECT_EQ(EntriesIn(place), hasTwoNames ? 2 : 1)
                            << "what is of no use is left behind";
                    }
                }
            }
        }
    }
}

TEST_F(Writer, MakesNoFileWhateverFails) {
    for (const Step step :
         {Step::Look, Step::Create, Step::Write, Step::Flush, Step::Read, Step::Close, Step::Rename}) {
        files.failOnce(step);
        EXPECT_FALSE(WriteFile(files, path, New));
        EXPECT_EQ(EntriesIn(folder), 0);
    }
}

TEST_F(Writer, PutsBackWhatItCouldNotWriteOver) {
    putWithTwoNames();
    files.failOnce(Step::Write, 3);
    const auto written = WriteFile(files, path, New);
    ASSERT_FALSE(written);
    EXPECT_EQ(
        written.failure().message,
        "Could not write \"" + path.native() + "\": injected failure.\nThe file was put back as it was.");
    EXPECT_EQ(content(), Old);
    EXPECT_EQ(EntriesIn(folder), 2);
}

TEST_F(Writer, NamesTheCopyOfWhatItCouldNotPutBack) {
    putWithTwoNames();
    files.failFrom(Step::Write, 3);
    const auto written = WriteFile(files, path, New);
    ASSERT_FALSE(written);
    const std::string copy = copyIn(folder);
    EXPECT_EQ(
        written.failure().message,
        "Could not write \"" + path.native() +
            "\": injected failure.\nThe file may be incomplete now. What it held before is kept whole as \"" +
            (folder / copy).native() + "\".");
    EXPECT_EQ(folder.content(copy), Old);
    EXPECT_EQ(FactsOf(folder / copy).st_mode & 0777U, 0600U);
}

TEST_F(Writer, TellsThatTheNewFileMayNotBeOnTheDiskYet) {
    putOld();
    files.failOnce(Step::Folder);
    const auto written = WriteFile(files, path, New);
    ASSERT_FALSE(written);
    EXPECT_EQ(
        written.failure().message,
        "Could not folder \"" + folder.path().native() +
            "\": injected failure.\nThe file holds what was to be written, but that may not be on the disk "
            "yet.");
    EXPECT_EQ(content(), New);
}

TEST_F(Writer, WritesOverWhatCannotBeReplaced) {
    putOld();
    files.failOnce(Step::Rename);
    EXPECT_TRUE(WriteFile(files, path, New));
    EXPECT_EQ(content(), New);
    files.failOnce(Step::Create);
    EXPECT_TRUE(WriteFile(files, path, Old));
    EXPECT_EQ(content(), Old);
    EXPECT_EQ(EntriesIn(folder), 1);
}

TEST_F(Writer, ReplacesNoFileThatHasComeMeanwhile) {
    const auto change = FileChange::Prepare(files, path, New);
    ASSERT_TRUE(change);
    putOld();
    const FileWritten written = change.value()->commit();
    ASSERT_FALSE(written.status);
    EXPECT_EQ(written.status.failure().message, "Could not create \"" + path.native() + "\": File exists.");
    EXPECT_EQ(content(), Old);
    EXPECT_EQ(EntriesIn(folder), 1);
}

TEST_F(Writer, LeavesNothingBehindWithoutACommit) {
    putOld();
    ASSERT_TRUE(FileChange::Prepare(files, path, New));
    EXPECT_EQ(EntriesIn(folder), 1);
    std::filesystem::create_hard_link(path, folder / "b.vtn");
    ASSERT_TRUE(FileChange::Prepare(files, path, New));
    EXPECT_EQ(EntriesIn(folder), 2);
    EXPECT_EQ(content(), Old);
}

TEST_F(Writer, UsesACopyThatThereIs) {
    putWithTwoNames();
    const ui::Path copy = spare.put("kept", Old);
    auto change = FileChange::Prepare(files, path, New, Links::Follow, copy);
    ASSERT_TRUE(change);
    files.failFrom(Step::Write);
    const FileWritten written = change.value()->commit();
    EXPECT_EQ(written.holds, FileWritten::Holds::Unsure);
    EXPECT_EQ(written.copy, copy);
    EXPECT_EQ(EntriesIn(folder), 2);
    EXPECT_EQ(spare.content("kept"), Old);
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
        "Could not write \"" + (folder / "full").native() + "\": No space left on device.");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "full"));
    EXPECT_TRUE(WriteFile(files, "/dev/null", New));
}

TEST_F(Writer, ReportsAFolderThatIsNotThere) {
    const auto written = WriteFile(files, folder / "gone/a", New);
    ASSERT_FALSE(written);
    EXPECT_EQ(
        written.failure().message,
        "Could not open \"" + (folder / "gone/a").native() + "\": No such file or directory.");
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
                  failing.failFrom(Step::Resize);
                  return WriteFile(failing, path, New) ? 1 : 0;
              }));
    EXPECT_EQ(spare.content(copyIn(spare)), Old);
}

TEST_F(WriterOfAnotherUser, WritesNothingOverOfWhichItCanKeepNoCopy) {
    ASSERT_EQ(::chmod(spare.path().c_str(), 0555), 0);
    EXPECT_EQ(0, asSomebody([&] {
                  const auto written = WriteFile(disk, path, New);
                  return !written && written.failure().message.ends_with(
                                         ": Permission denied.\n\"" + path.native() +
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

TEST(WritePrivateCopy, MakesAWholeFileForTheUserAloneOrNone) {
    const TempFolder folder;
    DiskFiles disk;
    FailingFiles files(disk);
    EXPECT_TRUE(ui::WritePrivateCopy(files, folder / "a", New));
    EXPECT_EQ(folder.content("a"), New);
    EXPECT_EQ(FactsOf(folder / "a").st_mode & 0777U, 0600U);
    EXPECT_FALSE(ui::WritePrivateCopy(files, folder / "a", Old));
    EXPECT_EQ(folder.content("a"), New);
    for (const Step step : {Step::Open, Step::Write, Step::Flush, Step::Read, Step::Close}) {
        files.failOnce(step);
        EXPECT_FALSE(ui::WritePrivateCopy(files, folder / "b", New));
        EXPECT_FALSE(folder.has("b"));
    }
}

} // namespace
