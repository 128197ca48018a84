// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/ConfigRewrite.h"

#include "support/FailingFiles.h"
#include "support/InChild.h"
#include "support/MortalFiles.h"
#include "support/TempProgramDirectory.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using scripts::ReplaceLine;
using support::FailingFiles;
using support::InChild;
using Step = FailingFiles::Step;

namespace {

const std::string Before = "bind a b\nname \"old\"\n" + std::string(5000, 'x') + "\nlast";
const std::string After = ReplaceLine(Before, 2, "name \"new and longer\"");

class Rewrite : public testing::Test {
protected:
    support::TempProgramDirectory directory;
    support::TempFolder game;
    ui::DiskFiles disk;
    FailingFiles files{disk};
    ui::Path path = game.put("config.cfg", Before);
    ui::Path copy = directory.folder() / "tempfile.cfg";

    ui::Result<scripts::Rewritten> rewrite() {
        return scripts::RewriteConfig(files, directory, path, Before, After);
    }

    std::string content() { return game.content("config.cfg"); }

    bool copyIsWhole() { return disk.exists(copy) && directory.files.content("tempfile.cfg") == Before; }

    bool fileIsWhole() { return content() == Before || content() == After; }

    /// Starts again with the file as it was and nothing beside the program.
    void reset() {
        files.failNothing();
        for (const auto& entry : std::filesystem::directory_iterator(directory.folder())) {
            std::filesystem::remove(entry.path());
        }
        game.put("config.cfg", Before);
    }

    std::string untouched(const std::string& cause) {
        return cause + "\nThe config file, " + path.native() + ", was not changed.";
    }
};

} // namespace

TEST(ReplaceLine, PutsTheLineInAndEndsAllLinesWithCrLf) {
    EXPECT_EQ("a\r\nX\r\nc\r\n", ReplaceLine("a\nb\rc", 2, "X"));
    EXPECT_EQ("X\r\n", ReplaceLine("a", 1, "X"));
    EXPECT_EQ("\r\n\r\nX\r\n", ReplaceLine("\n\n\n", 3, "X"));
    EXPECT_EQ("a\r\n", ReplaceLine("a\r\n", 2, "X"));
    EXPECT_EQ("", ReplaceLine("", 1, "X"));
    EXPECT_EQ("\r\n", ReplaceLine("old\r\n", 1, ""));
}

TEST(ReplacedLineText, ShowsGlyphsAsFarAsTheyCanBeRead) {
    EXPECT_EQ(
        "Line 3 was replaced: name \"ab\"", scripts::ReplacedLineText(
                                                3,
                                                "name \"\xE1"
                                                "b\"",
                                                ""));
    EXPECT_EQ(
        "Line 1 was replaced: \xC2\xB7\xC2\xB7\xC2\xB7", scripts::ReplacedLineText(1, "\x01\x7F\xFF", ""));
    EXPECT_EQ(
        "Line 1 was replaced: " + std::string(80, 'x') + "...",
        scripts::ReplacedLineText(1, std::string(81, 'x'), ""));
    EXPECT_EQ(
        "Line 1 was replaced: " + std::string(80, 'x'),
        scripts::ReplacedLineText(1, std::string(80, 'x'), ""));
    EXPECT_EQ("Line 1 was replaced: x  Oh.", scripts::ReplacedLineText(1, "x", "Oh."));
}

TEST_F(Rewrite, HasTheCopyOnTheDiskBeforeItTouchesTheFileAndDeletesItLast) {
    ASSERT_TRUE(rewrite());
    EXPECT_EQ(After, content());
    EXPECT_FALSE(directory.files.has("tempfile.cfg"));
    const std::string folder = directory.folder().filename().native();
    EXPECT_EQ(
        (std::vector<std::string>{
            "lock " + folder, "read config.cfg", "open tempfile.cfg", "write tempfile.cfg",
            "flush tempfile.cfg", "close tempfile.cfg", "read tempfile.cfg", "open config.cfg",
            "write config.cfg", "flush config.cfg", "close config.cfg", "read config.cfg",
            "remove tempfile.cfg"}),
        files.steps());
}

TEST_F(Rewrite, ThatFailsAtAnyStepLeavesTheOldBytesWholeSomewhere) {
    // How often each step is taken when nothing fails.
    const std::pair<Step, int> counts[] = {{Step::Lock, 1},  {Step::Read, 3},  {Step::Open, 2},
                                           {Step::Write, 2}, {Step::Flush, 2}, {Step::Close, 2},
                                           {Step::Remove, 1}};
    for (const auto& [step, steps] : counts) {
        for (const bool forEver : {false, true}) {
            for (int number = 1; number <= steps; ++number) {
                SCOPED_TRACE(testing::Message() << "step " << static_cast<int>(step) << " number " << number);
                reset();
                if (forEver) {
                    files.failFrom(step, number);
                } else {
                    files.failOnce(step, number);
                }
                const auto done = rewrite();
                if (step == Step::Remove) {
                    ASSERT_TRUE(done);
                    EXPECT_EQ(
                        "Could not remove \"" + copy.native() + "\": injected failure.",
                        done.value().leftover);
                    EXPECT_EQ(After, content());
                    EXPECT_TRUE(copyIsWhole());
                    continue;
                }
                ASSERT_FALSE(done);
                const std::string& message = done.failure().message;
                EXPECT_NE(std::string::npos, message.find("injected failure.")) << message;
                if (content() == Before) {
                    EXPECT_FALSE(directory.files.has("tempfile.cfg")) << "a copy of no use is left behind";
                    continue;
                }
                EXPECT_TRUE(copyIsWhole());
                EXPECT_NE(std::string::npos, message.find("\nThe config file, " + path.native() + ", may be"))
                    << message;
                EXPECT_NE(std::string::npos, message.find('"' + copy.native() + '"')) << message;
            }
        }
    }
}

TEST_F(Rewrite, OnADiskThatRunsFullLeavesTheOldBytesWholeSomewhere) {
    for (std::size_t room = 0; room < Before.size() + After.size(); room += 499) {
        SCOPED_TRACE(room);
        reset();
        files.failWritesAfter(room);
        const auto done = rewrite();
        ASSERT_FALSE(done);
        if (room < Before.size()) {
            EXPECT_EQ(Before, content());
            EXPECT_EQ(
                untouched("Could not write \"" + copy.native() + "\": injected failure."),
                done.failure().message);
            EXPECT_FALSE(directory.files.has("tempfile.cfg"));
        } else {
            EXPECT_TRUE(copyIsWhole());
            EXPECT_EQ(
                "Could not write \"" + path.native() + "\": injected failure.\nThe config file, " +
                    path.native() +
                    ", may be incomplete now. It was copied before, and the whole copy is kept as \"" +
                    copy.native() + "\".",
                done.failure().message);
        }
    }
    reset();
    files.failWritesAfter(Before.size() + After.size());
    EXPECT_TRUE(rewrite());
}

TEST_F(Rewrite, AgainstTheFileSizeLimitOfTheSystemLeavesTheOldBytesWholeSomewhere) {
    const auto limited = [&](std::size_t limit) {
        reset();
        return InChild([&] {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit size{static_cast<rlim_t>(limit), static_cast<rlim_t>(limit)};
            if (::setrlimit(RLIMIT_FSIZE, &size) != 0) {
                return 2;
            }
            const auto done = scripts::RewriteConfig(disk, directory, path, Before, After);
            return !done && done.failure().message.find("File too large") != std::string::npos ? 0 : 1;
        });
    };
    ASSERT_LT(Before.size(), After.size());
    EXPECT_EQ(0, limited(Before.size() - 1));
    EXPECT_EQ(Before, content());
    EXPECT_FALSE(directory.files.has("tempfile.cfg"));
    EXPECT_EQ(0, limited(Before.size()));
    EXPECT_NE(Before, content());
    EXPECT_TRUE(copyIsWhole());
}

TEST_F(Rewrite, WhoseProcessDiesAtAnyStepLeavesTheOldBytesWholeSomewhere) {
    for (const bool withOldCopy : {false, true}) {
        int deaths = 0;
        for (int lifetime = 1;; ++lifetime) {
            SCOPED_TRACE(lifetime);
            reset();
            if (withOldCopy) {
                directory.files.put("tempfile.cfg", "somebody's");
            }
            const int status = InChild([&] {
                support::MortalFiles mortal(disk, lifetime);
                return scripts::RewriteConfig(mortal, directory, path, Before, After) ? 0 : 1;
            });
            EXPECT_TRUE(fileIsWhole() || copyIsWhole());
            if (withOldCopy) {
                EXPECT_EQ(
                    "somebody's", directory.files.has("tempfile-1.cfg") &&
                                          !directory.files.content("tempfile-1.cfg").empty()
                                      ? directory.files.content("tempfile-1.cfg")
                                      : directory.files.content("tempfile.cfg"));
            }
            if (status == 0) {
                break;
            }
            ASSERT_EQ(support::MortalFiles::Death, status);
            ++deaths;
            // Whatever was left behind, the next run can work and loses nothing.
            const auto now = disk.read(path);
            ASSERT_TRUE(now);
            ASSERT_TRUE(scripts::RewriteConfig(disk, directory, path, now.value(), After));
            EXPECT_EQ(After, content());
        }
        EXPECT_EQ(withOldCopy ? 16 : 13, deaths);
    }
}

TEST_F(Rewrite, KeepsACopyThatAnEarlierRunLeft) {
    directory.files.put("tempfile.cfg", "second");
    directory.files.put("tempfile-1.cfg", "first");
    const auto done = rewrite();
    ASSERT_TRUE(done);
    EXPECT_EQ(
        "An older copy is kept as \"" + (directory.folder() / "tempfile-2.cfg").native() + "\".",
        done.value().leftover);
    EXPECT_EQ(After, content());
    EXPECT_FALSE(directory.files.has("tempfile.cfg"));
    EXPECT_EQ("first", directory.files.content("tempfile-1.cfg"));
    EXPECT_EQ("second", directory.files.content("tempfile-2.cfg"));
}

TEST_F(Rewrite, DoesNotReplaceACopyThatItCannotKeep) {
    directory.files.put("tempfile.cfg", "somebody's");
    files.failOnce(Step::Rename);
    const auto done = rewrite();
    ASSERT_FALSE(done);
    EXPECT_EQ(
        untouched("Could not rename \"" + copy.native() + "\": injected failure."), done.failure().message);
    EXPECT_EQ(Before, content());
    EXPECT_EQ("somebody's", directory.files.content("tempfile.cfg"));
    EXPECT_FALSE(directory.files.has("tempfile-1.cfg"));
}

TEST_F(Rewrite, StopsWhenTooManyOldCopiesAreKept) {
    directory.files.put("tempfile.cfg", "somebody's");
    for (int number = 1; number <= 99; ++number) {
        directory.files.put("tempfile-" + std::to_string(number) + ".cfg", "kept");
    }
    const auto done = rewrite();
    ASSERT_FALSE(done);
    EXPECT_EQ(
        untouched(
            "Could not create \"" + (directory.folder() / "tempfile-99.cfg").native() + "\": File exists."),
        done.failure().message);
    EXPECT_EQ(Before, content());
    EXPECT_EQ("somebody's", directory.files.content("tempfile.cfg"));
}

TEST_F(Rewrite, StopsWhenSomethingThatIsNoFileHasTheNameOfTheCopy) {
    std::filesystem::create_directory(copy);
    const auto inTheWay = rewrite();
    ASSERT_FALSE(inTheWay);
    EXPECT_EQ(
        untouched("Could not create \"" + copy.native() + "\": File exists."), inTheWay.failure().message);
    std::filesystem::remove(copy);
    std::filesystem::create_symlink("nowhere", copy);
    EXPECT_FALSE(rewrite());
    EXPECT_EQ(Before, content());
    EXPECT_FALSE(directory.files.has("nowhere"));
}

TEST_F(Rewrite, WritesThroughLinksAndKeepsThePermissions) {
    std::filesystem::create_hard_link(path, game / "hard.cfg");
    std::filesystem::create_symlink("config.cfg", game / "soft.cfg");
    ASSERT_EQ(0, ::chmod(path.c_str(), 0640));

    struct stat old {};

    ASSERT_EQ(0, ::stat(path.c_str(), &old));
    path = game / "soft.cfg";
    ASSERT_TRUE(rewrite());
    EXPECT_EQ(After, game.content("hard.cfg"));
    EXPECT_TRUE(std::filesystem::is_symlink(game / "soft.cfg"));

    struct stat now {};

    ASSERT_EQ(0, ::stat((game / "config.cfg").c_str(), &now));
    EXPECT_EQ(old.st_ino, now.st_ino);
    EXPECT_EQ(old.st_mode, now.st_mode);
    EXPECT_EQ(old.st_uid, now.st_uid);
    EXPECT_EQ(2U, now.st_nlink);
}

TEST_F(Rewrite, CopiesForNobodyElseToRead) {
    // A configuration file may hold the password of a server.
    ASSERT_EQ(0, ::chmod(path.c_str(), 0600));
    files.failOnce(Step::Write, 2);
    ASSERT_FALSE(rewrite());

    struct stat kept {};

    ASSERT_EQ(0, ::stat(copy.c_str(), &kept));
    EXPECT_EQ(0600U, kept.st_mode & 0777U);
}

TEST_F(Rewrite, RefusesAFileThatWouldBecomeTooLargeToReadAgain) {
    const std::string lines(ui::Files::MaxFileSize / 2 + 1, '\n');
    game.put("config.cfg", lines);
    const auto done = scripts::RewriteConfig(files, directory, path, lines, ReplaceLine(lines, 1, "x"));
    ASSERT_FALSE(done);
    EXPECT_EQ(untouched("It would become too large."), done.failure().message);
    EXPECT_EQ(lines, content());
    EXPECT_FALSE(directory.files.has("tempfile.cfg"));
}

TEST_F(Rewrite, RefusesTheCopyByWhateverName) {
    path = directory.files.put("tempfile.cfg", Before);
    std::filesystem::create_symlink(copy, game / "soft.cfg");
    std::filesystem::create_hard_link(copy, game / "hard.cfg");
    for (const ui::Path& name :
         {path, game / "soft.cfg", game / "hard.cfg", directory.folder() / "." / "tempfile.cfg"}) {
        const auto done = scripts::RewriteConfig(files, directory, name, Before, After);
        ASSERT_FALSE(done);
        EXPECT_EQ(
            "Could not alter \"" + name.native() +
                "\": VTM needs a file of this name for itself. Please copy it to another name first.",
            done.failure().message);
        EXPECT_EQ(Before, directory.files.content("tempfile.cfg"));
    }
    EXPECT_TRUE(files.steps().empty());
}

TEST_F(Rewrite, RefusesTheCopyByARelativeName) {
    const auto old = std::filesystem::current_path();
    std::filesystem::current_path(directory.folder());
    const auto done = scripts::AppendToConfig(files, directory, "tempfile.cfg", "x");
    std::filesystem::current_path(old);
    EXPECT_FALSE(done);
    EXPECT_FALSE(directory.files.has("tempfile.cfg"));
}

TEST_F(Rewrite, TakesAFileOfThatNameInAnotherFolder) {
    path = game.put("tempfile.cfg", Before);
    ASSERT_TRUE(rewrite());
    EXPECT_EQ(After, game.content("tempfile.cfg"));
}

TEST_F(Rewrite, LeavesAFileAloneThatAnotherProgramHasChanged) {
    game.put("config.cfg", "something else\n");
    const auto done = rewrite();
    ASSERT_FALSE(done);
    EXPECT_EQ(untouched("Another program has just changed the file."), done.failure().message);
    EXPECT_EQ("something else\n", content());
    EXPECT_FALSE(directory.files.has("tempfile.cfg"));
}

TEST_F(Rewrite, WaitsForNoOtherInstanceForEver) {
    const auto lock = disk.lockFolder(directory.folder());
    ASSERT_TRUE(lock);
    const auto done = rewrite();
    ASSERT_FALSE(done);
    EXPECT_EQ(
        untouched(
            "Could not lock \"" + directory.folder().native() + "\": another program is writing in it."),
        done.failure().message);
    EXPECT_EQ(Before, content());
}

TEST_F(Rewrite, CopiesToTheStandInFolderWhereTheProgramFolderIsNotWritable) {
    directory.isWritable = false;
    files.failOnce(Step::Write, 2);
    const auto done = rewrite();
    ASSERT_FALSE(done);
    EXPECT_EQ(Before, directory.standIn.content("tempfile.cfg"));
    EXPECT_FALSE(directory.files.has("tempfile.cfg"));
    game.put("config.cfg", Before);
    ASSERT_TRUE(rewrite());
    EXPECT_EQ(After, content());
}

TEST_F(Rewrite, OfAFileThatMayNotBeWrittenLeavesNothingBehind) {
    ASSERT_EQ(0, ::chmod(path.c_str(), 0444));
    const auto run = [&] {
        const auto done = scripts::RewriteConfig(disk, directory, path, Before, After);
        const bool told =
            !done && done.failure().message ==
                         untouched("Could not open \"" + path.native() + "\": Permission denied.");
        return told ? 0 : 1;
    };
    // The superuser may write everything, so somebody else tries.
    ASSERT_EQ(0, ::chmod(directory.folder().c_str(), 0777));
    ASSERT_EQ(0, ::chmod(game.path().c_str(), 0777));
    EXPECT_EQ(0, InChild([&] { return ::geteuid() == 0 && ::setuid(65534) != 0 ? 2 : run(); }));
    EXPECT_EQ(Before, content());
    EXPECT_FALSE(directory.files.has("tempfile.cfg"));
}

TEST_F(Rewrite, WithNoPlaceForTheCopyLeavesTheFileUntouched) {
    ASSERT_EQ(0, ::chmod(path.c_str(), 0666));
    ASSERT_EQ(0, ::chmod(directory.folder().c_str(), 0555));
    ASSERT_EQ(0, ::chmod(game.path().c_str(), 0777));
    EXPECT_EQ(0, InChild([&] {
                  if (::geteuid() == 0 && ::setuid(65534) != 0) {
                      return 2;
                  }
                  const auto done = scripts::RewriteConfig(disk, directory, path, Before, After);
                  const bool told =
                      !done &&
                      done.failure().message ==
                          untouched("Could not create \"" + copy.native() + "\": Permission denied.");
                  return told ? 0 : 1;
              }));
    EXPECT_EQ(Before, content());
    ASSERT_EQ(0, ::chmod(directory.folder().c_str(), 0755));
}

TEST_F(Rewrite, ThatCannotAppendAllSaysThatAPartMayStandInTheFile) {
    files.failWritesAfter(2);
    const auto done = scripts::AppendToConfig(files, directory, path, "more");
    ASSERT_FALSE(done);
    EXPECT_EQ(
        "Could not write \"" + path.native() + "\": injected failure.\nThe config file, " + path.native() +
            ", may end with a part of the new line now.",
        done.failure().message);
    EXPECT_EQ(Before + "mo", content());
}

TEST_F(Rewrite, AppendsAndMakesAFileThatIsNotThere) {
    EXPECT_TRUE(scripts::AppendToConfig(files, directory, path, "more"));
    EXPECT_EQ(Before + "more", content());
    EXPECT_TRUE(scripts::AppendToConfig(files, directory, game / "new.cfg", "x\r\n"));
    EXPECT_EQ("x\r\n", game.content("new.cfg"));
}
