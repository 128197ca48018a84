// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/InChild.h"
#include "support/TempProgramDirectory.h"
#include "ui/qt/IniSettingsStore.h"

#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace {

using support::TempFolder;
using ui::qt::IniSettingsStore;
using Pairs = std::vector<std::pair<std::string, std::string>>;

TEST(IniSettingsStore, HasNothingAtFirst) {
    const TempFolder folder;
    const IniSettingsStore store(folder / "VTM/VTM.ini");
    EXPECT_EQ(store.read("options", "color1"), std::nullopt);
    EXPECT_TRUE(store.list("NameFiles").empty());
    EXPECT_FALSE(folder.has("VTM"));
}

TEST(IniSettingsStore, KeepsTextExactlyFromRunToRun) {
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
        IniSettingsStore store(folder / "VTM.ini");
        for (std::size_t i = 0; i < values.size(); ++i) {
            store.write("options", "key" + std::to_string(i), values[i]);
            EXPECT_EQ(store.read("options", "key" + std::to_string(i)), values[i]);
        }
        EXPECT_TRUE(store.save());
    }
    // Another name for the file: what one run holds in memory is of no help to the next.
    std::filesystem::rename(folder / "VTM.ini", folder / "next.ini");
    const IniSettingsStore store(folder / "next.ini");
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(store.read("options", "key" + std::to_string(i)), values[i]) << i;
    }
}

TEST(IniSettingsStore, KeepsReadableTextReadable) {
    const TempFolder folder;
    IniSettingsStore store(folder / "VTM.ini");
    store.write("options", "color1", "65535");
    store.write("NameFiles", "RecentFile1", "/home/j\xC3\xBCrgen/a.vtn");
    EXPECT_TRUE(store.save());
    EXPECT_EQ(
        folder.content("VTM.ini"),
        "[NameFiles]\nRecentFile1=/home/j\xC3\xBCrgen/a.vtn\n\n[options]\ncolor1=65535\n");
}

TEST(IniSettingsStore, ListsASectionSorted) {
    const TempFolder folder;
    IniSettingsStore store(folder / "VTM.ini");
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
    const TempFolder folder;
    {
        IniSettingsStore store(folder / "VTM.ini");
        store.write("options", "color1", "1");
    }
    EXPECT_FALSE(folder.has("VTM.ini"));
}

TEST(IniSettingsStore, ChangesOnlyWhatItHasWritten) {
    const TempFolder folder;
    folder.put("VTM.ini", "[options]\ncolor1=1\ncolor2=2\n");
    IniSettingsStore store(folder / "VTM.ini");
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
        "[NameFiles]\nRecentFile1=/other.vtn\n\n[options]\ncolor1=10\ncolor3=33\n");
}

TEST(IniSettingsStore, KeepsTheOldFileWhenTheProgramDiesWhileItWrites) {
    const TempFolder folder;
    const std::string old = "[options]\ncolor1=1\n";
    folder.put("VTM.ini", old);
    // The system ends a program that writes past this size: nothing in it can tidy up any more.
    for (const rlim_t size : {300U, 20000U, 49999U}) {
        const int end = support::InChild([&] {
            IniSettingsStore store(folder / "VTM.ini");
            store.write("options", "color2", std::string(50000, 'x'));
            const rlimit limit{size, size};
            return ::setrlimit(RLIMIT_FSIZE, &limit) == 0 && store.save() ? 1 : 2;
        });
        EXPECT_EQ(end, -SIGXFSZ);
        EXPECT_EQ(folder.content("VTM.ini"), old);
    }
    // Nor is the next program kept out by what the dead one left.
    IniSettingsStore store(folder / "VTM.ini");
    store.write("options", "color2", "2");
    EXPECT_TRUE(store.save());
    EXPECT_EQ(folder.content("VTM.ini"), "[options]\ncolor1=1\ncolor2=2\n");
}

TEST(IniSettingsStore, LosesNothingWhenProgramsSaveAtOnce) {
    const TempFolder folder;
    constexpr int Programs = 4;
    constexpr int Saves = 25;
    std::vector<pid_t> programs;
    for (int program = 0; program < Programs; ++program) {
        programs.push_back(support::StartChild([&] {
            IniSettingsStore store(folder / "VTM/VTM.ini");
            bool isSaved = true;
            for (int i = 0; i < Saves; ++i) {
                store.write("section" + std::to_string(program), "key" + std::to_string(i), "value");
                isSaved = store.save().ok() && isSaved;
            }
            return isSaved ? 0 : 1;
        }));
    }
    for (const pid_t program : programs) {
        EXPECT_EQ(support::EndOf(program), 0);
    }
    const IniSettingsStore store(folder / "VTM/VTM.ini");
    for (int program = 0; program < Programs; ++program) {
        EXPECT_EQ(store.list("section" + std::to_string(program)).size(), std::size_t{Saves});
    }
}

TEST(IniSettingsStore, TakesAnyFileForSettings) {
    std::mt19937 random(2); // NOLINT(cert-msc51-cpp): the same bytes in every run
    std::vector<std::string> files = {
        "",
        "not an ini file at all",
        "[options\ncolor1=1\n",
        "[options]\ncolor1\n=\n==\n",
        "[options]\ncolor1=@Variant(\\0\\0\\0\\x7f\\xff\\xff)\n",
        "[options]\ncolor1=@Invalid()\n",
        "[options]\ncolor1=@Rect(1 2 3)\n",
        "[options]\ncolor1=\"unterminated\n",
        "[options]\ncolor1=\\x",
        std::string("\0\0\0\0", 4),
    };
    for (int i = 0; i < 50; ++i) {
        std::string junk;
        for (int length = 0; length < 300; ++length) {
            junk.push_back(static_cast<char>(random() & 0xFFU));
        }
        files.push_back("[options]\ncolor2=2\ncolor1=" + junk);
    }
    for (const std::string& content : files) {
        const TempFolder folder;
        folder.put("VTM.ini", content);
        IniSettingsStore store(folder / "VTM.ini");
        (void)store.read("options", "color1");
        (void)store.list("options");
        store.write("options", "color3", "3");
        EXPECT_TRUE(store.save());
        EXPECT_EQ(store.read("options", "color3"), "3");
        EXPECT_TRUE(store.save());
    }
}

TEST(IniSettingsStore, TakesAValueOfAnotherKindForAbsent) {
    const TempFolder folder;
    folder.put("VTM.ini", "[options]\ncolor1=@Rect(1 2 3 4)\ncolor2=@Invalid()\ncolor4=4\n");
    const IniSettingsStore store(folder / "VTM.ini");
    EXPECT_EQ(store.read("options", "color1"), std::nullopt);
    EXPECT_EQ(store.read("options", "color2"), std::nullopt);
    EXPECT_EQ(store.list("options"), (Pairs{{"color4", "4"}}));
}

TEST(IniSettingsStore, ReadsCommasThatSomebodyTypedWithoutQuotes) {
    const TempFolder folder;
    folder.put("VTM.ini", "[options]\ncolor1=1,5\nscreenshot=/home/me/a,b.bmp\ncolor2=a,, b\n");
    const IniSettingsStore store(folder / "VTM.ini");
    EXPECT_EQ(store.read("options", "color1"), "1,5");
    EXPECT_EQ(store.read("options", "screenshot"), "/home/me/a,b.bmp");
    EXPECT_EQ(store.read("options", "color2"), "a,,b");
}

TEST(IniSettingsStore, SeesWhatAnotherProgramHasSavedWhenItIsRefreshed) {
    const TempFolder folder;
    IniSettingsStore store(folder / "VTM.ini");
    EXPECT_EQ(store.read("NameFiles", "RecentFile1"), std::nullopt);
    store.write("NameFiles", "RecentFile2", "mine");
    IniSettingsStore other(folder / "VTM.ini");
    other.write("NameFiles", "RecentFile1", "/other.vtn");
    other.write("NameFiles", "RecentFile2", "/another.vtn");
    EXPECT_TRUE(other.save());
    store.refresh();
    EXPECT_EQ(store.read("NameFiles", "RecentFile1"), "/other.vtn");
    EXPECT_EQ(store.read("NameFiles", "RecentFile2"), "mine") << "what is not saved yet stays";
}

TEST(IniSettingsStore, KeepsACopyOfADamagedFile) {
    const TempFolder folder;
    const std::string damaged = "[options]\ncolor1=1\nthis is no line of settings\n";
    folder.put("VTM.ini", damaged);
    folder.put("VTM.ini.damaged-1", "of another day");
    IniSettingsStore store(folder / "VTM.ini");
    EXPECT_EQ(store.read("options", "color1"), "1");
    EXPECT_FALSE(folder.has("VTM.ini.damaged-2"));
    store.write("options", "color2", "2");
    EXPECT_TRUE(store.save());
    EXPECT_EQ(folder.content("VTM.ini.damaged-1"), "of another day");
    EXPECT_EQ(folder.content("VTM.ini.damaged-2"), damaged);
    EXPECT_EQ(folder.content("VTM.ini"), "[options]\ncolor1=1\ncolor2=2\n");
    store.write("options", "color2", "3");
    EXPECT_TRUE(store.save());
    EXPECT_FALSE(folder.has("VTM.ini.damaged-3"));
}

TEST(IniSettingsStore, SaysThatItCannotSave) {
    const TempFolder folder;
    folder.put("VTM", "a file where the folder should be");
    IniSettingsStore store(folder / "VTM/VTM.ini");
    store.write("options", "color1", "1");
    const auto saved = store.save();
    ASSERT_FALSE(saved);
    EXPECT_EQ(
        saved.failure().message,
        "Could not write the settings \"" + (folder / "VTM/VTM.ini").native() + "\".");
    EXPECT_EQ(store.read("options", "color1"), "1");
    std::filesystem::remove(folder / "VTM");
    EXPECT_TRUE(store.save());
    EXPECT_EQ(folder.content("VTM/VTM.ini"), "[options]\ncolor1=1\n");
}

TEST(IniSettingsStore, LiesInTheUsersConfigurationHome) {
    const TempFolder folder;
    const std::string old = ::getenv("XDG_CONFIG_HOME");
    ::setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1);
    {
        IniSettingsStore store;
        store.write("options", "color1", "1");
        EXPECT_TRUE(store.save());
    }
    ::setenv("XDG_CONFIG_HOME", old.c_str(), 1);
    EXPECT_EQ(folder.content("VTM/VTM.ini"), "[options]\ncolor1=1\n");
}

} // namespace
