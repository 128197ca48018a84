// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/IniSettingsStore.h"

#include "support/FailingFiles.h"
#include "support/InChild.h"
#include "support/TempProgramDirectory.h"
#include "ui/System.h"

#include <chrono>
#include <gtest/gtest.h>
#include <random>
#include <regex>
#include <string>
#include <vector>

namespace {

using support::TempFolder;
using ui::qt::IniSettingsStore;
using Pairs = std::vector<std::pair<std::string, std::string>>;

/// Settings as the toolkit writes them: with the ends of lines of the system.
std::string Written(const std::string& settings) {
    return ui::ThisSystem() == ui::System::Windows ? std::regex_replace(settings, std::regex("\n"), "\r\n")
                                                   : settings;
}

TEST(IniSettingsStore, HasNothingAtFirst) {
    ui::DiskFiles files;
    const TempFolder folder;
    const IniSettingsStore store(files, folder / "VTM/VTM.ini");
    EXPECT_EQ(store.read("options", "color1"), std::nullopt);
    EXPECT_TRUE(store.list("NameFiles").empty());
    EXPECT_FALSE(folder.has("VTM"));
}

TEST(IniSettingsStore, KeepsTextExactlyFromRunToRun) {
    ui::DiskFiles files;
    std::vector<std::string> values = {
        "",
        "True",
        "65535",
        "-1",
        "a,b, c",
        "\"quoted\"",
        "100%",
        "%20%",
        "back\\slash\\n",
        "  blanks before and after  ",
        "\t",
        "semicolon ; hash # equals = [bracket]",
        "@ByteArray(x)",
        "@@",
        "/home/j\xC3\xBCrgen/\xC3\x96l.vtn",
        "/home/\xFFnot\xFE utf-8.vtn",
        "line\r\nline",
        std::string("zero\0inside", 11),
        "\xEF\xBB\xBF mark",
        "\xF0\x9F\x98\x80",
    };
    std::mt19937 random(1); // NOLINT(cert-msc51-cpp): the same bytes in every run
    for (int i = 0; i < 200; ++i) {
        std::string value;
        for (auto length = random() % 12; length > 0; --length) {
            value.push_back(static_cast<char>(random() & 0xFFU));
        }
        values.push_back(value);
    }
    const TempFolder folder;
    {
        IniSettingsStore store(files, folder / "VTM.ini");
        for (std::size_t i = 0; i < values.size(); ++i) {
            store.write("options", "key" + std::to_string(i), values[i]);
            EXPECT_EQ(store.read("options", "key" + std::to_string(i)), values[i]);
        }
        EXPECT_TRUE(store.save());
    }
    // Another name for the file: what one run holds in memory is of no help to the next.
    std::filesystem::rename(folder / "VTM.ini", folder / "next.ini");
    const IniSettingsStore store(files, folder / "next.ini");
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(store.read("options", "key" + std::to_string(i)), values[i]) << i;
    }
}

TEST(IniSettingsStore, KeepsReadableTextReadable) {
    ui::DiskFiles files;
    const TempFolder folder;
    IniSettingsStore store(files, folder / "VTM.ini");
    store.write("options", "color1", "65535");
    store.write("NameFiles", "RecentFile1", "/home/j\xC3\xBCrgen/a.vtn");
    EXPECT_TRUE(store.save());
    EXPECT_EQ(
        folder.content("VTM.ini"),
        Written("[NameFiles]\nRecentFile1=/home/j\xC3\xBCrgen/a.vtn\n\n[options]\ncolor1=65535\n"));
}

TEST(IniSettingsStore, ListsASectionSorted) {
    ui::DiskFiles files;
    const TempFolder folder;
    IniSettingsStore store(files, folder / "VTM.ini");
    store.write("NameFiles", "RecentFile2", "b");
    store.write("NameFiles", "RecentFile1", "a");
    store.write("AnimFiles", "RecentFile1", "other");
    EXPECT_EQ(store.list("NameFiles"), (Pairs{{"RecentFile1", "a"}, {"RecentFile2", "b"}}));
    EXPECT_TRUE(store.save());
    store.write("NameFiles", "RecentFile4", "d");
    store.write("NameFiles", "RecentFile3", "");
    store.write("NameFiles", "RecentFile2", "new");
    EXPECT_EQ(
        store.list("NameFiles"),
        (Pairs{{"RecentFile1", "a"}, {"RecentFile2", "new"}, {"RecentFile3", ""}, {"RecentFile4", "d"}}));
}

TEST(IniSettingsStore, WritesOnlyWhenItIsSaved) {
    ui::DiskFiles files;
    const TempFolder folder;
    {
        IniSettingsStore store(files, folder / "VTM.ini");
        store.write("options", "color1", "1");
    }
    EXPECT_FALSE(folder.has("VTM.ini"));
}

TEST(IniSettingsStore, ChangesOnlyWhatItHasWritten) {
    ui::DiskFiles files;
    const TempFolder folder;
    folder.put("VTM.ini", "[options]\ncolor1=1\ncolor2=2\n");
    IniSettingsStore store(files, folder / "VTM.ini");
    EXPECT_EQ(store.read("options", "color1"), "1");
    store.write("options", "color1", "10");
    // Another program adds a key, changes one and removes one in the meantime.
    folder.put("VTM.ini", "[NameFiles]\nRecentFile1=/other.vtn\n\n[options]\ncolor1=5\ncolor3=33\n");
    EXPECT_TRUE(store.save());
    EXPECT_EQ(store.read("options", "color1"), "10");
    EXPECT_EQ(store.read("options", "color2"), std::nullopt);
    EXPECT_EQ(store.read("options", "color3"), "33");
    EXPECT_EQ(store.read("NameFiles", "RecentFile1"), "/other.vtn");
    EXPECT_EQ(
        folder.content("VTM.ini"),
        Written("[NameFiles]\nRecentFile1=/other.vtn\n\n[options]\ncolor1=10\ncolor3=33\n"));
}

TEST(IniSettingsStore, LosesNothingWhenProgramsSaveAtOnce) {
    ui::DiskFiles files;
    const TempFolder folder;
    constexpr int Programs = 4;
    constexpr int Saves = 25;
    std::vector<support::Child> programs;
    for (int program = 0; program < Programs; ++program) {
        programs.push_back(support::StartChild([&] {
            IniSettingsStore store(files, folder / "VTM/VTM.ini");
            bool isSaved = true;
            for (int i = 0; i < Saves; ++i) {
                store.write("section" + std::to_string(program), "key" + std::to_string(i), "value");
                // One that had to wait too long is told so, and has forgotten nothing.
                bool isDone = false;
                for (int attempt = 0; attempt < 20 && !isDone; ++attempt) {
                    isDone = store.save().ok();
                }
                isSaved = isSaved && isDone;
            }
            return isSaved ? 0 : 1;
        }));
    }
    for (const support::Child program : programs) {
        EXPECT_EQ(support::EndOf(program), 0);
    }
    const IniSettingsStore store(files, folder / "VTM/VTM.ini");
    for (int program = 0; program < Programs; ++program) {
        EXPECT_EQ(store.list("section" + std::to_string(program)).size(), std::size_t{Saves});
    }
}

TEST(IniSettingsStore, TakesAnyFileForSettings) {
    ui::DiskFiles files;
    std::mt19937 random(2); // NOLINT(cert-msc51-cpp): the same bytes in every run
    std::vector<std::string> contents = {
        "",
        "not an ini file at all",
        "[options\ncolor1=1\n",
        "[options]\ncolor1\n=\n==\n",
        "[options]\ncolor1=@Variant(\\0\\0\\0\\x7f\\xff\\xff)\n",
        "[options]\ncolor1=@Invalid()\n",
        "[options]\ncolor1=@Rect(1 2 3)\n",
        "[options]\ncolor1=\"unterminated\n",
        "[options]\ncolor1=\\x",
        "[options]\n/=1\na/=2\n",
        "[options]\ncolor1=a, @b, @Rect(1 2 3), \\0\n",
        std::string("\0\0\0\0", 4),
    };
    for (int i = 0; i < 50; ++i) {
        std::string junk;
        for (int length = 0; length < 300; ++length) {
            junk.push_back(static_cast<char>(random() & 0xFFU));
        }
        contents.push_back("[options]\ncolor2=2\ncolor1=" + junk);
    }
    for (const std::string& content : contents) {
        const TempFolder folder;
        folder.put("VTM.ini", content);
        IniSettingsStore store(files, folder / "VTM.ini");
        (void)store.read("options", "color1");
        (void)store.list("options");
        store.write("options", "color3", "3");
        EXPECT_TRUE(store.save());
        EXPECT_EQ(store.read("options", "color3"), "3");
        EXPECT_TRUE(store.save());
    }
}

TEST(IniSettingsStore, TakesAValueOfAnotherKindForAbsent) {
    ui::DiskFiles files;
    const TempFolder folder;
    folder.put("VTM.ini", "[options]\ncolor1=@Rect(1 2 3 4)\ncolor2=@Invalid()\ncolor4=4\n");
    const IniSettingsStore store(files, folder / "VTM.ini");
    EXPECT_EQ(store.read("options", "color1"), std::nullopt);
    EXPECT_EQ(store.read("options", "color2"), std::nullopt);
    EXPECT_EQ(store.list("options"), (Pairs{{"color4", "4"}}));
}

TEST(IniSettingsStore, ReadsCommasThatSomebodyTypedWithoutQuotes) {
    ui::DiskFiles files;
    const TempFolder folder;
    folder.put("VTM.ini", "[options]\ncolor1=1,5\nscreenshot=/home/me/a,b.bmp\ncolor2=a,, b\n");
    const IniSettingsStore store(files, folder / "VTM.ini");
    EXPECT_EQ(store.read("options", "color1"), "1,5");
    EXPECT_EQ(store.read("options", "screenshot"), "/home/me/a,b.bmp");
    EXPECT_EQ(store.read("options", "color2"), "a,,b");
}

TEST(IniSettingsStore, SeesWhatAnotherProgramHasSavedWhenItIsRefreshed) {
    ui::DiskFiles files;
    const TempFolder folder;
    IniSettingsStore store(files, folder / "VTM.ini");
    EXPECT_EQ(store.read("NameFiles", "RecentFile1"), std::nullopt);
    store.write("NameFiles", "RecentFile2", "mine");
    IniSettingsStore other(files, folder / "VTM.ini");
    other.write("NameFiles", "RecentFile1", "/other.vtn");
    other.write("NameFiles", "RecentFile2", "/another.vtn");
    EXPECT_TRUE(other.save());
    store.refresh();
    EXPECT_EQ(store.read("NameFiles", "RecentFile1"), "/other.vtn");
    EXPECT_EQ(store.read("NameFiles", "RecentFile2"), "mine") << "what is not saved yet stays";
}

TEST(IniSettingsStore, KeepsWhatItKnowsOfAFileThatCannotBeReadNow) {
    ui::DiskFiles files;
    const TempFolder folder;
    folder.put("VTM.ini", "[options]\ncolor1=1\n");
    IniSettingsStore store(files, folder / "VTM.ini");
    std::filesystem::remove(folder / "VTM.ini");
    std::filesystem::create_directory(folder / "VTM.ini");
    store.refresh();
    EXPECT_EQ(store.read("options", "color1"), "1");
    std::filesystem::remove(folder / "VTM.ini");
    store.refresh();
    EXPECT_EQ(store.read("options", "color1"), std::nullopt);
}

TEST(IniSettingsStore, SavesNothingToAFileThatItCouldNotRead) {
    const TempFolder folder;
    const std::string old = "[options]\ncolor1=1\n";
    folder.put("VTM.ini", old);
    ui::DiskFiles disk;
    support::FailingFiles files(disk);
    files.failOnce(support::FailingFiles::Step::Read);
    IniSettingsStore store(files, folder / "VTM.ini");
    const std::string reason =
        "Could not read \"" + ui::PathText(folder / "VTM.ini") + "\": injected failure.";
    ASSERT_FALSE(store.readable());
    EXPECT_EQ(store.readable().failure().message, reason);
    EXPECT_EQ(store.read("options", "color1"), std::nullopt);
    store.write("options", "color2", "2");
    const auto saved = store.save();
    ASSERT_FALSE(saved);
    EXPECT_EQ(
        saved.failure().message,
        "Could not write the settings \"" + ui::PathText(folder / "VTM.ini") + "\".\n" + reason);
    EXPECT_EQ(folder.content("VTM.ini"), old);
    store.refresh();
    EXPECT_TRUE(store.readable());
    EXPECT_EQ(store.read("options", "color1"), "1");
    EXPECT_TRUE(store.save());
    EXPECT_EQ(folder.content("VTM.ini"), Written("[options]\ncolor1=1\ncolor2=2\n"));
}

TEST(IniSettingsStore, CanReadAFileThatIsNotThere) {
    ui::DiskFiles files;
    const TempFolder folder;
    EXPECT_TRUE(IniSettingsStore(files, folder / "VTM/VTM.ini").readable());
}

TEST(IniSettingsStore, CannotReadAFolder) {
    ui::DiskFiles files;
    const TempFolder folder;
    std::filesystem::create_directory(folder / "VTM.ini");
    const IniSettingsStore store(files, folder / "VTM.ini");
    ASSERT_FALSE(store.readable());
    EXPECT_EQ(
        store.readable().failure().message,
        "Could not read \"" + ui::PathText(folder / "VTM.ini") + "\": Is a directory.");
}

TEST(IniSettingsStore, KeepsACopyOfADamagedFile) {
    ui::DiskFiles files;
    const TempFolder folder;
    const std::string damaged = "[options]\ncolor1=1\nthis is no line of settings\n";
    folder.put("VTM.ini", damaged);
    folder.put("VTM.ini.damaged-1", "of another day");
    IniSettingsStore store(files, folder / "VTM.ini");
    EXPECT_EQ(store.read("options", "color1"), "1");
    EXPECT_FALSE(folder.has("VTM.ini.damaged-2"));
    store.write("options", "color2", "2");
    EXPECT_TRUE(store.save());
    EXPECT_EQ(folder.content("VTM.ini.damaged-1"), "of another day");
    EXPECT_EQ(folder.content("VTM.ini.damaged-2"), damaged);
    EXPECT_EQ(folder.content("VTM.ini"), Written("[options]\ncolor1=1\ncolor2=2\n"));
    store.write("options", "color2", "3");
    EXPECT_TRUE(store.save());
    EXPECT_FALSE(folder.has("VTM.ini.damaged-3"));
}

TEST(IniSettingsStore, KeepsNoEndOfCopiesOfDamagedFiles) {
    ui::DiskFiles files;
    const TempFolder folder;
    const std::string damaged = "this is no line of settings\n";
    folder.put("VTM.ini", damaged);
    for (int number = 1; number <= 99; ++number) {
        folder.put("VTM.ini.damaged-" + std::to_string(number), "of another day");
    }
    IniSettingsStore store(files, folder / "VTM.ini");
    store.write("options", "color1", "1");
    const auto saved = store.save();
    ASSERT_FALSE(saved);
    EXPECT_TRUE(saved.failure().message.ends_with(".damaged-99\": File exists.")) << saved.failure().message;
    EXPECT_EQ(folder.content("VTM.ini"), damaged);
}

TEST(IniSettingsStore, SaysThatItCannotSave) {
    ui::DiskFiles files;
    const TempFolder folder;
    folder.put("VTM", "a file where the folder should be");
    IniSettingsStore store(files, folder / "VTM/VTM.ini");
    store.write("options", "color1", "1");
    const auto saved = store.save();
    ASSERT_FALSE(saved);
    EXPECT_EQ(
        saved.failure().message, "Could not write the settings \"" + ui::PathText(folder / "VTM/VTM.ini") +
                                     "\".\nCould not create \"" + ui::PathText(folder / "VTM") +
                                     "\": Not a directory.");
    EXPECT_EQ(store.read("options", "color1"), "1");
    std::filesystem::remove(folder / "VTM");
    EXPECT_TRUE(store.save());
    EXPECT_EQ(folder.content("VTM/VTM.ini"), Written("[options]\ncolor1=1\n"));
}

TEST(IniSettingsStore, KeepsTheOldFileWhateverFailsAndSaysSo) {
    using Step = support::FailingFiles::Step;
    const std::string old = "[options]\ncolor1=1\n";
    for (const bool isThere : {false, true}) {
        for (const Step step :
             {Step::Look, Step::Read, Step::Create, Step::Write, Step::Flush, Step::Close, Step::Rename,
              Step::Folder, Step::Lock}) {
            for (int number = 1; number < 4; ++number) {
                SCOPED_TRACE(testing::Message() << "step " << static_cast<int>(step) << " number " << number);
                const TempFolder folder;
                ui::DiskFiles disk;
                support::FailingFiles files(disk);
                if (isThere) {
                    folder.put("VTM.ini", old);
                }
                IniSettingsStore store(files, folder / "VTM.ini");
                store.write("options", "color2", "2");
                files.failOnce(step, number);
                const auto saved = store.save();
                const std::string now = folder.has("VTM.ini") ? folder.content("VTM.ini") : "";
                const std::string whole = Written((isThere ? old : "[options]\n") + "color2=2\n");
                if (saved) {
                    EXPECT_EQ(now, whole);
                    continue;
                }
                EXPECT_NE(saved.failure().message.find("injected failure."), std::string::npos);
                EXPECT_TRUE(now == whole || now == (isThere ? old : ""));
                // Nothing of what was to be saved is forgotten.
                EXPECT_EQ(store.read("options", "color2"), "2");
                files.failNothing();
                EXPECT_TRUE(store.save());
                EXPECT_EQ(folder.content("VTM.ini"), whole);
            }
        }
    }
}

TEST(IniSettingsStore, KeepsTheOldFileOnAFullDisk) {
    const TempFolder folder;
    const std::string old = "[options]\ncolor1=1\n";
    folder.put("VTM.ini", old);
    ui::DiskFiles disk;
    support::FailingFiles files(disk);
    IniSettingsStore store(files, folder / "VTM.ini");
    store.write("options", "color2", "2");
    for (std::size_t room = 0; room < old.size() + 9; ++room) {
        files.failWritesAfter(room);
        EXPECT_FALSE(store.save());
        EXPECT_EQ(folder.content("VTM.ini"), old);
    }
}

TEST(IniSettingsStore, WaitsForTheLockOfAnotherProgramTwoSecondsAtMost) {
    const TempFolder folder;
    const std::string old = "[options]\ncolor1=1\n";
    folder.put("VTM.ini", old);
    ui::DiskFiles files;
    IniSettingsStore store(files, folder / "VTM.ini");
    store.write("options", "color2", "2");
    for (const bool isFile : {true, false}) {
        const auto lock = isFile ? files.lockFile(folder / "VTM.ini") : files.lockFolder(folder.path());
        ASSERT_TRUE(lock);
        const auto start = std::chrono::steady_clock::now();
        const auto saved = store.save();
        const auto waited = std::chrono::steady_clock::now() - start;
        ASSERT_FALSE(saved);
        EXPECT_NE(saved.failure().message.find("\": another program is writing "), std::string::npos);
        EXPECT_GE(waited, std::chrono::milliseconds(1900));
        EXPECT_LT(waited, std::chrono::milliseconds(3500));
        EXPECT_EQ(folder.content("VTM.ini"), old);
    }
    // What another host has left behind where the toolkit would look for a lock keeps nobody out.
    folder.put("VTM.ini.lock", "4711\nprogram\nelsewhere\n");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(store.save());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(1500));
    EXPECT_EQ(folder.content("VTM.ini"), Written("[options]\ncolor1=1\ncolor2=2\n"));
}

TEST(IniSettingsStore, LeavesAFileAloneThatItCannotRead) {
    const TempFolder folder;
    folder.put("VTM.ini", "");
    std::filesystem::resize_file(folder / "VTM.ini", ui::Files::MaxFileSize + 1);
    ui::DiskFiles files;
    IniSettingsStore store(files, folder / "VTM.ini");
    store.write("options", "color1", "1");
    const auto saved = store.save();
    ASSERT_FALSE(saved);
    EXPECT_TRUE(saved.failure().message.ends_with("\": File too large.")) << saved.failure().message;
    EXPECT_EQ(std::filesystem::file_size(folder / "VTM.ini"), ui::Files::MaxFileSize + 1);
}

TEST(IniSettingsStore, WritesNothingThatTheFileHoldsAlready) {
    const TempFolder folder;
    folder.put("VTM.ini", Written("[options]\ncolor1=1\n"));
    ui::DiskFiles disk;
    support::FailingFiles files(disk);
    IniSettingsStore store(files, folder / "VTM.ini");
    store.write("options", "color1", "1");
    EXPECT_TRUE(store.save());
    EXPECT_EQ(files.count(support::FailingFiles::Step::Look), 0);
}

} // namespace
