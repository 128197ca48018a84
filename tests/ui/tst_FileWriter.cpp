// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/FileWriter.h"

#include "support/FailingFiles.h"
#include "support/TempProgramDirectory.h"
#include "ui/WriterFiles.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

using support::EntriesIn;
using support::FailingFiles;
using support::New;
using support::Old;
using support::TempFolder;
using support::Writer;
using ui::DiskFiles;
using ui::FileChange;
using ui::FileWritten;
using ui::Links;
using ui::WriteFile;
using Step = FailingFiles::Step;

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
            "rename a.vtn a.vtn", "folder " + ui::PathText(folder.path().filename())}));
}

TEST_F(Writer, PutsTheFileInPlaceOfAnotherNameWhereThatIsWanted) {
    folder.put("victim", Old);
    std::filesystem::create_hard_link(folder / "victim", path);
    EXPECT_TRUE(WriteFile(files, path, New, Links::Replace));
    EXPECT_EQ(folder.content("victim"), Old);
    EXPECT_EQ(content(), New);
    EXPECT_EQ(EntriesIn(folder), 2);
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
    EXPECT_TRUE(disk.sameFile(path, folder / "b.vtn"));
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
        steps, (std::vector<std::string>{
                   "look a.vtn",   "read a.vtn",  "open COPY",
                   "write COPY",   "flush COPY",  "read COPY",
                   "close COPY",   "open a.vtn",  "folder " + ui::PathText(spare.path().filename()),
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
                        EXPECT_NE(message.find('"' + ui::PathText(place / copy) + '"'), std::string::npos);
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
        written.failure().message, "Could not write \"" + ui::PathText(path) +
                                       "\": injected failure.\nThe file was put back as it was.");
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
        "Could not write \"" + ui::PathText(path) +
            "\": injected failure.\nThe file may be incomplete now. What it held before is kept whole as \"" +
            ui::PathText(folder / copy) + "\".");
    EXPECT_EQ(folder.content(copy), Old);
}

TEST_F(Writer, TellsThatTheNewFileMayNotBeOnTheDiskYet) {
    putOld();
    files.failOnce(Step::Folder);
    const auto written = WriteFile(files, path, New);
    ASSERT_FALSE(written);
    EXPECT_EQ(
        written.failure().message,
        "Could not folder \"" + ui::PathText(folder.path()) +
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
    EXPECT_EQ(
        written.status.failure().message, "Could not create \"" + ui::PathText(path) + "\": File exists.");
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

TEST_F(Writer, ReportsAFolderThatIsNotThere) {
    const auto written = WriteFile(files, folder / "gone/a", New);
    ASSERT_FALSE(written);
    EXPECT_EQ(
        written.failure().message,
        "Could not open \"" + ui::PathText(folder / "gone/a") + "\": No such file or directory.");
}

TEST(WritePrivateCopy, MakesAWholeFileForTheUserAloneOrNone) {
    const TempFolder folder;
    DiskFiles disk;
    FailingFiles files(disk);
    EXPECT_TRUE(ui::WritePrivateCopy(files, folder / "a", New));
    EXPECT_EQ(folder.content("a"), New);
    EXPECT_FALSE(ui::WritePrivateCopy(files, folder / "a", Old));
    EXPECT_EQ(folder.content("a"), New);
    for (const Step step : {Step::Open, Step::Write, Step::Flush, Step::Read, Step::Close}) {
        files.failOnce(step);
        EXPECT_FALSE(ui::WritePrivateCopy(files, folder / "b", New));
        EXPECT_FALSE(folder.has("b"));
    }
}

} // namespace
