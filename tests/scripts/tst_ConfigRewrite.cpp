// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/ConfigRewrite.h"

#include "scripts/ConfigWorld.h"
#include "support/InChild.h"

#include <gtest/gtest.h>
#include <optional>
#include <tuple>

using scripts::ReplaceLine;
using support::After;
using support::Before;
using support::FailingFiles;
using support::InChild;
using Step = FailingFiles::Step;

namespace {

class Rewrite : public support::ConfigWorld {};

} // namespace

TEST(ReplaceLine, PutsTheLineInAndEndsAllLinesWithCrLf) {
    EXPECT_EQ("a\r\nX\r\nc\r\n", ReplaceLine("a\nb\rc", 2, "X"));
    EXPECT_EQ("X\r\n", ReplaceLine("a", 1, "X"));
    EXPECT_EQ("\r\n\r\nX\r\n", ReplaceLine("\n\n\n", 3, "X"));
    EXPECT_EQ("a\r\n", ReplaceLine("a\r\n", 2, "X"));
    EXPECT_EQ("", ReplaceLine("", 1, "X"));
    EXPECT_EQ("\r\n", ReplaceLine("old\r\n", 1, ""));
}

TEST(ReplaceLine, KeepsACarriageReturnInsideALine) {
    // What hides the name in chat: the game ends its lines at the line feed.
    const std::string bind = "bind x \"say \rhello\"";
    EXPECT_EQ("X\r\n" + bind + "\r\nlast\r\n", ReplaceLine("name \"a\"\n" + bind + "\nlast", 1, "X"));
    EXPECT_EQ("X\r\n" + bind + "\r\n", ReplaceLine("name \"a\"\r\n" + bind + "\r\n", 1, "X"));
    EXPECT_EQ("X\r\n\r\r\r\na\r\rb\r\n", ReplaceLine("n\n\r\r\r\na\r\rb\n", 1, "X"));
    EXPECT_EQ("a\r\nX\r\nc\rd\r\n", ReplaceLine("a\rb\rc\rd\n", 2, "X")) << "the new line is one of its own";
    EXPECT_EQ("X\r\nb\r\n", ReplaceLine("a\nb\r", 1, "X")) << "and a line feed ends the last one";
}

TEST(ReplaceLine, EndsTheLinesOfAFileWithCarriageReturnsAloneWithCrLf) {
    EXPECT_EQ("a\r\nX\r\nc\r\n\r\nd\r\n", ReplaceLine("a\rb\rc\r\rd", 2, "X"));
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
    const std::string folder = ui::PathText(directory.folder().filename());
    EXPECT_EQ(
        (std::vector<std::string>{
            "lock " + folder, "lock config.cfg", "read config.cfg", "open tempfile.cfg", "write tempfile.cfg",
            "flush tempfile.cfg", "read tempfile.cfg", "close tempfile.cfg", "look config.cfg",
            "create config.cfg", "write config.cfg", "flush config.cfg", "read config.cfg",
            "close config.cfg", "rename config.cfg config.cfg",
            "folder " + ui::PathText(game.path().filename()), "remove tempfile.cfg"}),
        files.steps());
    EXPECT_TRUE(isTidy());
}

TEST_F(Rewrite, HasTheCopyOnTheDiskBeforeItWritesTheFileOver) {
    giveTwoNames();
    ASSERT_TRUE(rewrite());
    EXPECT_EQ(After, content());
    EXPECT_EQ(After, game.content("other.cfg"));
    EXPECT_FALSE(directory.files.has("tempfile.cfg"));
    const std::string folder = ui::PathText(directory.folder().filename());
    EXPECT_EQ(
        (std::vector<std::string>{
            "lock " + folder, "lock config.cfg", "read config.cfg", "open tempfile.cfg", "write tempfile.cfg",
            "flush tempfile.cfg", "read tempfile.cfg", "close tempfile.cfg", "look config.cfg",
            "read config.cfg", "open config.cfg", "resize config.cfg", "write config.cfg",
            "resize config.cfg", "write config.cfg", "flush config.cfg", "read config.cfg",
            "close config.cfg", "remove tempfile.cfg"}),
        files.steps());
    EXPECT_TRUE(isTidy());
}

TEST_F(Rewrite, ThatFailsAtAnyStepLeavesTheOldBytesWholeAndSaysWhere) {
    for (const bool isWrittenOver : {false, true}) {
        if (isWrittenOver) {
            giveTwoNames();
        }
        for (const Step step :
             {Step::Lock, Step::Look, Step::Read, Step::Open, Step::Create, Step::Write, Step::Resize,
              Step::Flush, Step::Close, Step::Rename, Step::Folder, Step::Remove}) {
            for (const bool forEver : {false, true}) {
                for (int number = 1; number <= 5; ++number) {
                    SCOPED_TRACE(
                        testing::Message()
                        << "step " << static_cast<int>(step) << " number " << number
                        << (forEver ? " for ever" : "") << (isWrittenOver ? " written over" : ""));
                    reset();
                    if (forEver) {
                        files.failFrom(step, number);
                    } else {
                        files.failOnce(step, number);
                    }
                    const auto done = rewrite();
                    if (done) {
                        EXPECT_EQ(After, content());
                        EXPECT_EQ(done.value().leftover.empty(), !directory.files.has("tempfile.cfg"));
                        continue;
                    }
                    const std::string& message = done.failure().message;
                    EXPECT_NE(std::string::npos, message.find("injected failure.")) << message;
                    const std::string file = "\nThe config file, " + ui::PathText(path) + ", ";
                    if (message.ends_with(file + "was not changed.") ||
                        message.ends_with(file + "was put back as it was.")) {
                        EXPECT_EQ(Before, content());
                        EXPECT_FALSE(directory.files.has("tempfile.cfg"))
                            << "a copy of no use is left behind";
                        EXPECT_TRUE(isTidy());
                        continue;
                    }
                    EXPECT_TRUE(copyIsWhole());
                    EXPECT_TRUE(
                        message.find(file + "may be incomplete now.") != std::string::npos ||
                        (message.find(file + "holds the new line") != std::string::npos &&
                         content() == After))
                        << message;
                    EXPECT_TRUE(message.ends_with(
                        " It was copied before, and the whole copy is kept as \"" + ui::PathText(copy) +
                        "\"."))
                        << message;
                }
            }
        }
    }
}

TEST_F(Rewrite, SaysThatTheFileWasPutBack) {
    giveTwoNames();
    files.failOnce(Step::Write, 2);
    const auto done = rewrite();
    ASSERT_FALSE(done);
    EXPECT_EQ(
        "Could not write \"" + ui::PathText(path) + "\": injected failure.\nThe config file, " +
            ui::PathText(path) + ", was put back as it was.",
        done.failure().message);
}

TEST_F(Rewrite, SaysThatTheNewFileMayNotBeOnTheDisk) {
    files.failOnce(Step::Folder);
    const auto done = rewrite();
    ASSERT_FALSE(done);
    EXPECT_EQ(
        "Could not folder \"" + ui::PathText(game.path()) + "\": injected failure.\nThe config file, " +
            ui::PathText(path) +
            ", holds the new line, but that may not be on the disk yet. It was copied before, and the whole "
            "copy is kept as \"" +
            ui::PathText(copy) + "\".",
        done.failure().message);
    EXPECT_EQ(After, content());
    EXPECT_TRUE(copyIsWhole());
}

TEST_F(Rewrite, OnADiskThatRunsFullLeavesTheOldBytesWhole) {
    for (const bool isWrittenOver : {false, true}) {
        if (isWrittenOver) {
            giveTwoNames();
        }
        for (std::size_t room = 0; room < Before.size() + 20; room += 499) {
            SCOPED_TRACE(room);
            reset();
            files.failWritesAfter(room);
            const auto done = rewrite();
            ASSERT_FALSE(done);
            const ui::Path& full = room < Before.size() ? copy : path;
            const std::string cause = "Could not write \"" + ui::PathText(full) + "\": injected failure.";
            if (isWrittenOver && room >= Before.size()) {
                EXPECT_EQ(
                    cause + "\nThe config file, " + ui::PathText(path) +
                        ", may be incomplete now. It was copied before, and the whole copy is kept as \"" +
                        ui::PathText(copy) + "\".",
                    done.failure().message);
                EXPECT_TRUE(copyIsWhole());
                continue;
            }
            EXPECT_EQ(Before, content());
            EXPECT_EQ(untouched(cause), done.failure().message);
            EXPECT_FALSE(directory.files.has("tempfile.cfg"));
            EXPECT_TRUE(isTidy());
        }
        reset();
        files.failWritesAfter(Before.size() + After.size());
        EXPECT_TRUE(rewrite());
    }
}

/// Whether the file is written over, and whether a copy of an earlier run is there.
class DyingRewrite : public Rewrite, public testing::WithParamInterface<std::tuple<bool, bool>> {};

INSTANTIATE_TEST_SUITE_P(Ways, DyingRewrite, testing::Combine(testing::Bool(), testing::Bool()));

TEST_P(DyingRewrite, LeavesTheOldBytesWholeSomewhereAtAnyStep) {
    const auto [isWrittenOver, withOldCopy] = GetParam();
    if (isWrittenOver) {
        giveTwoNames();
    }
    int deaths = 0;
    for (int lifetime = 1 + support::ChildrenBefore();; ++lifetime) {
        SCOPED_TRACE(lifetime);
        reset();
        if (withOldCopy) {
            directory.files.put("tempfile.cfg", "somebody's");
        }
        const int status = InChild([&] {
            files.dieAt(lifetime);
            return rewrite() ? 0 : 1;
        });
        EXPECT_TRUE(fileIsWhole() || copyIsWhole());
        EXPECT_TRUE(isWrittenOver || fileIsWhole());
        if (withOldCopy) {
            EXPECT_EQ(
                "somebody's", directory.files.content(
                                  directory.files.has("tempfile-1.cfg") ? "tempfile-1.cfg" : "tempfile.cfg"));
        }
        if (status == 0) {
            break;
        }
        ASSERT_EQ(FailingFiles::Death, status);
        ++deaths;
        // Whatever was left behind, the next run can work and loses nothing.
        const auto now = disk.read(path);
        ASSERT_TRUE(now);
        ASSERT_TRUE(scripts::RewriteConfig(disk, directory, path, now.value(), After));
        EXPECT_EQ(After, content());
    }
    EXPECT_EQ((isWrittenOver ? 19 : 17) + (withOldCopy ? 1 : 0), deaths);
}

TEST_F(Rewrite, KeepsACopyThatAnEarlierRunLeft) {
    directory.files.put("tempfile.cfg", "second");
    directory.files.put("tempfile-1.cfg", "first");
    const auto done = rewrite();
    ASSERT_TRUE(done);
    EXPECT_EQ(
        "An older copy is kept as \"" + ui::PathText(directory.folder() / "tempfile-2.cfg") + "\".",
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
        untouched("Could not rename \"" + ui::PathText(copy) + "\": injected failure."),
        done.failure().message);
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
            "Could not create \"" + ui::PathText(directory.folder() / "tempfile-99.cfg") +
            "\": File exists."),
        done.failure().message);
    EXPECT_EQ(Before, content());
    EXPECT_EQ("somebody's", directory.files.content("tempfile.cfg"));
}

TEST_F(Rewrite, StopsWhenSomethingThatIsNoFileHasTheNameOfTheCopy) {
    std::filesystem::create_directory(copy);
    const auto inTheWay = rewrite();
    ASSERT_FALSE(inTheWay);
    EXPECT_EQ(
        untouched("Could not create \"" + ui::PathText(copy) + "\": File exists."),
        inTheWay.failure().message);
    EXPECT_EQ(Before, content());
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

TEST_F(Rewrite, MakesTheLargestFileThatCanBeReadAgain) {
    const std::string after(ui::Files::MaxFileSize, 'x');
    EXPECT_TRUE(scripts::RewriteConfig(files, directory, path, Before, after));
    EXPECT_TRUE(disk.read(path).value() == after);
}

TEST_F(Rewrite, RefusesTheCopyByWhateverName) {
    path = directory.files.put("tempfile.cfg", Before);
    std::filesystem::create_hard_link(copy, game / "hard.cfg");
    for (const ui::Path& name : {path, game / "hard.cfg", directory.folder() / "." / "tempfile.cfg"}) {
        const auto done = scripts::RewriteConfig(files, directory, name, Before, After);
        ASSERT_FALSE(done);
        EXPECT_EQ(
            "Could not alter \"" + ui::PathText(name) +
                "\": VTM needs a file of this name for itself. Please copy it to another name first.",
            done.failure().message);
        EXPECT_EQ(Before, directory.files.content("tempfile.cfg"));
    }
    EXPECT_TRUE(files.steps().empty());
}

TEST_F(Rewrite, RefusesTheCopyByARelativeName) {
    const auto old = std::filesystem::current_path();
    std::filesystem::current_path(directory.folder());
    const auto done = scripts::AppendToConfig(files, directory, "tempfile.cfg", {}, "x");
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
            "Could not lock \"" + ui::PathText(directory.folder()) + "\": another program is writing in it."),
        done.failure().message);
    EXPECT_EQ(Before, content());
}

TEST_F(Rewrite, CopiesToTheStandInFolderWhereTheProgramFolderIsNotWritable) {
    directory.isWritable = false;
    giveTwoNames();
    files.failFrom(Step::Write, 2);
    const auto done = rewrite();
    ASSERT_FALSE(done);
    EXPECT_EQ(Before, directory.standIn.content("tempfile.cfg"));
    EXPECT_FALSE(directory.files.has("tempfile.cfg"));
    files.failNothing();
    game.put("config.cfg", Before);
    ASSERT_TRUE(rewrite());
    EXPECT_EQ(After, content());
}

/// Adding a line to a configuration file.
class Append : public Rewrite {
protected:
    ui::Status append(const std::optional<ui::Bytes>& before = Before, std::string_view bytes = "more") {
        return scripts::AppendToConfig(files, directory, path, before, bytes);
    }
};

TEST_F(Append, AddsAllOfTheLineAndMakesAFileThatIsNotThere) {
    EXPECT_TRUE(append());
    EXPECT_EQ(Before + "more", content());
    giveTwoNames();
    EXPECT_TRUE(append(Before + "more"));
    EXPECT_EQ(Before + "moremore", game.content("other.cfg"));
    EXPECT_TRUE(isTidy());
    EXPECT_TRUE(scripts::AppendToConfig(files, directory, game / "new.cfg", {}, "x\r\n"));
    EXPECT_EQ("x\r\n", game.content("new.cfg"));
}

TEST_F(Append, ThatCannotAddAllAddsNothing) {
    for (const bool isWrittenOver : {false, true}) {
        if (isWrittenOver) {
            giveTwoNames();
        }
        files.failOnce(Step::Write, isWrittenOver ? 2 : 1);
        const auto done = append();
        ASSERT_FALSE(done);
        EXPECT_EQ(
            "Could not write \"" + ui::PathText(path) + "\": injected failure.\nThe config file, " +
                ui::PathText(path) + (isWrittenOver ? ", was put back as it was." : ", was not changed."),
            done.failure().message);
        EXPECT_EQ(Before, content());
        EXPECT_TRUE(isTidy());
    }
}

TEST_F(Append, NamesTheWholeCopyOfWhatItCouldNotPutBack) {
    giveTwoNames();
    files.failFrom(Step::Write, 2);
    const auto done = append();
    ASSERT_FALSE(done);
    const std::string& message = done.failure().message;
    const std::string start =
        "Could not write \"" + ui::PathText(path) + "\": injected failure.\nThe config file, " +
        ui::PathText(path) +
        ", may be incomplete now. It was copied before, and the whole copy is kept as \"";
    ASSERT_TRUE(message.starts_with(start)) << message;
    const ui::Path kept = ui::PathFromText(message.substr(start.size(), message.size() - start.size() - 2));
    EXPECT_EQ(kept.parent_path(), game.path());
    EXPECT_EQ(kept.extension(), ".cfg");
    EXPECT_EQ(Before, disk.read(kept).value());
}

TEST_F(Append, LeavesAFileAloneThatAnotherProgramHasChanged) {
    game.put("config.cfg", "something else\n");
    const auto done = append();
    ASSERT_FALSE(done);
    EXPECT_EQ(untouched("Another program has just changed the file."), done.failure().message);
    EXPECT_EQ("something else\n", content());

    const auto made = append(std::nullopt);
    ASSERT_FALSE(made);
    EXPECT_EQ(untouched("Another program has just changed the file."), made.failure().message);
    EXPECT_EQ("something else\n", content());
}

TEST_F(Append, WaitsForWhoeverWritesTheFile) {
    // Of another installation, with a program folder of its own.
    auto other = disk.lockFile(path);
    ASSERT_TRUE(other);
    const auto done = append();
    ASSERT_FALSE(done);
    EXPECT_EQ(
        untouched("Could not lock \"" + ui::PathText(path) + "\": another program is writing it."),
        done.failure().message);
    EXPECT_EQ(Before, content());
    const auto replaced = rewrite();
    ASSERT_FALSE(replaced);
    EXPECT_EQ(
        untouched("Could not lock \"" + ui::PathText(path) + "\": another program is writing it."),
        replaced.failure().message);
    other = ui::Failure{"released"};
    EXPECT_TRUE(append());
}

TEST_F(Append, RefusesAFileThatCouldNotBeReadAgain) {
    const std::string lines(ui::Files::MaxFileSize, '\n');
    game.put("config.cfg", lines);
    const auto done = append(lines, "x");
    ASSERT_FALSE(done);
    EXPECT_EQ(untouched("It would become too large."), done.failure().message);
    EXPECT_EQ(lines.size(), std::filesystem::file_size(path));
}

TEST_F(Append, FillsAFileToTheLastByteThatCanBeRead) {
    const std::string lines(ui::Files::MaxFileSize - 1, '\n');
    game.put("config.cfg", lines);
    EXPECT_TRUE(append(lines, "x"));
    EXPECT_TRUE(content() == lines + "x");
    EXPECT_TRUE(disk.read(path));
}

TEST_F(Append, OfTwoInstallationsAtOnceLosesNoLine) {
    constexpr int Programs = 4;
    constexpr int Lines = 10;
    game.put("config.cfg", "");
    std::vector<support::Child> programs;
    for (int program = 0; program < Programs; ++program) {
        programs.push_back(support::StartChild([&, program] {
            const support::TempProgramDirectory own;
            ui::DiskFiles mine;
            int told = 0;
            for (int line = 0; line < Lines;) {
                const auto before = mine.read(path);
                if (!before) {
                    return 1;
                }
                const std::string text = std::to_string(program) + "." + std::to_string(line) + "\r\n";
                // One that came too late is told so, and tries again.
                line += scripts::AppendToConfig(mine, own, path, before.value(), text) ? 1 : 0;
                if (++told == 100000) {
                    return 2;
                }
            }
            return 0;
        }));
    }
    for (const support::Child program : programs) {
        EXPECT_EQ(0, support::EndOf(program));
    }
    const std::string lines = content();
    for (int program = 0; program < Programs; ++program) {
        for (int line = 0; line < Lines; ++line) {
            const std::string text = std::to_string(program) + "." + std::to_string(line) + "\r\n";
            EXPECT_NE(std::string::npos, lines.find(text)) << text;
        }
    }
    EXPECT_EQ(static_cast<std::size_t>(Programs * Lines * 5), lines.size());
}
